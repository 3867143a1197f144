// Seeded random editing sessions on every document of the corpus: the engine must never
// crash, hang, read out of range, put the caret inside markup or lose the user's work.
// A failing session is shortened and printed as a script of the foedit tool.
//
// Environment:
//   FOEDIT_SESSION_STEPS         steps per session (default 150)
//   FOEDIT_SESSION_SEEDS         sessions per document (default 3)
//   FOEDIT_SESSION_STEP_SECONDS  a step running longer is a hang (default 60)
//   FOEDIT_SESSION_STRICT        1: fail on the invariants of faults already reported too
//   FOEDIT_SESSION_SHRINK_REPLAYS  replays spent shortening a session of such a fault
//                                (default 40; a failing session gets 400)
//
// At the end the program prints, per operation, how often a step left markup that
// libxml2 refuses: a number to drive down, not a failure.
#include "robustness/HangWatchdog.h"
#include "robustness/KnownFaults.h"
#include "robustness/SessionDriver.h"
#include "robustness/SessionShrinker.h"
#include "robustness/StepGenerator.h"

#include "common/MarkedDocument.h"
#include "common/TestPaths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

using namespace foedit::test;

namespace {

int environmentNumber(const char *name, int fallback)
{
    const char *value = std::getenv(name);
    if (!value || !*value)
        return fallback;
    const int number = std::atoi(value);
    return number > 0 ? number : fallback;
}

OperationTally &suiteTally()
{
    static OperationTally tally;
    return tally;
}

HangWatchdog &watchdog()
{
    static HangWatchdog dog(std::chrono::seconds(environmentNumber("FOEDIT_SESSION_STEP_SECONDS", 60)));
    return dog;
}

std::map<std::string, int> &suiteFindings();

class TallyReport : public ::testing::Environment {
public:
    void TearDown() override
    {
        if (!suiteFindings().empty()) {
            std::cout << "\nSessions that showed an engine fault already reported, by invariant:\n";
            for (const auto &[invariant, count] : suiteFindings())
                std::cout << std::setw(6) << count << "  " << invariant << '\n';
        }
        if (suiteTally().byOperation().empty())
            return;
        std::cout << "\nSteps that left markup libxml2 refuses, by operation (" << suiteTally().totalBreaks()
                  << " in all):\n";
        suiteTally().print(std::cout);
    }
};
[[maybe_unused]] const auto *const tallyReport = ::testing::AddGlobalTestEnvironment(new TallyReport);

// FNV-1a of the file name, so each document has its own sessions whatever the order.
std::uint64_t seedOf(const std::string &name, int session)
{
    std::uint64_t hash = 1469598103934665603ull;
    for (const char c : name) {
        hash ^= static_cast<unsigned char>(c);
        hash *= 1099511628211ull;
    }
    return hash + static_cast<std::uint64_t>(session);
}

Core::String contentAsLoaded(const std::string &path)
{
    SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
    buffer->setContentFromFile(path.c_str());
    return buffer->getContent();
}

DriverOptions watchedOptions(const std::string &label)
{
    DriverOptions options;
    options.label = label;
    options.stepStarting = [](const std::string &line) { watchdog().stepStarting(line); };
    options.stepFinished = [] { watchdog().stepFinished(); };
    return options;
}

std::map<std::string, int> &suiteFindings()
{
    static std::map<std::string, int> findings;
    return findings;
}

void report(const std::string &path, const Core::String &document, const std::vector<Step> &steps,
            const SessionResult &failed, const DriverOptions &options)
{
    const bool failing = !isReportedFault(*failed.violation);
    const int replays = failing ? 400 : environmentNumber("FOEDIT_SESSION_SHRINK_REPLAYS", 40);
    const ShrinkResult shrunk =
        shrinkSession(document, steps, sameInvariantAs(*failed.violation), options, replays);
    std::ostringstream message;
    message << *failed.violation << "\n\nShortest failing session found (" << shrunk.steps.size() << " of "
            << steps.size() << " steps, " << shrunk.replays << " replays):\n"
            << scriptText("open " + path, shrunk.result.script)
            << "which gives: " << *shrunk.result.violation;
    if (failing) {
        const Core::String smaller =
            shrinkDocument(document, shrunk.steps, sameInvariantAs(*failed.violation), options, 200);
        ADD_FAILURE() << message.str() << "\n\nThe same steps fail on this shorter document:\n" << smaller;
        return;
    }
    ++suiteFindings()[failed.violation->invariant];
    std::cout << "[ FINDING  ] an engine fault already reported (fails with FOEDIT_SESSION_STRICT=1):\n"
              << message.str() << "\n";
}

class CorpusSessionTest : public ::testing::TestWithParam<std::string> {};

TEST_P(CorpusSessionTest, SeededSessionsKeepEveryInvariant)
{
    const std::string path = GetParam();
    const std::string name = std::filesystem::path(path).filename().string();
    const Core::String document = contentAsLoaded(path);
    const int sessions = environmentNumber("FOEDIT_SESSION_SEEDS", 3);
    const int stepCount = environmentNumber("FOEDIT_SESSION_STEPS", 150);
    for (int session = 0; session < sessions; ++session) {
        const std::string label = name + " seed " + std::to_string(seedOf(name, session));
        SCOPED_TRACE(label);
        watchdog().sessionStarting("open " + path);
        const std::vector<Step> steps = generateSession(seedOf(name, session), stepCount);
        const DriverOptions options = watchedOptions(label);
        const SessionResult result = runSession(document, steps, options);
        suiteTally().add(result.tally);
        if (result.violation)
            report(path, document, steps, result, options);
    }
}

INSTANTIATE_TEST_SUITE_P(Corpus, CorpusSessionTest, ::testing::ValuesIn(corpusFiles()), corpusParamName);

} // namespace
