// Commands that change the document: typing, pasting, deleting, breaks, undo, redo.
#include "CommandTable.h"
#include "EditorSession.h"
#include "ScriptError.h"
#include "ScriptParser.h"

#include "editing/BreakType.h"

#include <ostream>

namespace {

using Action = void (*)(EditableDocumentBuffer &);

// A command that repeats one engine call COUNT times.
Command counted(const char *name, const char *summary, Action action)
{
    return {name, std::string(name) + " [COUNT]", summary,
            [action](CommandContext &context, const std::string &argument) {
                const int count = ScriptParser::parseCount(argument);
                for (int i = 0; i < count; ++i)
                    action(context.session.document());
            }};
}

void type(CommandContext &context, const std::string &argument)
{
    const std::string text = ScriptParser::unescape(argument);
    if (text.empty())
        throw malformed("type needs a text");
    EditorSession &session = context.session;
    if (!session.pendingFormat.isEmpty()) {
        PropertyCollection format = session.pendingFormat;
        session.pendingFormat = PropertyCollection();
        session.document().insertText(Core::String::fromUtf8(text), format, false, false);
        return;
    }
    if (!session.document().insertText(Core::String::fromUtf8(text), false, false))
        context.out << "type: nothing typed (the caret cannot take text here)\n";
}

void pasteMarkup(CommandContext &context, const std::string &argument)
{
    const std::string markup = ScriptParser::unescape(argument);
    if (markup.empty())
        throw malformed("paste-markup needs markup");
    if (!context.session.document().insertText(Core::String::fromUtf8(markup), true, false))
        context.out
            << "paste-markup: nothing pasted (the caret cannot take it, or it is not well formed here)\n";
}

// Enter as a designer sends it: in a list the list's own break, elsewhere a paragraph.
void enter(EditableDocumentBuffer &document)
{
    document.insertBreak(document.caretIsInsideList() ? ListBreak : ParagraphBreak, false);
}

// The breaks that start a new paragraph on a new page or column; `after` puts the break
// at the end of the paragraph instead.
struct PageLevelBreak {
    const char *name;
    BreakType type;
    const char *summary;
};

const PageLevelBreak pageLevelBreaks[] = {
    {"page-break", PageBreak, "a new paragraph that starts a page (or after: ends one)"},
    {"column-break", ColumnBreak, "a new paragraph that starts a column (or after: ends one)"},
    {"odd-page-break", OddPageBreak, "a new paragraph that starts an odd page (or after: ends one)"},
    {"even-page-break", EvenPageBreak, "a new paragraph that starts an even page (or after: ends one)"},
};

bool parseAfter(const std::string &command, const std::vector<std::string> &words)
{
    const bool after = words.size() == 1 && words[0] == "after";
    if (!words.empty() && !after)
        throw malformed(command + " takes nothing or 'after'");
    return after;
}

// Any break by its number, as a host may send one it does not name (the engine ignores
// the ones it does not know): `break 5` is a paragraph break.
void anyBreak(CommandContext &context, const std::string &argument)
{
    std::vector<std::string> words = ScriptParser::splitWords(argument);
    if (words.empty())
        throw malformed("break needs a break type number");
    const int type = ScriptParser::parseIndex(words[0]);
    words.erase(words.begin());
    const bool after = parseAfter("break " + std::to_string(type), words);
    context.session.document().insertBreak(static_cast<BreakType>(type), after);
}

} // namespace

void addEditingCommands(CommandTable &table)
{
    table.add({"type", "type TEXT",
               "type TEXT at the caret, replacing a selection (escapes \\t \\n \\s \\\\)", type});
    table.add({"paste-markup", "paste-markup MARKUP", "paste a markup fragment at the caret", pasteMarkup});
    table.add(counted("delete", "the Delete key", [](EditableDocumentBuffer &d) { d.erase(true, false); }));
    table.add(
        counted("backspace", "the Backspace key", [](EditableDocumentBuffer &d) { d.erase(false, false); }));
    table.add(counted("delete-word", "Ctrl+Delete: delete to the end of the word",
                      [](EditableDocumentBuffer &d) { d.erase(true, true); }));
    table.add(counted("backspace-word", "Ctrl+Backspace: delete to the start of the word",
                      [](EditableDocumentBuffer &d) { d.erase(false, true); }));
    table.add(counted("enter", "Enter: split the paragraph (in a list: a new item)", enter));
    table.add(counted("line-break", "Shift+Enter: a line break inside the paragraph",
                      [](EditableDocumentBuffer &d) { d.insertBreak(LineBreak, false); }));
    table.add(counted("paragraph-break", "split the paragraph, also in a list (where Enter makes an item)",
                      [](EditableDocumentBuffer &d) { d.insertBreak(ParagraphBreak, false); }));
    for (const PageLevelBreak &pageLevel : pageLevelBreaks) {
        const std::string name = pageLevel.name;
        const BreakType type = pageLevel.type;
        table.add({name, name + " [after]", pageLevel.summary,
                   [name, type](CommandContext &context, const std::string &argument) {
                       const bool after = parseAfter(name, ScriptParser::splitWords(argument));
                       context.session.document().insertBreak(type, after);
                   }});
    }
    table.add({"break", "break TYPE [after]", "insertBreak with a break type by number (0 to 6)", anyBreak});
    table.add(counted("undo", "undo one step (Ctrl+Z)", [](EditableDocumentBuffer &d) { d.undo(); }));
    table.add(counted("redo", "redo one step (Ctrl+Y)", [](EditableDocumentBuffer &d) { d.redo(); }));
}
