// Page sequences and page masters read from the string, and the caret moves that name
// a page sequence by index or a static region, stated as whole documents with the
// caret marked before and after each move.

#include "common/MarkedDocument.h"
#include "common/RecordingMonitor.h"
#include "common/TestPaths.h"

#include "editing/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace foedit::test {
namespace {

class PageProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::canHoldCaret;
    using EditableDocumentBuffer::content;
    using EditableDocumentBuffer::getFirstPageRegionNameFromMaster;
    using EditableDocumentBuffer::getPageSeqPosFrom;
    using EditableDocumentBuffer::getPageSequencePosition;
    using EditableDocumentBuffer::getTagPropertyValue;
    using EditableDocumentBuffer::inEditableElement;
    using EditableDocumentBuffer::isInFoFlow;
    using EditableDocumentBuffer::isNonBodyRegionAtPos;
};

// Five sequences of every kind. 0 uses a master without side regions; 1 is an
// external document; 2 is a repeat; 3 has a static content for each side region of
// "A4", whose first side region in markup order is "left"; 4 has an empty flow.
// `{x}` names a place; `at(x)` puts the caret there and drops the other names.
const char *const sequences =
    "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" "
    "xmlns:ot=\"urn:ot\" xmlns:otd=\"urn:otd\"><fo:layout-master-set>"
    "<fo:simple-page-master master-name=\"Plain\"><fo:region-body "
    "region-name=\"body\"/></fo:simple-page-master>"
    "<fo:simple-page-master master-name=\"A4\"><fo:region-body region-name=\"body\"/>"
    "<fo:region-start region-name=\"left\"/><fo:region-before region-name=\"head\"/></fo:simple-page-master>"
    "</fo:layout-master-set>"
    "<fo:page-sequence master-reference=\"Plain\"><fo:flow flow-name=\"body\">"
    "<fo:block>{0}ze{0z}ro</fo:block></fo:flow></fo:page-sequence>"
    "<ot:insert-document src=\"url(x.fo)\"/>"
    "<otd:page-sequence-repeat fo:master-reference=\"A4\">"
    "<fo:static-content flow-name=\"left\"><fo:block>{2L}rl</fo:block></fo:static-content>"
    "<fo:flow flow-name=\"body\"><fo:block>{2}two</fo:block></fo:flow></otd:page-sequence-repeat>"
    "<fo:page-sequence master-reference=\"A4\">"
    "<fo:static-content flow-name=\"head\"><fo:block>{3H}hd</fo:block></fo:static-content>"
    "<fo:static-content flow-name=\"left\"><fo:block>{3L}lt</fo:block></fo:static-content>"
    "<fo:flow flow-name=\"body\"><fo:block>{3}th<fo:inline>{3i}r</fo:inline>ee</fo:block></fo:flow>"
    "</fo:page-sequence>"
    "<fo:page-sequence master-reference=\"A4\"><fo:flow flow-name=\"body\"></fo:flow></fo:page-sequence>"
    "</fo:root>";

Core::String at(const char *stop, Core::String const &named = sequences)
{
    Core::String marked = named.replaced(Core::String("{") + stop + "}", "|");
    for (int open = marked.find(u'{'); open != -1; open = marked.find(u'{'))
        marked.erase(open, marked.find(u'}', open) - open + 1);
    return marked;
}

SmartPtr<PageProbe> load(Core::String const &marked)
{
    return makeMarkedDocumentBuffer<PageProbe>(marked);
}

// Runs `move` on `before`: the document must read `afterMove` and the move answer
// `answer`. A move records nothing in the history.
void expectMove(Core::String const &before, std::function<bool(PageProbe &)> const &move,
                Core::String const &afterMove, bool answer = true)
{
    SmartPtr<PageProbe> probe = load(before);
    EXPECT_EQ(move(*probe), answer);
    EXPECT_EQ(markedContent(*probe), afterMove);
    EXPECT_FALSE(probe->canUndo());
}

auto toPageSequence(int index)
{
    return [index](PageProbe &b) { return b.moveCaretToPageSequence(index); };
}
auto toReference(int index, int offset)
{
    return [index, offset](PageProbe &b) { return b.moveCaretToReference(index, offset); };
}
auto toStaticRegion(const char *region, int index)
{
    return [region, index](PageProbe &b) {
        b.moveCaretToStaticRegion(region, index);
        return true;
    };
}
bool toFirstStaticRegion(PageProbe &b)
{
    b.moveCaretToFirstStaticRegion();
    return true;
}

TEST(PageSequenceIndexes, CountEveryKindInDocumentOrder)
{
    SmartPtr<PageProbe> probe = load(at("0"));
    Core::String const &text = probe->content;
    int const external = text.find("<ot:insert-document");
    int const repeat = text.find("<otd:page-sequence-repeat");
    EXPECT_EQ(probe->getPageSequencePosition(1), external);
    EXPECT_EQ(probe->getPageSequencePosition(2), repeat);
    EXPECT_EQ(probe->getPageSequencePosition(5), -1);

    auto indexAt = [&](const char *stop) {
        return probe->getPageSequenceIdxFromPos(parseMarked(at(stop)).caret);
    };
    EXPECT_EQ(indexAt("0z"), 0);
    EXPECT_EQ(indexAt("2L"), 2);
    EXPECT_EQ(indexAt("3i"), 3);
    EXPECT_EQ(probe->getPageSequenceIdxFromPos(external), 1);
    EXPECT_EQ(probe->getPageSequenceIdxFromPos(text.find("</fo:flow></fo:page-sequence></fo:root>")), 4);
    EXPECT_EQ(probe->getPageSequenceIdxFromPos(text.find("<fo:region-body")), -1);
    EXPECT_EQ(probe->getPageSequenceIdxFromPos(text.length() - 1), -1); // behind the root

    EXPECT_EQ(probe->getPageSeqPosFrom(parseMarked(at("2L")).caret), repeat);
    EXPECT_EQ(probe->getPageSeqPosFrom(external), -1);
}

TEST(PageMasters, FoundByNameWithTheirRegions)
{
    SmartPtr<PageProbe> probe = load(at("0"));
    Core::String const &text = probe->content;
    int const plain = text.find("<fo:simple-page-master master-name=\"Plain\"");
    EXPECT_EQ(probe->getSimplePageMaster("Plain"),
              text.subString(plain, text.find("</fo:simple-page-master>", plain) + 23));
    EXPECT_EQ(probe->getRegionBodyNameForPageMaster("A4"), "body");
    // Markup order decides, not the order before, after, start, end.
    EXPECT_EQ(probe->getFirstPageRegionNameFromMaster("A4"), "left");
    EXPECT_EQ(probe->getFirstPageRegionNameFromMaster("Plain"), "");
    EXPECT_TRUE(probe->isNonBodyRegionAtPos(text.find("<fo:region-before")));
    EXPECT_FALSE(probe->isNonBodyRegionAtPos(text.find("<fo:region-body")));
}

TEST(MoveCaretToFirstStaticRegion, FirstPlainSequenceWithAStaticContentForItsFirstSideRegion)
{
    // 0 has no side region, 1 and 2 are no "fo:page-sequence", and in 3 the static
    // content for "head" is passed for the one for "left".
    expectMove(at("0z"), toFirstStaticRegion, at("3L"));

    // With no such static content anywhere, caret and pivot go, and the host hears of
    // the caret only.
    Core::String const unnamed = Core::String(sequences).replaced("flow-name=\"left\"", "flow-name=\"side\"");
    SmartPtr<PageProbe> probe = load(at("3", unnamed.replaced("{0}", "^")));
    RecordingMonitor monitor;
    probe->setMonitor(&monitor);
    probe->moveCaretToFirstStaticRegion();
    EXPECT_EQ(probe->getCaretPos(), -1);
    EXPECT_EQ(probe->getSelectionPivotPos(), -1);
    EXPECT_EQ(monitor.events, std::vector<std::string>{"caret"});
}

TEST(MoveCaretToStaticRegion, ByNameInTheSequenceOfThatIndex)
{
    expectMove(at("0z"), toStaticRegion("head", 3), at("3H"));
    expectMove(at("0z"), toStaticRegion("left", 2), at("2L"));
    // A selection collapses there.
    expectMove(at("3", Core::String(sequences).replaced("{0}", "^")), toStaticRegion("left", 3), at("3L"));
    // No such region in that sequence, an external document, no such sequence.
    for (auto [region, index] : {std::pair{"head", 2}, {"left", 1}, {"left", 5}, {"left", -1}})
        expectMove(at("0z"), toStaticRegion(region, index), at("0z"));
}

TEST(MoveCaretToPageSequence, FirstStopOfTheSequencesFlow)
{
    expectMove(at("3i"), toPageSequence(0), at("0"));
    expectMove(at("0z"), toPageSequence(2), at("2"));
    // An external document has no flow; the empty flow's first stop would lie outside
    // it; and there is no sequence 5.
    for (int index : {1, 4, 5, -1})
        expectMove(at("0z"), toPageSequence(index), at("0z"), false);
}

TEST(MoveCaretToReference, ComesBackToAnOffsetIntoTheFlow)
{
    Core::String const text = parseMarked(at("0")).text;
    int const noted = parseMarked(at("3i")).caret;
    Core::String const flowTag = "<fo:flow flow-name=\"body\">";
    int const inside = text.rFind(flowTag, noted) + flowTag.length();
    int const flowEnd = text.find("</fo:flow>", noted);

    expectMove(at("0z"), toReference(3, noted - inside), at("3i"));
    expectMove(at("0z"), toReference(3, 0), at("3"));
    // The flow's own closing tag is no editable place; past it, past the document's
    // end, and without a sequence nothing moves.
    for (auto [index, offset] :
         {std::pair{3, flowEnd - inside}, {3, flowEnd - inside + 40}, {3, INT_MAX}, {-1, 5}, {1, 5}})
        expectMove(at("0z"), toReference(index, offset), at("0z"), false);
}

// ---- Real documents ----

// Region names as XSL-FO defaults them, written out, so that static contents are
// named after the regions of their master.
Core::String withRegionNames(Core::String text)
{
    for (const char *side : {"before", "after", "start", "end"})
        text = text.replaced(Core::String("<fo:region-") + side,
                             Core::String("<fo:region-") + side + " region-name=\"xsl-region-" + side + "\"");
    return text;
}

SmartPtr<PageProbe> loadText(Core::String const &text)
{
    SmartPtr<PageProbe> probe = makeStandardBuffer<PageProbe>();
    probe->setContent(text, true);
    return probe;
}

void expectStopInStaticContent(PageProbe &probe, Core::String const &flowName)
{
    int const caret = probe.getCaretPos();
    EXPECT_TRUE(probe.isInFoStaticContent(caret, flowName)) << caret;
    EXPECT_TRUE(probe.canHoldCaret(caret)) << caret;
    EXPECT_FALSE(EditableXmlBuffer::isInsideStartTag(probe.content, caret)) << caret;
}

// Every sequence's flow: its first stop, then the stops after it while they stay in
// that sequence, each found again from its offset into the flow.
void checkFlowMoves(PageProbe &probe, int index)
{
    if (!probe.moveCaretToPageSequence(index))
        return;
    ASSERT_EQ(probe.getCurrentPageSequenceIdx(), index);
    Core::String const &text = probe.content;
    int const inside = text.find(u'>', text.rFind("<fo:flow", probe.getCaretPos())) + 1;
    for (int press = 0; press < 12 && probe.getCurrentPageSequenceIdx() == index; ++press) {
        int const stop = probe.getCaretPos();
        ASSERT_TRUE(probe.isInFoFlow(stop) && probe.canHoldCaret(stop)) << stop;
        bool const editable = probe.inEditableElement(stop);
        probe.moveCaretToPageSequence(index);
        ASSERT_EQ(probe.moveCaretToReference(index, stop - inside), editable || stop == inside) << stop;
        if (editable) {
            ASSERT_EQ(probe.getCaretPos(), stop);
        }
        probe.setCaretPos(false, stop);
        probe.moveCaretRight(false, false, false);
        if (probe.getCaretPos() == stop)
            break;
    }
}

TEST(CorpusPageMoves, EveryMoveLandsOnAStopOfTheSequenceOrRegionItNames)
{
    for (std::string const &path : corpusFiles()) {
        SCOPED_TRACE(path);
        Core::String const original = Core::String::fromUtf8(readFileBytes(path));
        SmartPtr<PageProbe> probe = loadText(withRegionNames(original));
        Core::String const &text = probe->content;

        int count = 0;
        while (probe->getPageSequencePosition(count) != -1)
            ++count;
        for (int index = 0; index < count; ++index) {
            EXPECT_EQ(probe->getPageSequenceIdxFromPos(probe->getPageSequencePosition(index) + 1), index);
            checkFlowMoves(*probe, index);
        }

        for (int s = text.find("<fo:static-content"); s != -1; s = text.find("<fo:static-content", s + 1)) {
            Core::String const name = probe->getTagPropertyValue(s, "fo:flow-name");
            int const index = probe->getPageSequenceIdxFromPos(s);
            probe->moveCaretToFirstFoFlow();
            int const before = probe->getCaretPos();
            probe->moveCaretToStaticRegion(name, index);
            if (probe->getCaretPos() != before) {
                expectStopInStaticContent(*probe, name);
                EXPECT_EQ(probe->getCurrentPageSequenceIdx(), index);
            }
        }

        probe->moveCaretToFirstStaticRegion();
        if (probe->getCaretPos() != -1)
            expectStopInStaticContent(*probe, Core::String());
    }
}

TEST(CorpusPageMoves, AllRegionsNamedOrNot)
{
    Core::String const allRegions =
        Core::String::fromUtf8(readFileBytes(corpusDir() + "/pagination__allregions.fo"));
    // Its regions carry no region-name, and an absent name matches no static content.
    SmartPtr<PageProbe> probe = loadText(allRegions);
    probe->moveCaretToFirstStaticRegion();
    EXPECT_EQ(probe->getCaretPos(), -1);
    probe = loadText(withRegionNames(allRegions));
    probe->moveCaretToFirstStaticRegion();
    expectStopInStaticContent(*probe, "xsl-region-before");
}

} // namespace
} // namespace foedit::test
