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

void pageBreak(CommandContext &context, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    const bool after = words.size() == 1 && words[0] == "after";
    if (!words.empty() && !after)
        throw malformed("page-break takes nothing or 'after', not '" + argument + "'");
    context.session.document().insertBreak(PageBreak, after);
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
    table.add({"page-break", "page-break [after]", "a new paragraph that starts a page (or after: ends one)",
               pageBreak});
    table.add(counted("undo", "undo one step (Ctrl+Z)", [](EditableDocumentBuffer &d) { d.undo(); }));
    table.add(counted("redo", "redo one step (Ctrl+Y)", [](EditableDocumentBuffer &d) { d.redo(); }));
}
