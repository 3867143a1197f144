// Keys as a terminal sends them: decoding, the prompt's line editing, and keys mode
// driving the engine.
#include "KeyDecoder.h"
#include "KeysMode.h"
#include "LineEditor.h"
#include "TextWindow.h"
#include "ToolTestSupport.h"

#include <gtest/gtest.h>

using namespace foedit::test;

namespace {

// All keys in `bytes`, read as from a terminal that has nothing more to send.
std::vector<Key> decode(const std::string &bytes)
{
    std::size_t next = 0;
    auto source = [&](int timeoutMs) {
        if (next < bytes.size())
            return static_cast<int>(static_cast<unsigned char>(bytes[next++]));
        return timeoutMs < 0 ? -2 : -1;
    };
    std::vector<Key> keys;
    for (Key key = KeyDecoder::readKey(source); key.code != KeyCode::EndOfInput;
         key = KeyDecoder::readKey(source))
        keys.push_back(key);
    return keys;
}

Key key(KeyCode code, bool shift = false, bool ctrl = false, char32_t character = 0)
{
    Key result;
    result.code = code;
    result.shift = shift;
    result.ctrl = ctrl;
    result.character = character;
    return result;
}

Key typed(char32_t character)
{
    return key(KeyCode::Character, false, false, character);
}

} // namespace

TEST(KeyDecoder, EscapeSequencesWithTheirModifiers)
{
    EXPECT_EQ(decode("\x1b[C\x1b[1;2D\x1b[1;5C\x1b[1;6D"),
              (std::vector<Key>{key(KeyCode::Right), key(KeyCode::Left, true),
                                key(KeyCode::Right, false, true), key(KeyCode::Left, true, true)}));
    EXPECT_EQ(
        decode("\x1b[H\x1bOF\x1b[1~\x1b[4;2~\x1b[3~\x1b[3;5~"),
        (std::vector<Key>{key(KeyCode::Home), key(KeyCode::End), key(KeyCode::Home), key(KeyCode::End, true),
                          key(KeyCode::Delete), key(KeyCode::Delete, false, true)}));
    // A lone Esc is told from a sequence by the silence behind it; unknown ones are ignored.
    EXPECT_EQ(decode("\x1b"), (std::vector<Key>{key(KeyCode::Escape)}));
    EXPECT_EQ(decode("\x1b[99Z\x1bx"), (std::vector<Key>{key(KeyCode::None), key(KeyCode::None)}));
}

TEST(KeyDecoder, CharactersControlsAndBrokenUtf8)
{
    EXPECT_EQ(decode("a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80"),
              (std::vector<Key>{typed('a'), typed(U'\u00e9'), typed(U'\u20ac'), typed(U'\U0001F600')}));
    EXPECT_EQ(decode("\x1a\x7f\r\t"),
              (std::vector<Key>{key(KeyCode::Control, false, true, 'z'), key(KeyCode::Backspace),
                                key(KeyCode::Enter), key(KeyCode::Tab)}));
    // A lead byte whose continuation never comes, and a stray continuation byte.
    EXPECT_EQ(decode("\xe2\x82"), (std::vector<Key>{key(KeyCode::None)}));
    EXPECT_EQ(decode("\x82"), (std::vector<Key>{key(KeyCode::None)}));
}

TEST(LineEditor, EditsInTheMiddleAndWalksTheHistory)
{
    LineEditor editor;
    editor.start();
    for (const Key &k : decode("tpe X\x1b[H\x1b[Cy"))
        editor.apply(k);
    EXPECT_EQ(editor.line(), "type X");
    EXPECT_EQ(editor.cursor(), 2u);
    EXPECT_EQ(editor.apply(key(KeyCode::Enter)), LineEditor::Outcome::Done);

    editor.start();
    for (const Key &k : decode("show"))
        editor.apply(k);
    editor.apply(key(KeyCode::Enter));
    editor.start();
    for (const Key &k : decode("und"))
        editor.apply(k);
    editor.apply(key(KeyCode::Up));
    EXPECT_EQ(editor.line(), "show");
    editor.apply(key(KeyCode::Up));
    EXPECT_EQ(editor.line(), "type X");
    editor.apply(key(KeyCode::Down));
    editor.apply(key(KeyCode::Down));
    EXPECT_EQ(editor.line(), "und"); // the line being typed comes back
    EXPECT_EQ(editor.apply(key(KeyCode::Control, false, true, 'd')), LineEditor::Outcome::Editing);
    editor.apply(key(KeyCode::Control, false, true, 'u'));
    EXPECT_EQ(editor.apply(key(KeyCode::Control, false, true, 'd')), LineEditor::Outcome::EndOfInput);
}

TEST(KeysMode, KeysDriveTheEngine)
{
    auto session = sessionWithFlow("<fo:block>one |two</fo:block>");
    KeysMode keys(*session);
    // Shift+Right twice selects "tw", X replaces it, Ctrl+Left goes back a word.
    for (const Key &k : decode("\x1b[1;2C\x1b[1;2CX\x1b[1;5D"))
        EXPECT_EQ(keys.handle(k), KeysMode::Result::Stay);
    EXPECT_EQ(FlowPrinter::markedFlow(session->document()), "<fo:block>one |Xo</fo:block>");
    // Backspace, Enter; Ctrl+Z twice takes both back, Ctrl+Y brings Backspace again.
    for (const Key &k : decode("\x7f\r\x1a\x1a\x19"))
        keys.handle(k);
    EXPECT_EQ(FlowPrinter::markedFlow(session->document()), "<fo:block>one|Xo</fo:block>");
    keys.handle(key(KeyCode::Control, false, true, 's'));
    EXPECT_EQ(keys.status(), "nowhere to save: start foedit with -o FILE");
    EXPECT_EQ(keys.handle(key(KeyCode::Escape)), KeysMode::Result::Leave);
    EXPECT_EQ(keys.handle(key(KeyCode::Control, false, true, 'q')), KeysMode::Result::Leave);
}

TEST(TextWindow, WrapsExpandsTabsAndKeepsTheCaretInView)
{
    StyledText text;
    for (char32_t c : std::u32string(U"\tab\ncdefghijkl|m"))
        text.push_back({c, static_cast<std::uint8_t>(c == U'|' ? CellCaret : CellText)});
    const TextWindow::Rows rows = TextWindow::wrap(text, 8);
    ASSERT_EQ(rows.rows.size(), 3u);
    EXPECT_EQ(plainText(rows.rows[0]), "    ab");
    EXPECT_EQ(plainText(rows.rows[1]), "cdefghij");
    EXPECT_EQ(plainText(rows.rows[2]), "kl|m");
    EXPECT_EQ(rows.caretRow, 2);
    EXPECT_EQ(TextWindow::firstVisibleRow(rows, 2), 1);
    EXPECT_EQ(TextWindow::firstVisibleRow(rows, 5), 0);
}
