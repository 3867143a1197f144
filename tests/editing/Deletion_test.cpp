// Delete and Backspace at every kind of boundary. Documents are flow bodies with `|`
// for the caret; every edit is also undone and redone (EditCheck).
#include "common/EditCheck.h"
#include "common/KeyPresses.h"
#include "common/MarkedDocument.h"

#include "editing/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using foedit::test::EditCheck;
using foedit::test::expectEdit;
using foedit::test::loadMarked;
using foedit::test::makeStandardBuffer;
using foedit::test::markedFlow;
using foedit::test::pressBackspace;
using foedit::test::pressControlDelete;
using foedit::test::pressDelete;

namespace {

std::string table(std::string const &cellText)
{
    return "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>" + cellText +
           "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>";
}

// Several key presses: the result, then undo of every press back to the exact start,
// then redo of every press back to the result.
void expectPresses(std::string const &before, std::vector<EditCheck::Edit> const &presses,
                   std::string const &after)
{
    SCOPED_TRACE("before: " + before);
    SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
    loadMarked(*buffer, before.c_str());
    Core::String const original = markedFlow(*buffer);
    for (auto const &press : presses)
        press(*buffer);
    EXPECT_EQ(markedFlow(*buffer), Core::String(after.c_str()));
    Core::String const edited = markedFlow(*buffer);
    for (std::size_t i = 0; i < presses.size(); ++i)
        buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), original) << "after undoing every press";
    for (std::size_t i = 0; i < presses.size(); ++i)
        buffer->redo();
    EXPECT_EQ(markedFlow(*buffer), edited) << "after redoing every press";
}

// A probe that reaches the protected members under test.
struct DeletionProbe : EditableDocumentBuffer {
    using EditableDocumentBuffer::deleteParent;
};

} // namespace

// ---- inside text ----

TEST(DeleteTest, TakesTheAtomAfterTheCaret)
{
    expectEdit("<fo:block>ab|cd</fo:block>", pressDelete, "<fo:block>ab|d</fo:block>");
    expectEdit("<fo:block>a|&amp;b</fo:block>", pressDelete, "<fo:block>a|b</fo:block>");
}

TEST(BackspaceTest, TakesTheAtomBeforeTheCaret)
{
    expectEdit("<fo:block>ab|cd</fo:block>", pressBackspace, "<fo:block>a|cd</fo:block>");
    expectEdit("<fo:block>a&amp;|b</fo:block>", pressBackspace, "<fo:block>a|b</fo:block>");
}

// Two spaces brought together would render as one, so both become U+00A0.
TEST(DeleteTest, CharacterBetweenTwoSpacesLeavesTwoNonBreakingSpaces)
{
    expectEdit("<fo:block>x |c y</fo:block>", pressDelete, "<fo:block>x\u00A0|\u00A0y</fo:block>");
}

// The same from behind; the steps put the caret in front of both spaces.
TEST(BackspaceTest, CharacterBetweenTwoSpacesLeavesTwoNonBreakingSpaces)
{
    expectEdit("<fo:block>x c| y</fo:block>", pressBackspace, "<fo:block>x|\u00A0\u00A0y</fo:block>");
}

TEST(DeleteTest, SpaceFollowingTheDeletedCharacterIsKept)
{
    expectEdit("<fo:block>x|c y</fo:block>", pressDelete, "<fo:block>x|\u00A0y</fo:block>");
}

TEST(DeleteTest, SelectionThatLeavesTwoSpacesTurnsTheSecondIntoAPlaceholder)
{
    expectEdit("<fo:block>ab ^cd| ef</fo:block>", pressDelete, "<fo:block>ab |&#x00A0;ef</fo:block>");
}

// ---- inlines ----

TEST(DeleteTest, OnlyCharacterOfAnInlineTakesTheInline)
{
    expectEdit("<fo:block>a<fo:inline color=\"red\">|b</fo:inline>c</fo:block>", pressDelete,
               "<fo:block>a|c</fo:block>");
    expectEdit("<fo:block>a|<fo:inline color=\"red\">b</fo:inline>c</fo:block>", pressDelete,
               "<fo:block>a|c</fo:block>");
}

TEST(BackspaceTest, OnlyCharacterOfAnInlineTakesTheInline)
{
    expectEdit("<fo:block>a<fo:inline color=\"red\">b|</fo:inline>c</fo:block>", pressBackspace,
               "<fo:block>a|c</fo:block>");
}

TEST(DeleteTest, CrossesInlineBoundariesToTheNextCharacter)
{
    expectEdit("<fo:block>a|<fo:inline>bc</fo:inline></fo:block>", pressDelete,
               "<fo:block>a|<fo:inline>c</fo:inline></fo:block>");
    expectEdit("<fo:block><fo:inline>a|</fo:inline>bc</fo:block>", pressDelete,
               "<fo:block><fo:inline>a|</fo:inline>c</fo:block>");
}

TEST(BackspaceTest, CrossesInlineBoundariesToThePreviousCharacter)
{
    expectEdit("<fo:block>ab<fo:inline>|c</fo:inline></fo:block>", pressBackspace,
               "<fo:block>a|<fo:inline>c</fo:inline></fo:block>");
    expectEdit("<fo:block><fo:inline>ab</fo:inline>|c</fo:block>", pressBackspace,
               "<fo:block><fo:inline>a|</fo:inline>c</fo:block>");
}

// A template inline must keep an inline: it gets <fo:inline>&#x00A0;</fo:inline>.
TEST(DeleteTest, EmptiedConditionalInlineGetsAnInlineBack)
{
    expectEdit(
        "<fo:block><otd:conditional-inline><fo:inline>|x</fo:inline></otd:conditional-inline></fo:block>",
        pressDelete,
        "<fo:block><otd:conditional-inline><fo:inline>|&#x00A0;</fo:inline>&#x00A0;"
        "</otd:conditional-inline></fo:block>");
}

// ---- line breaks and comments ----

TEST(DeleteTest, LineBreakAfterTheCaretGoes)
{
    expectEdit("<fo:block>ab|<fo:block/>cd</fo:block>", pressDelete, "<fo:block>ab|cd</fo:block>");
}

TEST(BackspaceTest, LineBreakGoesWithTheIndentationInFrontOfIt)
{
    expectEdit("<fo:block>ab<fo:block/>|cd</fo:block>", pressBackspace, "<fo:block>ab|cd</fo:block>");
    expectEdit("<fo:block>ab\n\t\t<fo:block/>|cd</fo:block>", pressBackspace, "<fo:block>ab|cd</fo:block>");
}

TEST(BackspaceTest, LastCharacterBeforeALineBreakLeavesAPlaceholder)
{
    expectEdit("<fo:block>g|<fo:block/></fo:block>", pressBackspace,
               "<fo:block>|&#x00A0;<fo:block/></fo:block>");
}

TEST(BackspaceTest, CommentBehindTheCaretGoesAndUndoBringsItBack)
{
    expectEdit("<fo:block>ab<!-- note -->|cd</fo:block>", pressBackspace, "<fo:block>ab|cd</fo:block>");
}

TEST(BackspaceTest, RenderedLineFeedBehindACDataSectionKeepsTheBlocksStartTag)
{
    // The step back over the CDATA section also crosses the start tag in front of it;
    // the cut must stay inside the block all the same.
    expectEdit("<fo:block>x</fo:block>\n<fo:block linefeed-treatment=\"preserve\">\n<![CDATA[<x>]]>\n\n|</fo:block>",
               pressBackspace,
               "<fo:block>x</fo:block>\n<fo:block linefeed-treatment=\"preserve\">\n<![CDATA[<x>]]>\u00A0|</fo:block>");
}

// ---- blocks merge ----

TEST(DeleteTest, AtTheEndOfABlockTheNextBlockJoinsUnderThisBlocksStartTag)
{
    expectEdit("<fo:block color=\"red\">one|</fo:block><fo:block color=\"blue\">two</fo:block>", pressDelete,
               "<fo:block color=\"red\">one|two</fo:block>");
}

TEST(BackspaceTest, AtTheStartOfABlockItJoinsThePreviousBlock)
{
    expectEdit("<fo:block color=\"red\">one</fo:block>\n<fo:block color=\"blue\">|two</fo:block>",
               pressBackspace, "<fo:block color=\"red\">one|two</fo:block>");
}

TEST(DeleteTest, EmptyBlocksBetweenTwoBlocksAreSwallowed)
{
    expectEdit("<fo:block>text1|</fo:block><fo:block><fo:block/></fo:block><fo:block>text2</fo:block>",
               pressDelete, "<fo:block>text1|text2</fo:block>");
}

TEST(BackspaceTest, EmptyBlocksBetweenTwoBlocksAreSwallowed)
{
    expectEdit("<fo:block>text1</fo:block><fo:block><fo:block/></fo:block><fo:block>|text2</fo:block>",
               pressBackspace, "<fo:block>text1|text2</fo:block>");
}

TEST(DeleteTest, InlinesKeepTheirTagsWhenBlocksMerge)
{
    std::string const before = "<fo:block>a <fo:inline font-weight=\"bold\">b|</fo:inline></fo:block>"
                               "<fo:block><fo:inline font-style=\"italic\">c</fo:inline></fo:block>";
    expectEdit(before.c_str(), pressDelete,
               "<fo:block>a <fo:inline font-weight=\"bold\">b|</fo:inline>"
               "<fo:inline font-style=\"italic\">c</fo:inline></fo:block>");
}

TEST(BackspaceTest, InlinesKeepTheirTagsWhenBlocksMerge)
{
    std::string const before = "<fo:block>a <fo:inline font-weight=\"bold\">b</fo:inline></fo:block>"
                               "<fo:block><fo:inline font-style=\"italic\">|c</fo:inline></fo:block>";
    expectEdit(before.c_str(), pressBackspace,
               "<fo:block>a <fo:inline font-weight=\"bold\">b</fo:inline>"
               "<fo:inline font-style=\"italic\">|c</fo:inline></fo:block>");
}

// ---- blocks that hold only a placeholder ----

TEST(DeleteTest, PlaceholderBlockEmptiesAndTheNextBlockJoins)
{
    expectEdit("<fo:block>|&#x00A0;</fo:block><fo:block>two</fo:block>", pressDelete,
               "<fo:block>|two</fo:block>");
}

TEST(DeleteTest, InTheLastEmptyBlockOfTheFlowActsAsBackspace)
{
    expectEdit("<fo:block>one</fo:block><fo:block>|&#x00A0;</fo:block>", pressDelete,
               "<fo:block>one|</fo:block>");
}

TEST(BackspaceTest, PlaceholderBlockEmptiesAndJoinsThePreviousBlock)
{
    expectEdit("<fo:block>one</fo:block><fo:block>|&#x00A0;</fo:block>", pressBackspace,
               "<fo:block>one|</fo:block>");
}

TEST(DeleteAndBackspaceTest, WalkThroughARunOfEmptyBlocks)
{
    std::string const empty = "<fo:block>&#x00A0;</fo:block>";
    std::string const caretBlock = "<fo:block>|&#x00A0;</fo:block>";
    expectPresses(empty + empty + empty + caretBlock + empty + empty + empty,
                  {pressDelete, pressDelete, pressDelete}, empty + empty + empty + caretBlock);
    expectPresses(empty + empty + empty + caretBlock, {pressBackspace, pressBackspace, pressBackspace},
                  caretBlock);
}

// ---- nested blocks ----

TEST(DeleteTest, AtTheEndOfANestedBlockTheTextBehindItJoinsIt)
{
    expectEdit("<fo:block>a<fo:block>b|</fo:block>c</fo:block>", pressDelete,
               "<fo:block>a<fo:block>b|c</fo:block></fo:block>");
}

TEST(BackspaceTest, BehindANestedBlockTheTextJoinsIt)
{
    expectEdit("<fo:block>a<fo:block>b</fo:block>|c</fo:block>", pressBackspace,
               "<fo:block>a<fo:block>b|c</fo:block></fo:block>");
}

TEST(BackspaceTest, AtTheStartOfANestedBlockItDissolvesAndItsEndBecomesALineBreak)
{
    expectEdit("<fo:block>a<fo:block>|b</fo:block>c</fo:block>", pressBackspace,
               "<fo:block>a|b<fo:block />c</fo:block>");
    expectEdit("<fo:block>a<fo:block>|b</fo:block></fo:block>", pressBackspace, "<fo:block>a|b</fo:block>");
}

// Delete dissolves a nested block too. Its line break is recorded as the closing tag
// it replaced, a literal of the same length: undo is exact, and redo writes the
// closing tag back where the line break stood.
TEST(DeleteTest, BeforeANestedBlockItDissolvesAndItsEndBecomesALineBreak)
{
    struct Case {
        std::string before, after, afterRedo;
    };
    std::vector<Case> const cases = {
        {"<fo:block>aaa|<fo:block><fo:block>ccc</fo:block><fo:block>ddd</fo:block>bbb</fo:block></fo:block>",
         "<fo:block>aaa|ccc<fo:block/><fo:block>ddd</fo:block>bbb<fo:block/></fo:block>",
         "<fo:block>aaaccc</fo:block><fo:block>ddd</fo:block>bbb</fo:block></fo:block>"},
        {"<fo:block>|&#x00A0;<fo:block color=\"blue\">    <fo:block "
         "color=\"red\">test</fo:block>test</fo:block>"
         "test</fo:block>",
         "<fo:block>|test<fo:block/>test<fo:block/>test</fo:block>",
         "<fo:block>test</fo:block>test</fo:block>test</fo:block>"},
    };
    for (Case const &c : cases) {
        SCOPED_TRACE(c.before);
        SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
        loadMarked(*buffer, c.before.c_str());
        Core::String const original = markedFlow(*buffer);
        pressDelete(*buffer);
        EXPECT_EQ(markedFlow(*buffer), Core::String(c.after.c_str()));
        buffer->undo();
        EXPECT_EQ(markedFlow(*buffer), original);
        buffer->redo();
        std::string const flow = markedFlow(*buffer).toUtf8();
        std::string withoutCaret = flow;
        withoutCaret.erase(std::remove(withoutCaret.begin(), withoutCaret.end(), '|'), withoutCaret.end());
        EXPECT_EQ(withoutCaret, c.afterRedo);
    }
}

// ---- objects ----

TEST(DeleteTest, TableAfterTheCaretGoesAsAWhole)
{
    expectEdit(("<fo:block>ab|" + table("x") + "cd</fo:block>").c_str(), pressDelete,
               "<fo:block>ab|cd</fo:block>");
}

TEST(BackspaceTest, TableBeforeTheCaretGoesAsAWhole)
{
    expectEdit(("<fo:block>ab" + table("x") + "|cd</fo:block>").c_str(), pressBackspace,
               "<fo:block>ab|cd</fo:block>");
}

// ---- nothing to delete ----

TEST(DeleteTest, DoesNothingAtTheEndOfTheLastBlockOrOfACell)
{
    expectEdit("<fo:block>ab|</fo:block>", pressDelete, "<fo:block>ab|</fo:block>");
    std::string const cells = "<fo:table><fo:table-body><fo:table-row>"
                              "<fo:table-cell><fo:block>ab|</fo:block></fo:table-cell>"
                              "<fo:table-cell><fo:block>cd</fo:block></fo:table-cell>"
                              "</fo:table-row></fo:table-body></fo:table>";
    expectEdit(cells.c_str(), pressDelete, cells.c_str());
}

TEST(BackspaceTest, DoesNothingAtTheStartOfTheFirstBlock)
{
    expectEdit("<fo:block>|ab</fo:block><fo:block>cd</fo:block>", pressBackspace,
               "<fo:block>|ab</fo:block><fo:block>cd</fo:block>");
    expectEdit("<fo:block>|&#x00A0;</fo:block><fo:block>cd</fo:block>", pressBackspace,
               "<fo:block>|&#x00A0;</fo:block><fo:block>cd</fo:block>");
}

// ---- words ----

TEST(ControlDeleteTest, TakesOneWordPerPress)
{
    expectEdit("<fo:block>|a_word b_word&#x00A0; c_word</fo:block>", pressControlDelete,
               "<fo:block>|b_word&#x00A0; c_word</fo:block>");
    expectEdit("<fo:block>|b_word&#x00A0; c_word</fo:block>", pressControlDelete,
               "<fo:block>|c_word</fo:block>");
}

TEST(ControlDeleteTest, NeverLeavesItsTableCell)
{
    std::string const cells = "<fo:table><fo:table-body><fo:table-row>"
                              "<fo:table-cell><fo:block>ab|</fo:block></fo:table-cell>"
                              "<fo:table-cell><fo:block>cd</fo:block></fo:table-cell>"
                              "</fo:table-row></fo:table-body></fo:table>";
    expectEdit(cells.c_str(), pressControlDelete, cells.c_str());
}

// ---- the transaction ----

// A CDATA section that holds "<!--" fools the backward step into cutting into it;
// the validator catches the broken section and the erase is rolled back whole.
TEST(EraseTest, EditThatBreaksTheMarkupIsRolledBack)
{
    SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
    loadMarked(*buffer, "<fo:block>a<![CDATA[<!--]]>b-->|c</fo:block>");
    Core::String const before = buffer->getContent();
    int const caret = buffer->getCaretPos();
    pressBackspace(*buffer);
    EXPECT_EQ(buffer->getContent(), before);
    EXPECT_EQ(buffer->getCaretPos(), caret);
    EXPECT_FALSE(buffer->canUndo()) << "the history is rolled back too";
}

// ---- deleteParent ----

TEST(DeleteParentTest, RemovesTheNearestAncestorOfThatName)
{
    EditCheck("<fo:block>a<fo:inline>b|c</fo:inline>d</fo:block>")
        .expectOn<DeletionProbe>([](DeletionProbe &buffer) { buffer.deleteParent("fo:inline"); },
                                 "<fo:block>a|d</fo:block>");
}

TEST(DeleteParentTest, ElementLeftEmptyGetsAPlaceholder)
{
    EditCheck("<fo:block><fo:inline>b|c</fo:inline></fo:block>")
        .expectOn<DeletionProbe>([](DeletionProbe &buffer) { buffer.deleteParent("fo:inline"); },
                                 "<fo:block>&#x00A0;|</fo:block>");
}
