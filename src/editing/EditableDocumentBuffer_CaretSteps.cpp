// One caret stop forward or backward. A step goes atom by atom (a tag, an entity and a
// comment are one atom each) and passes over every position that cannot hold the
// caret or draws nothing, as WhitespaceAlg tells for the element it lies in.

#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"

namespace {

// Template logic holds no text: every walk jumps these elements whole.
const std::vector<Core::String> templateLogicStarts{"otd:xslt-global", "otd:xslt", "otd:inline-xslt"};
const std::vector<Core::String> templateLogicEnds{"/otd:xslt-global", "/otd:xslt", "/otd:inline-xslt"};

} // namespace

// With `mergeInlineBoundaries` the walk passes stops that only cross the edge of an
// inline, so that one key press passes one visible character:
//
//     ab|<fo:inline>cd</fo:inline>   right   ab<fo:inline>c|d</fo:inline>
//
// A link keeps its edges as stops, because the host draws them apart.
bool EditableDocumentBuffer::isMergeableInline(int tagPosition) const
{
    return isInlineEditableElementAt(tagPosition) && !tagNameEquals(tagPosition, "fo:basic-link");
}

// The element whose closing tag stands at `position`, when it is a mergeable inline.
bool EditableDocumentBuffer::closesMergeableInline(int position, int currentElement) const
{
    if (!onTagStartPosition(position) || content[position + 1] != u'/')
        return false;
    return currentElement != -1 && isMergeableInline(currentElement) &&
           getClosingTagForTagAtPosition(currentElement) == position;
}

int EditableDocumentBuffer::getNextEditablePositionInFo(int position, bool wrap, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(position))
        return -1;
    int element = getCurrentElementPosition(position);
    int t = position;
    // An element that holds only a placeholder has one stop: before and after the
    // placeholder are the same place for the user.
    int placeholderStop = -1;
    if (element != -1 && elementContainsJustNonBreakingSpace(element)) {
        int closing = getClosingTagForTagAtPosition(element);
        if (closing != -1) {
            if (closing != position && !BufferAlgorithms::WhitespaceAlg(*this).isTagPositionSkipped(closing))
                return closing;
            t = closing;
            placeholderStop = closing;
        }
    }
    BufferAlgorithms::WhitespaceAlg rules(*this);
    rules.loadFromElement(element);

    int fromElement = element; // the current element of the position stepped from
    int previousStop = position;
    int inlineCandidate = -1;
    bool wrapped = false;
    for (;;) {
        if (tagNameIsOneOf(t, templateLogicStarts)) {
            int closing = getClosingTagForTagAtPosition(t);
            if (closing > t) {
                fromElement = t;
                t = closing;
            }
        }
        int next = getNextEditablePositionInXml(t);
        if (next != -1 && next <= t)
            next = -1; // an unterminated comment steps backward: the walk ends there
        if (next == -1) {
            if (inlineCandidate != -1 && canHoldCaret(inlineCandidate))
                return inlineCandidate;
            if (!wrap || wrapped)
                return -1;
            wrapped = true;
            next = getFirstEditablePositionInXml();
            if (next == -1)
                return -1;
        }
        if (next == position || (wrapped && next > position))
            return -1; // a full circle found nothing
        t = next;

        int stepFromElement = fromElement;
        fromElement = getCurrentElementPosition(t);
        if (!canHoldCaretIn(t, fromElement))
            continue;
        if (fromElement != stepFromElement)
            rules.loadFromElement(fromElement);
        if (rules.isPositionSkipped(t))
            continue;
        if (!mergeInlineBoundaries)
            return t == placeholderStop ? -1 : t;

        int q = previousStop;
        previousStop = t;
        if (isMergeableInline(q) && positionsAreInTheSameElement("fo:block", t, q))
            continue;
        if (closesMergeableInline(q, getCurrentElementPosition(q)) &&
            positionsAreInTheSameElement("fo:block", t, q)) {
            inlineCandidate = t;
            continue;
        }
        return t == placeholderStop ? -1 : t;
    }
}

int EditableDocumentBuffer::getPreviousEditablePositionInFo(int position, bool wrap,
                                                            bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(position))
        return -1;
    int element = getCurrentElementPosition(position);
    BufferAlgorithms::WhitespaceAlg rules(*this);
    rules.loadFromElement(element);

    int t = position;
    int fromElement = element;
    int previousStop = position;
    int inlineCandidate = -1;
    bool wrapped = false;
    for (;;) {
        if (tagNameIsOneOf(t, templateLogicEnds)) {
            int start = getStartTagForTagAtPosition(t);
            if (start != -1 && start < t) {
                t = start;
                fromElement = getCurrentElementPosition(t);
            }
        }
        int previous = getPreviousEditablePositionInXml(t);
        if (previous >= t)
            previous = -1;
        if (previous == position || (wrapped && previous != -1 && previous < position))
            return -1;
        if (previous == -1) {
            if (inlineCandidate != -1 && canHoldCaret(inlineCandidate))
                return inlineCandidate;
            if (!wrap || wrapped)
                return -1;
            wrapped = true;
            previous = getLastTagOfDocument();
            if (previous == -1 || previous <= position)
                return -1;
        }
        t = previous;

        int stepFromElement = fromElement;
        fromElement = getCurrentElementPosition(t);
        if (!canHoldCaretIn(t, fromElement))
            continue;
        if (fromElement != stepFromElement)
            rules.loadFromElement(fromElement);
        if (rules.isPositionSkipped(t))
            continue;
        if (!mergeInlineBoundaries)
            return t;

        // Leaving an inline through its start tag mirrors leaving it through its
        // closing tag going right: the stop is kept in reserve for a walk that ends.
        int q = previousStop;
        previousStop = t;
        if (isMergeableInline(t) && getNextEditablePositionInXml(t) == q &&
            positionsAreInTheSameElement("fo:block", t, q)) {
            inlineCandidate = t;
            continue;
        }
        if (closesMergeableInline(t, fromElement) && positionsAreInTheSameElement("fo:block", t, q))
            continue;
        return t;
    }
}

// The last tag of the document that is not a comment, a CDATA section or a
// processing instruction: where a backward walk starts again when it wraps.
int EditableDocumentBuffer::getLastTagOfDocument() const
{
    int t = getPreviousTagPosition(content.length() - 1);
    while (t > 0 && ignoredElementAtPosition(t))
        t = getPreviousTagPosition(t);
    return t;
}

int EditableDocumentBuffer::getNextValidCaretPos(int position)
{
    BufferAlgorithms::WhitespaceAlg defaults(*this);
    int t = getNextEditablePositionInFo(position, false, false);
    while (t != -1 && defaults.isPositionSkipped(t)) {
        int next = getNextEditablePositionInFo(t, false, false);
        t = next > t ? next : -1;
    }
    return t;
}

int EditableDocumentBuffer::getPreviousValidCaretPos(int position)
{
    BufferAlgorithms::WhitespaceAlg defaults(*this);
    int t = getPreviousEditablePositionInFo(position, false, false);
    while (t != -1 && defaults.isPositionSkipped(t)) {
        int previous = getPreviousEditablePositionInFo(t, false, false);
        t = (previous != -1 && previous < t) ? previous : -1;
    }
    return t;
}

int EditableDocumentBuffer::getNextPositionAdjustedToFoFlow(int position)
{
    if (isOnInvalidPosition(position))
        return -1;
    int t = position;
    while (t != -1 && !isInFoFlow(t)) {
        int next = getNextEditablePositionInFo(t, false, false);
        t = next > t ? next : -1;
    }
    return t;
}

int EditableDocumentBuffer::getPreviousPositionAdjustedToFoFlow(int position, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(position))
        return -1;
    int t = position;
    while (t != -1 && !isInFoFlow(t)) {
        int previous = getPreviousEditablePositionInFo(t, false, mergeInlineBoundaries);
        t = (previous != -1 && previous < t) ? previous : -1;
    }
    return t;
}
