#pragma once

// Plays an editing session on a document through the public API, as a host would, and
// checks after every step what must always hold:
//
//  - caret and pivot are both -1 or both positions in the string;
//  - neither splits a tag, an entity, a comment or a CDATA section, and the caret is
//    in no list label;
//  - a caret command (arrows, Home, End, clicks, selection commands) changes neither
//    the string nor the history, and a break of no known type changes nothing;
//  - no exception escapes but the kinds the engine documents (those are counted);
//  - at the end, undoing the whole session gives back the exact original string, and
//    redoing it the exact final string.
//
// It also measures, without failing, how often a step left markup that libxml2 refuses
// where it had accepted it before, per operation (OperationTally).
//
// Each step is written down as a line of the foedit tool's script language ("right",
// "type abc", "backspace", ...), so that a failing session can be read, replayed and
// shortened (SessionShrinker). A few actions the tool has no command for are written in
// the same form ("shift-caret 120", "column-break after", "list other").

#include "robustness/OperationTally.h"
#include "robustness/SessionBuffer.h"
#include "robustness/SessionStep.h"

#include "support/SmartPtr.h"
#include "support/String.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace foedit::test {

struct Violation {
    std::string invariant; // what broke, in a few words; the shrinker keeps it fixed
    std::string detail;
    int step = -1; // index of the step after which it showed; -1 for the history check
};
std::ostream &operator<<(std::ostream &out, const Violation &violation);

struct DriverOptions {
    // Parse the markup with libxml2 after every change (the ill-formedness measure);
    // only for a document that is well formed at the start.
    bool measureWellFormedness = true;
    // Check where caret and pivot stand; only while the markup is well formed, since
    // in broken markup "inside a tag" has no sure meaning.
    bool checkCaretPlaces = true;
    // Names the session in the tally ("basic__list.fo seed 3").
    std::string label;
    // Told of each step before it runs, with its script line, and after (a watchdog).
    std::function<void(const std::string &line)> stepStarting;
    std::function<void()> stepFinished;
};

class SessionDriver {
public:
    // A fresh buffer configured as the designer configures it, loaded with `document`
    // by setContent(document, true).
    SessionDriver(Core::String const &document, DriverOptions options);

    // Plays one step and checks the invariants; the first one broken, if any.
    std::optional<Violation> play(const Step &step);
    // Undoes the whole session and redoes it, checking both ends. Skipped (no violation)
    // when the history reached its limit, since the oldest steps then fell off.
    std::optional<Violation> checkHistory();

    const std::vector<std::string> &script() const { return lines; }
    const OperationTally &tally() const { return counts; }
    SessionBuffer &buffer() { return *document; }
    bool historyWasTrimmed() const { return trimmed; }

private:
    // A step resolved against the document as it stands: its script lines, its name in
    // the tally (empty when the step does nothing here) and the engine call.
    struct Plan {
        std::string operation;
        std::vector<std::string> lines;
        std::function<void()> action;
        bool caretOnly = false;   // must change neither the string nor the history
        bool mustNotEdit = false; // must leave the string as it is
    };
    static Plan nothingToDo(std::string comment);
    Plan plan(const Step &step);
    Plan planArrow(const Step &step);
    Plan planClick(const Step &step);
    Plan planTyping(const Step &step);
    Plan planBreak(const Step &step);
    Plan planFormatting(const Step &step);
    Plan planList(const Step &step);
    std::optional<Violation> checkAfter(const Plan &plan, const Core::String &before, int undoBefore,
                                        int redoBefore);
    std::optional<Violation> checkCaretRange(const std::string &when) const;
    std::optional<Violation> checkCaretPlaces(const Core::String &content);
    void measure(const std::string &operation, const Core::String &content);
    Violation violation(std::string invariant, std::string detail) const;

    SmartPtr<SessionBuffer> document;
    DriverOptions options;
    Core::String original;
    std::vector<std::string> lines;
    OperationTally counts;
    int stepIndex = -1;
    bool mergeSetting = false; // the script's "set merge-inline" as last written
    bool originalWellFormed = true;
    bool wellFormedNow = true;
    bool trimmed = false;
};

struct SessionResult {
    std::optional<Violation> violation;
    std::vector<std::string> script;
    OperationTally tally;
    bool historyTrimmed = false;
};

// Plays every step, then checks the history; stops at the first violation.
SessionResult runSession(Core::String const &document, const std::vector<Step> &steps,
                         const DriverOptions &options);

// The script as text, one step a line, after `header` (an "open FILE" line).
std::string scriptText(const std::string &header, const std::vector<std::string> &script);

} // namespace foedit::test
