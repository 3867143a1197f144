// Word jumps and the selection commands, stated as markup with the caret (`|`) and the
// other end of the selection (`^`) before and after.

#include "editing/CaretProbe.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace foedit::test {
namespace {

void nextWord(CaretProbe &b)
{
    b.jumpToNextWord(false);
}
void previousWord(CaretProbe &b)
{
    b.jumpToPreviousWord(false);
}
void ctrlRight(CaretProbe &b)
{
    b.moveCaretRight(false, true, false);
}
void ctrlLeft(CaretProbe &b)
{
    b.moveCaretLeft(false, true, false);
}

TEST(JumpToNextWord, WordsAndGaps)
{
    std::vector<Core::String> trail = pressTrail("<fo:block>|one, two  three</fo:block>", 4, nextWord);
    EXPECT_EQ(trail[0], "<fo:block>one|, two  three</fo:block>");
    EXPECT_EQ(trail[1], "<fo:block>one,| two  three</fo:block>");
    EXPECT_EQ(trail[2], "<fo:block>one, |two  three</fo:block>");
    EXPECT_EQ(trail[3], "<fo:block>one, two  |three</fo:block>");
    // Blanks and placeholders together are one gap.
    EXPECT_EQ(afterPresses("<fo:block>one| &#x00A0; two</fo:block>", 1, nextWord),
              "<fo:block>one &#x00A0; |two</fo:block>");
}

TEST(JumpToNextWord, IntoAnInlineAndToItsEnd)
{
    std::vector<Core::String> trail =
        pressTrail("<fo:block>|block <fo:inline>with inline</fo:inline></fo:block>", 3, ctrlRight);
    EXPECT_EQ(trail[0], "<fo:block>block |<fo:inline>with inline</fo:inline></fo:block>");
    EXPECT_EQ(trail[1], "<fo:block>block <fo:inline>with |inline</fo:inline></fo:block>");
    EXPECT_EQ(trail[2], "<fo:block>block <fo:inline>with inline|</fo:inline></fo:block>");
}

TEST(JumpToNextWord, ThroughTheEndOfAnInline)
{
    // The word ends with the inline, and the jump runs on over the gap behind it.
    EXPECT_EQ(afterPresses("<fo:block><fo:inline>|word</fo:inline> next</fo:block>", 1, nextWord),
              "<fo:block><fo:inline>word</fo:inline> |next</fo:block>");
    // Text right behind the inline ends the jump there, in the middle of the word.
    EXPECT_EQ(afterPresses("<fo:block><fo:inline>|wo</fo:inline>rd next</fo:block>", 1, nextWord),
              "<fo:block><fo:inline>wo</fo:inline>|rd next</fo:block>");
}

TEST(JumpToNextWord, FromTheEndOfABlockToTheNextBlocksFirstCharacter)
{
    EXPECT_EQ(afterPresses("<fo:block>one|</fo:block>\n  <fo:block>two</fo:block>", 1, nextWord),
              "<fo:block>one</fo:block>\n  <fo:block>|two</fo:block>");
    // A placeholder is the end of its element: the jump goes on behind it.
    EXPECT_EQ(afterPresses("<fo:block>|&#x00A0;</fo:block><fo:block>two</fo:block>", 1, nextWord),
              "<fo:block>&#x00A0;</fo:block><fo:block>|two</fo:block>");
}

TEST(JumpToNextWord, WithShiftTheSelectionGrows)
{
    EXPECT_EQ(afterPresses("<fo:block>|one two</fo:block>", 1, [](CaretProbe &b) { b.jumpToNextWord(true); }),
              "<fo:block>^one |two</fo:block>");
}

TEST(JumpToPreviousWord, WordsAndGaps)
{
    // The mirror of the forward jump: punctuation is a word of its own.
    std::vector<Core::String> trail = pressTrail("<fo:block>one, two  three|</fo:block>", 5, previousWord);
    EXPECT_EQ(trail[0], "<fo:block>one, two  |three</fo:block>");
    EXPECT_EQ(trail[1], "<fo:block>one, |two  three</fo:block>");
    EXPECT_EQ(trail[2], "<fo:block>one,| two  three</fo:block>");
    EXPECT_EQ(trail[3], "<fo:block>one|, two  three</fo:block>");
    EXPECT_EQ(trail[4], "<fo:block>|one, two  three</fo:block>");
}

TEST(JumpToPreviousWord, StopsAtTheStartOfItsElementAfterTheGap)
{
    // The first blank of an inline behind text is a real space, so a stop.
    EXPECT_EQ(afterPresses("<fo:block>a<fo:inline> |two</fo:inline></fo:block>", 1, ctrlLeft),
              "<fo:block>a<fo:inline>| two</fo:inline></fo:block>");
    // Collapsed white space at a block's start is no stop: the jump goes on behind it.
    EXPECT_EQ(afterPresses("<fo:block>x</fo:block><fo:block>  |two</fo:block>", 1, ctrlLeft),
              "<fo:block>x|</fo:block><fo:block>  two</fo:block>");
}

TEST(GetPreviousWordPos, TheJumpWithoutMovingTheCaret)
{
    SmartPtr<CaretProbe> probe = loadProbe("<fo:block>one two|</fo:block>");
    int caret = probe->getCaretPos();
    EXPECT_EQ(probe->getPreviousWordPos(caret), caret - 3);
    EXPECT_EQ(probe->getCaretPos(), caret);
    EXPECT_EQ(probe->getPreviousWordPos(-1), -1);
}

TEST(IsWordSeparator, PunctuationBlanksAndThePlaceholder)
{
    SmartPtr<CaretProbe> probe = loadProbe("<fo:block>a</fo:block>");
    std::wstring const separators = L" \n\t,;)(-=?!#@'\"&%$^*><.|][}{/~:\\\u00A0";
    EXPECT_TRUE(std::all_of(separators.begin(), separators.end(),
                            [&](wchar_t c) { return probe->isWordSeparator(c); }));
    std::wstring const wordCharacters = L"aZ9_\u00E9\r";
    EXPECT_TRUE(std::none_of(wordCharacters.begin(), wordCharacters.end(),
                             [&](wchar_t c) { return probe->isWordSeparator(c); }));
}

const char *const cellTable =
    "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>one</fo:block></fo:table-cell>"
    "<fo:table-cell><fo:block>two</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>";

Core::String withMarks(const char *text, const char *from, const char *to)
{
    return Core::String(text).replaced(from, to);
}

TEST(SelectParent, ClimbsFromCellTextToRowToTable)
{
    Core::String start = withMarks(cellTable, "<fo:block>two", "<fo:block>t|wo");
    std::vector<Core::String> trail = pressTrail(start, 3, [](CaretProbe &b) { b.selectParent(); });
    EXPECT_EQ(trail[0], withMarks(cellTable, "<fo:block>two</fo:block>", "<fo:block>^two|</fo:block>"));
    EXPECT_EQ(trail[1], withMarks(cellTable, "one</fo:block>", "^one</fo:block>")
                            .replaced("two</fo:block>", "two|</fo:block>"));
    EXPECT_EQ(trail[2], trail[1]); // the row group is passed over: the table has the same stops
}

TEST(SelectParent, NeverSelectsAPageSequence)
{
    std::vector<Core::String> trail = pressTrail("<fo:block>o|ne</fo:block><fo:block>two</fo:block>", 3,
                                                 [](CaretProbe &b) { b.selectParent(); });
    EXPECT_EQ(trail[0], "<fo:block>^one</fo:block><fo:block>two|</fo:block>"); // the flow's content
    EXPECT_EQ(trail[1], trail[0]);
    EXPECT_EQ(trail[2], trail[0]);
}

TEST(SelectionCommands, WholeElements)
{
    EXPECT_EQ(afterPresses("<fo:block>a<fo:inline>b|c</fo:inline>d</fo:block>", 1,
                           [](CaretProbe &b) { b.selectCurrentElement(); }),
              "<fo:block>a^<fo:inline>bc</fo:inline>|d</fo:block>");
    EXPECT_EQ(afterPresses(withMarks(cellTable, "one", "o|ne"), 1, [](CaretProbe &b) { b.selectTable(); }),
              Core::String("^") + cellTable + "|");
    EXPECT_EQ(afterPresses("<fo:block>a|<fo:inline>bc</fo:inline>d</fo:block>", 1,
                           [](CaretProbe &b) { b.selectElementStartingAtCaretPosition(); }),
              "<fo:block>a^<fo:inline>bc</fo:inline>|d</fo:block>");
    EXPECT_EQ(
        afterPresses("<fo:block>a<fo:inline>b|c</fo:inline>d</fo:block>", 1,
                     [](CaretProbe &b) { b.selectElement("/fo:root/fo:page-sequence/fo:flow/fo:block"); }),
        "^<fo:block>a<fo:inline>bc</fo:inline>d|</fo:block>");
}

TEST(SelectionCommands, TableQuestions)
{
    SmartPtr<CaretProbe> probe = loadProbe(withMarks(cellTable, "one", "o|ne"));
    EXPECT_FALSE(probe->hasSelectedTable());
    EXPECT_FALSE(probe->selectionCrossTable());
    probe->selectTable();
    EXPECT_TRUE(probe->hasSelectedTable());

    probe = loadProbe(Core::String(withMarks(cellTable, "one", "o^ne")) + "<fo:block>a|b</fo:block>");
    EXPECT_TRUE(probe->selectionCrossTable());
    probe = loadProbe(withMarks(cellTable, "one", "o^ne").replaced("two", "t|wo"));
    EXPECT_FALSE(probe->selectionCrossTable());
}

TEST(SelectionCommands, SelectedContentQuestions)
{
    SmartPtr<CaretProbe> probe = loadProbe("<fo:block>x<fo:inline>^ab|</fo:inline></fo:block>");
    EXPECT_TRUE(probe->isElementSelected("fo:inline"));
    EXPECT_FALSE(probe->isElementSelected("fo:block"));
    EXPECT_FALSE(probe->isElementSelected(""));
    int first = probe->getSelectionPivotPos();
    EXPECT_TRUE(probe->selectionIsEntireElementContent(first, probe->getCaretPos()));
    EXPECT_FALSE(probe->selectionIsEntireElementContent(first + 1, probe->getCaretPos()));
}

} // namespace
} // namespace foedit::test
