// One caret stop forward or backward. A step goes atom by atom (a tag, an entity and a
// comment are one atom each) and passes over every position that cannot hold the
// caret or draws nothing, as WhitespaceAlg tells for the element it lies in.

#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"
#include "support/WhiteSpace.h"

namespace {

// Template logic holds no text: every walk jumps these elements whole.
const std::vector<Core::String> templateLogicStarts{"otd:xslt-global", "otd:xslt", "otd:inline-xslt"};
const std::vector<Core::String> templateLogicEnds{"/otd:xslt-global", "/otd:xslt", "/otd:inline-xslt"};

enum WalkDirection { Forward, Backward };

// Steps from `t` with `step` for as long as `goOn(t)` holds. A step that does not move
// on in its direction ends the walk with -1, so no markup can make it go round for ever.
template <typename Step, typename GoOn> int stepWhile(int t, WalkDirection direction, Step step, GoOn goOn)
{
    while (t != -1 && goOn(t)) {
        int const n = step(t);
        bool const movedOn = direction == Forward ? n > t : (n != -1 && n < t);
        t = movedOn ? n : -1;
    }
    return t;
}

} // namespace

// The white-space rules in force in `element`. A walk takes fresh rules for each element
// it enters: loading keeps the settings an element does not mention, and rules carried
// over from a sibling would make a position's fate depend on the direction of the walk.
BufferAlgorithms::WhitespaceAlg EditableDocumentBuffer::rulesOf(int element)
{
    BufferAlgorithms::WhitespaceAlg rules(*this);
    rules.loadFromElement(element);
    return rules;
}

// The context and the rendering filter: whether `t`, reached from a position in
// `stepFromElement`, is a caret stop. Entering another element takes its rules.
bool EditableDocumentBuffer::isCaretStop(int t, int tElement, int stepFromElement,
                                         BufferAlgorithms::WhitespaceAlg &rules)
{
    if (!canHoldCaretIn(t, tElement))
        return false;
    if (tElement != stepFromElement)
        rules = rulesOf(tElement);
    return !rules.isPositionSkipped(t);
}

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

// Whether a placeholder is the first thing but white space in the element: the cheap
// half of elementContainsJustNonBreakingSpace, which has to find the element's end.
bool EditableDocumentBuffer::startsWithPlaceholder(int element) const
{
    if (element < 0)
        return false;
    int p = getNextEditablePositionInXml(element);
    while (p > 0 && Core::isPlainWhiteSpace(content[p]))
        ++p;
    return p > 0 && placeholderLengthAt(p) > 0;
}

int EditableDocumentBuffer::getNextEditablePositionInFo(int position, bool wrap, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(position))
        return -1;
    WalkScope scope(*this);
    int element = currentElementOf(position);
    int t = position;
    // An element that holds only a placeholder has one stop: before and after the
    // placeholder are the same place for the user.
    int placeholderStop = -1;
    if (startsWithPlaceholder(element) && elementContainsJustNonBreakingSpace(element)) {
        int closing = getClosingTagForTagAtPosition(element);
        if (closing != -1) {
            noteCurrentElement(closing, element);
            if (closing != position && !BufferAlgorithms::WhitespaceAlg(*this).isTagPositionSkipped(closing))
                return closing;
            t = closing;
            placeholderStop = closing;
        }
    }
    BufferAlgorithms::WhitespaceAlg rules = rulesOf(element);

    int tElement = element; // the current element of t
    int previousStop = position;
    int inlineCandidate = -1;
    bool wrapped = false;
    for (;;) {
        if (tagNameIsOneOf(t, templateLogicStarts)) {
            int closing = getClosingTagForTagAtPosition(t);
            if (closing > t) {
                tElement = t;
                t = closing;
                noteCurrentElement(t, tElement);
            }
        }
        int next = getNextEditablePositionInXml(t);
        if (next != -1 && next <= t)
            next = -1; // an unterminated comment steps backward: the walk ends there
        int nextElement = -1;
        if (next != -1) {
            nextElement = currentElementAfterStep(t, tElement, next);
        } else {
            if (inlineCandidate != -1 && canHoldCaret(inlineCandidate))
                return inlineCandidate;
            if (!wrap || wrapped)
                return -1;
            wrapped = true;
            next = getFirstEditablePositionInXml();
            if (next == -1)
                return -1;
            nextElement = currentElementOf(next);
        }
        if (next == position || (wrapped && next > position))
            return -1; // a full circle found nothing
        int stepFromElement = tElement;
        t = next;
        tElement = nextElement;

        if (!isCaretStop(t, tElement, stepFromElement, rules))
            continue;
        if (!mergeInlineBoundaries)
            return t == placeholderStop ? -1 : t;

        int q = previousStop;
        previousStop = t;
        if (isMergeableInline(q) && sameElementNamed("fo:block", t, q))
            continue;
        if (closesMergeableInline(q, currentElementOf(q)) && sameElementNamed("fo:block", t, q)) {
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
    WalkScope scope(*this);
    int element = currentElementOf(position);
    BufferAlgorithms::WhitespaceAlg rules = rulesOf(element);

    int t = position;
    int tElement = element;
    int previousStop = position;
    int inlineCandidate = -1;
    bool wrapped = false;
    for (;;) {
        if (tagNameIsOneOf(t, templateLogicEnds)) {
            int start = getStartTagForTagAtPosition(t);
            if (start != -1 && start < t) {
                t = start;
                tElement = currentElementOf(t);
            }
        }
        int previous = getPreviousEditablePositionInXml(t);
        if (previous >= t)
            previous = -1;
        if (previous == position || (wrapped && previous != -1 && previous < position))
            return -1; // a full circle found nothing
        int previousElement = -1;
        if (previous != -1) {
            previousElement = currentElementBeforeStep(tElement, previous);
        } else {
            if (inlineCandidate != -1 && canHoldCaret(inlineCandidate))
                return inlineCandidate;
            if (!wrap || wrapped)
                return -1;
            wrapped = true;
            previous = getLastTagOfDocument();
            if (previous == -1 || previous <= position)
                return -1;
            previousElement = currentElementOf(previous);
        }
        int stepFromElement = tElement;
        t = previous;
        tElement = previousElement;

        if (!isCaretStop(t, tElement, stepFromElement, rules))
            continue;
        if (!mergeInlineBoundaries)
            return t;

        // Leaving an inline through its start tag mirrors leaving it through its
        // closing tag going right: the stop is kept in reserve for a walk that ends.
        int q = previousStop;
        previousStop = t;
        if (isMergeableInline(t) && getNextEditablePositionInXml(t) == q &&
            sameElementNamed("fo:block", t, q)) {
            inlineCandidate = t;
            continue;
        }
        if (closesMergeableInline(t, tElement) && sameElementNamed("fo:block", t, q))
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
    WalkScope scope(*this);
    BufferAlgorithms::WhitespaceAlg defaults(*this);
    auto next = [this](int t) { return getNextEditablePositionInFo(t, false, false); };
    return stepWhile(next(position), Forward, next,
                     [&defaults](int t) { return defaults.isPositionSkipped(t); });
}

int EditableDocumentBuffer::getPreviousValidCaretPos(int position)
{
    WalkScope scope(*this);
    BufferAlgorithms::WhitespaceAlg defaults(*this);
    auto previous = [this](int t) { return getPreviousEditablePositionInFo(t, false, false); };
    return stepWhile(previous(position), Backward, previous,
                     [&defaults](int t) { return defaults.isPositionSkipped(t); });
}

int EditableDocumentBuffer::getNextPositionAdjustedToFoFlow(int position)
{
    if (isOnInvalidPosition(position))
        return -1;
    WalkScope scope(*this);
    auto next = [this](int t) { return getNextEditablePositionInFo(t, false, false); };
    return stepWhile(position, Forward, next, [this](int t) { return !isInFlowAt(t); });
}

int EditableDocumentBuffer::getPreviousPositionAdjustedToFoFlow(int position, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(position))
        return -1;
    WalkScope scope(*this);
    auto previous = [this, mergeInlineBoundaries](int t) {
        return getPreviousEditablePositionInFo(t, false, mergeInlineBoundaries);
    };
    return stepWhile(position, Backward, previous, [this](int t) { return !isInFlowAt(t); });
}
