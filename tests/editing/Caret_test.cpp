// Caret stops and caret movement, stated as markup with the caret marked before and
// after each press.

#include "editing/CaretProbe.h"

#include "common/TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>

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

TEST(EditableElements, TheHostsTablesDecideWhatIsBlockAndWhatInline)
{
    SmartPtr<CaretProbe> probe(new CaretProbe());
    configureStandardHost(*probe);
    configureStandardHost(*probe); // a name listed again is ignored
    EXPECT_TRUE(probe->elementIsEditable(Core::String("FO:Block")));
    EXPECT_FALSE(probe->elementIsEditable(Core::String("fo:table")));
    EXPECT_TRUE(probe->isBlockEditableElementName("ot:form"));
    EXPECT_FALSE(probe->isBlockEditableElementName("fo:inline"));
    EXPECT_TRUE(probe->isInlineEditableElementClosingTagName("/fo:basic-link"));
    EXPECT_FALSE(probe->isInlineEditableElementClosingTagName("fo:inline"));
    probe->addInlineEditableElement("fo:block");
    EXPECT_FALSE(probe->isBlockEditableElementName("fo:block"));
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

// A body with named stops: `{x}` marks a place. `at(body, "x")` puts the caret there
// and drops the other names.
Core::String at(Core::String const &named, std::string const &stop)
{
    Core::String marked = named.replaced(Core::String("{" + stop + "}"), "|");
    for (int open = marked.find(u'{'); open != -1; open = marked.find(u'{'))
        marked.erase(open, marked.find(u'}', open) - open + 1);
    return marked;
}

// The walk every arrow-key change is checked against: one press, one visible step. The
// stop before "a" is merged with the inline's edge, so is the one before "n"; each
// placeholder block has a single stop.
TEST(MoveCaretRight, WorkedWalkWithMergedInlineBoundaries)
{
    const Core::String named =
        "<fo:block>{s}e{d}d{i}i{t}t{in}<fo:inline>a{a}</fo:inline></fo:block>"
        "<fo:block>{p1}&#x00A0;</fo:block><fo:block>{p2}&#x00A0;</fo:block>"
        "<fo:block><fo:inline>{t2}t{h}h{i2}i{e2}</fo:inline>n{g}g{sp} {e}e{l}l{s2}s{end}"
        "</fo:block>";
    const std::vector<std::string> stops{"d",  "i",  "t", "in", "a", "p1", "p2", "t2",  "h",
                                         "i2", "e2", "g", "sp", "e", "l",  "s2", "end", "end"};
    std::vector<Core::String> trail = pressTrail(at(named, "s"), static_cast<int>(stops.size()), mergedRight);
    for (std::size_t i = 0; i < stops.size(); ++i)
        EXPECT_EQ(trail[i], at(named, stops[i])) << "after press " << i + 1;
    EXPECT_EQ(afterPresses(at(named, "end"), 1, mergedLeft), at(named, "s2"));
}

// Header, footer and body stand in that order in the markup; the reader sees header,
// body, footer, and the arrows follow the reader.
const char *const tableWithHeaderAndFooter =
    "{T0}<fo:table><fo:table-header><fo:table-row><fo:table-cell><fo:block>{H0}h{H1}</fo:block>"
    "</fo:table-cell></fo:table-row></fo:table-header><fo:table-footer><fo:table-row><fo:table-cell>"
    "<fo:block>{F0}f{F1}</fo:block></fo:table-cell></fo:table-row></fo:table-footer><fo:table-body>"
    "<fo:table-row><fo:table-cell><fo:block>{B0}b{B1}</fo:block></fo:table-cell></fo:table-row>"
    "</fo:table-body></fo:table>{T1}<fo:block>{A0}a</fo:block>";

// The table with the caret at the stop called `stop` and no other marker.
Core::String tableAt(const char *stop)
{
    Core::String marked =
        Core::String(tableWithHeaderAndFooter).replaced(Core::String("{") + stop + "}", "|");
    for (const char *other : {"T0", "H0", "H1", "F0", "F1", "B0", "B1", "T1", "A0"})
        marked = marked.replaced(Core::String("{") + other + "}", "");
    return marked;
}

TEST(TableOrder, RightAndLeftFollowTheReadingOrder)
{
    const std::vector<const char *> readingOrder{"T0", "H0", "H1", "B0", "B1", "F0", "F1", "T1", "A0"};
    std::vector<Core::String> rightTrail = pressTrail(tableAt("T0"), 8, right);
    std::vector<Core::String> leftTrail = pressTrail(tableAt("A0"), 8, left);
    for (std::size_t i = 1; i < readingOrder.size(); ++i) {
        EXPECT_EQ(rightTrail[i - 1], tableAt(readingOrder[i])) << "right press " << i;
        EXPECT_EQ(leftTrail[i - 1], tableAt(readingOrder[readingOrder.size() - 1 - i])) << "left press " << i;
    }
}

TEST(TableOrder, EnteringFromBehindLandsAtTheEndOfTheFooter)
{
    // The body's last stop is the last in the markup, but the footer is the last row seen.
    EXPECT_EQ(afterPresses(tableAt("T1"), 1, left), tableAt("F1"));
    EXPECT_EQ(afterPresses(tableAt("T1"), 1, mergedLeft), tableAt("F1"));
}

// Without a header the footer stands first in the markup: it is still seen last, also
// when the table is entered from the front, and with several bodies.
const char *const tableWithFooterOnly =
    "<fo:block>x{X1}</"
    "fo:block>{T0}<fo:table><fo:table-footer><fo:table-row><fo:table-cell><fo:block>{F0}f{F1}"
    "</fo:block></fo:table-cell></fo:table-row></fo:table-footer><fo:table-body><fo:table-row><fo:table-cell>"
    "<fo:block>{B0}b{B1}</fo:block></fo:table-cell></fo:table-row></"
    "fo:table-body><fo:table-body><fo:table-row>"
    "<fo:table-cell><fo:block>{C0}c{C1}</fo:block></fo:table-cell></fo:table-row></fo:table-body></"
    "fo:table>{T1}";

Core::String footerOnlyAt(const char *stop, bool blockBehind = true)
{
    // Indentation behind the table holds no stop; the table's end is then the last place.
    Core::String marked =
        Core::String(tableWithFooterOnly) + (blockBehind ? "<fo:block>{A0}a</fo:block>" : "\n");
    marked = marked.replaced(Core::String("{") + stop + "}", "|");
    for (const char *other : {"X1", "T0", "F0", "F1", "B0", "B1", "C0", "C1", "T1", "A0"})
        marked = marked.replaced(Core::String("{") + other + "}", "");
    return marked;
}

TEST(TableOrder, AFooterFirstInTheMarkupIsStillSeenLast)
{
    const std::vector<const char *> readingOrder{"X1", "T0", "B0", "B1", "C0", "C1", "F0", "F1", "T1", "A0"};
    std::vector<Core::String> rightTrail = pressTrail(footerOnlyAt("X1"), 9, right);
    std::vector<Core::String> leftTrail = pressTrail(footerOnlyAt("A0"), 9, left);
    for (std::size_t i = 1; i < readingOrder.size(); ++i) {
        EXPECT_EQ(rightTrail[i - 1], footerOnlyAt(readingOrder[i])) << "right press " << i;
        EXPECT_EQ(leftTrail[i - 1], footerOnlyAt(readingOrder[readingOrder.size() - 1 - i]))
            << "left press " << i;
    }
}

TEST(TableOrder, NothingBehindTheTableEndsTheWalkAtTheFootersEnd)
{
    // Stepping on from the footer would enter the body again, and go round for ever.
    EXPECT_EQ(afterPresses(footerOnlyAt("C1", false), 4, right), footerOnlyAt("F1", false));
    EXPECT_EQ(afterPresses(footerOnlyAt("F1", false), 3, left), footerOnlyAt("C0", false));
}

TEST(MoveCaretRight, AnElementHoldingOnlyAPlaceholderHasOneStop)
{
    EXPECT_EQ(afterPresses("<fo:block>|&#x00A0;</fo:block><fo:block>x</fo:block>", 1, right),
              "<fo:block>&#x00A0;</fo:block><fo:block>|x</fo:block>");
    EXPECT_EQ(afterPresses("<fo:block>&#x00A0;</fo:block><fo:block>|x</fo:block>", 1, left),
              "<fo:block>|&#x00A0;</fo:block><fo:block>x</fo:block>");
    // Inside an inline the stop behind the placeholder is real.
    EXPECT_EQ(afterPresses("<fo:block>a<fo:inline>|&#x00A0;</fo:inline></fo:block>", 1, right),
              "<fo:block>a<fo:inline>&#x00A0;|</fo:inline></fo:block>");
}

TEST(MoveCaretRight, ASelectionCollapsesWithoutAStep)
{
    EXPECT_EQ(afterPresses("<fo:block>a|bc^d</fo:block>", 1, right), "<fo:block>abc|d</fo:block>");
    EXPECT_EQ(afterPresses("<fo:block>a^bc|d</fo:block>", 1, right), "<fo:block>abc|d</fo:block>");
    EXPECT_EQ(afterPresses("<fo:block>a^bc|d</fo:block>", 1, left), "<fo:block>a|bcd</fo:block>");
    EXPECT_EQ(afterPresses("<fo:block>a|bc^d</fo:block>", 1, left), "<fo:block>a|bcd</fo:block>");
    // With Shift the selection grows instead.
    EXPECT_EQ(afterPresses("<fo:block>a^b|cd</fo:block>", 1, shiftRight), "<fo:block>a^bc|d</fo:block>");
    EXPECT_EQ(afterPresses("<fo:block>a^b|cd</fo:block>", 2, shiftLeft), "<fo:block>|a^bcd</fo:block>");
}

TEST(MoveCaretRight, IndentationAndCollapsedBlanksAreNoStops)
{
    const char *body = "<fo:block>\n    one  two\n  </fo:block>\n  <fo:block>x</fo:block>";
    std::vector<Core::String> trail = pressTrail(Core::String(body).replaced("one", "|one"), 9, right);
    EXPECT_EQ(trail[2], Core::String(body).replaced("one", "one|"));
    EXPECT_EQ(trail[3], Core::String(body).replaced("one  ", "one  |")); // the second blank is collapsed
    // The trailing run draws nothing: the block's last stop is its closing tag.
    EXPECT_EQ(trail[6],
              Core::String(body).replaced("  </fo:block>\n  <fo:block>x", "  |</fo:block>\n  <fo:block>x"));
    EXPECT_EQ(trail[7], Core::String(body).replaced(">x<", ">|x<"));
}

TEST(MoveCaretRight, MergedBoundariesBetweenInlinesButNotAtALink)
{
    EXPECT_EQ(afterPresses("<fo:block><fo:inline>a|b</fo:inline><fo:inline>cd</fo:inline></fo:block>", 2,
                           mergedRight),
              "<fo:block><fo:inline>ab</fo:inline><fo:inline>c|d</fo:inline></fo:block>");
    std::vector<Core::String> link =
        pressTrail("<fo:block>a|b<fo:basic-link>cd</fo:basic-link>ef</fo:block>", 5, mergedRight);
    EXPECT_EQ(link[0], "<fo:block>ab|<fo:basic-link>cd</fo:basic-link>ef</fo:block>");
    EXPECT_EQ(link[1], "<fo:block>ab<fo:basic-link>|cd</fo:basic-link>ef</fo:block>");
    EXPECT_EQ(link[3], "<fo:block>ab<fo:basic-link>cd|</fo:basic-link>ef</fo:block>");
    EXPECT_EQ(link[4], "<fo:block>ab<fo:basic-link>cd</fo:basic-link>|ef</fo:block>");
}

TEST(MoveCaretRight, FromTheEndOfAnInlineThatEndsABlockToTheNextBlocksFirstCharacter)
{
    EXPECT_EQ(afterPresses("<fo:block>a<fo:inline>b|</fo:inline></fo:block>\n  <fo:block>\n    "
                           "<fo:inline>cd</fo:inline></fo:block>",
                           1, mergedRight),
              "<fo:block>a<fo:inline>b</fo:inline></fo:block>\n  <fo:block>\n    "
              "<fo:inline>|cd</fo:inline></fo:block>");
}

TEST(MoveCaretRight, TemplateLogicIsJumpedWhole)
{
    const char *body = "<fo:block>ab<otd:inline-xslt><fo:inline>x</fo:inline></otd:inline-xslt>c</fo:block>";
    std::vector<Core::String> trail = pressTrail(Core::String(body).replaced("ab", "a|b"), 2, right);
    EXPECT_EQ(trail[0], Core::String(body).replaced("ab", "ab|"));
    EXPECT_EQ(trail[1], Core::String(body).replaced(">c<", ">|c<"));
    // Going left the walk jumps from the closing tag to the start tag and steps on from
    // there, so the place in front of the template is no stop in that direction.
    EXPECT_EQ(afterPresses(trail[1], 1, left), Core::String(body).replaced("ab", "a|b"));
}

const char *const twoSequences =
    "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
    "<fo:layout-master-set><fo:simple-page-master master-name=\"A4\"><fo:region-body/>"
    "<fo:region-before region-name=\"head\"/></fo:simple-page-master></fo:layout-master-set>"
    "<fo:page-sequence master-reference=\"A4\"><fo:flow flow-name=\"xsl-region-body\">"
    "<fo:block>on{1}e</fo:block></fo:flow></fo:page-sequence>"
    "<fo:page-sequence master-reference=\"A4\">"
    "<fo:static-content flow-name=\"head\"><fo:block>h{2}ea{3}d</fo:block></fo:static-content>"
    "<fo:flow "
    "flow-name=\"xsl-region-body\"><fo:block>{4}two</fo:block></fo:flow></fo:page-sequence></fo:root>";

Core::String twoSequencesAt(const char *mark)
{
    return at(twoSequences, mark);
}

Core::String pressOnDocument(Core::String const &marked, int presses, CaretAction const &action)
{
    SmartPtr<CaretProbe> probe = loadProbeDocument(marked);
    for (int i = 0; i < presses; ++i)
        action(*probe);
    return markedContent(*probe);
}

TEST(FlowsAndStaticContent, FromAFlowTheCaretNeverEntersStaticContent)
{
    EXPECT_EQ(pressOnDocument(twoSequencesAt("1").replaced("on|e", "one|"), 1, right), twoSequencesAt("4"));
    EXPECT_EQ(pressOnDocument(twoSequencesAt("4"), 1, left), twoSequencesAt("1").replaced("on|e", "one|"));
}

TEST(FlowsAndStaticContent, FromStaticContentTheCaretStaysInIt)
{
    EXPECT_EQ(pressOnDocument(twoSequencesAt("3"), 3, right), twoSequencesAt("3").replaced("|d", "d|"));
    EXPECT_EQ(pressOnDocument(twoSequencesAt("2"), 3, left), twoSequencesAt("2").replaced("h|", "|h"));
}

TEST(PageMoves, FirstFlowAndStaticContent)
{
    EXPECT_EQ(pressOnDocument(twoSequencesAt("3"), 1, [](CaretProbe &b) { b.resetCaretFromStaticContent(); }),
              twoSequencesAt("1").replaced("on|e", "|one"));
    EXPECT_EQ(pressOnDocument(twoSequencesAt("4"), 1, [](CaretProbe &b) { b.resetCaretFromStaticContent(); }),
              twoSequencesAt("4"));
    SmartPtr<CaretProbe> probe = loadProbeDocument(twoSequencesAt("1"));
    int secondSequence = probe->content.rFind("<fo:page-sequence", probe->content.length() - 1);
    EXPECT_EQ(probe->getFirstEditPosInStaticContent("head", secondSequence),
              probe->content.find(">head<") + 1);
    EXPECT_EQ(probe->getFirstEditPosInStaticContent("foot", secondSequence), -1);
    EXPECT_EQ(probe->getFirstEditPosInStaticContent("head", probe->content.find("<fo:page-sequence")), -1);
}

TEST(MoveCaretToEnd, LastStopWithContent)
{
    EXPECT_EQ(afterPresses("<fo:block>|ab</fo:block><fo:block>cd</fo:block><fo:block> </fo:block>", 1,
                           [](CaretProbe &b) { b.moveCaretToEnd(false); }),
              "<fo:block>ab</fo:block><fo:block>cd|</fo:block><fo:block> </fo:block>");
    EXPECT_EQ(pressOnDocument(twoSequencesAt("2"), 1, [](CaretProbe &b) { b.moveCaretToEnd(false); }),
              twoSequencesAt("3").replaced("|d", "d|"));
    EXPECT_EQ(afterPresses("<fo:block>a|b</fo:block><fo:block>cd</fo:block>", 1,
                           [](CaretProbe &b) { b.moveCaretToEnd(true); }),
              "<fo:block>a^b</fo:block><fo:block>cd|</fo:block>");
}

TEST(IsBoudaryEditablePosition, EdgesOfTheCaretsElement)
{
    auto boundary = [](const char *body, bool forward) {
        return loadProbe(body)->isBoudaryEditablePosition(forward);
    };
    EXPECT_TRUE(boundary("<fo:block>ab|</fo:block><fo:block>c</fo:block>", true));
    EXPECT_FALSE(boundary("<fo:block>a|b</fo:block><fo:block>c</fo:block>", true));
    EXPECT_TRUE(boundary("<fo:block>x</fo:block><fo:block>|ab</fo:block>", false));
    EXPECT_FALSE(boundary("<fo:block>x</fo:block><fo:block>a|b</fo:block>", false));
    EXPECT_TRUE(boundary("<fo:block>|&#x00A0;</fo:block>", true));
    EXPECT_TRUE(boundary("<fo:block>x<fo:inline>|a</fo:inline>y</fo:block>", true));
}

// ---- Real documents ----

bool insideEntity(Core::String const &text, int p)
{
    int amp = text.rFind(u'&', p - 1);
    if (amp == -1 || p - amp > 10)
        return false;
    int semicolon = text.find(u';', amp);
    return semicolon >= p && text.find(u'<', amp) > semicolon;
}

// Every stop the right arrow reaches, from Home; at most `limit` of them.
std::vector<int> stopsGoingRight(CaretProbe &probe, int limit)
{
    std::vector<int> stops{probe.getCaretPos()};
    while (static_cast<int>(stops.size()) < limit) {
        probe.moveCaretRight(false, false, false);
        if (probe.getCaretPos() == stops.back())
            break;
        stops.push_back(probe.getCaretPos());
    }
    return stops;
}

// The corpus walk is long: every document, up to this many stops from its first.
constexpr int corpusStopsPerDocument = 1500;

TEST(CorpusWalk, LeftRetracesRightAndNoStopFallsInsideMarkup)
{
    for (std::string const &path : corpusFiles()) {
        SCOPED_TRACE(path);
        SmartPtr<CaretProbe> probe(new CaretProbe());
        configureStandardHost(*probe);
        probe->setContent(Core::String::fromUtf8(readFileBytes(path)), true);
        if (probe->getCaretPos() == -1)
            continue; // nothing to stand on
        std::vector<int> stops = stopsGoingRight(*probe, corpusStopsPerDocument);
        Core::String const &text = probe->content;
        for (int stop : stops) {
            ASSERT_FALSE(EditableXmlBuffer::isInsideStartTag(text, stop)) << "stop " << stop;
            ASSERT_FALSE(insideEntity(text, stop)) << "stop " << stop;
            ASSERT_FALSE(probe->inListItemLabel(stop)) << "stop " << stop;
            ASSERT_TRUE(probe->canHoldCaret(stop)) << "stop " << stop;
        }
        // Going left a step over a comment or a CDATA section crosses the tag in front
        // of it as well, so the stops between that tag and the comment are passed.
        for (std::size_t i = stops.size() - 1; i > 0;) {
            probe->moveCaretLeft(false, false, false);
            int landed = probe->getCaretPos();
            auto at = std::find(stops.begin(), stops.begin() + static_cast<long>(i), landed);
            ASSERT_NE(at, stops.begin() + static_cast<long>(i))
                << "left from stop " << stops[i] << " to " << landed;
            std::size_t j = static_cast<std::size_t>(at - stops.begin());
            if (j != i - 1) {
                Core::String crossed = text.subString(stops[j], stops[i]);
                ASSERT_TRUE(crossed.contains("<!--") || crossed.contains("<![CDATA["))
                    << "left from stop " << stops[i] << " passed " << stops[i - 1];
            }
            i = j;
        }
    }
}

} // namespace
} // namespace foedit::test
