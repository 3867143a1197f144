// Moves to places named by the host rather than reached by a key: the first flow, the
// first place inside a static content, and places in a page sequence named by index.

#include "editing/EditableDocumentBuffer.h"

#include "editing/FreezeNotifications.h"

#include <map>

void EditableDocumentBuffer::moveCaretToFirstFoFlow()
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int t = getFirstEditablePositionInXml();
    if (t != -1)
        t = getNextEditablePositionInFo(t, false, false);
    setCaret(false, getNextPositionAdjustedToFoFlow(t));
}

void EditableDocumentBuffer::resetCaretFromStaticContent()
{
    WalkScope scope(*this);
    if (!isOnInvalidPosition(caret) &&
        ancestorNamed(currentElementOf(caret), "fo:static-content", false) != -1)
        moveCaretToFirstFoFlow();
}

// The first stop inside the element at `element`, when it lies before its closing tag.
int EditableDocumentBuffer::firstStopInside(int element)
{
    int first = getNextEditablePositionInFo(element, false, false);
    int closing = getClosingTagForTagAtPosition(element);
    return (first != -1 && closing != -1 && first < closing) ? first : -1;
}

int EditableDocumentBuffer::getFirstEditPosInStaticContent(Core::String const &regionName,
                                                           int sequencePosition)
{
    WalkScope scope(*this);
    for (int child = getNextChildByName("fo:static-content", sequencePosition); child != -1;) {
        if (getTagPropertyValue(child, "fo:flow-name") == regionName)
            return firstStopInside(child);
        int next = getNextElementByName("fo:static-content", child);
        child = (next > child && parentElementOf(next) == sequencePosition) ? next : -1;
    }
    return -1;
}

// ---- Moves by page sequence ----
//
// The host names a page sequence by its index, and an index is found by counting from
// the start of the document: each of these moves walks from there by nature, once.

// For each "fo:page-sequence" in turn, the static content that flows into the first
// side region of its page master. A repeat or an external document is passed. One
// pass: the children of a sequence are stepped over by their closing tags, and the
// next sequence is searched from behind the last one passed.
void EditableDocumentBuffer::moveCaretToFirstStaticRegion()
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    std::map<Core::String, Core::String> firstRegionOfMaster; // each master is looked up once
    for (int sequence = getNextElementByName("fo:page-sequence", 0); sequence != -1;) {
        Core::String const master = getTagPropertyValue(sequence, "fo:master-reference");
        auto known = firstRegionOfMaster.find(master);
        if (known == firstRegionOfMaster.end())
            known = firstRegionOfMaster.emplace(master, getFirstPageRegionNameFromMaster(master)).first;
        int walkedTo = sequence;
        int const target = firstStopInRegionOfSequence(sequence, known->second, walkedTo);
        if (target != -1) {
            setCaret(false, target);
            return;
        }
        int const next = getNextElementByName("fo:page-sequence", walkedTo);
        sequence = next > sequence ? next : -1;
    }
    // Nothing to stand on: the caret is gone, and the host hears of the caret only.
    caret = -1;
    selectionPivot = -1;
    notifyCaretChanged();
}

// An empty region name names no region: a master without side regions gives one, and
// it must not lead into a static content that lacks its flow-name.
int EditableDocumentBuffer::firstStopInRegionOfSequence(int sequence, Core::String const &regionName,
                                                        int &walkedTo)
{
    if (regionName.isEmpty() || selfClosingTagAtPosition(sequence))
        return -1;
    int child = getNextTagPosition(stepForward(sequence));
    while (child > walkedTo && content[child + 1] != u'/') { // a closing tag here ends the sequence
        int const childEnd = getClosingTagForTagAtPosition(child);
        if (childEnd < child)
            return -1;
        if (tagNameEquals(child, "fo:static-content") &&
            getTagPropertyValue(child, "fo:flow-name") == regionName) {
            int const first = getNextEditablePositionInFo(child, false, false);
            if (first != -1 && first < childEnd)
                return first;
        }
        walkedTo = childEnd;
        child = getNextTagPosition(stepForward(childEnd));
    }
    return -1;
}

void EditableDocumentBuffer::moveCaretToStaticRegion(Core::String regionName, int pageSequenceIndex)
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int const sequence = getPageSequencePosition(pageSequenceIndex);
    int const target = sequence == -1 ? -1 : getFirstEditPosInStaticContent(regionName, sequence);
    if (target != -1)
        setCaret(false, target);
}

// "Inside the flow" is asked of the stop's ancestors rather than by finding the flow's
// closing tag, so the flow is not read to its end.
bool EditableDocumentBuffer::moveCaretToPageSequence(int pageSequenceIndex)
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int const flow = getFirstFlowPositionInPageSequence(pageSequenceIndex);
    if (flow == -1)
        return false;
    int const position = getNextEditablePositionInFo(flow, false, false);
    if (position <= flow || !hasAncestor(currentElementOf(position), flow))
        return false;
    setCaretPos(false, position);
    return true;
}

// `offset` is a raw count of code units from the position behind the flow's start tag,
// as the host noted it: no caret stop is looked for, only an editable element.
bool EditableDocumentBuffer::moveCaretToReference(int pageSequenceIndex, int offset)
{
    if (pageSequenceIndex == -1)
        return false;
    if (offset < 1)
        return moveCaretToPageSequence(pageSequenceIndex);
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int const flow = getFirstFlowPositionInPageSequence(pageSequenceIndex);
    int const inside = flow == -1 ? -1 : stepForward(flow);
    if (inside == -1 || offset >= content.length() - inside)
        return false;
    int const target = inside + offset;
    if (!hasAncestor(currentElementOf(target), flow) || !inEditableElement(target))
        return false;
    setCaret(false, target);
    return true;
}
