// Deleting a selection inside a list, item by item. An item that the selection covers
// from its first caret position on and beyond its last goes whole; in any other item
// the selected part is deleted as any selection is. The items that stay are numbered
// afresh:
//
//     1) list 1              1) list 1
//     2) ^list 2      ->     2) |3
//     3) list |3
#include "structures/ListEditing.h"

#include "editing/EditableDocumentBuffer.h"

int ListEditing::eraseListSelection()
{
    int start = doc.getSelectionStartIndex();
    int end = doc.getSelectionEndIndex() + 1;
    return eraseListSelection(start, end);
}

int ListEditing::eraseListSelection(int &start, int &end)
{
    int const list = getListPos(start);
    int listEnd = doc.getClosingTagForTagAtPosition(list);
    if (list == -1 || listEnd == -1)
        return -1;
    SelectionEnd remembered = rememberSelectionEnd(list, listEnd, end);
    // Each round cuts an item, which shortens the string, or moves `start` forward, so
    // the walk ends; the bound only stops it on markup the scanners misread.
    for (int round = 0, limit = doc.content.length() + 1; round < limit; ++round) {
        int item = getItemPos(start);
        if (item == -1 || getListPos(start) != list)
            break;
        int itemEnd = doc.getClosingTagForTagAtPosition(item);
        int itemBehind = doc.getNextEditablePositionInXml(itemEnd);
        if (itemEnd == -1 || itemBehind == -1)
            break;
        int first = doc.getNextEditablePositionInFo(item, false, false);
        int last = doc.getPreviousEditablePositionInFo(itemBehind, false, false);
        bool endsHere = end < itemEnd;
        int goOnFrom = item; // a cut item leaves the next one where it stood
        if (first != start || end <= last) {
            if (!erasePartOfItem(list, remembered, start, end, last, goOnFrom))
                break;
        } else {
            eraseWholeItem(item, itemBehind, last, endsHere, end, remembered);
        }
        if (endsHere) {
            end = start;
            break;
        }
        start = goOnFrom == -1 ? -1 : doc.getNextEditablePositionInFo(goOnFrom, false, false);
        if (start == -1)
            break;
    }
    if (!doc.tagNameEquals(list, "fo:list-block"))
        return -1;
    int firstItem = getFirstItemPos(list);
    if (firstItem != -1 && getListTypeOf(list) == NumberedList)
        recalculateNumbering(firstItem);
    return positionAfterElement(list);
}

// The selected part of an item that stays, deleted as any selection is. False when the
// walk ends here: nothing is selected, the list is lost, or the walk would not move on.
bool ListEditing::erasePartOfItem(int list, SelectionEnd const &remembered, int start, int &end, int last,
                                  int &goOnFrom)
{
    if (!selectPartOfItem(start, end, last))
        return false;
    doc.deleteSelection(true);
    if (!doc.tagNameEquals(list, "fo:list-block"))
        return false;
    end = recomputeSelectionEnd(list, remembered);
    goOnFrom = doc.getClosingTagForTagAtPosition(getItemPos(doc.caret));
    return goOnFrom > start;
}

void ListEditing::eraseWholeItem(int item, int itemBehind, int last, bool endsHere, int &end,
                                 SelectionEnd &remembered)
{
    Core::String removed = deleteRecorded(item, itemBehind - 1);
    end -= endsHere ? last - item : removed.length();
    if (remembered.item > 0)
        --remembered.item;
    doc.addCaretMark();
    if (endsHere) {
        int next = doc.getNextEditablePositionInFo(end, false, false);
        if (next != -1)
            doc.setCaret(false, next);
    }
}

// Where the selection ends, told by something the deletions leave in place: the item
// and the distance into it, or the distance behind the list.
ListEditing::SelectionEnd ListEditing::rememberSelectionEnd(int list, int listEnd, int end) const
{
    SelectionEnd remembered;
    if (end >= listEnd) {
        remembered.tailOffset = end - doc.getNextEditablePositionInXml(listEnd);
        return remembered;
    }
    remembered.inList = true;
    remembered.item = getListItemNumber(end);
    int item = getNthItemPos(list, remembered.item);
    remembered.itemOffset = end - (item == -1 ? list : item);
    return remembered;
}

int ListEditing::recomputeSelectionEnd(int list, SelectionEnd const &remembered) const
{
    if (!remembered.inList)
        return positionAfterElement(list) + remembered.tailOffset;
    int item = getNthItemPos(list, remembered.item);
    return (item == -1 ? list : item) + remembered.itemOffset;
}

// Selects from `start` to `end`, or to the item's `last` position when the selection
// goes on behind it. False when nothing is selected.
bool ListEditing::selectPartOfItem(int start, int end, int last)
{
    int pivot = start;
    if (end < last)
        pivot = end;
    else if (doc.canHoldCaret(last))
        pivot = last;
    doc.setCaret(false, pivot);
    doc.setCaret(true, start);
    doc.addCaretMark();
    return doc.hasSelectedText();
}

// An item can be deleted on its own when its list keeps another item.
bool ListEditing::canDeleteListItem(Core::String const &path)
{
    int item = path.empty() ? getItemPos(doc.caret) : doc.getElementPositionFromPath(path);
    if (item == -1 || !doc.tagNameEquals(item, "fo:list-item"))
        return false;
    return getPreviousItemPos(item) != -1 || getNextItemPos(item) != -1;
}
