// Commands that format: properties on text or blocks, and lists.
#include "CommandTable.h"
#include "EditorSession.h"
#include "FlowPrinter.h"
#include "ScriptError.h"
#include "ScriptParser.h"

#include "structures/ListBuffer.h"
#include "support/EditableProperty.h"

#include <cctype>

namespace {

bool isPropertyName(const std::string &name)
{
    if (name.empty() || !std::isalpha(static_cast<unsigned char>(name.front())) || name.back() == ':')
        return false;
    for (char c : name) {
        if (!((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
              c == ':'))
            return false;
    }
    return true;
}

// `NAME=VALUE ...` as properties. A name without a prefix is an XSL-FO property
// ("font-weight" is "fo:font-weight"), since the engine takes qualified names.
PropertyCollection parseProperties(const std::string &command, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    if (words.empty())
        throw malformed(command + " needs NAME=VALUE");
    PropertyCollection properties;
    for (const std::string &word : words) {
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos || equals + 1 == word.size())
            throw malformed("'" + word + "' is not NAME=VALUE");
        std::string name = word.substr(0, equals);
        if (!isPropertyName(name))
            throw malformed("'" + name + "' is no property name");
        if (name.find(':') == std::string::npos)
            name = "fo:" + name;
        properties.addProperty(
            EditableProperty(Core::String::fromUtf8(name), Core::String::fromUtf8(word.substr(equals + 1))),
            true);
    }
    return properties;
}

// With a selection the selected text is formatted; without, the properties wait for
// the next `type`, as a toolbar button pressed before typing does.
void format(CommandContext &context, const std::string &argument)
{
    PropertyCollection properties = parseProperties("format", argument);
    EditorSession &session = context.session;
    if (session.document().hasSelectedText()) {
        session.document().setProperties(properties, Core::String());
        return;
    }
    session.pendingFormat.addProperties(properties);
}

// Typing with a toolbar format in one call, as a host does when text is typed over a
// selection with a format button pressed: `type-formatted NAME=VALUE TEXT`.
void typeFormatted(CommandContext &context, const std::string &argument)
{
    const std::size_t space = argument.find(' ');
    if (space == std::string::npos)
        throw malformed("type-formatted needs NAME=VALUE and a text");
    const PropertyCollection properties = parseProperties("type-formatted", argument.substr(0, space));
    const std::string text = ScriptParser::unescape(argument.substr(space + 1));
    if (text.empty())
        throw malformed("type-formatted needs a text");
    context.session.document().insertText(Core::String::fromUtf8(text), properties, false, false);
}

// On the paragraph around the caret, the block that `show block` shows. The engine
// takes the element's start tag: handed the caret, it would write to the caret's
// position as though a tag stood there.
void formatBlock(CommandContext &context, const std::string &argument)
{
    PropertyCollection properties = parseProperties("format-block", argument);
    EditableDocumentBuffer &document = context.session.document();
    const Core::String content = document.getContent();
    const int block = FlowPrinter::blockAround(content, document.getCaretPos()).start;
    if (block < 0 || !content.matchesAt(block, "<fo:block"))
        throw ScriptError(ExitCode::Mismatch, "the caret is in no paragraph");
    document.setProperties(properties, "fo:block", block);
}

// The toolbar's list buttons: a list of the current paragraph, or the list's labels
// changed, or (`remove`) the list turned back into paragraphs.
void list(CommandContext &context, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    const std::string kind = words.size() == 1 ? words[0] : std::string();
    if (kind != "numbered" && kind != "bulleted" && kind != "remove")
        throw malformed("list takes numbered, bulleted or remove");
    // The session's own buffers are list buffers; a buffer handed in by a host may not be.
    auto *lists = dynamic_cast<ListBuffer *>(&context.session.document());
    if (!lists)
        throw ScriptError(ExitCode::ScriptError, "this document buffer has no list commands");
    if (kind == "remove")
        lists->removeList();
    else
        lists->makeList(kind == "numbered" ? NumberedList : BulletedList);
}

} // namespace

void addFormatCommands(CommandTable &table)
{
    table.add({"format", "format NAME=VALUE ...",
               "format the selection; with none, the next typed text (NAME without prefix: fo:NAME)",
               format});
    table.add({"type-formatted", "type-formatted NAME=VALUE TEXT",
               "type TEXT with that format, replacing a selection", typeFormatted});
    table.add({"format-block", "format-block NAME=VALUE ...",
               "set properties on the paragraph around the caret", formatBlock});
    table.add({"list", "list numbered|bulleted|remove",
               "make the paragraph a list item, change the list's labels, or remove the list", list});
}
