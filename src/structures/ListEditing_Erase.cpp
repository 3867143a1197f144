// Delete and Backspace in a list. Inside an item's text both keys are ordinary
// deletions; at the edges of an item they join items, the way a word processor does:
//
//     1) ab              1) ab|cd          Backspace at the start of an item joins it
//     2) |cd      ->     2) ef             to the item before (Delete at the end of an
//     3) ef                                item joins the next one to it)
//
//     1) |ab             ab                Backspace at the start of the first item
//     2) cd       ->     1) cd             moves its text out in front of the list
//
// and Backspace or Delete in the empty only item removes the list.
#include "structures/ListEditing.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/FreezeNotifications.h"
#include "support/WhiteSpace.h"

void ListEditing::eraseTextFromListBuffer(bool forward, bool wholeWord)
{
    doc.endKeyTypingSequence();
    FreezeNotifications freeze(&doc);
    EditActionGroup group(&doc);
    ErasePlace place;
    place.type = getListType();
    bool inItem = readItemAtCaret(place.at);
    if (inItem) {
        place.body = getItemBodyPos(place.at.item);
        place.firstBlock = getFirstBlockInElement(place.body);
        place.lastBlock = getLastBlockInElement(place.body);
    }
    if (inItem && onlyItemIsEmpty(place)) {
        removeList();
        return;
    }
    if (doc.hasSelectedText()) {
        eraseListSelection();
        return;
    }
    if (!inItem || place.firstBlock == -1) {
        doc.eraseTextFromBuffer(forward, wholeWord, true);
        return;
    }
    if (forward)
        deleteInItem(place, wholeWord);
    else
        backspaceInItem(place, wholeWord);
}

// The list's only item holds nothing but a placeholder, in one block or none.
bool ListEditing::onlyItemIsEmpty(ErasePlace const &place) const
{
    return doc.elementContainsJustNonBreakingSpace(place.at.element) && place.firstBlock == place.lastBlock &&
           getCurrentListSize() == 1;
}

void ListEditing::backspaceInItem(ErasePlace const &place, bool wholeWord)
{
    bool atItemStart = doc.elementIsEditable(place.at.elementName) &&
                       doc.getNextEditablePositionInFo(place.firstBlock, false, false) == doc.caret;
    if (!atItemStart) {
        doc.eraseTextFromBuffer(false, wholeWord, true);
        return;
    }
    if (getCurrentListSize() == 1) {
        makeList(place.type); // the list's own type: the list goes
        return;
    }
    int previous = getPreviousItemPos(place.at.item);
    if (previous != -1)
        joinPreviousItem(place, previous);
    else
        moveFirstItemOutOfList(place);
}

// The item's text joins the last block of the previous item; its further blocks follow
// it into that item's body.
void ListEditing::joinPreviousItem(ErasePlace const &place, int previousItem)
{
    int previousLast = getLastBlockInElement(getItemBodyPos(previousItem));
    int join = doc.getClosingTagForTagAtPosition(previousLast);
    // From inside an inline at the item's start only the tags in front of it go.
    int resume = place.at.element == place.firstBlock
                     ? doc.getNextEditablePositionInFo(place.firstBlock, false, false)
                     : positionAfterStartTag(place.firstBlock);
    if (previousLast == -1 || join <= previousLast || resume <= join)
        return;
    doc.addCaretMark();
    deleteRecorded(join, resume - 1);
    doc.addCaretMark();
    if (place.type == NumberedList)
        recalculateNumbering(getItemPos(doc.caret));
}

// The first item's blocks come out in front of the list, and the list opens again
// behind them:
//     <fo:list-block><fo:list-item>...<fo:block>|ab</fo:block>...</fo:list-item><fo:list-item>
//  -> <fo:block>|ab</fo:block><fo:list-block><fo:list-item>
void ListEditing::moveFirstItemOutOfList(ErasePlace const &place)
{
    int const list = place.at.list;
    int next = getNextItemPos(place.at.item);
    int after = positionAfterElement(place.lastBlock);
    if (next == -1 || after == -1 || after > next)
        return;
    Core::String head = doc.content.subString(list, place.at.item - 1);
    doc.addCaretMark();
    Core::String front = deleteRecorded(list, place.firstBlock - 1);
    doc.addCaretMark();
    after -= front.length();
    next -= front.length();
    Core::String tail = deleteRecorded(after, next - 1);
    doc.addCaretMark();
    next -= tail.length();
    insertRecorded(next, head);
    doc.addCaretMark();
    if (place.type == NumberedList) {
        int first = next + head.length();
        setItemLabelValue(getItemLabelPos(first), getFirstListLabel(NumberedList));
        recalculateNumbering(first);
    }
}

void ListEditing::deleteInItem(ErasePlace const &place, bool wholeWord)
{
    int end = doc.getClosingTagForTagAtPosition(place.lastBlock);
    int endBehind = doc.getNextEditablePositionInXml(end);
    int last = endBehind == -1 ? -1 : doc.getPreviousEditablePositionInFo(endBehind, false, false);
    if (!doc.elementIsEditable(place.at.elementName)) {
        doc.eraseTextFromBuffer(true, wholeWord, true);
        return;
    }
    // Before the placeholder of an empty last block counts as its end.
    bool atItemEnd = doc.caret == last || (doc.nbspFollowedByWspaceAndElementCloseTagAt(doc.caret) &&
                                           place.at.element == place.lastBlock);
    if (!atItemEnd || end <= place.lastBlock) {
        doc.eraseTextFromBuffer(true, wholeWord, true);
        return;
    }
    int next = getNextItemPos(place.at.item);
    if (next != -1)
        joinNextItem(place, end, next);
    else
        takeInBlockBehindList(place, end);
}

// Everything from the end of this item's last block through the start tag of the next
// item's first block goes: the next item's text continues this block.
void ListEditing::joinNextItem(ErasePlace const &place, int end, int nextItem)
{
    int resume = positionAfterStartTag(getFirstBlockInElement(getItemBodyPos(nextItem)));
    if (resume <= end)
        return;
    doc.addCaretMark();
    deleteRecorded(end, resume - 1);
    doc.addCaretMark();
    if (place.type == NumberedList)
        recalculateNumbering(place.at.item);
}

// When the block's first stop lies inside an inline (or a nested block), the cut must
// end in front of that element's start tag, not behind it: cutting the start tag alone
// would leave its closing tag without a partner.
int ListEditing::outermostStartInside(int block, int position) const
{
    int start = position;
    for (int e = doc.getCurrentElementPosition(position); e != -1 && e > block;
         e = doc.getCurrentElementPosition(e))
        start = e;
    return start;
}

// At the end of the last item, a block right behind the list gives its text to the
// item; the list's closing tags move behind that text.
void ListEditing::takeInBlockBehindList(ErasePlace const &place, int end)
{
    int w = doc.getNextEditablePositionInXml(place.at.listEnd);
    while (w != -1 && Core::isPlainWhiteSpace(doc.content[w]))
        ++w;
    if (w == -1 || !doc.onTagStartPosition(w) || doc.ignoredElementAtPosition(w))
        return; // text, a comment, CDATA or a processing instruction follows the list
    if (!doc.tagNameEquals(w, "fo:block") || doc.selfClosingTagAtPosition(w))
        return;
    int wEnd = positionAfterElement(w);
    int wFirst = doc.getNextEditablePositionInFo(w, false, false);
    if (wEnd == -1 || wFirst == -1 || wFirst >= wEnd)
        return;
    wFirst = outermostStartInside(w, wFirst);
    Core::String tags = doc.stringArrayToReverseTagString(
        doc.getClosingTagsBetweenPositions(place.at.list, doc.getNextEditablePositionInXml(end)));
    doc.addCaretMark();
    Core::String removed = deleteRecorded(end, wFirst - 1);
    doc.addCaretMark();
    insertRecorded(wEnd - removed.length(), tags);
    doc.addCaretMark();
}
