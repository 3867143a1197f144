// Word jumps: Ctrl+Right and Ctrl+Left over a text that inline tags cut into pieces.
// A word is a run of characters that are not separators; the placeholder counts as a
// separator wherever it stands.

#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"
#include "editing/FreezeNotifications.h"
#include "support/WhiteSpace.h"

#include <algorithm>

namespace {

constexpr std::u16string_view punctuationSeparators = u",;)(-=?!#@'\"&%$^*><.|][}{/~:\\";

} // namespace

bool EditableDocumentBuffer::isWordSeparator(wchar_t character)
{
    if (character == L' ' || character == L'\n' || character == L'\t' || character == 0xA0)
        return true;
    return character < 0x80 &&
           punctuationSeparators.find(static_cast<char16_t>(character)) != std::u16string_view::npos;
}

// The steps shared by both word jumps, with the document's protected walks at hand.
class WordJumpWalk {
public:
    explicit WordJumpWalk(EditableDocumentBuffer &document) : doc(document), text(document.content) {}

    // How a backward walk ends: the caret goes to `position` by the placing rule, or
    // straight there, or the jump goes on from there.
    enum class End { Place, Set, ContinueFrom };
    struct Target {
        int position = -1;
        End end = End::Place;
    };

    bool blankAt(int p) const { return Core::iswspace(text[p]) || doc.placeholderLengthAt(p) > 0; }

    bool inlineElementAround(int p) const
    {
        int element = doc.currentElementOf(p);
        return element != -1 && doc.isInlineEditableElementAt(element);
    }

    // The inline whose closing tag stands at `p`, if any.
    bool closesInline(int p) const
    {
        int element = doc.currentElementOf(p);
        return element != -1 && doc.isInlineEditableElementAt(element) &&
               doc.getClosingTagForTagAtPosition(element) == p;
    }

    // A jump keeps to the kind of place it started in: from a flow it lands in a flow,
    // from static content only in that static content. False when there is no place.
    bool place(bool extendSelection, int target, bool inFlow, bool forward)
    {
        if (doc.isOnInvalidPosition(target))
            return false;
        if (!inFlow) {
            if (!doc.sameElementNamed("fo:static-content", doc.caret, target))
                return false;
        } else if (!doc.isInFlowAt(target)) {
            target = forward ? doc.getNextPositionAdjustedToFoFlow(target)
                             : doc.getPreviousPositionAdjustedToFoFlow(target, false);
            if (doc.isOnInvalidPosition(target))
                return false;
        }
        doc.setCaret(extendSelection, target);
        return true;
    }

    // One forward jump from the caret. True when it entered an inline and goes on
    // from inside it, as moveCaretRight by word would.
    bool jumpForward(bool extendSelection);
    Target previousWordTarget(int start, bool inFlow, bool forJump);

private:
    bool jumpFromTag(bool extendSelection, int p, bool inFlow);
    int previousStop(int p);
    bool blockStartsBetween(int from, int to) const;

    EditableDocumentBuffer &doc;
    Core::String const &text;
    BufferAlgorithms::WhitespaceAlg rules{doc};
    int rulesElement = -2; // the element `rules` was loaded from
};

// ---- Forward ----

//     <fo:block>one| two</fo:block>         ->  <fo:block>one |two</fo:block>
//     <fo:block>block |<fo:inline>with ...  ->  <fo:inline>with |inline ...
bool WordJumpWalk::jumpForward(bool extendSelection)
{
    int caret = doc.caret;
    if (caret >= 11 && text.matchesAt(caret - 11, u"</fo:table>")) {
        doc.moveCaretRight(extendSelection, false, false); // leaving a table's end is one plain step
        return false;
    }
    bool inFlow = doc.isInFlowAt(caret);
    bool first = true;
    for (int p = caret; !doc.isOnInvalidPosition(p);) {
        char16_t c = text[p];
        if (c == u'&' && doc.nbspFollowedByWspaceAndElementCloseTagAt(p)) {
            // A placeholder ends its element.
            if (!first) {
                place(extendSelection, p, inFlow, true);
                return false;
            }
            int closing = doc.getClosingTagForTagAtPosition(doc.currentElementOf(p));
            p = doc.getNextEditablePositionInFo(closing, false, false);
            if (place(extendSelection, p, inFlow, true))
                return false;
            first = false;
            continue;
        }
        if (c == u'<' && first)
            return jumpFromTag(extendSelection, p, inFlow);
        if (c == u'<') {
            // The word ended at a tag, unless it runs on through the end of an inline
            // into more text of the same block.
            int next = -1;
            if (inFlow && closesInline(p))
                next = doc.getNextEditablePositionInFo(p, false, false);
            if (next == -1 || !doc.sameElementNamed("fo:block", p, next)) {
                place(extendSelection, p, inFlow, true);
                return false;
            }
            p = next;
            if (blankAt(p) || text[p] == u'<')
                continue;
            place(extendSelection, p, inFlow, true);
            return false;
        }
        if (blankAt(p) || doc.isWordSeparator(c)) {
            if (blankAt(p)) {
                for (; !doc.isOnInvalidPosition(p) && blankAt(p);) {
                    if (!first && doc.placeholderLengthAt(p) > 0 &&
                        doc.nbspFollowedByWspaceAndElementCloseTagAt(p)) {
                        doc.setCaret(extendSelection, p);
                        return false;
                    }
                    int next = doc.getNextEditablePositionInXml(p);
                    if (next <= p)
                        break;
                    p = next;
                }
            } else if (first) {
                p = doc.getNextEditablePositionInFo(p, false, false);
            }
            place(extendSelection, p, inFlow, true);
            return false;
        }
        place(extendSelection, p, inFlow, true); // the caret follows the walk
        int next = doc.getNextEditablePositionInFo(p, false, false);
        p = next > p ? next : -1;
        first = false;
    }
    return false;
}

// The jump starts on a tag: an inline's edge is entered and the jump goes on inside;
// any other tag is passed by one plain step.
bool WordJumpWalk::jumpFromTag(bool extendSelection, int p, bool inFlow)
{
    if (!inFlow) {
        if (doc.sameElementNamed("fo:static-content", doc.caret, p)) {
            doc.setCaret(extendSelection, p);
            doc.moveCaretRight(extendSelection, false, false);
        }
        return false;
    }
    if (!doc.isInFlowAt(p))
        return false;
    doc.setCaret(extendSelection, p);
    if (doc.isInlineEditableElementAt(p) || closesInline(p)) {
        doc.setCaret(extendSelection, doc.getNextEditablePositionInXml(p));
        return true;
    }
    doc.moveCaretRight(extendSelection, false, false);
    return false;
}

void EditableDocumentBuffer::jumpToNextWord(bool extendSelection)
{
    if (isOnInvalidPosition(caret))
        return;
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    WordJumpWalk walk(*this);
    // Going on inside an inline is what moveCaretRight(extendSelection, true, false)
    // does: the same checks, then the next jump.
    for (int before = caret; walk.jumpForward(extendSelection); before = caret) {
        if (isOnInvalidPosition(caret) || caret <= before)
            return;
        if (!extendSelection && hasSelectedText()) {
            setCaret(false, std::max(caret, selectionPivot));
            return;
        }
        if (moveRightInTableOrder())
            return;
    }
}

// ---- Backward ----

// The previous caret stop, with the white-space rules of the element `p` stands in.
int WordJumpWalk::previousStop(int p)
{
    int element = doc.currentElementOf(p);
    if (element != rulesElement) {
        rules = doc.rulesOf(element);
        rulesElement = element;
    }
    int q = doc.getPreviousEditablePositionInFo(p, false, false);
    while (q != -1 && rules.isPositionSkipped(q)) {
        int before = doc.getPreviousEditablePositionInFo(q, false, false);
        q = (before != -1 && before < q) ? before : -1;
    }
    return q;
}

//     <fo:block>one two|</fo:block>      ->  <fo:block>one |two</fo:block>
//     <fo:block>one |two</fo:block>      ->  <fo:block>|one two</fo:block>
WordJumpWalk::Target WordJumpWalk::previousWordTarget(int start, bool inFlow, bool forJump)
{
    int startElement = doc.currentElementOf(start);
    int firstInStartElement = startElement == -1 ? -1 : doc.getNextEditablePositionInXml(startElement);
    int p = start;
    bool first = true;
    for (;;) {
        int q = previousStop(p);
        if (q == -1)
            return {p, End::Place};
        if (text[q] == u'<') {
            if (!inFlow || !doc.isInFlowAt(q))
                return {p, End::Place};
            if (!first) {
                bool inlineStartBeforeWord =
                    doc.isInlineEditableElementAt(q) && doc.getNextEditablePositionInXml(q) == p;
                return {inlineStartBeforeWord ? q : p, End::Place};
            }
            if (!forJump)
                return {q, closesInline(q) ? End::ContinueFrom : End::Place};
            bool goesOn = (inlineElementAround(q) || inlineElementAround(p)) &&
                          doc.sameElementNamed("fo:block", q, p) && !blockStartsBetween(q, p);
            return {q, goesOn ? End::ContinueFrom : End::Set};
        }
        bool blank = blankAt(q);
        if (!blank && !doc.isWordSeparator(text[q])) {
            p = q; // still inside the word
            first = false;
            continue;
        }
        if (!first)
            return {p, End::Place}; // the word starts at p
        if (!blank)
            return {doc.getPreviousEditablePositionInFo(p, false, false), End::Place};
        // Walk back over the gap; the start of the element ends the jump.
        p = q;
        for (;;) {
            if (p == firstInStartElement)
                return {p, End::Place};
            int before = doc.getPreviousEditablePositionInXml(p);
            if (before == -1 || before >= p || !blankAt(before))
                break;
            p = before;
        }
        first = false;
    }
}

// A block (a line break included) between two stops means they are on different lines.
bool WordJumpWalk::blockStartsBetween(int from, int to) const
{
    for (int t = from; t != -1 && t < to;) {
        if (doc.tagNameEquals(t, "fo:block"))
            return true;
        int next = doc.getNextEditablePositionInXml(t);
        t = next > t ? next : -1;
    }
    return false;
}

void EditableDocumentBuffer::jumpToPreviousWord(bool extendSelection)
{
    if (isOnInvalidPosition(caret))
        return;
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    endKeyTypingSequence();
    WordJumpWalk walk(*this);
    for (;;) {
        if (tagNameEquals(caret, "fo:table")) {
            moveCaretLeft(extendSelection, false, false);
            return;
        }
        bool inFlow = isInFlowAt(caret);
        WordJumpWalk::Target target = walk.previousWordTarget(caret, inFlow, true);
        if (target.end == WordJumpWalk::End::Place) {
            walk.place(extendSelection, target.position, inFlow, false);
            return;
        }
        int before = caret;
        setCaret(extendSelection, target.position);
        if (target.end == WordJumpWalk::End::Set || caret >= before)
            return;
        // Going on is what moveCaretLeft(extendSelection, true, false) does: the table
        // order first, then the next jump.
        if (isOnInvalidPosition(caret) || moveLeftInTableOrder())
            return;
    }
}

int EditableDocumentBuffer::getPreviousWordPos(int position)
{
    WalkScope scope(*this);
    WordJumpWalk walk(*this);
    for (int p = position; !isOnInvalidPosition(p);) {
        if (tagNameEquals(p, "fo:table"))
            return getPreviousEditablePositionInFo(p, false, false);
        WordJumpWalk::Target target = walk.previousWordTarget(p, isInFlowAt(p), false);
        if (target.end != WordJumpWalk::End::ContinueFrom || target.position >= p)
            return target.position;
        p = target.position;
    }
    return -1;
}
