// Finding the parts of a list by position. Items are walked as siblings, from one
// closing tag to the next start tag, so a walk costs what lies between two items and
// a list nested in an item is passed over whole.
#include "structures/ListEditing.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/WhiteSpace.h"

namespace {

const Core::String kListBlock("fo:list-block");
const Core::String kListItem("fo:list-item");
const Core::String kLabel("fo:list-item-label");
const Core::String kBody("fo:list-item-body");
const Core::String kBlock("fo:block");

} // namespace

int ListEditing::getListPos(int position) const
{
    if (position < 0)
        return -1;
    return doc.searchParent(kListBlock, position, false, true, "");
}

int ListEditing::getItemPos(int position) const
{
    if (position < 0)
        return -1;
    return doc.searchParent(kListItem, position, false, true, "");
}

int ListEditing::positionAfterStartTag(int element) const
{
    if (!doc.onTagStartPosition(element))
        return -1;
    return doc.getNextEditablePositionInXml(element);
}

int ListEditing::positionAfterElement(int element) const
{
    int closing = doc.getClosingTagForTagAtPosition(element);
    if (closing < 0)
        return -1;
    return doc.getNextEditablePositionInXml(closing);
}

// The first element called `name` among the children from the tag at or after `from`
// on; -1 at the closing tag of the parent. Children of another name are stepped over
// whole, so the walk costs what lies in front of the child found.
int ListEditing::nextChildNamed(Core::String const &name, int from) const
{
    for (int t = from; t != -1;) {
        t = doc.getNextTagPosition(t);
        if (t == -1 || doc.content[t + 1] == u'/')
            return -1; // the end of the parent
        if (doc.tagNameEquals(t, name))
            return t;
        t = positionAfterElement(t);
    }
    return -1;
}

// The next sibling element of the item that is an item.
int ListEditing::getNextItemPos(int itemPosition) const
{
    if (!doc.tagNameEquals(itemPosition, kListItem))
        return -1;
    return nextChildNamed(kListItem, positionAfterElement(itemPosition));
}

// The previous sibling element of the item that is an item; -1 at the start of the list.
int ListEditing::getPreviousItemPos(int itemPosition) const
{
    if (!doc.tagNameEquals(itemPosition, kListItem))
        return -1;
    for (int t = itemPosition;;) {
        // The neighbour of an element is asked from inside it, of a self-closing tag at it.
        int from = doc.selfClosingTagAtPosition(t) ? t : doc.getNextEditablePositionInXml(t);
        int previous = from == -1 ? -1 : doc.getPreviousNeighborPosition(from);
        if (previous < 0 || previous >= t)
            return -1;
        if (doc.tagNameEquals(previous, kListItem))
            return previous;
        t = previous; // something else between the items: look in front of it
    }
}

int ListEditing::getFirstItemPos(int listPosition) const
{
    if (listPosition < 0)
        return -1;
    return nextChildNamed(kListItem, positionAfterStartTag(listPosition));
}

int ListEditing::getNthItemPos(int listPosition, int count) const
{
    int item = getFirstItemPos(listPosition);
    for (int i = 1; i < count && item != -1; ++i)
        item = getNextItemPos(item);
    return count < 1 ? -1 : item;
}

int ListEditing::getItemLabelPos(int itemPosition) const
{
    if (itemPosition < 0)
        return -1;
    return nextChildNamed(kLabel, positionAfterStartTag(itemPosition));
}

int ListEditing::getItemBodyPos(int itemPosition) const
{
    if (itemPosition < 0)
        return -1;
    return nextChildNamed(kBody, positionAfterStartTag(itemPosition));
}

int ListEditing::getFirstBlockInElement(int elementPosition) const
{
    int end = doc.getClosingTagForTagAtPosition(elementPosition);
    if (end <= elementPosition)
        return -1;
    for (int t = doc.getNextElementPosition(elementPosition); t != -1 && t < end;
         t = doc.getNextElementPosition(t)) {
        if (doc.tagNameEquals(t, kBlock))
            return t;
    }
    return -1;
}

// Blocks are stepped by their closing tags, so a block nested in the last one, or a
// block inside a table that follows, is not taken for the last block.
int ListEditing::getLastBlockInElement(int elementPosition) const
{
    int last = getFirstBlockInElement(elementPosition);
    int end = doc.getClosingTagForTagAtPosition(elementPosition);
    for (int t = last; t != -1;) {
        int closing = doc.getClosingTagForTagAtPosition(t);
        if (closing < 0)
            break;
        t = doc.getNextElementPosition(closing);
        if (t == -1 || t >= end)
            break;
        if (doc.tagNameEquals(t, kBlock) && !doc.selfClosingTagAtPosition(t))
            last = t;
    }
    return last;
}

int ListEditing::getListItemNumber(int position) const
{
    int count = 0;
    for (int item = getFirstItemPos(getListPos(position)); item != -1 && item < position;
         item = getNextItemPos(item))
        ++count;
    return count;
}

int ListEditing::getCurrentListSize() const
{
    int size = 0;
    for (int item = getFirstItemPos(getListPos(doc.caret)); item != -1; item = getNextItemPos(item)) {
        if (getItemLabelPos(item) != -1)
            ++size;
    }
    return size;
}

// Caret, list, item and current element for Enter and the erase keys; false when the
// caret stands in no item of a list.
bool ListEditing::readItemAtCaret(ItemAtCaret &at) const
{
    if (doc.isOnInvalidPosition(doc.caret))
        return false;
    at.list = getListPos(doc.caret);
    at.item = getItemPos(doc.caret);
    if (at.list == -1 || at.item <= at.list)
        return false; // no item, or only the item of an outer list
    at.listEnd = doc.getClosingTagForTagAtPosition(at.list);
    at.itemEnd = doc.getClosingTagForTagAtPosition(at.item);
    at.element = doc.getCurrentElementNameAndPos(doc.caret, at.elementName);
    return at.listEnd > at.itemEnd && at.itemEnd > at.item && at.element != -1;
}
