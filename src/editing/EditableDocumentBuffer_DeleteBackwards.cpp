// The Backspace key: one backward deletion at a position, decided by what stands
// before it.
//
//   a block holding only a placeholder -> it empties, and merges with what precedes
//   a tag before the position          -> line breaks and objects go whole, blocks
//                                         merge, nested blocks dissolve, inlines are
//                                         entered or left
//   any other atom                     -> the atom goes, and spaces that would
//                                         collapse are kept
#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"
#include "editing/DeletionConstants.h"
#include "editing/DeletionSteps.h"
#include "support/WhiteSpace.h"

#include <algorithm>

using namespace DeletionConstants;

// One backward deletion; the same contract as DeleteForwardSteps.
class DeleteBackwardsSteps : public DeletionSteps {
public:
    DeleteBackwardsSteps(EditableDocumentBuffer &document, int recursionDepth)
        : DeletionSteps(document), depth(recursionDepth)
    {
    }

    void run(int &position);

private:
    void recurse(int &position) { DeleteBackwardsSteps(doc, depth + 1).run(position); }
    void emptyPlaceholderBlock(int &position, int element);

    // a tag ends right before s
    void atTag(int &position, int s);
    void deleteIgnoredItem(int &position, XmlElementType type);
    void deleteSelfClosing(int &position, int q);
    int cutStartBeforeTag(int q, bool &changed);
    void joinTextToNestedBlock(int &position, int q);
    void dissolveNestedBlock(int &position, int q);
    bool blockBoundaryFollows(int position);
    void continueIfBlockBefore(int &position, int r, bool changed);
    void outOfInline(int &position, int q);
    void intoInline(int &position, int q);
    void mergeWithPreviousBlock(int &position);
    void deleteObject(int &position);
    // a plain atom stands before the position
    void atAtom(int &position, int element, PhaseRules &rules);
    void cutAtomKeepingSpaces(int &position, int previous, PhaseRules &rules);
    void cutSkippedRun(int &position, int element, BufferAlgorithms::WhitespaceAlg &rules);

    int depth;
};

void EditableDocumentBuffer::deleteBackwards(int &position)
{
    DeleteBackwardsSteps(*this, 0).run(position);
}

void DeleteBackwardsSteps::run(int &position)
{
    if (depth > kMaxDeletionDepth || doc.isOnInvalidPosition(position))
        return;
    int const element = doc.getCurrentElementPosition(position);
    if (element < 0)
        return;
    if (doc.elementContainsJustNonBreakingSpace(element) &&
        !doc.isInlineEditableElementName(tagNameAt(element))) {
        emptyPlaceholderBlock(position, element);
        return;
    }
    PhaseRules rules(doc);
    // Positions the rendering swallows are passed over, within the element.
    int const s = stepBackOverSkippedIn(position, element, rules.of(element));
    if (doc.isOnInvalidPosition(s - 1))
        return;
    if (doc.content[s - 1] == u'>')
        atTag(position, s);
    else
        atAtom(position, element, rules);
}

// A block that holds only a placeholder empties, and the merge with what precedes it
// follows. Nothing stands before the first block of the document.
void DeleteBackwardsSteps::emptyPlaceholderBlock(int &position, int element)
{
    int const first = doc.getNextEditablePositionInXml(element);
    if (doc.isOnInvalidPosition(first) || doc.getPreviousEditablePositionInFo(first, false, false) == -1)
        return;
    int const placeholder = doc.getNonBreakingSpacePosition(element);
    int const afterPlaceholder = placeholder < 0 ? -1 : doc.getNextEditablePositionInXml(placeholder);
    int const end = std::max(position, afterPlaceholder);
    position = first;
    recordDeletion(first, doc.deleteContentAndAdjustCaret(first, end));
    doc.addCaretMark();
    recurse(position);
}

// ---- a tag ends right before s ----

void DeleteBackwardsSteps::atTag(int &position, int s)
{
    XmlElementType const type = doc.getElementTypeOnEndTagPosition(s - 1);
    if (type == XmlComment || type == XmlCData || type == XmlProcessingInstruction) {
        deleteIgnoredItem(position, type);
        return;
    }
    Core::String tag;
    int const q = doc.getPreviousTagNameAndPos(position, tag);
    if (q < 0 || tag.empty())
        return;
    if (doc.selfClosingTagAtPosition(q))
        deleteSelfClosing(position, q);
    else if (tag == kBlockClosing && doc.imbricatedBlocksContext(doc.getCurrentElementPosition(q)))
        joinTextToNestedBlock(position, q);
    else if (doc.imbricatedBlocksContext(q))
        dissolveNestedBlock(position, q);
    else if (doc.isInlineEditableElementName(tag))
        outOfInline(position, q);
    else if (doc.isInlineEditableElementClosingTagName(tag))
        intoInline(position, q);
    else if (tag == kBlock)
        mergeWithPreviousBlock(position);
    else
        deleteObject(position);
}

// A comment, CDATA section or processing instruction before the caret goes whole.
// The cut is recorded so that undo brings the item back.
void DeleteBackwardsSteps::deleteIgnoredItem(int &position, XmlElementType type)
{
    int const p0 = position;
    int const start = doc.getElementStartPosition(type, p0);
    if (doc.isOnInvalidPosition(start) || start >= p0)
        return;
    doc.setCaret(false, start);
    Core::String const removed = doc.deleteContentAndAdjustCaret(start, p0);
    position = start;
    recordDeletion(start, removed);
    doc.addCaretMark();
}

// A line break or an empty object before the caret goes, with the indentation in
// front of it.
void DeleteBackwardsSteps::deleteSelfClosing(int &position, int q)
{
    int const p0 = position;
    doc.setCaret(false, p0);
    int indentation = q;
    doc.deleteSpacesBetweenTags(indentation);
    // White space in front of the indentation that the rendering swallows goes too;
    // the character before it stays.
    bool changed = false;
    int const r = cutStartBeforeTag(indentation, changed);
    if (doc.isOnInvalidPosition(r) || r > q)
        return;
    position = r;
    recordDeletion(r, doc.deleteContentAndAdjustCaret(r, p0));
    doc.addCaretMark();
}

// Where a cut that ends with the tag at q begins: white space in front of the tag
// that the rendering swallows goes with it. `changed` tells whether the walk back met
// another element.
int DeleteBackwardsSteps::cutStartBeforeTag(int q, bool &changed)
{
    int r = q - 1;
    changed = doc.skipSpacesBackwards(r, false);
    if (r == q - 1)
        return q;
    return changed ? r : doc.getNextEditablePositionInXml(r);
}

// Behind a nested block: the text after it joins it. An empty nested block goes
// whole instead.
//   <fo:block>a<fo:block>b</fo:block>|c</fo:block>
//   -> <fo:block>a<fo:block>b|c</fo:block></fo:block>
void DeleteBackwardsSteps::joinTextToNestedBlock(int &position, int q)
{
    int const p0 = position;
    int const nested = doc.getCurrentElementPosition(q);
    if (doc.elementContainsJustWhitespacesOrVoid(nested)) {
        position = nested;
        Core::String const removed = doc.deleteXmlText(nested, p0 - 1);
        doc.addCaretMark();
        recordDeletion(nested, removed);
        recurse(position);
        return;
    }
    bool changed = false;
    int const r = cutStartBeforeTag(q, changed);
    int const outer = doc.getCurrentElementPosition(p0);
    int const outerEnd = outer < 0 ? -1 : doc.getClosingTagForTagAtPosition(outer);
    int const afterTag = doc.getNextEditablePositionInXml(q);
    if (outerEnd < p0 || doc.isOnInvalidPosition(r) || afterTag <= r)
        return;
    doc.insertXmlTextAtPosition(outerEnd, kBlockEndTag);
    recordInsertion(outerEnd, kBlockEndTag);
    doc.addCaretMark();
    recordDeletion(r, doc.deleteContentAndAdjustCaret(r, afterTag));
    doc.addCaretMark();
    position = r;
    continueIfBlockBefore(position, r, changed);
}

// At the very beginning of a nested block, which dissolves: its start tag goes, and
// its end becomes a line break unless a block boundary follows at once.
//   <fo:block>a<fo:block>|b</fo:block>c</fo:block>
//   -> <fo:block>a|b<fo:block />c</fo:block>
void DeleteBackwardsSteps::dissolveNestedBlock(int &position, int q)
{
    bool changed = false;
    int const r = cutStartBeforeTag(q, changed);
    int const end = doc.getClosingTagForTagAtPosition(q);
    int const afterTag = doc.getNextEditablePositionInXml(q);
    if (end < q || doc.isOnInvalidPosition(r) || afterTag <= r)
        return;
    recordDeletion(end, doc.deleteContentAndAdjustCaret(end, doc.getNextEditablePositionInXml(end)));
    doc.addCaretMark();
    if (!blockBoundaryFollows(end)) {
        doc.insertXmlTextAtPosition(end, kLineBreak);
        recordInsertion(end, kLineBreak);
        doc.addCaretMark();
    }
    recordDeletion(r, doc.deleteContentAndAdjustCaret(r, afterTag));
    doc.addCaretMark();
    position = r;
    continueIfBlockBefore(position, r, changed);
}

// True when only white space stands between `position` and a "fo:block" or
// "/fo:block" tag.
bool DeleteBackwardsSteps::blockBoundaryFollows(int position)
{
    int const tag = doc.getNextTagPosition(position);
    if (tag < 0 || !(tagNameIs(tag, kBlock) || tagNameIs(tag, kBlockClosing)))
        return false;
    for (int i = position; i < tag; ++i) {
        if (!Core::iswspace(doc.content[i]))
            return false;
    }
    return true;
}

// After a nested block was joined or dissolved, a block that stands right before the
// new position is the next to merge.
void DeleteBackwardsSteps::continueIfBlockBefore(int &position, int r, bool changed)
{
    int u = -1;
    if (changed) {
        u = doc.getPreviousTagPosition(r);
    } else {
        u = doc.getPreviousEditablePositionInXml(r);
        if (!doc.onTagStartPosition(u))
            return;
    }
    if (u < 0)
        return;
    if (doc.content[u + 1] == u'/')
        u = doc.getCurrentElementPosition(u); // a closing tag stands for its element
    if (u >= 0 && doc.isBlockEditableElementName(tagNameAt(u)))
        recurse(position);
}

// At the beginning of an inline: the deletion goes on in front of it, an empty inline
// going whole first.
void DeleteBackwardsSteps::outOfInline(int &position, int q)
{
    if (!doc.elementContainsJustWhitespacesOrVoid(q)) {
        position = q;
        recurse(position);
        return;
    }
    int const after = positionAfterElement(q);
    if (after <= q)
        return;
    position = q;
    doc.addCaretMark();
    recordDeletion(q, doc.deleteXmlText(q, after - 1));
    doc.addCaretMark();
    recurse(position);
}

// Behind an inline: its last atom goes, or the whole inline when that atom is all it
// holds.
void DeleteBackwardsSteps::intoInline(int &position, int q)
{
    int const start = doc.getCurrentElementPosition(q);
    if (start < 0)
        return;
    if (!doc.editableElementContainsJustOneMoreChar(start)) {
        position = q;
        recurse(position);
        return;
    }
    int const after = doc.getNextEditablePositionInXml(q);
    if (after <= start)
        return;
    Core::String const removed = doc.deleteXmlText(start, after - 1);
    position = start;
    doc.addCaretMark();
    recordDeletion(start, removed);
}

// At the very beginning of a block that is not nested: its text joins the previous
// block, whose attributes survive; empty blocks between are swallowed.
//   <fo:block>one</fo:block><fo:block>|two</fo:block>  ->  <fo:block>one|two</fo:block>
void DeleteBackwardsSteps::mergeWithPreviousBlock(int &position)
{
    int const p0 = position;
    Core::String name = doc.getPreviousNeighborName(p0);
    int neighbor = doc.getPreviousNeighborPosition(p0);
    while (name == kBlock && neighbor >= 0 &&
           (doc.selfClosingTagAtPosition(neighbor) || doc.elementContainsJustWhitespacesOrVoid(neighbor))) {
        int const closing = doc.getClosingTagForTagAtPosition(neighbor);
        int const previous = closing < 0 ? -1 : doc.getPreviousNeighborPosition(closing);
        if (previous < 0 || previous >= neighbor) {
            name = Core::String();
            break;
        }
        name = doc.getPreviousNeighborName(closing);
        neighbor = previous;
    }
    if (name == kBlock && neighbor >= 0) {
        int join = doc.getClosingTagForTagAtPosition(neighbor);
        if (doc.elementContainsJustNonBreakingSpace(neighbor))
            join = doc.getNonBreakingSpacePosition(neighbor);
        if (join < 0 || join >= p0)
            return;
        Core::String const removed = doc.deleteContentAndAdjustCaret(join, p0);
        position = join;
        doc.addCaretMark();
        recordDeletion(join, removed);
        return;
    }
    if (name == kListBlock) {
        // A list precedes: from the end of its last item, Delete takes this block in.
        doc.addCaretMark();
        doc.moveCaretLeft(false, false, false);
        if (doc.caretIsInsideList()) // a list without text has no item to join
            doc.eraseInList(true, false);
        doc.addCaretMark();
        position = doc.caret;
    }
}

// Any other tag before the caret, chiefly "/fo:table": the object goes whole, with
// the indentation in front of it.
void DeleteBackwardsSteps::deleteObject(int &position)
{
    int const p0 = position;
    int start = doc.getStartTagForTagAtPosition(doc.getPreviousEditablePositionInXml(doc.caret));
    if (doc.isOnInvalidPosition(start) || start >= p0)
        return;
    doc.deleteSpacesBetweenTags(start);
    position = start;
    recordDeletion(start, doc.deleteContentAndAdjustCaret(start, p0));
    doc.addCaretMark();
}

// ---- a plain atom stands before the position ----

void DeleteBackwardsSteps::atAtom(int &position, int element, PhaseRules &rules)
{
    int const p0 = position;
    if (doc.isInlineEditableElementName(tagNameAt(element)) &&
        doc.editableElementContainsJustOneMoreChar(element) &&
        doc.getNextEditablePositionInFo(element, false, false) != p0) {
        // The only atom of an inline goes with the inline.
        int const after = positionAfterElement(element);
        if (after <= element)
            return;
        doc.setCaret(false, element);
        recordDeletion(element, doc.deleteXmlText(element, after - 1));
        doc.addCaretMark();
        position = element;
        return;
    }
    int const previous = doc.getPreviousEditablePositionInFo(p0, false, false);
    if (previous >= 0 && doc.getCurrentElementPosition(previous) == element)
        cutAtomKeepingSpaces(position, previous, rules);
    else
        cutSkippedRun(position, element, rules.of(element));
}

// The atom before the caret goes. A rendered space on either side that would now
// collapse with the other is kept as a non-breaking space.
void DeleteBackwardsSteps::cutAtomKeepingSpaces(int &position, int previous, PhaseRules &rules)
{
    int const p0 = position;
    doc.setCaret(false, p0);
    int start = previous;
    int end = p0;

    int const atomBeforeStart = doc.getPreviousEditablePositionInXml(start);
    int const beforeElement = doc.getCurrentElementPosition(atomBeforeStart);
    int const v = stepBackOverSkippedIn(atomBeforeStart, beforeElement, rules.of(beforeElement));
    bool const before = isRenderedPlainSpace(v, rules.of(beforeElement));
    if (before) {
        start = v;
        // A step back over a comment or CDATA section crosses the tag in front of it
        // too, and may leave the element: the cut then must not follow it out.
        int const atomBeforeV = doc.getPreviousEditablePositionInXml(v);
        int x = atomBeforeV;
        doc.skipSpacesBackwards(x, false);
        if (!doc.isOnInvalidPosition(x) && x != atomBeforeV &&
            doc.getCurrentElementPosition(atomBeforeV) == beforeElement)
            start = x;
    }

    int const endElement = doc.getCurrentElementPosition(p0);
    int const forward = stepForwardOverSkippedIn(p0, endElement, rules.of(endElement));
    bool const after = isRenderedPlainSpace(forward, rules.of(endElement));
    if (after) {
        end = doc.getNextEditablePositionInXml(forward);
        doc.skipSpacesFromPos(end, false);
    }

    Core::String const removed = doc.deleteContentAndAdjustCaret(start, end);
    if (removed.empty())
        return;
    position = start;
    recordDeletion(start, removed);
    doc.addCaretMark();
    if (before) {
        insertRecorded(start, kRawPlaceholder);
        doc.addCaretMark();
        position = doc.getNextEditablePositionInXml(start);
    }
    if (after) {
        insertRecorded(start, kRawPlaceholder);
        doc.addCaretMark();
        position = start;
    }
}

// The previous caret stop lies in another element: the skipped atoms between the
// edge of the element and the caret go; when they reach the edge the deletion goes
// on from there.
void DeleteBackwardsSteps::cutSkippedRun(int &position, int element, BufferAlgorithms::WhitespaceAlg &rules)
{
    int const p0 = position;
    int q = p0;
    bool left = false;
    for (;;) {
        int const previous = doc.getPreviousEditablePositionInXml(q);
        if (doc.isOnInvalidPosition(previous) || previous >= q)
            break;
        if (doc.getCurrentElementPosition(previous) != element) {
            left = true;
            break;
        }
        if (!rules.isPositionSkipped(previous))
            break;
        q = previous;
    }
    if (q >= p0)
        return; // nothing to cut, and nothing to go on from
    bool const startWasSkipped = rules.isPositionSkipped(q);
    recordDeletion(q, doc.deleteContentAndAdjustCaret(q, p0));
    doc.addCaretMark();
    position = q;
    if (left && startWasSkipped)
        recurse(position);
}
