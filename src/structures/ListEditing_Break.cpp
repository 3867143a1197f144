// Enter in a list. In an item that holds text the item splits at the caret, and the
// rest of the list is rewritten in one piece, so that one deletion and one insertion
// do the split and the renumbering of every item behind it:
//
//     1) ab|cd           1) ab
//     2) ef      ->      2) |cd
//                        3) ef
//
// In an empty item Enter leaves the list: the item goes, and an empty paragraph
// follows the list.
#include "structures/ListEditing.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/FreezeNotifications.h"
#include "support/Format.h"
#include "support/PropertyCollection.h"
#include "support/WhiteSpace.h"

namespace {

const Core::String kPlaceholder("&#x00A0;");
const Core::String kEmptyParagraph("<fo:block>&#x00A0;</fo:block>");
const Core::String kBlock("fo:block");

Core::String numberedLabel(int number)
{
    return Core::Format::format("{0})", number);
}

} // namespace

void ListEditing::breakList()
{
    doc.endKeyTypingSequence();
    ItemAtCaret at;
    if (!readItemAtCaret(at))
        return;
    FreezeNotifications freeze(&doc);
    EditActionGroup group(&doc);
    if (doc.elementContainsJustNonBreakingSpace(at.element))
        leaveListFromEmptyItem(at);
    else
        splitItem(at);
}

// The empty item goes; the only item takes the list with it. The new paragraph stands
// behind the list, inside the block around it, wherever the item stood.
void ListEditing::leaveListFromEmptyItem(ItemAtCaret const &at)
{
    int previous = getPreviousItemPos(at.item);
    int next = getNextItemPos(at.item);
    ListType type = getListTypeOf(at.list);
    int after = doc.getNextEditablePositionInXml(at.listEnd);
    int itemBehind = doc.getNextEditablePositionInXml(at.itemEnd);
    if (after == -1 || itemBehind == -1)
        return;
    bool onlyItem = previous == -1 && next == -1;
    int cutFrom = onlyItem ? at.list : at.item;
    doc.addCaretMark();
    Core::String removed = deleteRecorded(cutFrom, (onlyItem ? after : itemBehind) - 1);
    doc.addCaretMark();
    after -= removed.length();
    if (next != -1)
        next -= removed.length();
    doc.addCaretMark();
    insertRecorded(after, kEmptyParagraph);
    int inside = doc.getNextEditablePositionInFo(after, false, false);
    if (inside != -1)
        doc.setCaret(false, inside);
    doc.addCaretMark();
    if (type == NumberedList && next >= 0)
        recalculateNumbering(previous != -1 ? previous : next);
}

void ListEditing::splitItem(ItemAtCaret const &at)
{
    Core::String label;
    int number = -1;
    getNextLabel(labelBlockContent(getItemLabelPos(at.item)), label, number);
    Core::String rest = renumberedRest(at, number);
    Core::String closing =
        doc.stringArrayToReverseTagString(doc.getClosingTagsBetweenPositions(at.item, doc.caret));
    Core::String prefix = isFirstPositionInItemBody(doc.caret) ? kPlaceholder : Core::String();
    // The old item keeps a placeholder when all its text moves away.
    Core::String inserted = prefix + closing + createNewItem(label, doc.caret) + rest;
    int const c = doc.caret;
    doc.addCaretMark();
    deleteRecorded(c, at.listEnd - 1);
    doc.addCaretMark();
    doc.addCaretMark();
    insertRecorded(c, inserted);
    // The caret goes to the first place of the new item's body: its label takes none.
    int newItem = c + prefix.length() + closing.length();
    int inside = doc.getNextEditablePositionInFo(newItem, false, false);
    if (inside != -1)
        doc.setCaret(false, inside);
    doc.addCaretMark();
    dropEmptyInlineAtCaret();
}

// What the label says, as markup: the content of its block, or of the label itself
// when it has no block.
Core::String ListEditing::labelBlockContent(int labelPosition) const
{
    int block = getFirstBlockInElement(labelPosition);
    int element = block != -1 ? block : labelPosition;
    int first = positionAfterStartTag(element);
    int end = doc.getClosingTagForTagAtPosition(element);
    if (first == -1 || end < first)
        return Core::String();
    return doc.content.subString(first, end - 1);
}

// The items behind the one that splits, up to the end of the list, with their numbers
// one higher: the first of them follows the new item's `number`. Labels that are no
// number (`number` < 1) stay as they are.
Core::String ListEditing::renumberedRest(ItemAtCaret const &at, int number) const
{
    int const restStart = doc.getNextEditablePositionInXml(at.itemEnd);
    if (restStart == -1 || restStart > at.listEnd)
        return Core::String();
    Core::String rest = doc.content.subString(restStart, at.listEnd - 1);
    if (number < 1)
        return rest;
    int growth = 0;
    for (int item = getNextItemPos(at.item); item != -1; item = getNextItemPos(item)) {
        ++number;
        int block = getFirstBlockInElement(getItemLabelPos(item));
        int first = positionAfterStartTag(block);
        int end = doc.getClosingTagForTagAtPosition(block);
        if (first == -1 || end < first)
            continue;
        Core::String text = doc.content.subString(first, end - 1);
        Core::String renumbered = text.replaced(numberedLabel(number - 1), numberedLabel(number));
        rest.replace(first - restStart + growth, text.length(), renumbered);
        growth += renumbered.length() - text.length();
    }
    return rest;
}

// An inline that would hold nothing but a placeholder in the new item is not carried
// over.
void ListEditing::dropEmptyInlineAtCaret()
{
    Core::String name;
    int element = doc.getCurrentElementNameAndPos(doc.caret, name);
    if (element == -1 || !doc.isInlineEditableElementName(name) ||
        !doc.elementContainsJustNonBreakingSpace(element))
        return;
    doc.setCaret(false, element);
    doc.erase(true, false);
}

Core::String ListEditing::createNewItem(Core::String const &label, int position)
{
    if (position == -1)
        position = doc.caret;
    int item = getItemPos(position);
    int itemInside = positionAfterStartTag(item);
    int labelPosition = getItemLabelPos(item);
    if (itemInside == -1)
        return Core::String();
    Core::String newLabel;
    if (labelPosition != -1) {
        // The label element and its block keep their attributes; only the text is new.
        int block = getFirstBlockInElement(labelPosition);
        int shell = block != -1 ? block : labelPosition;
        int shellInside = positionAfterStartTag(shell);
        int shellEnd = doc.getClosingTagForTagAtPosition(shell);
        int labelBehind = positionAfterElement(labelPosition);
        if (shellInside != -1 && shellEnd >= shellInside && labelBehind != -1)
            newLabel = doc.content.subString(labelPosition, shellInside - 1) + label +
                       doc.content.subString(shellEnd, labelBehind - 1);
    }
    return doc.content.subString(item, itemInside - 1) + newLabel + createNewItemBody(position) +
           "</fo:list-item>";
}

// The elements open at `position`, from the item inward, reopened, and the rest of the
// item behind them. A block is reopened with its formatting only: an id or a break
// must not be doubled.
Core::String ListEditing::createNewItemBody(int position)
{
    if (position == -1)
        position = doc.caret;
    int item = getItemPos(position);
    int itemEnd = doc.getClosingTagForTagAtPosition(item);
    if (item == -1 || itemEnd < position)
        return Core::String();
    Core::String reopened;
    for (int e = doc.getCurrentElementPosition(position); e != -1 && e > item;
         e = doc.getCurrentElementPosition(e)) {
        if (doc.tagNameEquals(e, kBlock)) {
            PropertyCollection properties = doc.getProperties(kBlock, e);
            properties.removeNonFormattingProperties();
            // The paragraph's formatting is written back as it was read, qualified
            // ("fo:color"): stored documents and hosts rely on that spelling, unlike the
            // paragraph split outside lists, which writes the attributes plain.
            Core::String attributes = properties.getPropertiesString();
            reopened.prepend("<fo:block" + (attributes.empty() ? attributes : " " + attributes) + ">");
        } else {
            reopened.prepend("<" + doc.getCurrentElementStartTagString(positionAfterStartTag(e)) + ">");
        }
    }
    Core::String tail = doc.content.subString(position, itemEnd - 1);
    if (doc.tagNameEquals(position, kBlock) || doc.tagNameEquals(position, "/fo:block"))
        tail.prepend(kPlaceholder); // no text comes along: the new block needs its placeholder
    return reopened + tail;
}

// `position` is where the body's text begins: between the body's start tag and it
// stand only start tags and white space, which the rendering drops there.
bool ListEditing::isFirstPositionInItemBody(int position) const
{
    int body = getItemBodyPos(getItemPos(position));
    int p = positionAfterStartTag(body);
    if (p == -1 || position < p)
        return false;
    while (p != -1 && p < position) {
        if (Core::isPlainWhiteSpace(doc.content[p])) {
            ++p;
        } else if (doc.ignoredElementAtPosition(p) ||
                   (doc.onTagStartPosition(p) && doc.content[p + 1] != u'/' &&
                    !doc.selfClosingTagAtPosition(p))) {
            p = doc.getNextEditablePositionInXml(p);
        } else {
            return false;
        }
    }
    return p == position;
}
