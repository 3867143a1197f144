// Caret stops and caret movement, stated as markup with the caret marked before and
// after each press.

#include "editing/CaretProbe.h"

#include <gtest/gtest.h>

namespace foedit::test {
namespace {

bool holdsCaret(Core::String const &markedBody)
{
    SmartPtr<CaretProbe> probe = loadProbe(markedBody);
    return probe->canHoldCaret(probe->getCaretPos());
}

Core::String homeOf(Core::String const &body)
{
    SmartPtr<CaretProbe> probe = loadProbe(body); // setContent places the caret by Home
    return markedFlow(*probe);
}

TEST(EditableElements, NamesAreClassifiedByTheHostsTables)
{
    SmartPtr<CaretProbe> probe = loadProbe("<fo:block>a</fo:block>");
    EXPECT_TRUE(probe->elementIsEditable(Core::String("FO:Block")));
    EXPECT_FALSE(probe->elementIsEditable(Core::String("fo:table")));
    EXPECT_TRUE(probe->isBlockEditableElementName("fo:block"));
    EXPECT_FALSE(probe->isBlockEditableElementName("fo:inline"));
    EXPECT_TRUE(probe->isInlineEditableElementName("fo:basic-link"));
    EXPECT_TRUE(probe->isInlineEditableElementClosingTagName("/fo:inline"));
    EXPECT_FALSE(probe->isInlineEditableElementClosingTagName("fo:inline"));
    EXPECT_FALSE(probe->isInlineEditableElementClosingTagName("/fo:block"));
}

TEST(EditableElements, ANameListedTwiceCountsOnce)
{
    SmartPtr<CaretProbe> probe(new CaretProbe());
    configureStandardHost(*probe);
    configureStandardHost(*probe);
    probe->addInlineEditableElement("fo:block");
    // Listed once as editable and now also as inline: no longer a block name.
    EXPECT_FALSE(probe->isBlockEditableElementName("fo:block"));
    EXPECT_TRUE(probe->isBlockEditableElementName("ot:form"));
}

TEST(CanHoldCaret, TextOfEditableElementsOnly)
{
    EXPECT_TRUE(holdsCaret("<fo:block>a|b</fo:block>"));
    EXPECT_TRUE(holdsCaret("<fo:block>ab|</fo:block>"));
    EXPECT_TRUE(holdsCaret("<fo:block><fo:inline>|a</fo:inline></fo:block>"));
    EXPECT_FALSE(holdsCaret("|<fo:block>ab</fo:block>"));
    EXPECT_FALSE(holdsCaret("<fo:block>ab</fo:block>|\n<fo:block>c</fo:block>"));
    EXPECT_FALSE(holdsCaret("<fo:block-container>|<fo:block>a</fo:block></fo:block-container>"));
}

TEST(CanHoldCaret, RightBeforeAndAfterATable)
{
    const char *table = "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>x</fo:block>"
                        "</fo:table-cell></fo:table-row></fo:table-body></fo:table>";
    EXPECT_TRUE(holdsCaret(Core::String("|") + table));
    EXPECT_TRUE(holdsCaret(Core::String(table) + "|"));
    EXPECT_FALSE(holdsCaret(Core::String(table) + " |"));
    EXPECT_FALSE(holdsCaret("<fo:table><fo:table-body>|<fo:table-row/></fo:table-body></fo:table>"));
}

TEST(CanHoldCaret, NeverInAListLabelOrInGlobalTemplateLogic)
{
    EXPECT_FALSE(holdsCaret("<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1|.</fo:block>"
                            "</fo:list-item-label><fo:list-item-body><fo:block>x</fo:block>"
                            "</fo:list-item-body></fo:list-item></fo:list-block>"));
    EXPECT_TRUE(holdsCaret("<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1.</fo:block>"
                           "</fo:list-item-label><fo:list-item-body><fo:block>|x</fo:block>"
                           "</fo:list-item-body></fo:list-item></fo:list-block>"));
    EXPECT_FALSE(holdsCaret("<otd:xslt-global><fo:block>a|b</fo:block></otd:xslt-global>"));
}

TEST(MoveCaretHome, FirstStopOfTheFirstElementWithContent)
{
    EXPECT_EQ(homeOf("<fo:block>ab</fo:block>"), "<fo:block>|ab</fo:block>");
    // Indentation and an empty block draw nothing; the inline's start tag behind the
    // indentation adds no stop of its own.
    EXPECT_EQ(homeOf("<fo:block> </fo:block><fo:block>\n  <fo:inline>x</fo:inline></fo:block>"),
              "<fo:block> </fo:block><fo:block>\n  <fo:inline>|x</fo:inline></fo:block>");
    // A placeholder is content.
    EXPECT_EQ(homeOf("<fo:block>&#x00A0;</fo:block><fo:block>x</fo:block>"),
              "<fo:block>|&#x00A0;</fo:block><fo:block>x</fo:block>");
}

TEST(MoveCaretHome, NothingToStandOnClearsTheCaret)
{
    SmartPtr<CaretProbe> probe = loadProbe("<fo:block> </fo:block><fo:block/>");
    EXPECT_EQ(probe->getCaretPos(), -1);
    EXPECT_EQ(probe->getSelectionPivotPos(), -1);
}

const char *const staticDocument =
    "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
    "<fo:layout-master-set><fo:simple-page-master master-name=\"A4\"><fo:region-body/>"
    "<fo:region-before region-name=\"head\"/></fo:simple-page-master></fo:layout-master-set>"
    "<fo:page-sequence master-reference=\"A4\">"
    "<fo:static-content flow-name=\"head\"><fo:block>h{h}d</fo:block></fo:static-content>"
    "<fo:flow flow-name=\"xsl-region-body\"><fo:block>b{b}dy</fo:block></fo:flow>"
    "</fo:page-sequence></fo:root>";

Core::String staticDocumentWith(const char *headMark, const char *bodyMark)
{
    return Core::String(staticDocument).replaced("{h}", headMark).replaced("{b}", bodyMark);
}

TEST(MoveCaretHome, SkipsStaticContentFromTheFlowAndKeepsToItFromWithin)
{
    SmartPtr<CaretProbe> probe = loadProbeDocument(staticDocumentWith("", ""));
    EXPECT_EQ(markedContent(*probe), staticDocumentWith("", "").replaced("<fo:block>bdy", "<fo:block>|bdy"));

    probe = loadProbeDocument(staticDocumentWith("|", ""));
    probe->moveCaretHome(false);
    EXPECT_EQ(markedContent(*probe), staticDocumentWith("", "").replaced("<fo:block>hd", "<fo:block>|hd"));
}

} // namespace
} // namespace foedit::test
