// Walks between elements: the current element, ancestors, neighbours, children, paths.

#include "MarkupProbe.h"

#include <gtest/gtest.h>

using foedit::test::mark;
using foedit::test::MarkupProbe;

// A document with a prolog, as stored documents have; `body` is the root's content.
#define FO_DOC(body) "<?xml version=\"1.0\"?><fo:root>" body "</fo:root>"

namespace {

int currentElement(std::string_view markup, int *expected)
{
    auto m = mark(markup);
    *expected = m.expected;
    return MarkupProbe(m).getCurrentElementPosition(m.at);
}

} // namespace

TEST(CurrentElement, StartTagIsEnteredOnlyAfterItsEnd)
{
    int expected = 0;
    for (auto markup : {
             FO_DOC("^<fo:flow>|<fo:block>ab</fo:block></fo:flow>"),
             FO_DOC("^<fo:flow><|fo:block>ab</fo:block></fo:flow>"),
             FO_DOC("<fo:flow>^<fo:block>|ab</fo:block></fo:flow>"),
             FO_DOC("<fo:flow>^<fo:block>ab|</fo:block></fo:flow>"), // the closing tag's "<"
             FO_DOC("^<fo:flow><fo:block>ab</fo:block>|</fo:flow>"),
             "<?xml?>^<fo:root>|</fo:root>", // the root is reachable
         }) {
        EXPECT_EQ(currentElement(markup, &expected), expected) << markup;
    }
    EXPECT_EQ(currentElement("<?xml?>|<fo:root></fo:root>", &expected), -1); // above the root
    EXPECT_EQ(currentElement("", &expected), -1);
}

TEST(CurrentElement, IgnoredItemsAndSiblingsDoNotDisturbTheDepth)
{
    auto m =
        mark(FO_DOC("<fo:flow>^<fo:block a='>'>x<!-- </fo:block> --><?pi x?><![CDATA[</fo:block>]]>"
                    "<fo:block/><fo:inline>y<fo:inline>z</fo:inline></fo:inline>|w</fo:block></fo:flow>"));
    MarkupProbe probe(m);
    EXPECT_EQ(probe.getCurrentElementPosition(m.at), m.expected);
    Core::String name = "stale";
    EXPECT_EQ(probe.getCurrentElementNameAndPos(m.at, name), m.expected);
    EXPECT_EQ(name, "fo:block");
    EXPECT_EQ(probe.getCurrentElementStartTagString(m.at), "fo:block a='>'");
    EXPECT_EQ(probe.getFirstPositionInElementContaining(m.at), m.text.find(">x<") + 1);
    EXPECT_EQ(probe.getLastPositionInElementContaining(m.at), m.at + 1);
    name = "stale";
    EXPECT_EQ(probe.getCurrentElementNameAndPos(3, name), -1);
    EXPECT_EQ(name, "");
}

TEST(CurrentElement, StaticForms)
{
    // They pass CDATA sections only where the walk starts, so comments here hold no "<".
    auto doc =
        mark(FO_DOC("<fo:flow>^<fo:block>x<!-- c --><?pi?><fo:block/><fo:inline>y</fo:inline>|</fo:block>"));
    EXPECT_EQ(MarkupProbe::getCurrentElementPosition(doc.at, doc.text), doc.expected);
    EXPECT_EQ(MarkupProbe::getCurrentElementName(doc.at, doc.text), "fo:block");
    EXPECT_EQ(MarkupProbe::getCurrentElementPosition(-1, doc.text), -1);

    // The static name lookup stops at a tag at index 0.
    auto m = mark("^<a>x|<b/></a>");
    EXPECT_EQ(MarkupProbe::getCurrentElementName(m.at, m.text), "");
    EXPECT_EQ(MarkupProbe::getCurrentElementPosition(m.at, m.text), m.expected);
    EXPECT_EQ(MarkupProbe(m).getCurrentElementName(m.at), "a");
}

TEST(Ancestors, ParentOfNestedBlocksIsTheInnerBlock)
{
    // Walking up from the current element to the parent's name stops at once when both
    // share the name: callers rely on this.
    auto nested = mark(FO_DOC("<fo:flow><fo:block>a^<fo:block>x|</fo:block></fo:block></fo:flow>"));
    MarkupProbe probe(nested);
    EXPECT_EQ(probe.getParentElementName(nested.at), "fo:block");
    EXPECT_EQ(probe.getParentElementPosition(nested.at), nested.expected);

    auto plain = mark(FO_DOC("^<fo:flow><fo:block>x|</fo:block></fo:flow>"));
    EXPECT_EQ(MarkupProbe(plain).getParentElementPosition(plain.at), plain.expected);
    EXPECT_EQ(MarkupProbe(plain).getParentElementName(plain.at), "fo:flow");
    EXPECT_EQ(MarkupProbe(plain).getParentElementName(-1), "");
}

TEST(Ancestors, SearchParentInNestedTables)
{
    auto m = mark(FO_DOC("<fo:flow>^<fo:table><fo:table-body><fo:table-row><fo:table-cell>"
                         "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>|x</fo:block>"
                         "</fo:table-cell></fo:table-row></fo:table-body></fo:table>"
                         "</fo:table-cell></fo:table-row></fo:table-body></fo:table></fo:flow>"));
    MarkupProbe probe(m);
    const int outer = m.expected;
    const int inner = m.text.find("<fo:table>", outer + 1);
    const int innerCell = m.text.find("<fo:table-cell>", inner);
    EXPECT_EQ(probe.searchParent("fo:table", m.at, true, true, ""), outer);
    EXPECT_EQ(probe.searchParent("fo:table", m.at, false, true, ""), inner);
    EXPECT_EQ(probe.searchParent("table", m.at, false, false, "root"), inner);
    EXPECT_EQ(probe.searchParent("table", m.at, true, false, "root"), outer);
    EXPECT_EQ(probe.searchParent("fo:root", m.at), m.text.find("<fo:root>")); // the stop itself is tested
    EXPECT_EQ(probe.searchParent("fo:flow", m.at, false, true, "fo:table-cell"), -1);
    EXPECT_EQ(probe.searchParent("fo:table", m.at, true, true, "fo:table-cell"), -1);
    EXPECT_EQ(probe.searchParent("fo:list-block", m.at), -1);
    EXPECT_EQ(probe.searchFirstParent({"fo:table", "fo:table-cell"}, m.at), innerCell);
    EXPECT_EQ(probe.searchFirstParent({"fo:table-cell", "fo:table"}, m.at, true), outer);
    EXPECT_TRUE(probe.isInElementContext("fo:table-row", m.at));
    EXPECT_FALSE(probe.inListItemLabel(m.at));
}

TEST(Ancestors, FlowGatesForSelections)
{
    auto m =
        mark(FO_DOC("<fo:page-sequence><fo:static-content><fo:block>h|</fo:block></fo:static-content>"
                    "^<fo:flow><fo:block>a</fo:block><fo:block>b</fo:block></fo:flow></fo:page-sequence>"));
    MarkupProbe probe(m);
    const int head = m.at, flow = m.expected;
    const int a = m.text.find(">a<") + 1, b = m.text.find(">b<") + 1;
    const int flowEnd = m.text.find("</fo:flow>");
    const int outside = m.text.find("<fo:page-sequence>") + 1;

    EXPECT_FALSE(probe.isInFoFlow(-1));
    EXPECT_TRUE(probe.positionsAreInTheSameFlowElement(a, b));
    EXPECT_TRUE(probe.positionsAreInTheSameFlowElement(b, flowEnd)); // up to the closing tag
    EXPECT_FALSE(probe.positionsAreInTheSameFlowElement(b, flowEnd + 1));
    EXPECT_FALSE(probe.positionsAreInTheSameFlowElement(a, flow)); // the start tag is outside
    EXPECT_TRUE(probe.positionsAreInTheSameFlowElement(head, head));
    EXPECT_FALSE(probe.positionsAreInTheSameFlowElement(head, a));
    EXPECT_FALSE(probe.positionsAreInTheSameFlowElement(outside, outside)); // no flow: never

    EXPECT_FALSE(probe.positionsAreInSameFlowTypes(a, head));
    EXPECT_TRUE(probe.positionsAreInSameFlowTypes(head, outside));
    EXPECT_FALSE(probe.positionsAreInTheSameStaticContent(a, a));
    EXPECT_TRUE(probe.positionsAreInTheSameElement("fo:flow", a, b));
    EXPECT_FALSE(probe.positionsAreInTheSameElement("fo:block", a, b));
    EXPECT_FALSE(probe.positionsAreInTheSameElement("fo:root", a, b)); // the root ends the walk
}

TEST(ElementOrder, NextAndPreviousElements)
{
    auto next = mark(FO_DOC("<fo:flow><fo:block>a|</fo:block><!-- c --></fo:flow>^<fo:block/>"));
    MarkupProbe probe(next);
    EXPECT_EQ(probe.getNextElementPosition(next.at), next.expected);
    EXPECT_EQ(probe.getNextElementPosition(next.at - 1), next.expected);
    EXPECT_EQ(probe.getNextElementPosition(next.expected), -1); // the root closes next
    EXPECT_EQ(probe.getNextElementName(next.at - 1), "");       // a text position
    EXPECT_EQ(probe.getNextElementName(next.expected), "fo:block");
    EXPECT_EQ(probe.getNextElementName(next.text.find("<!--")), "fo:block");

    auto start = mark(FO_DOC("|<fo:block>^<fo:inline/></fo:block>"));
    EXPECT_EQ(MarkupProbe(start).getNextElementPosition(start.at), start.expected);

    // Whatever its depth, the nearest start tag before the current element's.
    auto previous = mark(FO_DOC("<fo:block><fo:inline>x</fo:inline>^<fo:inline/></fo:block><!-- c -->"
                                "<fo:block>y|</fo:block>"));
    EXPECT_EQ(MarkupProbe(previous).getPreviousElementPosition(previous.at), previous.expected);
    EXPECT_EQ(MarkupProbe("<?x?><a>b</a>").getPreviousElementPosition(8), -1);
}

TEST(ElementOrder, SearchesByName)
{
    auto m = mark(FO_DOC("<fo:flow>^<fo:block>a|</fo:block><fo:table/><fo:block>b</fo:block></fo:flow>"));
    MarkupProbe probe(m);
    const int first = m.expected, second = m.text.find("<fo:block>", first + 1);
    const int table = m.text.find("<fo:table/>");
    EXPECT_EQ(probe.getNextElementByName("fo:block", m.at), second);
    EXPECT_EQ(probe.getNextElementByName("fo:block", first), second); // from an element of the name: the next
    EXPECT_EQ(probe.getNextElementByName("fo:block", second), -1);
    EXPECT_EQ(probe.getNextElementByName("fo:block", -1), -1);
    EXPECT_EQ(probe.getFirstElementByName({"fo:inline", "fo:table"}, m.at), table);
    EXPECT_EQ(probe.getPreviousElementByName("fo:block", second), first);
    EXPECT_EQ(probe.getPreviousElementByName("/fo:block", second), m.at); // closing tags count
    EXPECT_EQ(probe.getPreviousElementByName("fo:list-block", second), -1);
}

TEST(Neighbours, SiblingsAcrossSpaceAndComments)
{
    auto m = mark(
        FO_DOC("<fo:flow>^<fo:block>a</fo:block>\n<!-- c --><fo:block>b|</fo:block> <fo:table/></fo:flow>"));
    MarkupProbe probe(m);
    const int a = m.text.find(u'a', m.expected), table = m.text.find("<fo:table/>");
    const int second = m.text.find("<fo:block>", m.expected + 1);
    EXPECT_EQ(probe.getPreviousNeighborPosition(m.at), m.expected);
    EXPECT_EQ(probe.getPreviousNeighborName(m.at), "fo:block");
    EXPECT_EQ(probe.getPreviousNeighborPosition(a), -1); // the first child
    EXPECT_EQ(probe.getPreviousNeighborName(a), "");
    EXPECT_EQ(probe.getPreviousNeighborPosition(table), m.text.find("<fo:block>", m.expected + 1));
    EXPECT_EQ(probe.getNextNeighborPosition(m.at), table);
    EXPECT_EQ(probe.getNextNeighborPosition(a), second);
    EXPECT_EQ(probe.getNextNeighborName(a), "fo:block");
    // After the last child comes the parent's closing tag.
    EXPECT_EQ(probe.getNextNeighborPosition(table), m.text.find("</fo:flow>"));
    EXPECT_EQ(probe.getNextNeighborName(table), "/fo:flow");

    auto text = mark(FO_DOC("<fo:block><fo:inline>a|</fo:inline>tail</fo:block>"));
    EXPECT_EQ(MarkupProbe(text).getNextNeighborPosition(text.at), -1);
    EXPECT_EQ(MarkupProbe(text).getNextNeighborName(text.at), "");
}

TEST(Children, FirstChildNamedChildAndContainment)
{
    auto m =
        mark(FO_DOC("^<fo:table><fo:table-column/><fo:table-body><fo:table-row><fo:table-cell><fo:block/>"
                    "</fo:table-cell></fo:table-row></fo:table-body></fo:table>|<fo:block></fo:block>"));
    MarkupProbe probe(m);
    const int table = m.expected, empty = m.at;
    const int column = m.text.find("<fo:table-column/>"), body = m.text.find("<fo:table-body>");
    const int cell = m.text.find("<fo:table-cell>");
    EXPECT_EQ(probe.getFirstChildPosition(table), column);
    EXPECT_EQ(probe.getFirstChildPosition(empty), empty + 10); // an empty element: its closing tag
    EXPECT_EQ(probe.getFirstChildPosition(empty + 10), -1);    // a closing tag
    EXPECT_EQ(probe.getFirstChildPosition(column), -1);        // self-closing
    EXPECT_EQ(probe.getNextChildByName("fo:table-body", table), body);
    EXPECT_EQ(probe.getNextChildByName("fo:table-row", table), -1); // a grandchild
    EXPECT_TRUE(probe.elementContainsPosition(table, cell));
    EXPECT_FALSE(probe.elementContainsPosition(table, table));
    EXPECT_FALSE(probe.elementContainsPosition(column, column + 1));

    EXPECT_EQ(probe.getSiblingElement(column), body);
    // The next element after the cell lies outside its row: only the unbounded form finds it.
    EXPECT_EQ(probe.getNextSiblingElementPos(cell), empty);
    EXPECT_EQ(probe.getSiblingElement(cell), -1);
    EXPECT_EQ(probe.getSiblingElement(empty), -1);
}

TEST(Paths, PathsOfPositionsAndPositionsOfPaths)
{
    auto m =
        mark(FO_DOC("<fo:page-sequence>^<fo:flow><fo:block>|ab</fo:block></fo:flow></fo:page-sequence>"));
    MarkupProbe probe(m);
    const Core::String blockPath = "/fo:root/fo:page-sequence/fo:flow/fo:block";
    const int root = m.text.find("<fo:root>"), block = m.text.find("<fo:block>");
    EXPECT_EQ(probe.getPathForPosition(m.at), blockPath);
    EXPECT_EQ(probe.getElementPath(m.at), blockPath);
    EXPECT_EQ(probe.getPathForPosition(-1), "");
    EXPECT_EQ(probe.getElementPositionFromPath("/fo:root/fo:page-sequence/fo:flow", m.at), m.expected);
    EXPECT_EQ(probe.getElementPositionFromPath(blockPath, m.at), block);
    EXPECT_EQ(probe.getElementPositionFromPath("", m.at), block);
    EXPECT_EQ(probe.getElementPositionFromPath("/fo:root", m.at), root);
    EXPECT_EQ(probe.getElementPositionFromPath("/fo:root/fo:static-content", m.at), -1);
    EXPECT_EQ(probe.getElementPositionFromPath("/a/b/c/d/e/f/g", m.at), -1);

    EXPECT_EQ(MarkupProbe::getPathToParent(blockPath, "fo:flow"), "/fo:root/fo:page-sequence/fo:flow");
    EXPECT_EQ(MarkupProbe::getPathToParent(blockPath, "fo:table"), blockPath);

    // With a root name that does not match, only getElementPath stops at the root's tag.
    MarkupProbe otherRoot(m.text, "otd:document");
    EXPECT_EQ(otherRoot.getElementPath(m.at), blockPath);
    EXPECT_EQ(otherRoot.getPathForPosition(m.at), "/" + blockPath);
}
