#include "KeysMode.h"

#include "EditorSession.h"
#include "FlowPrinter.h"
#include "KeyDecoder.h"
#include "ScriptError.h"
#include "Terminal.h"
#include "TextWindow.h"

#include "editing/BreakType.h"
#include "support/Exception.h"

#include <algorithm>
#include <ostream>

namespace {

const char *const helpLine = "Esc leave  ^Z undo  ^Y redo  ^S save  ^L line break  ^P select up";

void typeCharacter(EditableDocumentBuffer &document, char32_t character)
{
    std::string utf8;
    appendUtf8(utf8, character);
    document.insertText(Core::String::fromUtf8(utf8), false, false);
}

} // namespace

void KeysMode::moveCaret(const Key &key)
{
    EditableDocumentBuffer &document = session.document();
    const bool merge = session.mergeInlineBoundaries;
    switch (key.code) {
    case KeyCode::Left:
        document.moveCaretLeft(key.shift, key.ctrl, merge);
        break;
    case KeyCode::Right:
        document.moveCaretRight(key.shift, key.ctrl, merge);
        break;
    case KeyCode::Home:
        document.moveCaretHome(key.shift);
        break;
    case KeyCode::End:
        document.moveCaretToEnd(key.shift);
        break;
    default:
        // The engine lays out no lines, so Up and Down have nothing to go to.
        message = "Up and Down need a layout; the engine moves by characters and words";
        break;
    }
}

void KeysMode::saveDocument()
{
    if (session.outputPath.empty()) {
        message = "nowhere to save: start foedit with -o FILE";
        return;
    }
    try {
        session.save(session.outputPath, DocumentEncodingUTF8, false);
        message = "saved " + session.outputPath;
    } catch (const ScriptError &error) {
        message = error.what();
    }
}

KeysMode::Result KeysMode::handle(const Key &key)
{
    EditableDocumentBuffer &document = session.document();
    message.clear();
    try {
        switch (key.code) {
        case KeyCode::EndOfInput:
        case KeyCode::Escape:
            return Result::Leave;
        case KeyCode::Character:
            typeCharacter(document, key.character);
            break;
        case KeyCode::Delete:
        case KeyCode::Backspace:
            document.erase(key.code == KeyCode::Delete, key.ctrl);
            break;
        case KeyCode::Enter:
            document.insertBreak(document.caretIsInsideList() ? ListBreak : ParagraphBreak, false);
            break;
        case KeyCode::Left:
        case KeyCode::Right:
        case KeyCode::Home:
        case KeyCode::End:
        case KeyCode::Up:
        case KeyCode::Down:
            moveCaret(key);
            break;
        case KeyCode::Control:
            switch (key.character) {
            case 'q':
                return Result::Leave;
            case 'z':
                document.undo();
                break;
            case 'y':
                document.redo();
                break;
            case 's':
                saveDocument();
                break;
            case 'l':
                document.insertBreak(LineBreak, false);
                break;
            case 'p':
                document.selectParent();
                break;
            }
            break;
        default:
            break;
        }
    } catch (const std::exception &error) {
        message = std::string("the engine failed: ") + error.what();
    }
    return Result::Stay;
}

void KeysMode::draw(std::ostream &out, int outFd, bool colour)
{
    const Terminal::Size size = Terminal::size(outFd);
    const int height = std::max(size.rows - 3, 1);
    const TextWindow::Rows rows = TextWindow::wrap(FlowPrinter::styledFlow(session.document()), size.columns);
    const int first = TextWindow::firstVisibleRow(rows, height);
    EditableDocumentBuffer &document = session.document();
    std::string header =
        "foedit keys: " + session.documentName() + "  caret " + std::to_string(document.getCaretPos());
    if (document.hasSelectedText())
        header += " pivot " + std::to_string(document.getSelectionPivotPos());
    out << "\x1b[H\x1b[2J" << (colour ? "\x1b[7m" : "") << header.substr(0, size.columns)
        << (colour ? "\x1b[0m" : "") << "\r\n";
    for (int row = first; row < first + height && row < static_cast<int>(rows.rows.size()); ++row)
        out << (colour ? colouredText(rows.rows[row]) : plainText(rows.rows[row])) << "\r\n";
    out << "\x1b[" << size.rows - 1 << ";1H" << message.substr(0, size.columns) << "\r\n"
        << std::string(helpLine).substr(0, size.columns);
    out.flush();
}

void KeysMode::run(int inFd, int outFd, std::ostream &out, bool colour)
{
    Terminal::RawMode raw(inFd);
    auto next = [inFd](int timeoutMs) { return Terminal::readByte(inFd, timeoutMs); };
    message.clear();
    draw(out, outFd, colour);
    while (handle(KeyDecoder::readKey(next)) == Result::Stay)
        draw(out, outFd, colour);
    out << "\x1b[H\x1b[2J";
    out.flush();
}
