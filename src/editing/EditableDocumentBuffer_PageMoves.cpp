// Moves to places named by the host rather than reached by a key: the first flow, and
// the first place inside a static content.

#include "editing/EditableDocumentBuffer.h"

#include "editing/FreezeNotifications.h"

void EditableDocumentBuffer::moveCaretToFirstFoFlow()
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int t = getFirstEditablePositionInXml();
    if (t != -1)
        t = getNextEditablePositionInFo(t, false, false);
    while (t != -1 && !isInFlowAt(t)) {
        int next = getNextEditablePositionInFo(t, false, false);
        t = next > t ? next : -1;
    }
    setCaret(false, t);
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
