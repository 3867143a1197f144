// Commands about the session: showing and checking the document, saving, settings.
#include "CommandTable.h"
#include "EditorSession.h"
#include "FlowPrinter.h"
#include "ScriptError.h"
#include "ScriptParser.h"

#include <algorithm>
#include <ostream>

namespace {

// The smallest whole document around a flow: what `open-flow` wraps its markup in.
const char *const flowDocumentHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                                     "<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
                                     "<fo:layout-master-set><fo:simple-page-master master-name=\"A4\">"
                                     "<fo:region-body/></fo:simple-page-master></fo:layout-master-set>"
                                     "<fo:page-sequence master-reference=\"A4\">"
                                     "<fo:flow flow-name=\"xsl-region-body\">";
const char *const flowDocumentTail = "</fo:flow></fo:page-sequence></fo:root>";

// The caret and pivot markers of `marked` taken out; -1 for an absent one.
std::string withoutMarkers(const std::string &marked, int &caret, int &pivot)
{
    std::string text;
    caret = pivot = -1;
    for (char c : marked) {
        if (c == '|' || c == '^') {
            int &marker = c == '|' ? caret : pivot;
            if (marker != -1)
                throw malformed(std::string("a second '") + c + "' in the marked flow");
            marker = static_cast<int>(Core::String::fromUtf8(text).length());
        } else {
            text += c;
        }
    }
    if (caret == -1 && pivot != -1)
        throw malformed("the marked flow has a pivot '^' but no caret '|'");
    return text;
}

void openFlow(CommandContext &context, const std::string &argument)
{
    int caret = -1;
    int pivot = -1;
    const std::string body = withoutMarkers(ScriptParser::unescape(argument), caret, pivot);
    const std::string head = flowDocumentHead;
    context.session.openText(head + body + flowDocumentTail, "open-flow");
    EditableDocumentBuffer &document = context.session.document();
    const int offset = Core::String::fromUtf8(head).length();
    if (caret >= 0) {
        document.setCaretPos(false, offset + (pivot >= 0 ? pivot : caret));
        document.setCaretPos(true, offset + caret);
    }
}

void open(CommandContext &context, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    if (words.size() != 1)
        throw malformed("open takes one FILE");
    context.session.open(words[0]);
}

bool wantsBlock(const std::string &command, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    if (words.empty())
        return false;
    if (words.size() == 1 && words[0] == "block")
        return true;
    throw malformed(command + " takes nothing or 'block'");
}

void show(CommandContext &context, const std::string &argument)
{
    const EditableDocumentBuffer &document = context.session.document();
    const StyledText text =
        wantsBlock("show", argument) ? FlowPrinter::styledBlock(document) : FlowPrinter::styledFlow(document);
    context.out << (context.colour ? colouredText(text) : plainText(text)) << '\n';
}

// Up to 24 characters of `text` from `at`, for pointing at a difference.
std::string excerpt(const std::string &text, std::size_t at)
{
    if (at >= text.size())
        return "(end)";
    return "'" + text.substr(at, 24) + (at + 24 < text.size() ? "...'" : "'");
}

void compare(const std::string &marked, const std::string &argument)
{
    const std::string expected = FlowPrinter::withoutIndentation(ScriptParser::unescape(argument));
    const std::string actual = FlowPrinter::withoutIndentation(marked);
    if (expected == actual)
        return;
    const auto difference = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const std::size_t at = static_cast<std::size_t>(difference.first - expected.begin());
    throw ScriptError(ExitCode::Mismatch, "expect failed at character " + std::to_string(at + 1) +
                                              ": expected " + excerpt(expected, at) + ", found " +
                                              excerpt(actual, at) + "\n  expected: " + expected +
                                              "\n  actual:   " + actual);
}

void expect(CommandContext &context, const std::string &argument)
{
    compare(FlowPrinter::markedFlow(context.session.document()), argument);
}

void expectBlock(CommandContext &context, const std::string &argument)
{
    compare(FlowPrinter::markedBlock(context.session.document()), argument);
}

DocumentEncoding encodingNamed(const std::string &name)
{
    if (name == "utf-8")
        return DocumentEncodingUTF8;
    if (name == "utf-16")
        return DocumentEncodingUTF16;
    if (name == "latin-1")
        return DocumentEncodingISO88591;
    throw malformed("unknown encoding '" + name + "' (utf-8, utf-16 or latin-1)");
}

void save(CommandContext &context, const std::string &argument)
{
    std::vector<std::string> words = ScriptParser::splitWords(argument);
    const auto force = std::find(words.begin(), words.end(), "--force");
    const bool forced = force != words.end();
    if (forced)
        words.erase(force);
    if (words.empty() || words.size() > 2)
        throw malformed("save takes FILE [utf-8|utf-16|latin-1] [--force]");
    const DocumentEncoding encoding = words.size() == 2 ? encodingNamed(words[1]) : DocumentEncodingUTF8;
    context.session.save(words[0], encoding, forced);
    context.out << "saved " << words[0] << '\n';
}

bool onOrOff(const std::string &setting, const std::string &value)
{
    if (value == "on")
        return true;
    if (value == "off")
        return false;
    throw malformed(setting + " is on or off, not '" + value + "'");
}

void set(CommandContext &context, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    if (words.size() != 2)
        throw malformed("set takes a NAME and a VALUE");
    if (words[0] == "merge-inline")
        context.session.mergeInlineBoundaries = onOrOff(words[0], words[1]);
    else
        throw malformed("unknown setting '" + words[0] + "' (known: merge-inline)");
}

void help(CommandContext &context, const std::string &argument)
{
    const std::vector<std::string> words = ScriptParser::splitWords(argument);
    const CommandTable &table = CommandTable::standard();
    for (const Command &command : table.all()) {
        if (words.empty() || std::find(words.begin(), words.end(), command.name) != words.end())
            context.out << "  " << command.usage
                        << std::string(command.usage.size() < 28 ? 28 - command.usage.size() : 1, ' ')
                        << command.summary << '\n';
    }
}

void keys(CommandContext &context, const std::string &argument)
{
    ScriptParser::expectNoArgument("keys", argument);
    if (!context.session.enterKeysMode)
        throw ScriptError(ExitCode::ScriptError, "keys mode needs a terminal: start foedit with -i or -k");
    context.session.enterKeysMode();
}

void echo(CommandContext &context, const std::string &argument)
{
    context.out << ScriptParser::unescape(argument) << '\n';
}

void quit(CommandContext &context, const std::string &argument)
{
    ScriptParser::expectNoArgument("quit", argument);
    context.session.quitRequested = true;
}

} // namespace

void addSessionCommands(CommandTable &table)
{
    table.add({"open", "open FILE", "open another document (the history starts afresh)", open});
    table.add({"open-flow", "open-flow MARKED-FLOW",
               "open a one-flow document holding this markup, caret at | (and pivot at ^)", openFlow});
    table.add({"show", "show [block]", "print the flow (or the paragraph): | caret, ^ pivot", show});
    table.add({"expect", "expect MARKED-FLOW",
               "fail unless the flow, marked as show prints it, is this (indentation between tags aside)",
               expect});
    table.add({"expect-block", "expect-block MARKED-BLOCK",
               "the same for the paragraph around the caret, start tag to closing tag", expectBlock});
    table.add({"save", "save FILE [ENCODING] [--force]",
               "write the document (utf-8, utf-16 or latin-1; --force: even over the input)", save});
    table.add({"set", "set merge-inline on|off", "whether one arrow press passes inline boundaries", set});
    table.add({"help", "help [COMMAND ...]", "list the commands", help});
    table.add({"keys", "keys", "drive the engine with the keyboard (Esc or Ctrl+Q comes back)", keys});
    table.add({"echo", "echo TEXT", "print TEXT (a heading in a script's output)", echo});
    table.add({"quit", "quit", "stop here", quit});
}
