#include "robustness/SessionDriver.h"
#include "robustness/MarkupInterior.h"
#include "robustness/WellFormedness.h"

#include "common/StandardDocument.h"

#include "support/Exception.h"
#include "support/XmlParseException.h"

#include <algorithm>
#include <exception>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace foedit::test {

namespace {

// Up to `around` units each side of `center`, with "|" at the caret and "^" at the
// pivot when they fall inside, as one line.
std::string excerpt(const Core::String &text, int center, int caret, int pivot, int around = 40)
{
    const int from = std::max(0, center - around);
    const int to = std::min(text.length(), center + around);
    Core::String out;
    for (int i = from; i <= to; ++i) {
        if (i == pivot && pivot != caret)
            out.append(u'^');
        if (i == caret)
            out.append(u'|');
        if (i < to)
            out.append(text[i] == u'\n' ? u'~' : text[i]);
    }
    return out.toUtf8();
}

std::string mismatch(const Core::String &expected, const Core::String &actual)
{
    int first = 0;
    const int shorter = std::min(expected.length(), actual.length());
    while (first < shorter && expected[first] == actual[first])
        ++first;
    std::ostringstream out;
    out << "lengths " << expected.length() << " and " << actual.length() << ", first difference at " << first
        << "\n    expected: " << excerpt(expected, first, -1, -1)
        << "\n    actual:   " << excerpt(actual, first, -1, -1);
    return out.str();
}

// Delete in front of a nested block turns the block's closing tag into a line break,
// "<fo:block/>", but records the insertion as "</fo:block>", of the same length: undo is
// exact, and a redo brings back the closing tag. The engine must do so (stored
// documents rest on it), so a redone session may differ from its end in that way only.
bool sameUpToRedoneLineBreaks(const Core::String &expected, const Core::String &redone)
{
    if (expected.length() != redone.length())
        return false;
    for (int i = 0; i < expected.length(); ++i) {
        if (expected[i] == redone[i])
            continue;
        const int tag = i - 1;
        if (!expected.matchesAt(tag, "<fo:block/>") || !redone.matchesAt(tag, "</fo:block>"))
            return false;
        i = tag + 10;
    }
    return true;
}

bool isDocumented(const Core::Exception &exception)
{
    return dynamic_cast<const Core::NullPointerException *>(&exception) ||
           dynamic_cast<const Core::IOException *>(&exception) ||
           dynamic_cast<const Core::LengthException *>(&exception) ||
           dynamic_cast<const Xml::XmlParseException *>(&exception);
}

// A caret command records nothing, but ends a running typing sequence, whose group
// then gets its closing marker.
bool onlyClosedTheTypingGroup(const EditActionStack &history, int undoBefore, int redoBefore)
{
    if (history.redoActionCount() != redoBefore)
        return false;
    const int added = history.undoActionCount() - undoBefore;
    return added == 0 || (added == 1 && history.getUndoActions().back().getType() == EditAction::GroupEnd);
}

} // namespace

std::ostream &operator<<(std::ostream &out, const Violation &violation)
{
    out << violation.invariant;
    if (violation.step >= 0)
        out << " (after step " << violation.step + 1 << ")";
    else
        out << " (at the history check)";
    return out << ": " << violation.detail;
}

SessionDriver::SessionDriver(Core::String const &text, DriverOptions driverOptions)
    : document(new SessionBuffer()), options(std::move(driverOptions))
{
    configureStandardHost(*document); // the designer's configuration, as the foedit tool makes it
    document->setContent(text, true);
    original = document->getContent();
    if (options.measureWellFormedness)
        originalWellFormed = wellFormedNow = isWellFormedXml(original);
}

std::optional<Violation> SessionDriver::play(const Step &step)
{
    ++stepIndex;
    Plan planned = plan(step);
    lines.insert(lines.end(), planned.lines.begin(), planned.lines.end());
    if (planned.operation.empty())
        return std::nullopt;
    const Core::String before = document->getContent();
    const EditActionStack &history = document->getActionStack();
    const int undoBefore = history.undoActionCount();
    const int redoBefore = history.redoActionCount();
    if (options.stepStarting)
        options.stepStarting(lines.back());
    std::optional<std::string> escaped;
    try {
        planned.action();
    } catch (const Core::Exception &exception) {
        if (isDocumented(exception))
            counts.documentedException(planned.operation);
        else
            escaped = exception.kind() + std::string(": ") + exception.what();
    } catch (const std::length_error &) {
        counts.documentedException(planned.operation);
    } catch (const std::exception &exception) {
        escaped = exception.what();
    }
    if (options.stepFinished)
        options.stepFinished();
    if (escaped)
        return violation("an undocumented exception escaped", *escaped);
    return checkAfter(planned, before, undoBefore, redoBefore);
}

std::optional<Violation> SessionDriver::checkAfter(const Plan &planned, const Core::String &before,
                                                   int undoBefore, int redoBefore)
{
    const Core::String content = document->getContent();
    const bool changed = content != before;
    counts.played(planned.operation, changed);
    const EditActionStack &history = document->getActionStack();
    if (history.undoActionCount() >= history.getLimit())
        trimmed = true;
    if (auto broken = checkCaretRange("after the step"))
        return broken;
    if (planned.caretOnly && changed)
        return violation("a caret command edited the document", mismatch(before, content));
    if (planned.caretOnly && !onlyClosedTheTypingGroup(history, undoBefore, redoBefore))
        return violation("a caret command changed the history",
                         "undo and redo lists went from " + std::to_string(undoBefore) + " and " +
                             std::to_string(redoBefore) + " actions to " +
                             std::to_string(history.undoActionCount()) + " and " +
                             std::to_string(history.redoActionCount()));
    if (planned.mustNotEdit && changed)
        return violation("a break of no known type edited the document", mismatch(before, content));
    if (changed)
        measure(planned.operation, content);
    return checkCaretPlaces(content);
}

std::optional<Violation> SessionDriver::checkCaretRange(const std::string &when) const
{
    const int caret = document->getCaretPos();
    const int pivot = document->getSelectionPivotPos();
    const int length = document->getContent().length();
    const auto valid = [length](int p) { return p >= 0 && p < length; };
    const bool bothNone = caret == -1 && pivot == -1;
    if (bothNone || (valid(caret) && valid(pivot)))
        return std::nullopt;
    return violation("caret or pivot outside the document", when + ": caret " + std::to_string(caret) +
                                                                ", pivot " + std::to_string(pivot) +
                                                                ", length " + std::to_string(length));
}

// Where the caret stands is checked only in well-formed markup: in markup that is
// broken, "inside a tag" has no sure meaning (and a step that broke it is counted by
// `measure`).
std::optional<Violation> SessionDriver::checkCaretPlaces(const Core::String &content)
{
    if (!options.checkCaretPlaces || !wellFormedNow)
        return std::nullopt;
    const int caret = document->getCaretPos();
    const int pivot = document->getSelectionPivotPos();
    for (const int position : {caret, pivot}) {
        const MarkupInterior interior = markupInteriorAt(content, position);
        if (interior != MarkupInterior::Outside)
            return violation(std::string(position == caret ? "caret " : "pivot ") + describe(interior),
                             excerpt(content, position, caret, pivot));
    }
    if (caret >= 0 && document->caretIsInsideListItemLabel())
        return violation("caret inside a list label", excerpt(content, caret, caret, pivot));
    return std::nullopt;
}

void SessionDriver::measure(const std::string &operation, const Core::String &content)
{
    if (!options.measureWellFormedness || !originalWellFormed)
        return;
    const bool wasWellFormed = wellFormedNow;
    wellFormedNow = isWellFormedXml(content);
    if (wasWellFormed && !wellFormedNow)
        counts.brokeWellFormedness(operation, options.label + " step " + std::to_string(stepIndex + 1));
}

std::optional<Violation> SessionDriver::checkHistory()
{
    if (trimmed)
        return std::nullopt;
    stepIndex = -2; // violations found here belong to no step
    lines.push_back("# then: undo until the history is empty, and redo it all");
    const Core::String finalContent = document->getContent();
    try {
        const int actions = document->getActionStack().undoActionCount();
        int undone = 0;
        for (; document->canUndo(); ++undone) {
            if (undone > actions)
                return violation("undo never empties the history", std::to_string(undone) + " undos");
            document->undo();
            if (auto broken = checkCaretRange("during the undo of the session"))
                return broken;
        }
        if (document->getContent() != original)
            return violation("undo of the whole session differs from the original",
                             mismatch(original, document->getContent()));
        // As many redos as undos: steps the session itself undid stay undone.
        for (int redone = 0; redone < undone; ++redone) {
            document->redo();
            if (auto broken = checkCaretRange("during the redo of the session"))
                return broken;
        }
    } catch (const std::exception &exception) {
        return violation("an exception escaped from undo or redo", exception.what());
    }
    if (!sameUpToRedoneLineBreaks(finalContent, document->getContent()))
        return violation("redo of the whole session differs from its end",
                         mismatch(finalContent, document->getContent()));
    return std::nullopt;
}

Violation SessionDriver::violation(std::string invariant, std::string detail) const
{
    return {std::move(invariant), std::move(detail), stepIndex < 0 ? -1 : stepIndex};
}

SessionResult runSession(Core::String const &document, const std::vector<Step> &steps,
                         const DriverOptions &options)
{
    SessionDriver driver(document, options);
    SessionResult result;
    for (const Step &step : steps) {
        result.violation = driver.play(step);
        if (result.violation)
            break;
    }
    if (!result.violation)
        result.violation = driver.checkHistory();
    result.script = driver.script();
    result.tally = driver.tally();
    result.historyTrimmed = driver.historyWasTrimmed();
    return result;
}

std::string scriptText(const std::string &header, const std::vector<std::string> &script)
{
    std::string text = header.empty() ? std::string() : header + "\n";
    for (const std::string &line : script)
        text += line + "\n";
    return text;
}

} // namespace foedit::test
