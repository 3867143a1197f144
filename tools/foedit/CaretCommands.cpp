// Commands that place or move the caret and the selection.
#include "CommandTable.h"
#include "EditorSession.h"
#include "ScriptError.h"
#include "ScriptParser.h"

namespace {

using Step = void (*)(EditorSession &, bool extendSelection);

struct Move {
    const char *name;
    const char *summary;
    Step step;
    bool counted; // takes a repeat count
};

const Move moves[] = {
    {"right", "one caret stop to the right (the arrow key)",
     [](EditorSession &s, bool extend) {
         s.document().moveCaretRight(extend, false, s.mergeInlineBoundaries);
     },
     true},
    {"left", "one caret stop to the left",
     [](EditorSession &s, bool extend) {
         s.document().moveCaretLeft(extend, false, s.mergeInlineBoundaries);
     },
     true},
    {"word-right", "to the start of the next word (Ctrl+Right)",
     [](EditorSession &s, bool extend) {
         s.document().moveCaretRight(extend, true, s.mergeInlineBoundaries);
     },
     true},
    {"word-left", "to the start of the previous word (Ctrl+Left)",
     [](EditorSession &s, bool extend) { s.document().moveCaretLeft(extend, true, s.mergeInlineBoundaries); },
     true},
    {"home", "to the first caret stop of the document's first flow",
     [](EditorSession &s, bool extend) { s.document().moveCaretHome(extend); }, false},
    {"end", "to the last caret stop of the document",
     [](EditorSession &s, bool extend) { s.document().moveCaretToEnd(extend); }, false},
};

void addMove(CommandTable &table, const Move &move, bool extend)
{
    const std::string name = extend ? std::string("shift-") + move.name : std::string(move.name);
    const std::string usage = move.counted ? name + " [COUNT]" : name;
    const std::string summary = extend ? std::string("extend the selection: ") + move.summary : move.summary;
    const Step step = move.step;
    const bool counted = move.counted;
    table.add({name, usage, summary,
               [step, extend, counted, name](CommandContext &context, const std::string &arg) {
                   if (!counted)
                       ScriptParser::expectNoArgument(name, arg);
                   const int count = ScriptParser::parseCount(arg);
                   for (int i = 0; i < count; ++i)
                       step(context.session, extend);
               }});
}

std::string requiredText(const std::string &command, const std::string &argument)
{
    const std::string text = ScriptParser::unescape(argument);
    if (text.empty())
        throw malformed(command + " needs a text");
    return text;
}

// The first place of `text` in the page sequences, as stored (markup and entities
// included); the layout masters in front are not searched.
int findInPageSequences(EditorSession &session, const std::string &text)
{
    const Core::String content = session.document().getContent();
    const int sequences = content.find("<fo:page-sequence");
    const int found = content.find(Core::String::fromUtf8(text), sequences < 0 ? 0 : sequences);
    if (found < 0)
        throw ScriptError(ExitCode::Mismatch, "'" + text + "' is not in the document");
    return found;
}

void findText(CommandContext &context, const std::string &argument)
{
    const std::string text = requiredText("find", argument);
    context.session.document().setCaretPos(false, findInPageSequences(context.session, text));
}

void selectText(CommandContext &context, const std::string &argument)
{
    const std::string text = requiredText("select", argument);
    const int start = findInPageSequences(context.session, text);
    EditableDocumentBuffer &document = context.session.document();
    document.setCaretPos(false, start);
    document.setCaretPos(true, start + Core::String::fromUtf8(text).length());
}

// A click (`caret N`) or a Shift+click (`shift-caret N`), which extends the selection.
void placeCaret(CommandContext &context, const std::string &argument, bool extend)
{
    const int position = ScriptParser::parseIndex(argument);
    const int length = context.session.document().getContent().length();
    if (position >= length)
        throw malformed("position " + std::to_string(position) + " is past the document's end (length " +
                        std::to_string(length) + ")");
    context.session.document().setCaretPos(extend, position);
}

} // namespace

void addCaretCommands(CommandTable &table)
{
    table.add({"find", "find TEXT", "caret before the first TEXT in the page sequences (markup as stored)",
               findText});
    table.add({"select", "select TEXT", "select the first TEXT in the page sequences", selectText});
    table.add({"caret", "caret N", "caret at index N of the markup string (as a click would put it)",
               [](CommandContext &context, const std::string &argument) { placeCaret(context, argument, false); }});
    table.add({"shift-caret", "shift-caret N", "extend the selection to index N (as a Shift+click would)",
               [](CommandContext &context, const std::string &argument) { placeCaret(context, argument, true); }});
    table.add({"reset-selection", "reset-selection", "drop the selection, the caret staying where it is",
               [](CommandContext &context, const std::string &argument) {
                   ScriptParser::expectNoArgument("reset-selection", argument);
                   context.session.document().resetSelection();
               }});
    for (const Move &move : moves) {
        addMove(table, move, false);
        addMove(table, move, true);
    }
    table.add({"select-parent", "select-parent",
               "select the element around the caret, one level up each time",
               [](CommandContext &context, const std::string &argument) {
                   ScriptParser::expectNoArgument("select-parent", argument);
                   context.session.document().selectParent();
               }});
}
