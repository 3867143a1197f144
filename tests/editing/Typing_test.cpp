// Typing and pasting: what a key press or a paste leaves in the markup.

#include "common/EditCheck.h"
#include "common/MarkedDocument.h"
#include "common/TestPaths.h"
#include "common/TextPlaces.h"

#include "editing/EditableDocumentBuffer.h"
#include "template/XmlValidator.h"

#include <gtest/gtest.h>

#include <vector>

using foedit::test::EditCheck;
using foedit::test::expectEdit;
using foedit::test::placesInText;

namespace {

auto typing(Core::String text)
{
    return [text](EditableDocumentBuffer &buffer) { EXPECT_TRUE(buffer.insertText(text, false, false)); };
}

auto pasting(Core::String markup)
{
    return [markup](EditableDocumentBuffer &buffer) { EXPECT_TRUE(buffer.insertText(markup, true, false)); };
}

// Key presses one after another, as a host sends them.
auto keys(std::initializer_list<const char *> presses)
{
    std::vector<Core::String> texts(presses.begin(), presses.end());
    return [texts](EditableDocumentBuffer &buffer) {
        for (Core::String const &text : texts)
            EXPECT_TRUE(buffer.insertText(text, false, false));
    };
}

} // namespace

TEST(Typing, PlainTextIsEscapedAndPlacedAtTheCaret)
{
    expectEdit("<fo:block>ab|cd</fo:block>", typing("X"), "<fo:block>abX|cd</fo:block>");
    expectEdit("<fo:block>ab|</fo:block>", typing("a<b & \"c\" 'd'>"),
               "<fo:block>aba&lt;b &amp; &quot;c&quot; &apos;d&apos;&gt;|</fo:block>");
    // A line feed inside longer text is a blank; a tab inside it stays.
    expectEdit("<fo:block>x|</fo:block>", typing("a\r\nb\tc"), "<fo:block>xa b\tc|</fo:block>");
}

TEST(Typing, TextReplacesThePlaceholderOfAnEmptyBlock)
{
    expectEdit("<fo:block>|&#x00A0;</fo:block>", typing("a"), "<fo:block>a|</fo:block>");
    // A lone tab or line feed would be swallowed, so it is stored as the placeholder.
    expectEdit("<fo:block>ab|</fo:block>", typing("\t"), "<fo:block>ab&#x00A0;|</fo:block>");
}

TEST(Typing, SpacesAtTheEndOfALineAlternateWithPlaceholders)
{
    expectEdit("<fo:block>foo|</fo:block>", typing(" "), "<fo:block>foo&#x00A0;|</fo:block>");
    expectEdit("<fo:block>foo|</fo:block>", keys({" ", " ", " ", " "}),
               "<fo:block>foo &#x00A0; &#x00A0;|</fo:block>");
    expectEdit("<fo:block>fo|o</fo:block>", typing(" "), "<fo:block>fo |o</fo:block>");
    expectEdit("<fo:block>|&#x00A0;</fo:block>", typing(" "), "<fo:block>&#x00A0;|&#x00A0;</fo:block>");
}

TEST(Typing, TextAfterATrailingPlaceholderTurnsItIntoASpace)
{
    // Both key presses are one undo step: the check's single undo restores "foo|".
    expectEdit("<fo:block>foo|</fo:block>", keys({" ", "b"}), "<fo:block>foo b|</fo:block>");
}

TEST(Typing, KeyPressesFormOneUndoStepUntilTheCaretIsMoved)
{
    auto buffer = foedit::test::makeStandardBuffer();
    foedit::test::loadMarked(*buffer, "<fo:block>ab|</fo:block>");
    int const start = buffer->getCaretPos();
    for (const char *key : {"x", "y", "z"})
        buffer->insertText(key, false, false);
    buffer->setCaretPos(false, start);
    buffer->insertText("w", false, false);
    buffer->undo();
    EXPECT_EQ(foedit::test::markedFlow(*buffer), "<fo:block>ab|xyz</fo:block>");
    buffer->undo();
    EXPECT_EQ(foedit::test::markedFlow(*buffer), "<fo:block>ab|</fo:block>");
}

TEST(Typing, TypingReplacesTheSelection)
{
    expectEdit("<fo:block>a^bc|d</fo:block>", typing("X"), "<fo:block>aX|d</fo:block>");
    // Selected backwards: undo gives back the selection the way the user made it.
    expectEdit("<fo:block>a|bc^d</fo:block>", typing("X"), "<fo:block>aX|d</fo:block>");
}

TEST(Typing, SelectInsertedCoversTheEscapedText)
{
    expectEdit(
        "<fo:block>x|</fo:block>", [](EditableDocumentBuffer &b) { b.insertText("a&b", false, true); },
        "<fo:block>x^a&amp;b|</fo:block>");
}

TEST(Typing, PastedMarkupAndThePlaceholderBesideIt)
{
    // The placeholder before a line break goes; the one after it stays.
    expectEdit("<fo:block>|&#x00A0;<fo:block/>&#x00A0;</fo:block>",
               pasting("<fo:inline color=\"rgb(255,0,0)\">t</fo:inline>"),
               "<fo:block><fo:inline color=\"rgb(255,0,0)\">t</fo:inline>|<fo:block/>&#x00A0;</fo:block>");
    // A table holds positions of its own; the caret needs the placeholder behind it.
    Core::String const table = "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>&#x00A0;"
                               "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>";
    expectEdit("<fo:block>|&#x00A0;</fo:block>", pasting(table),
               "<fo:block>" + table + "|&#x00A0;</fo:block>");
    // An object without a position of its own holds the line open instead.
    expectEdit("<fo:block>|&#x00A0;</fo:block>", pasting("<fo:external-graphic src=\"a.png\"/>"),
               "<fo:block><fo:external-graphic src=\"a.png\"/>|</fo:block>");
}

TEST(Typing, TextBesideATableInTheFlowGetsABlockOfItsOwn)
{
    Core::String const table = "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>c"
                               "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>";
    expectEdit(table + "|", typing("x"), table + "<fo:block>x|</fo:block>");
    // A bare line feed as markup makes the empty block only; as plain text it is a
    // blank, which goes in as the block's placeholder.
    expectEdit(table + "|", pasting("\n"), table + "<fo:block>|</fo:block>");
    expectEdit(table + "|", typing("\n"), table + "<fo:block>|&#x00A0;</fo:block>");
}

TEST(Typing, MalformedMarkupIsRolledBackWhole)
{
    auto buffer = foedit::test::makeStandardBuffer();
    foedit::test::loadMarked(*buffer, "<fo:block>a^b|</fo:block>");
    int const undoDepth = buffer->getActionStack().undoActionCount();
    Core::String const before = foedit::test::markedFlow(*buffer);

    // An unterminated attribute value, and a stray "<"; the selection would go first.
    EXPECT_TRUE(buffer->insertText("<fo:inline color=\"red>x</fo:inline>", true, false));
    EXPECT_TRUE(buffer->insertText("d<", true, true));
    EXPECT_EQ(foedit::test::markedFlow(*buffer), before);
    EXPECT_EQ(buffer->getActionStack().undoActionCount(), undoDepth);
    EXPECT_FALSE(buffer->canUndo());
}

TEST(Typing, RefusedPlacesChangeNothing)
{
    Core::String const list = "<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1.|</fo:block>"
                              "</fo:list-item-label><fo:list-item-body><fo:block>item</fo:block>"
                              "</fo:list-item-body></fo:list-item></fo:list-block>";
    expectEdit(
        list, [](EditableDocumentBuffer &b) { EXPECT_FALSE(b.insertText("x", false, false)); }, list);
    expectEdit(
        "<fo:block>ab|</fo:block>",
        [](EditableDocumentBuffer &b) { EXPECT_FALSE(b.insertText("", false, false)); },
        "<fo:block>ab|</fo:block>");
    // The flow's own start cannot hold the caret.
    expectEdit(
        "<fo:block>ab|</fo:block>",
        [](EditableDocumentBuffer &b) {
            EXPECT_FALSE(b.insertTextAtPosition(foedit::test::flowBodyStart(), "x", false, false));
        },
        "<fo:block>ab|</fo:block>");
}

TEST(Typing, InsertTextAtPositionMovesTheCaretFirst)
{
    auto buffer = foedit::test::makeStandardBuffer();
    foedit::test::loadMarked(*buffer, "<fo:block>ab|cd</fo:block>");
    int const bodyStart = foedit::test::flowBodyStart();
    EXPECT_TRUE(buffer->insertTextAtPosition(bodyStart + 11, "X", false, false));
    EXPECT_EQ(foedit::test::markedFlow(*buffer), "<fo:block>aX|bcd</fo:block>");
    // The move of the caret is an undo step of its own, before the typing.
    buffer->undo();
    EXPECT_EQ(foedit::test::markedFlow(*buffer), "<fo:block>a|bcd</fo:block>");
    buffer->undo();
    EXPECT_EQ(foedit::test::markedFlow(*buffer), "<fo:block>ab|cd</fo:block>");
    buffer->redo();
    buffer->redo();
    EXPECT_EQ(foedit::test::markedFlow(*buffer), "<fo:block>aX|bcd</fo:block>");
}

// On real documents: a key press at places all through the flow, then undo, gives back
// exactly the string and the caret, and what the key press left validates.
TEST(Typing, KeyPressesOnTheCorpusUndoExactly)
{
    for (std::string const &path : foedit::test::corpusFiles()) {
        SCOPED_TRACE(path);
        auto buffer = foedit::test::makeStandardBuffer();
        buffer->setContentFromFile(Core::String(path));
        bool const wellFormed = XmlValidator(buffer->getContent()).validate();
        int round = 0;
        for (int place : placesInText(buffer->getContent(), 16)) {
            buffer->setCaretPos(false, place);
            Core::String const before = buffer->getContent();
            buffer->insertText(++round % 3 == 0 ? " " : "x", false, false);
            // A document that loaded ill formed can't be made well formed by an edit.
            EXPECT_TRUE(!wellFormed || XmlValidator(buffer->getContent()).validate());
            buffer->undo();
            ASSERT_EQ(buffer->getContent(), before);
            ASSERT_EQ(buffer->getCaretPos(), place);
        }
    }
}
