// Enter and the break commands, by the context of the caret. Documents are flow
// bodies with `|` for the caret; every edit is also undone and redone (EditCheck).
#include "common/EditCheck.h"
#include "common/KeyPresses.h"
#include "common/MarkedDocument.h"

#include "editing/BreakType.h"
#include "editing/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

#include <string>

using foedit::test::EditCheck;
using foedit::test::expectEdit;
using foedit::test::loadMarked;
using foedit::test::makeStandardBuffer;
using foedit::test::markedFlow;
using foedit::test::pressEnter;
using foedit::test::pressLineBreak;

namespace {

std::string tableInBlock(std::string const &firstCell, std::string const &secondCell)
{
    return "<fo:block><fo:table><fo:table-body><fo:table-row>"
           "<fo:table-cell><fo:block>" +
           firstCell + "</fo:block></fo:table-cell><fo:table-cell><fo:block>" + secondCell +
           "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>&#x00A0;</fo:block>";
}

} // namespace

// ---- line breaks ----

TEST(LineBreakTest, EndOfALineGetsAPlaceholderBehindTheBreak)
{
    expectEdit("<fo:block>block|</fo:block>", pressLineBreak,
               "<fo:block>block<fo:block />|&#x00A0;</fo:block>");
}

// The placeholder between the two breaks stays, and the new last line gets its own.
TEST(LineBreakTest, SecondBreakKeepsAPlaceholderOnEachLine)
{
    expectEdit("<fo:block>block<fo:block />|&#x00A0;</fo:block>", pressLineBreak,
               "<fo:block>block<fo:block />&#x00A0;<fo:block />|&#x00A0;</fo:block>");
}

TEST(LineBreakTest, InAnEmptyBlockBothLinesHoldAPlaceholder)
{
    expectEdit("<fo:block>|&#x00A0;</fo:block>", pressLineBreak,
               "<fo:block>&#x00A0;<fo:block />|&#x00A0;</fo:block>");
}

TEST(LineBreakTest, InTheMiddleOfTextNeedsNoPlaceholder)
{
    expectEdit("<fo:block>ab|cd</fo:block>", pressLineBreak, "<fo:block>ab<fo:block />|cd</fo:block>");
}

// ---- paragraph breaks ----

TEST(ParagraphBreakTest, BlockSplitsWithItsAttributesAndIndentation)
{
    expectEdit("<fo:block color=\"red\">ab|cd</fo:block>", pressEnter,
               "<fo:block color=\"red\">ab</fo:block>\n<fo:block color=\"red\">|cd</fo:block>");
    expectEdit("\t\t<fo:block>ab|cd</fo:block>", pressEnter,
               "\t\t<fo:block>ab</fo:block>\n\t\t<fo:block>|cd</fo:block>");
}

TEST(ParagraphBreakTest, InlinesAroundTheCaretCloseAndReopenWithTheirAttributes)
{
    expectEdit(
        "<fo:block>x<fo:inline font-weight=\"bold\"><fo:inline color=\"red\">ab|cd</fo:inline></fo:inline>"
        "</fo:block>",
        pressEnter,
        "<fo:block>x<fo:inline font-weight=\"bold\"><fo:inline color=\"red\">ab</fo:inline></fo:inline>"
        "</fo:block>\n"
        "<fo:block><fo:inline font-weight=\"bold\"><fo:inline color=\"red\">|cd</fo:inline></fo:inline>"
        "</fo:block>");
}

TEST(ParagraphBreakTest, AtTheStartOfABlockTheOldBlockKeepsAPlaceholder)
{
    expectEdit("<fo:block>|ab</fo:block>", pressEnter,
               "<fo:block>&#x00A0;</fo:block>\n<fo:block>|ab</fo:block>");
}

TEST(ParagraphBreakTest, InAnEmptyBlockBothBlocksHoldAPlaceholder)
{
    expectEdit("<fo:block>|&#x00A0;</fo:block>", pressEnter,
               "<fo:block>&#x00A0;</fo:block>\n<fo:block>|&#x00A0;</fo:block>");
}

TEST(ParagraphBreakTest, OnALineBreakTheNewBlockStartsWithAPlaceholder)
{
    expectEdit("<fo:block>ab|<fo:block/>cd</fo:block>", pressEnter,
               "<fo:block>ab</fo:block>\n<fo:block>|&#x00A0;<fo:block/>cd</fo:block>");
}

// A page break and an identifier must not be duplicated.
TEST(ParagraphBreakTest, NewBlockDropsBreaksAndIdentifier)
{
    expectEdit(
        "<fo:block break-before=\"page\" id=\"b1\" color=\"red\" break-after=\"column\">ab|cd</fo:block>",
        pressEnter,
        "<fo:block break-before=\"page\" id=\"b1\" color=\"red\" break-after=\"column\">ab</fo:block>\n"
        "<fo:block color=\"red\">|cd</fo:block>");
}

TEST(ParagraphBreakTest, EmptyNewLineCarriesNoLineDecoration)
{
    expectEdit(
        "<fo:block>x<fo:inline text-underline-style=\"solid\" color=\"red\">ab|</fo:inline></fo:block>",
        pressEnter,
        "<fo:block>x<fo:inline text-underline-style=\"solid\" color=\"red\">ab</fo:inline></fo:block>\n"
        "<fo:block><fo:inline color=\"red\">|&#x00A0;</fo:inline></fo:block>");
}

// Typing after Enter at the end of a block whose link ends before a placeholder goes
// into a plain block: the link is not carried over.
TEST(ParagraphBreakTest, LinkBeforeTheTrailingPlaceholderIsNotCarriedOver)
{
    SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
    loadMarked(*buffer, "<fo:block><fo:basic-link internal-destination=\"x\">anchor</fo:basic-link>|&#x00A0;"
                        "</fo:block>");
    pressEnter(*buffer);
    buffer->insertText("Pam Pam!", false, false);
    EXPECT_EQ(markedFlow(*buffer),
              "<fo:block><fo:basic-link internal-destination=\"x\">anchor</fo:basic-link></fo:block>\n"
              "<fo:block>Pam Pam!|</fo:block>");
}

// ---- where no text element can split ----

TEST(ParagraphBreakTest, BeforeATableDirectlyInTheFlowTheRestIsWrappedInABlock)
{
    std::string const table = "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>x</fo:block>"
                              "</fo:table-cell></fo:table-row></fo:table-body></fo:table>";
    expectEdit(("|" + table).c_str(), pressEnter, ("<fo:block>|" + table + "</fo:block>").c_str());
}

TEST(ParagraphBreakTest, DirectlyInAFormTheTextUpToTheNextBlockIsWrapped)
{
    expectEdit("<fo:block><ot:form>ab|cd<fo:block>x</fo:block></ot:form></fo:block>", pressEnter,
               "<fo:block><ot:form>ab<fo:block>|cd</fo:block><fo:block>x</fo:block></ot:form></fo:block>");
}

// ---- at the edges of tables and forms ----

TEST(ParagraphBreakTest, AtTheFirstPositionOfATableAParagraphIsMadeInFrontOfIt)
{
    expectEdit(("<fo:block>x</fo:block>" + tableInBlock("|ab", "cd")).c_str(), pressEnter,
               ("<fo:block>x</fo:block><fo:block>|&#x00A0;</fo:block>\n" + tableInBlock("ab", "cd")).c_str());
}

TEST(ParagraphBreakTest, AtTheLastPositionOfATableAParagraphIsMadeBehindIt)
{
    std::string const table = tableInBlock("ab", "cd");
    std::string const closed = table.substr(0, table.size() - std::string("&#x00A0;</fo:block>").size());
    expectEdit(tableInBlock("ab", "cd|").c_str(), pressEnter,
               (closed + "</fo:block>\n<fo:block>|&#x00A0;</fo:block>").c_str());
}

// The footer stands before the body in the markup but is read last: the table's first
// position is in the body, its last in the footer.
TEST(ParagraphBreakTest, TableEdgesFollowReadingOrderPastTheFooter)
{
    auto table = [](std::string const &footer, std::string const &body) {
        return "<fo:block><fo:table><fo:table-footer><fo:table-row><fo:table-cell><fo:block>" + footer +
               "</fo:block></fo:table-cell></fo:table-row></fo:table-footer><fo:table-body><fo:table-row>"
               "<fo:table-cell><fo:block>" +
               body +
               "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>&#x00A0;</fo:block>";
    };
    std::string const plain = table("f", "b");
    expectEdit(("<fo:block>x</fo:block>" + table("f", "|b")).c_str(), pressEnter,
               ("<fo:block>x</fo:block><fo:block>|&#x00A0;</fo:block>\n" + plain).c_str());
    std::string const closed = plain.substr(0, plain.size() - std::string("&#x00A0;</fo:block>").size());
    expectEdit(table("f|", "b").c_str(), pressEnter,
               (closed + "</fo:block>\n<fo:block>|&#x00A0;</fo:block>").c_str());
}

TEST(ParagraphBreakTest, AtTheFirstPositionOfAFormAParagraphIsMadeInFrontOfIt)
{
    expectEdit("<fo:block><ot:form><fo:block>|&#x00A0;</fo:block></ot:form>&#x00A0;</fo:block>", pressEnter,
               "<fo:block>|&#x00A0;</fo:block>\n"
               "<fo:block><ot:form><fo:block>&#x00A0;</fo:block></ot:form>&#x00A0;</fo:block>");
}

TEST(ParagraphBreakTest, AtTheLastPositionOfAFormAParagraphIsMadeBehindIt)
{
    expectEdit("<fo:block><ot:form><fo:block>&#x00A0;<fo:block />|&#x00A0;</fo:block></ot:form>&#x00A0;"
               "</fo:block>",
               pressEnter,
               "<fo:block><ot:form><fo:block>&#x00A0;<fo:block />&#x00A0;</fo:block></ot:form></fo:block>\n"
               "<fo:block>|&#x00A0;</fo:block>");
}

// ---- page and column breaks ----

TEST(PageBreakTest, NewBlockKeepsItsFormattingAndCarriesTheBreak)
{
    expectEdit(
        "<fo:block color=\"red\" id=\"b1\">ab|cd</fo:block>",
        [](EditableDocumentBuffer &buffer) { buffer.insertBreak(PageBreak, false); },
        "<fo:block color=\"red\" id=\"b1\">ab</fo:block>\n<fo:block color=\"red\" break-before=\"page\">|cd"
        "</fo:block>");
    expectEdit(
        "<fo:block>ab|cd</fo:block>",
        [](EditableDocumentBuffer &buffer) { buffer.insertBreak(ColumnBreak, true); },
        "<fo:block>ab</fo:block>\n<fo:block break-after=\"column\">|cd</fo:block>");
    expectEdit(
        "<fo:block>ab|cd</fo:block>",
        [](EditableDocumentBuffer &buffer) { buffer.insertBreak(EvenPageBreak, false); },
        "<fo:block>ab</fo:block>\n<fo:block break-before=\"even-page\">|cd</fo:block>");
}

// ---- what Enter leaves alone ----

TEST(InsertBreakTest, UnknownBreakTypeChangesNothing)
{
    expectEdit(
        "<fo:block>ab|cd</fo:block>",
        [](EditableDocumentBuffer &buffer) { buffer.insertBreak(static_cast<BreakType>(7), false); },
        "<fo:block>ab|cd</fo:block>");
}

TEST(InsertBreakTest, ListLabelTakesNoBreakAndNoHistory)
{
    SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
    loadMarked(*buffer, "<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1|.</fo:block>"
                        "</fo:list-item-label><fo:list-item-body><fo:block>a</fo:block></fo:list-item-body>"
                        "</fo:list-item></fo:list-block>");
    Core::String const before = buffer->getContent();
    buffer->insertBreak(ParagraphBreak, false);
    buffer->insertBreak(LineBreak, false);
    EXPECT_EQ(buffer->getContent(), before);
    EXPECT_FALSE(buffer->canUndo());
}
