#include "Prompt.h"

#include "EditorSession.h"
#include "KeyDecoder.h"
#include "LineEditor.h"
#include "ScriptParser.h"
#include "ScriptRunner.h"
#include "Terminal.h"

#include <iostream>
#include <optional>
#include <ostream>

namespace {

const char *const prompt = "foedit> ";

void drawLine(std::ostream &out, const LineEditor &editor)
{
    out << '\r' << prompt << editor.line() << "\x1b[K\r";
    const std::size_t column = std::string(prompt).size() + editor.cursor();
    out << "\x1b[" << column << 'C';
    out.flush();
}

std::optional<std::string> readEditedLine(int inFd, std::ostream &out, LineEditor &editor)
{
    Terminal::RawMode raw(inFd);
    auto next = [inFd](int timeoutMs) { return Terminal::readByte(inFd, timeoutMs); };
    editor.start();
    drawLine(out, editor);
    for (;;) {
        switch (editor.apply(KeyDecoder::readKey(next))) {
        case LineEditor::Outcome::Editing:
            drawLine(out, editor);
            break;
        case LineEditor::Outcome::Done:
            out << "\r\n";
            return editor.line();
        case LineEditor::Outcome::EndOfInput:
            out << "\r\n";
            return std::nullopt;
        }
    }
}

std::optional<std::string> readPlainLine()
{
    std::string line;
    if (!std::getline(std::cin, line))
        return std::nullopt;
    return line;
}

} // namespace

ExitCode runPrompt(EditorSession &session, ScriptRunner &runner, int inFd, std::ostream &out)
{
    const bool terminal = Terminal::isTerminal(inFd);
    if (terminal)
        out << "foedit: " << session.documentName() << ". Type 'help' for the commands, 'quit' to leave.\n";
    LineEditor editor;
    for (int number = 1; !session.quitRequested; ++number) {
        const std::optional<std::string> line =
            terminal ? readEditedLine(inFd, out, editor) : readPlainLine();
        if (!line)
            break;
        if (auto command = ScriptParser::parseLine(*line, "prompt", number))
            runner.runLine(*command);
    }
    return ExitCode::Ok;
}
