// How each kind of step is resolved against the document and written in the script.
#include "robustness/MarkupInterior.h"
#include "robustness/SessionDriver.h"
#include "robustness/StepGenerator.h"

#include "editing/BreakType.h"
#include "structures/ListType.h"
#include "support/EditableProperty.h"
#include "support/PropertyCollection.h"

namespace foedit::test {

namespace {

// Text as the tool's `type` and `paste-markup` take it: backslash escapes for the
// backslash, tab and line feed, and blanks at either end written \s so they show.
std::string scriptText(const std::u16string &text)
{
    const std::string utf8 = Core::String(text).toUtf8();
    const std::size_t firstKept = utf8.find_first_not_of(' ');
    const std::size_t lastKept = utf8.find_last_not_of(' ');
    std::string out;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        if (c == '\\')
            out += "\\\\";
        else if (c == '\t')
            out += "\\t";
        else if (c == '\n')
            out += "\\n";
        else if (c == ' ' && (firstKept == std::string::npos || i < firstKept || i > lastKept))
            out += "\\s";
        else
            out += c;
    }
    return out;
}

// NAME=VALUE as the tool's `format` takes it: an XSL-FO property without its prefix.
std::string propertyArgument(int choice)
{
    const PropertyChoice &property = propertyChoice(choice);
    std::string name = property.name;
    if (name.rfind("fo:", 0) == 0)
        name.erase(0, 3);
    return name + "=" + property.value;
}

// Typing with formatting puts the text into the new inline as it stands: the caller is
// trusted with it, so a host escapes what the user typed, as this one does.
Core::String escapedText(const std::u16string &text)
{
    std::u16string out;
    for (const char16_t unit : text) {
        if (unit == u'&')
            out += u"&amp;";
        else if (unit == u'<')
            out += u"&lt;";
        else if (unit == u'>')
            out += u"&gt;";
        else
            out += unit;
    }
    return out;
}

PropertyCollection propertiesOf(int choice)
{
    const PropertyChoice &property = propertyChoice(choice);
    PropertyCollection properties;
    properties.addProperty(EditableProperty(property.name, property.value), true);
    return properties;
}

const char *breakName(int type, bool inList)
{
    switch (type) {
    case PageBreak:
        return "page-break";
    case ColumnBreak:
        return "column-break";
    case LineBreak:
        return "line-break";
    case OddPageBreak:
        return "odd-page-break";
    case EvenPageBreak:
        return "even-page-break";
    case ParagraphBreak:
        return inList ? "paragraph-break" : "enter";
    case ListBreak:
        return "enter";
    default:
        return "break";
    }
}

const char *listName(int type)
{
    switch (type) {
    case NumberedList:
        return "numbered";
    case BulletedList:
        return "bulleted";
    default:
        return "other";
    }
}

} // namespace

// A step that does nothing where the caret stands; its line says why.
SessionDriver::Plan SessionDriver::nothingToDo(std::string comment)
{
    Plan planned;
    planned.lines.push_back(std::move(comment));
    return planned;
}

SessionDriver::Plan SessionDriver::plan(const Step &step)
{
    SessionBuffer &buffer = *document;
    const bool extend = step.extend;
    const std::string shift = extend ? "shift-" : "";
    switch (step.kind) {
    case StepKind::Arrow:
        return planArrow(step);
    case StepKind::Home:
        return {shift + "home", {shift + "home"}, [&buffer, extend] { buffer.moveCaretHome(extend); }, true};
    case StepKind::End:
        return {shift + "end", {shift + "end"}, [&buffer, extend] { buffer.moveCaretToEnd(extend); }, true};
    case StepKind::Click:
        return planClick(step);
    case StepKind::Type:
    case StepKind::PasteMarkup:
    case StepKind::TypeFormatted:
        return planTyping(step);
    case StepKind::Erase: {
        const std::string name =
            std::string(step.forward ? "delete" : "backspace") + (step.byWord ? "-word" : "");
        const bool forward = step.forward;
        const bool byWord = step.byWord;
        return {name, {name}, [&buffer, forward, byWord] { buffer.erase(forward, byWord); }};
    }
    case StepKind::Break:
        return planBreak(step);
    case StepKind::FormatSelection:
    case StepKind::FormatBlock:
        return planFormatting(step);
    case StepKind::MakeList:
    case StepKind::RemoveList:
        return planList(step);
    case StepKind::SelectParent:
        return {"select-parent", {"select-parent"}, [&buffer] { buffer.selectParent(); }, true};
    case StepKind::ResetSelection:
        return {"reset-selection", {"reset-selection"}, [&buffer] { buffer.resetSelection(); }, true};
    case StepKind::Undo:
    case StepKind::Redo: {
        const bool undoing = step.kind == StepKind::Undo;
        const int count = step.count;
        const std::string name = undoing ? "undo" : "redo";
        return {name, {name + " " + std::to_string(count)}, [&buffer, undoing, count] {
                    for (int i = 0; i < count; ++i)
                        undoing ? buffer.undo() : buffer.redo();
                }};
    }
    }
    return {};
}

SessionDriver::Plan SessionDriver::planArrow(const Step &step)
{
    SessionBuffer &buffer = *document;
    Plan planned;
    if (step.merge != mergeSetting) {
        mergeSetting = step.merge;
        planned.lines.push_back(std::string("set merge-inline ") + (step.merge ? "on" : "off"));
    }
    planned.operation = std::string(step.extend ? "shift-" : "") + (step.byWord ? "word-" : "") +
                        (step.forward ? "right" : "left");
    planned.lines.push_back(planned.operation);
    planned.action = [&buffer, step] {
        if (step.forward)
            buffer.moveCaretRight(step.extend, step.byWord, step.merge);
        else
            buffer.moveCaretLeft(step.extend, step.byWord, step.merge);
    };
    planned.caretOnly = true;
    return planned;
}

// A click lands where the layout drew something, and a host hands back only positions
// the engine gave it: here, the caret stop that the engine finds after a position drawn
// at random, moved first behind any tag or entity it would split.
SessionDriver::Plan SessionDriver::planClick(const Step &step)
{
    SessionBuffer &buffer = *document;
    const Core::String content = buffer.getContent();
    const std::string name = step.extend ? "shift-caret" : "caret";
    if (content.length() == 0)
        return nothingToDo("# " + name + ": the document is empty");
    const int drawn = static_cast<int>(step.at % static_cast<std::uint32_t>(content.length()));
    const int target = atomBoundaryAtOrAfter(content, drawn);
    const int stop = buffer.getNextEditablePositionInFo(target, false, false);
    if (stop < 0)
        return nothingToDo("# " + name + ": no caret stop at or after " + std::to_string(target));
    const bool extend = step.extend;
    return {name,
            {name + " " + std::to_string(stop)},
            [&buffer, extend, stop] { buffer.setCaretPos(extend, stop); },
            true};
}

SessionDriver::Plan SessionDriver::planTyping(const Step &step)
{
    SessionBuffer &buffer = *document;
    const Core::String text(step.text);
    if (step.kind == StepKind::Type)
        return {"type", {"type " + scriptText(step.text)}, [&buffer, text] {
                    buffer.insertText(text, false, false);
                }};
    if (step.kind == StepKind::PasteMarkup)
        return {"paste-markup", {"paste-markup " + scriptText(step.text)}, [&buffer, text] {
                    buffer.insertText(text, true, false);
                }};
    // The tool formats the next typed text with `format` when nothing is selected; with
    // a selection the typed text replaces it, which the tool cannot say.
    const std::string property = propertyArgument(step.count);
    std::vector<std::string> script = {"format " + property, "type " + scriptText(step.text)};
    if (buffer.hasSelectedText())
        script = {"type-formatted " + property + " " + scriptText(step.text)};
    const PropertyCollection properties = propertiesOf(step.count);
    const Core::String escaped = escapedText(step.text);
    return {"type-formatted", script,
            [&buffer, escaped, properties] { buffer.insertText(escaped, properties, false, false); }};
}

// Enter is sent as a host sends it: the list's Enter in a list, the paragraph's elsewhere.
SessionDriver::Plan SessionDriver::planBreak(const Step &step)
{
    SessionBuffer &buffer = *document;
    const bool inList = buffer.caretIsInsideList();
    int type = step.count;
    if (type == ListBreak && !inList)
        type = ParagraphBreak;
    std::string line = breakName(type, inList);
    if (type > ListBreak)
        line += " " + std::to_string(type);
    const bool carriesAfter =
        type == PageBreak || type == ColumnBreak || type == OddPageBreak || type == EvenPageBreak;
    const bool after = step.after && carriesAfter;
    if (after)
        line += " after";
    Plan planned{
        line, {line}, [&buffer, type, after] { buffer.insertBreak(static_cast<BreakType>(type), after); }};
    planned.mustNotEdit = type > ListBreak;
    return planned;
}

SessionDriver::Plan SessionDriver::planFormatting(const Step &step)
{
    SessionBuffer &buffer = *document;
    const PropertyCollection properties = propertiesOf(step.count);
    const std::string property = propertyArgument(step.count);
    if (step.kind == StepKind::FormatSelection) {
        if (!buffer.hasSelectedText())
            return nothingToDo("# format " + property + ": nothing selected");
        return {"format", {"format " + property}, [&buffer, properties] {
                    buffer.setProperties(properties, Core::String());
                }};
    }
    const int caret = buffer.getCaretPos();
    const int block = caret < 0 ? -1 : buffer.searchParent("fo:block", caret);
    if (block < 0)
        return nothingToDo("# format-block " + property + ": the caret is in no paragraph");
    return {"format-block", {"format-block " + property}, [&buffer, properties, block] {
                buffer.setProperties(properties, "fo:block", block);
            }};
}

// The toolbar's list buttons: making, relabelling or removing through makeList, and the
// plain removal, which a host offers only inside a list.
SessionDriver::Plan SessionDriver::planList(const Step &step)
{
    SessionBuffer &buffer = *document;
    if (step.kind == StepKind::RemoveList) {
        if (!buffer.caretIsInsideList())
            return nothingToDo("# list remove: the caret is in no list");
        return {"list remove", {"list remove"}, [&buffer] { buffer.removeList(); }};
    }
    const auto type = static_cast<ListType>(step.count);
    const std::string line = std::string("list ") + listName(step.count);
    return {"list", {line}, [&buffer, type] { buffer.makeList(type); }};
}

} // namespace foedit::test
