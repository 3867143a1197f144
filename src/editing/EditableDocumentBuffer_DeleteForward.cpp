// The Delete key: one forward deletion at a position, decided by what stands there.
//
//   a tag          -> line breaks and objects go whole, blocks merge, nested blocks
//                     dissolve, inlines are entered or left
//   a placeholder  -> the emptied block merges with the next one
//   any other atom -> the atom goes, and spaces that would collapse are kept
#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"
#include "editing/DeletionConstants.h"
#include "editing/DeletionSteps.h"
#include "support/WhiteSpace.h"

using namespace DeletionConstants;

// One forward deletion. `position` comes in as the caret's place and goes out as the
// place the caret belongs; `p` is the working position past what the rendering skips.
// Each recursion crosses an element that the level before emptied or cut.
class DeleteForwardSteps : public DeletionSteps {
public:
    DeleteForwardSteps(EditableDocumentBuffer &document, int recursionDepth)
        : DeletionSteps(document), depth(recursionDepth)
    {
    }

    void run(int &position);

private:
    int skipOverSkipped(int position, PhaseRules &rules);
    void recurse(int &position) { DeleteForwardSteps(doc, depth + 1).run(position); }

    // a tag at p
    void atTag(int &position, int p);
    void joinFollowingTextToNestedBlock(int &position, int p);
    void dissolveNestedBlock(int &position, int p);
    void continueIntoBlockAt(int p);
    void intoInline(int &position, int p);
    void outOfInline(int &position, int p);
    bool mergeFollowingBlock(int &position, int p);
    void deleteObject(int &position, int p);
    // a placeholder at p
    bool atPlaceholder(int &position, int p);
    // any other atom at p
    void atAtom(int &position, int p, PhaseRules &rules);
    void cutSkippedRun(int &position, int p, int element, BufferAlgorithms::WhitespaceAlg &rules);
    void cutAtomKeepingSpaces(int &position, int p, int next, int element,
                              BufferAlgorithms::WhitespaceAlg &rules);

    int depth;
};

void EditableDocumentBuffer::deleteForward(int &position)
{
    DeleteForwardSteps(*this, 0).run(position);
}

void DeleteForwardSteps::run(int &position)
{
    if (depth > kMaxDeletionDepth || doc.isOnInvalidPosition(doc.caret) ||
        doc.isOnInvalidPosition(doc.caret + 1) || doc.isOnInvalidPosition(position))
        return;
    PhaseRules rules(doc);
    int const p = skipOverSkipped(position, rules);
    char16_t const c = doc.content[p];
    if (c == u'<') {
        atTag(position, p);
        return;
    }
    if ((c == u'&' || c == Core::kNoBreakSpace) && atPlaceholder(position, p))
        return;
    atAtom(position, p, rules);
}

// Positions the rendering swallows are passed over, within the element of `position`.
int DeleteForwardSteps::skipOverSkipped(int position, PhaseRules &phaseRules)
{
    int const element = doc.getCurrentElementPosition(position);
    BufferAlgorithms::WhitespaceAlg &rules = phaseRules.of(element);
    int p = position;
    while (rules.isPositionSkipped(p)) {
        int const next = doc.getNextEditablePositionInXml(p);
        if (doc.isOnInvalidPosition(next) || next <= p || doc.getCurrentElementPosition(next) != element)
            break;
        p = next;
    }
    return p;
}

// ---- a tag stands at p ----

void DeleteForwardSteps::atTag(int &position, int p)
{
    if (doc.ignoredElementAtPosition(p) || doc.selfClosingTagAtPosition(p)) {
        // A line break, an empty object, a comment: the atom goes.
        Core::String const removed =
            doc.deleteContentAndAdjustCaret(position, doc.getNextEditablePositionInXml(p));
        doc.addCaretMark();
        recordDeletion(position, removed);
        return;
    }
    Core::String const tag = tagNameAt(p);
    if (tag == kBlockClosing && doc.imbricatedBlocksContext(doc.getCurrentElementPosition(p)))
        joinFollowingTextToNestedBlock(position, p);
    else if (doc.imbricatedBlocksContext(p))
        dissolveNestedBlock(position, p);
    else if (doc.isInlineEditableElementName(tag))
        intoInline(position, p);
    else if (doc.isInlineEditableElementClosingTagName(tag))
        outOfInline(position, p);
    else if (tag != kBlockClosing || !mergeFollowingBlock(position, p))
        deleteObject(position, p);
}

// The end of a nested block: the text behind it moves inside.
//   <fo:block>a<fo:block>b|</fo:block>c</fo:block>
//   -> <fo:block>a<fo:block>b|c</fo:block></fo:block>
void DeleteForwardSteps::joinFollowingTextToNestedBlock(int &position, int p)
{
    int q = doc.getNextEditablePositionInXml(p);
    if (doc.isOnInvalidPosition(q))
        return;
    doc.skipSpacesFromPos(q, false);
    int const outer = doc.getCurrentElementPosition(q);
    int const outerEnd = outer < 0 ? -1 : doc.getClosingTagForTagAtPosition(outer);
    if (outerEnd < q)
        return;
    doc.insertXmlTextAtPosition(outerEnd, kBlockEndTag);
    recordInsertion(outerEnd, kBlockEndTag);
    doc.addCaretMark();
    recordDeletion(p, doc.deleteXmlText(p, q - 1));
    doc.addCaretMark();
    position = p;
    continueIntoBlockAt(p);
}

// A nested block starts at p. With content it dissolves into its parent and its end
// becomes a line break; an empty one goes whole.
//   aaa|<fo:block>ccc</fo:block>bbb  ->  aaa|ccc<fo:block/>bbb
void DeleteForwardSteps::dissolveNestedBlock(int &position, int p)
{
    if (doc.elementContainsJustWhitespacesOrVoid(p)) {
        int const after = positionAfterElement(p);
        if (after <= p)
            return;
        position = p;
        Core::String const removed = doc.deleteXmlText(p, after - 1);
        doc.addCaretMark();
        recordDeletion(position, removed);
        recurse(position);
        return;
    }
    int q = doc.getNextEditablePositionInXml(p);
    int const end = doc.getClosingTagForTagAtPosition(p);
    if (doc.isOnInvalidPosition(q) || end < q)
        return;
    doc.skipSpacesFromPos(q, false);
    if (q > end)
        return;
    recordDeletion(end, doc.deleteContentAndAdjustCaret(end, doc.getNextEditablePositionInXml(end)));
    doc.addCaretMark();
    // The record names "</fo:block>", of the same length as the line break: undo
    // removes the right number of units, and a redo writes that literal back.
    doc.insertXmlTextAtPosition(end, kCompactLineBreak);
    recordInsertion(end, kBlockEndTag);
    doc.addCaretMark();
    recordDeletion(p, doc.deleteContentAndAdjustCaret(p, q));
    doc.addCaretMark();
    position = p;
    continueIntoBlockAt(p);
}

// After a join or a dissolution a block may start where the caret is; it is the next
// thing to go.
void DeleteForwardSteps::continueIntoBlockAt(int p)
{
    if (!doc.onTagStartPosition(p) || !doc.isBlockEditableElementName(tagNameAt(p)))
        return;
    int local = p;
    recurse(local);
}

// An inline starts at p: its first atom goes, or the inline itself when that atom is
// all it holds.
void DeleteForwardSteps::intoInline(int &position, int p)
{
    if (!doc.editableElementContainsJustOneMoreChar(p)) {
        int inside = doc.getNextEditablePositionInXml(p);
        recurse(inside);
        return;
    }
    int const after = positionAfterElement(p);
    if (after <= position)
        return;
    Core::String const removed = doc.deleteXmlText(position, after - 1);
    doc.addCaretMark();
    recordDeletion(position, removed);
}

// An inline ends at p: the deletion goes on behind it, or an empty inline goes whole.
void DeleteForwardSteps::outOfInline(int &position, int p)
{
    int const element = doc.getCurrentElementPosition(p);
    int const after = doc.getNextEditablePositionInXml(p);
    if (element < 0 || after <= element)
        return;
    if (!doc.elementContainsJustWhitespacesOrVoid(element)) {
        int behind = after;
        recurse(behind);
        return;
    }
    position = element;
    Core::String const removed = doc.deleteXmlText(element, after - 1);
    doc.addCaretMark();
    recordDeletion(position, removed);
    recurse(position);
}

// The end of a block that is not nested: the next block's text joins this one under
// this block's start tag, and empty blocks between are swallowed. True when handled.
//   <fo:block>one|</fo:block><fo:block/><fo:block>two</fo:block>
//   -> <fo:block>one|two</fo:block>
bool DeleteForwardSteps::mergeFollowingBlock(int &position, int p)
{
    Core::String name = doc.getNextNeighborName(p);
    int neighbor = doc.getNextNeighborPosition(p);
    while (name == kBlock && neighbor >= 0 &&
           (doc.selfClosingTagAtPosition(neighbor) || doc.elementContainsJustWhitespacesOrVoid(neighbor))) {
        int const closing = doc.getClosingTagForTagAtPosition(neighbor);
        int const following = closing < 0 ? -1 : doc.getNextNeighborPosition(closing);
        if (following <= neighbor) {
            name = Core::String();
            break;
        }
        name = doc.getNextNeighborName(closing);
        neighbor = following;
    }
    if (name == kBlock && neighbor >= 0) {
        int q = doc.getNextEditablePositionInXml(neighbor);
        if (doc.elementContainsJustNonBreakingSpace(neighbor))
            q = doc.getNextEditablePositionInXml(doc.getNonBreakingSpacePosition(neighbor));
        if (doc.isOnInvalidPosition(q))
            return true;
        doc.skipSpacesFromPos(q, false);
        Core::String const removed = doc.deleteContentAndAdjustCaret(position, q);
        doc.addCaretMark();
        recordDeletion(position, removed);
        return true;
    }
    if (name == kListBlock) {
        // A list follows: Backspace in its first item moves the item out in front of
        // the list, and a second Backspace joins it to this block.
        doc.addCaretMark();
        doc.moveCaretRight(false, false, false);
        if (doc.caretIsInsideList()) { // a list without text has no item to move
            doc.eraseInList(false, false);
            doc.erase(false, false);
        }
        doc.addCaretMark();
        return true;
    }
    return false;
}

// Any other tag: an object that starts here goes whole. A closing tag has no closing
// tag of its own, so at the end of a last block or of a cell nothing happens.
void DeleteForwardSteps::deleteObject(int &position, int p)
{
    int const end = doc.getClosingTagForTagAtPosition(p);
    if (end < 0)
        return;
    Core::String const removed =
        doc.deleteContentAndAdjustCaret(position, doc.getNextEditablePositionInXml(end));
    doc.addCaretMark();
    recordDeletion(position, removed);
}

// ---- a placeholder stands at p; false leaves it to the plain-atom case ----

bool DeleteForwardSteps::atPlaceholder(int &position, int p)
{
    Core::String name;
    int const element = doc.getCurrentElementNameAndPos(p, name);
    if (element < 0)
        return false;
    int const closing = doc.getClosingTagForTagAtPosition(element);
    if (doc.elementContainsJustNonBreakingSpace(element)) {
        if (closing < 0)
            return true;
        if (doc.isInlineEditableElementName(name)) {
            int const after = doc.getNextEditablePositionInXml(closing);
            if (after <= element)
                return true;
            position = element;
            Core::String const removed = doc.deleteXmlText(element, after - 1);
            doc.addCaretMark();
            recordDeletion(position, removed);
            return true;
        }
        // The block empties and the deletion goes on at its end, which merges the
        // block that follows.
        position = doc.getNextEditablePositionInXml(element);
        Core::String const removed = doc.deleteContentAndAdjustCaret(position, closing);
        doc.addCaretMark();
        recordDeletion(position, removed);
        recurse(position);
        return true;
    }
    if (doc.nbspFollowedByWspaceAndElementCloseTagAt(p)) {
        // A trailing placeholder goes with the white space behind it.
        Core::String const removed = doc.deleteContentAndAdjustCaret(position, closing);
        doc.addCaretMark();
        recordDeletion(position, removed);
        return true;
    }
    return false;
}

// ---- any other atom stands at p ----

void DeleteForwardSteps::atAtom(int &position, int p, PhaseRules &rules)
{
    Core::String name;
    int const element = doc.getCurrentElementNameAndPos(p, name);
    if (element < 0)
        return;
    if (doc.isInlineEditableElementName(name) && doc.editableElementContainsJustOneMoreChar(element)) {
        // The last atom of an inline goes with the inline.
        int const after = positionAfterElement(element);
        if (after <= element)
            return;
        Core::String const removed = doc.deleteXmlText(element, after - 1);
        position = element;
        doc.addCaretMark();
        recordDeletion(element, removed);
        return;
    }
    int const next = doc.getNextEditablePositionInFo(p, false, false);
    if (doc.isOnInvalidPosition(next))
        return;
    if (doc.getCurrentElementPosition(next) != element)
        cutSkippedRun(position, p, element, rules.of(element));
    else
        cutAtomKeepingSpaces(position, p, next, element, rules.of(element));
}

// The next caret stop lies in another element: the skipped atoms up to the edge of
// the element go with the atom at p, and the deletion goes on at that edge.
void DeleteForwardSteps::cutSkippedRun(int &position, int p, int element,
                                       BufferAlgorithms::WhitespaceAlg &rules)
{
    int q = p;
    bool left = false;
    for (;;) {
        int const next = doc.getNextEditablePositionInXml(q);
        if (doc.isOnInvalidPosition(next) || next <= q)
            break;
        if (doc.getCurrentElementPosition(next) != element) {
            left = true;
            break;
        }
        if (!rules.isPositionSkipped(next))
            break;
        q = next;
    }
    if (q <= p)
        return; // nothing to cut, and nothing to go on from
    bool const endWasSkipped = rules.isPositionSkipped(q);
    recordDeletion(p, doc.deleteContentAndAdjustCaret(p, q));
    doc.addCaretMark();
    if (left && endWasSkipped)
        recurse(position);
}

// One atom goes. Its removal can bring two white-space runs together, which would
// render as one; a space on either side is then kept as a non-breaking space:
//   "x |c y"  ->  "x\u00A0|\u00A0y"
void DeleteForwardSteps::cutAtomKeepingSpaces(int &position, int p, int next, int element,
                                              BufferAlgorithms::WhitespaceAlg &rules)
{
    int end = next;
    bool const after = isRenderedPlainSpace(end, rules);
    if (after)
        end = stepForwardOverSkippedIn(doc.getNextEditablePositionInXml(end), element, rules);
    int const atomBefore = stepBackOverSkippedIn(doc.getPreviousEditablePositionInXml(p), element, rules);
    bool const before = isRenderedPlainSpace(atomBefore, rules);
    if (before)
        position = atomBefore;
    Core::String const removed = doc.deleteContentAndAdjustCaret(position, end);
    if (removed.empty())
        return;
    doc.addCaretMark();
    recordDeletion(position, removed);
    if (after) {
        insertRecorded(position, kRawPlaceholder);
        doc.addCaretMark();
    }
    if (before) {
        insertRecorded(position, kRawPlaceholder);
        doc.addCaretMark();
        position = doc.getNextEditablePositionInXml(position);
    }
}
