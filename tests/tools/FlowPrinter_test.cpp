#include "FlowPrinter.h"
#include "ToolTestSupport.h"

#include <gtest/gtest.h>

using namespace foedit::test;

namespace {

// Two page sequences: static content and a flow in the first, a flow in the second.
const char *const twoSequences =
    "<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
    "<fo:layout-master-set><fo:simple-page-master master-name=\"A\"><fo:region-body/>"
    "</fo:simple-page-master></fo:layout-master-set>"
    "<fo:page-sequence master-reference=\"A\">"
    "<fo:static-content flow-name=\"xsl-region-before\"><fo:block>head</fo:block></fo:static-content>"
    "<fo:flow flow-name=\"xsl-region-body\"><fo:block>one</fo:block></fo:flow></fo:page-sequence>"
    "<fo:page-sequence master-reference=\"A\">"
    "<fo:flow flow-name=\"xsl-region-body\"><fo:block>two</fo:block></fo:flow></fo:page-sequence></fo:root>";

std::string flowAt(const char *text)
{
    EditorSession session;
    session.openText(twoSequences, "t");
    const Core::String content = Core::String::fromUtf8(twoSequences);
    session.document().setCaretPos(false, content.find(text));
    return FlowPrinter::markedFlow(session.document());
}

} // namespace

TEST(FlowPrinter, ShowsTheFlowOrStaticContentTheCaretIsIn)
{
    EXPECT_EQ(flowAt("head"), "<fo:block>|head</fo:block>");
    EXPECT_EQ(flowAt("one"), "<fo:block>|one</fo:block>");
    EXPECT_EQ(flowAt("two"), "<fo:block>|two</fo:block>");
}

TEST(FlowPrinter, WithoutACaretTheFirstFlowShowsUnmarked)
{
    EditorSession session;
    session.openText(twoSequences, "t");
    session.document().setCaretPos(false, -1);
    EXPECT_EQ(FlowPrinter::markedFlow(session.document()), "<fo:block>one</fo:block>");
}

TEST(FlowPrinter, MarksCaretAndPivotInEitherOrder)
{
    EXPECT_EQ(FlowPrinter::markedFlow(sessionWithFlow("<fo:block>a^bc|d</fo:block>")->document()),
              "<fo:block>a^bc|d</fo:block>");
    EXPECT_EQ(FlowPrinter::markedFlow(sessionWithFlow("<fo:block>a|bc^d</fo:block>")->document()),
              "<fo:block>a|bc^d</fo:block>");
}

TEST(FlowPrinter, CellsTellTagsEntitiesAndTheSelectionApart)
{
    const auto session = sessionWithFlow("<fo:block>^a&#x00A0;|b</fo:block>");
    const StyledText cells = FlowPrinter::styledFlow(session->document());
    std::string kinds;
    for (const StyledCell &cell : cells)
        kinds += cell.style & CellCaret      ? '|'
                 : cell.style & CellPivot    ? '^'
                 : cell.style & CellSelected ? 'S'
                 : cell.style & CellTag      ? 'T'
                 : cell.style & CellEntity   ? 'E'
                                             : 't';
    EXPECT_EQ(kinds, "TTTTTTTTTT^SSSSSSSSS|tTTTTTTTTTTT");
}

TEST(FlowPrinter, BlockAroundTheCaretSkipsClosedAndSelfClosingBlocks)
{
    const auto session =
        sessionWithFlow("<fo:block>x</fo:block><fo:block>a<fo:block/>b<fo:block>in</fo:block>c|d</fo:block>");
    EXPECT_EQ(FlowPrinter::markedBlock(session->document()),
              "<fo:block>a<fo:block/>b<fo:block>in</fo:block>c|d</fo:block>");
    runScript(*session, "find in");
    EXPECT_EQ(FlowPrinter::markedBlock(session->document()), "<fo:block>|in</fo:block>");
}

TEST(FlowPrinter, IndentationBetweenTagsIsIgnoredButTextBlanksAreNot)
{
    using FlowPrinter::withoutIndentation;
    EXPECT_EQ(withoutIndentation("\n\t<fo:block>a b</fo:block>\n\t|<fo:block>\n</fo:block>\n"),
              "<fo:block>a b</fo:block>|<fo:block></fo:block>");
    // A line feed inside the text is content, and blanks without a line feed stay.
    EXPECT_EQ(withoutIndentation("<fo:block>a\n\tb</fo:block> <fo:block>"),
              "<fo:block>a\n\tb</fo:block> <fo:block>");
}
