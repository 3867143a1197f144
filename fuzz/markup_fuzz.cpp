// Arbitrary strings through every scanner and walk of the markup buffer, at every
// position (and just outside the string), and through the validator: no crash, no hang,
// no read out of range, and the few answers the walks rely on keep their shape (a
// forward step moves forward except on an unterminated comment or CDATA section, a
// backward walk never answers a position after its start).
//
// Each input byte is one code unit, so "<", ">", quotes, "&", ";" and U+00A0 are all one
// byte away. The first byte picks the root element's name.

#include "markup/MarkupProbe.h"
#include "template/XmlValidator.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using foedit::test::MarkupProbe;

void check(bool condition)
{
    if (!condition)
        std::abort();
}

void scanAt(MarkupProbe &probe, Core::String const &text, int p)
{
    const int length = text.length();
    const int next = probe.getNextEditablePositionInXml(p);
    check(next == -1 || next > p || next == 2);
    const int staticNext = MarkupProbe::getNextEditablePositionInXml(p, text);
    check(staticNext == -1 || staticNext > p || staticNext == 2);
    check(probe.stepForward(p) == -1 || probe.stepForward(p) > p);
    const int previous = probe.getPreviousEditablePositionInXml(p);
    check(previous == -1 || previous < p);
    const int tag = probe.getPreviousTagPosition(p);
    check(tag <= p && (tag == -1 || text[tag] == u'<'));
    check(MarkupProbe::getPreviousTagPosition(p, text) <= p);
    const int nextTag = probe.getNextTagPosition(p);
    check(nextTag == -1 || (nextTag >= p && text[nextTag] == u'<'));
    const int current = probe.getCurrentElementPosition(p);
    check(current == -1 || current < p);
    const int staticCurrent = MarkupProbe::getCurrentElementPosition(p, text);
    check(staticCurrent == -1 || staticCurrent < p);

    Core::String name;
    probe.selfClosingTagAtPosition(p);
    probe.ignoredElementAtPosition(p);
    probe.getNameForTagAtPosition(p, false);
    probe.getNextTagName(p);
    probe.closingElementTagAtPosition(p);
    probe.getPreviousTagNameAndPos(p, name);
    MarkupProbe::getPreviousTagNameAndPosition(p, text, name);
    probe.getClosingTagForTagAtPosition(p);
    probe.getStartTagForTagAtPosition(p);
    for (XmlElementType type : {XmlComment, XmlCData, XmlProcessingInstruction, XmlElement, XmlNone}) {
        probe.getElementStartPosition(type, p);
        probe.getElementEndPosition(type, p);
    }
    probe.getElementTypeOnStartTagPosition(p);
    probe.getElementTypeOnEndTagPosition(p);
    probe.getNextAttributePosition(p);
    probe.getPreviousAttributePosition(p);
    probe.getNextAttributeValuePosition(p);
    probe.containsAttribute(p, "a");
    if (p >= 0 && p < length) {
        probe.getNameForAttributeAt(p);
        probe.getValueForAttributeAt(p);
    }
    MarkupProbe::isInsideStartTag(text, p);
    probe.beforeFOTable(p);
    probe.afterFOTable(p);
    probe.nextContentEquals("<a", p);

    probe.getCurrentElementName(p);
    MarkupProbe::getCurrentElementName(p, text);
    probe.getCurrentElementNameAndPos(p, name);
    probe.getCurrentElementStartTagString(p);
    probe.getFirstPositionInElementContaining(p);
    probe.getLastPositionInElementContaining(p);
    probe.getParentElementName(p);
    probe.getParentElementPosition(p);
    probe.searchParent("a", p, true, false, "");
    probe.searchFirstParent({"a", "b:c"}, p, false, true, "a");
    probe.inListItemLabel(p);
    probe.isInFoFlow(p);
    probe.positionsAreInTheSameElement("a", p, length - 1 - p);
    probe.positionsAreInTheSameFlowElement(p, length - 1 - p);
    probe.positionsAreInSameFlowTypes(p, 0);
    probe.getNextElementPosition(p);
    probe.getNextElementName(p);
    probe.getPreviousElementPosition(p);
    probe.getNextElementByName("a", p);
    probe.getPreviousElementByName("/a", p);
    probe.getFirstElementByName({"a", "b"}, p);
    probe.getPreviousNeighborName(p);
    probe.getNextNeighborPosition(p);
    probe.getNextNeighborName(p);
    probe.getSiblingElement(p);
    probe.getNextChildByName("a", p);
    probe.getFirstChildPosition(p);
    probe.elementContainsPosition(p, p + 1);
    probe.getPathForPosition(p);
    probe.getElementPositionFromPath("/a/b", p);

    probe.getEscapeCharacterString(p);
    probe.getCharacterDataForElementAt(p);
    probe.getNativeText(p, length - 1);
    probe.getClosingTagsBetweenPositions(p, length);
    probe.getNonBreakingSpacePosition(p);
    probe.elementContainsJustNonBreakingSpace(p);
    probe.isNbspFollowedByCloseElement(p);
    probe.nbspFollowedByWspaceAndElementCloseTagAt(p);
    probe.isLastValidWhiteSpaceBeforeElementClosed(p);
    probe.getNamespacesFromElementAt(p);
    probe.getNamespacesFromAllContainers(p);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 3 || size > 2048)
        return 0;
    static const char *const roots[] = {"fo:root", "a", "", "b:c"};
    const Core::String root = roots[data[0] % 4];
    std::u16string units;
    for (std::size_t i = 3; i < size; ++i)
        units.push_back(static_cast<char16_t>(data[i]));
    const Core::String text(units);
    const int length = text.length();

    XmlValidator(text).validate();
    Core::String escaped = text;
    MarkupProbe::convertToValidXMLText(escaped);
    check(XmlValidator(escaped).validate());

    MarkupProbe probe(text, root);
    probe.getFirstEditablePositionInXml();
    probe.getElementPath(probe.getFirstEditablePositionInXml());
    // Two positions chosen by the input, and the edges of the string, so that one input
    // stays cheap and the fuzzer keeps its pace.
    scanAt(probe, text, length == 0 ? 0 : data[1] % (length + 2) - 1);
    scanAt(probe, text, length == 0 ? 0 : data[2] % (length + 2) - 1);
    for (int p : {-1, 0, length - 1, length})
        scanAt(probe, text, p);
    return 0;
}
