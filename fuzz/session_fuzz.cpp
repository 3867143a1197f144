// A document and a sequence of user actions, both from the fuzzer: setContent, then
// caret moves, typing, Delete and Backspace, breaks, formatting, lists, undo and redo,
// with the session driver's checks after every step (caret and pivot in range, no
// caret inside markup of a well-formed document, caret commands that do not edit, no
// undocumented exception) and the history's round trip at the end. Any failure prints
// the session as a script of the foedit tool and aborts, except for the invariants of
// faults already reported (robustness/KnownFaults.h; FOEDIT_SESSION_STRICT=1 makes those
// fail too).
//
// Input layout: two bytes, big-endian, give the length K of the action bytes that
// follow; the rest is the document as UTF-8. scripts/fuzz.sh builds seeds of this shape
// from the corpus documents.
#include "robustness/KnownFaults.h"
#include "robustness/SessionDriver.h"
#include "robustness/StepGenerator.h"

#include "support/Exception.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int maxSteps = 48;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Core::setLogSink([](const Core::String &) {});
    if (size < 2)
        return 0;
    const std::size_t declared = (static_cast<std::size_t>(data[0]) << 8) | data[1];
    const std::size_t actionBytes = std::min(declared, size - 2);
    const std::uint8_t *actions = data + 2;
    const std::string_view markup(reinterpret_cast<const char *>(actions + actionBytes),
                                  size - 2 - actionBytes);

    const Core::String document = Core::String::fromUtf8(markup);
    const std::vector<foedit::test::Step> steps = foedit::test::decodeSession(actions, actionBytes, maxSteps);
    const foedit::test::SessionResult result = foedit::test::runSession(document, steps, {});
    if (result.violation && !foedit::test::isReportedFault(*result.violation)) {
        std::string report = "session_fuzz: ";
        report += result.violation->invariant + ": " + result.violation->detail + "\n";
        report +=
            foedit::test::scriptText("# the document is the input after its action bytes", result.script);
        std::fputs(report.c_str(), stderr);
        std::abort();
    }
    return 0;
}
