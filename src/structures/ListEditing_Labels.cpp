// Label texts, the type of a list, and the numbers written into its labels.
#include "structures/ListEditing.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/FreezeNotifications.h"
#include "support/Format.h"

namespace {

const Core::String kBulletEntity("&#x2022;");
constexpr char16_t kBulletCharacter = 0x2022;

Core::String numberedLabel(int number)
{
    return Core::Format::format("{0})", number);
}

} // namespace

Core::String ListEditing::getFirstListLabel(ListType type)
{
    switch (type) {
    case NumberedList:
        return numberedLabel(1);
    case BulletedList:
        return kBulletEntity;
    default:
        return Core::String();
    }
}

// Only ")" and the bullet are looked for, so `label` may as well be a whole label
// block in markup. The number is the run of digits right before the first ")":
// "9)" is followed by "10)".
void ListEditing::getNextLabel(Core::String label, Core::String &next, int &number)
{
    int paren = label.find(u')');
    if (paren != -1) {
        int digits = paren;
        while (digits > 0 && Core::String::isDigit(label[digits - 1]))
            --digits;
        number = Core::Format::parseInt(label.subString(digits, paren - 1)) + 1;
        next = numberedLabel(number);
    } else if (label.contains(kBulletEntity) || label.contains(kBulletCharacter)) {
        next = kBulletEntity;
    } else {
        next = label;
    }
}

ListType ListEditing::getListType() const
{
    return getListTypeOf(getListPos(doc.caret));
}

// Only the first label decides.
ListType ListEditing::getListTypeOf(int listPosition) const
{
    int label = -1;
    for (int item = getFirstItemPos(listPosition); item != -1 && label == -1; item = getNextItemPos(item))
        label = getItemLabelPos(item);
    int block = getFirstBlockInElement(label);
    int first = positionAfterStartTag(block);
    int end = doc.getClosingTagForTagAtPosition(block);
    if (block == -1 || first == -1 || end <= block)
        return OtherList;
    if (doc.content.matchesAt(first, kBulletEntity) || doc.content[first] == kBulletCharacter)
        return BulletedList;
    int value = 0;
    Core::String number = doc.content.subString(first, end - 1).substringBefore(")");
    return Core::Format::parseInt(number, value) ? NumberedList : OtherList;
}

int ListEditing::getCurrentItemNumber() const
{
    return Core::Format::parseInt(getItemLabelValue(getItemLabelPos(getItemPos(doc.caret))));
}

Core::String ListEditing::getItemLabelValue(int labelPosition) const
{
    int block = getFirstBlockInElement(labelPosition);
    if (block == -1)
        return Core::String();
    return doc.getCharacterDataForElementAt(block);
}

void ListEditing::setItemLabelValue(int labelPosition, Core::String const &text)
{
    doc.endKeyTypingSequence();
    int block = getFirstBlockInElement(labelPosition);
    int first = positionAfterStartTag(block);
    int end = doc.getClosingTagForTagAtPosition(block);
    if (block == -1 || first == -1 || end < first)
        return; // no label block, or a self-closing one
    FreezeNotifications freeze(&doc);
    EditActionGroup group(&doc);
    doc.addCaretMark();
    if (end > first)
        deleteRecorded(first, end - 1);
    insertRecorded(first, text);
    doc.addCaretMark();
}

// The number of the item is read up to its ")"; 0 when it is no number.
void ListEditing::recalculateNumbering(int itemPosition)
{
    int label = getItemLabelPos(itemPosition);
    int number = 0;
    if (!Core::Format::parseInt(getItemLabelValue(label).substringBefore(")"), number))
        number = 0;
    if (getPreviousItemPos(itemPosition) == -1) {
        number = 1;
        setItemLabelValue(label, numberedLabel(1));
    }
    for (int item = getNextItemPos(itemPosition); item != -1; item = getNextItemPos(item)) {
        ++number;
        int nextLabel = getItemLabelPos(item);
        Core::String text = numberedLabel(number);
        // A label that already says the right number is left alone: after a change in
        // the middle of a long list most labels are right, and each write is a splice.
        int block = getFirstBlockInElement(nextLabel);
        int first = positionAfterStartTag(block);
        int end = doc.getClosingTagForTagAtPosition(block);
        if (first != -1 && end == first + text.length() && doc.content.matchesAt(first, text))
            continue;
        setItemLabelValue(nextLabel, text);
    }
}

Core::String ListEditing::deleteRecorded(int first, int last)
{
    Core::String removed = doc.deleteXmlText(first, last);
    doc.addAction(EditAction(EditAction::DeleteText, first, -1, -1, removed));
    return removed;
}

void ListEditing::insertRecorded(int position, Core::String const &text)
{
    doc.insertXmlTextAtPosition(position, text);
    doc.addAction(EditAction(EditAction::InsertText, position, -1, -1, text));
}
