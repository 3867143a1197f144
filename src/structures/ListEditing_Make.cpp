// The toolbar commands: a list made of the current block, a list turned back into its
// bodies' content, and labels rewritten for another type.
#include "structures/ListEditing.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/FreezeNotifications.h"
#include "support/Format.h"

namespace {

// The list as createList makes it, on one line: {0} stands for the label block's
// attributes, {1} for the first label.
const Core::String kListHead("<fo:block><fo:list-block><fo:list-item>"
                             "<fo:list-item-label end-indent=\"label-end()\"><fo:block{0}>{1}</fo:block>"
                             "</fo:list-item-label><fo:list-item-body start-indent=\"body-start()\">");
const Core::String kListTail("</fo:list-item-body></fo:list-item></fo:list-block></fo:block>");
// A bullet is drawn larger than the text, on a line no higher than the text's.
const Core::String kBulletAttributes(" font-size=\"1.5em\" line-height=\"1em\"");
const Core::String kBulletEntity("&#x2022;");

} // namespace

void ListEditing::makeList(ListType type)
{
    if (getListPos(doc.caret) == -1)
        createList(type);
    else if (type == getListType())
        removeList();
    else
        changeLabelType(type);
}

// The current block, its content and attributes untouched, becomes the body of the
// only item:
//     <fo:block>te|xt</fo:block>  ->  <fo:block><fo:list-block>...<fo:block>te|xt</fo:block>...</fo:block>
void ListEditing::createList(ListType type)
{
    doc.endKeyTypingSequence();
    int block =
        doc.isOnInvalidPosition(doc.caret) ? -1 : doc.searchParent("fo:block", doc.caret, false, true, "");
    int behind = positionAfterElement(block);
    if (block == -1 || behind == -1)
        return;
    FreezeNotifications freeze(&doc);
    EditActionGroup group(&doc);
    Core::String head = Core::Format::format(
        kListHead, type == BulletedList ? kBulletAttributes : Core::String(), getFirstListLabel(type));
    int after = behind + head.length();
    doc.addCaretMark();
    insertRecorded(block, head);
    doc.addCaretMark();
    doc.addCaretMark();
    insertRecorded(after, kListTail);
    doc.addCaretMark();
    if (!doc.canHoldCaret(doc.caret)) {
        int before = doc.caret;
        doc.moveCaretRight(false, false, false);
        if (doc.caret == before)
            doc.moveCaretLeft(false, false, false);
    }
}

// The bodies' content takes the place of the list. The block that createList put
// around the list stays around that content.
void ListEditing::removeList()
{
    int list = getListPos(doc.caret);
    int end = positionAfterElement(list);
    if (list == -1 || end == -1)
        return;
    doc.endKeyTypingSequence();
    FreezeNotifications freeze(&doc);
    EditActionGroup group(&doc);
    Core::String text;
    for (int t = doc.getNextElementPosition(list); t != -1 && t < end;) {
        if (!doc.tagNameEquals(t, "fo:list-item-body")) {
            t = doc.getNextElementPosition(t);
            continue;
        }
        int first = positionAfterStartTag(t);
        int closing = doc.getClosingTagForTagAtPosition(t);
        if (first == -1 || closing < first)
            break;
        text += doc.content.subString(first, closing - 1);
        t = doc.getNextElementPosition(closing); // a list nested in the body came along whole
    }
    doc.addCaretMark();
    doc.insertXmlTextAtPosition(end, text);
    int first = doc.getNextEditablePositionInFo(end, false, false);
    if (first != -1)
        doc.setCaret(false, first);
    doc.addAction(EditAction(EditAction::InsertText, end, -1, -1, text));
    deleteRecorded(list, end - 1);
    doc.addCaretMark();
}

// Every label block is written anew, with the bullet's attributes or none; other
// attributes of the label blocks are lost.
void ListEditing::changeLabelType(ListType type)
{
    doc.endKeyTypingSequence();
    int list = getListPos(doc.caret);
    if (list == -1)
        return;
    FreezeNotifications freeze(&doc);
    EditActionGroup group(&doc);
    Core::String label = getFirstListLabel(type);
    Core::String attributes = label == kBulletEntity ? kBulletAttributes : Core::String();
    int number = 0;
    doc.addCaretMark();
    for (int item = getFirstItemPos(list); item != -1; item = getNextItemPos(item)) {
        int labelPosition = getItemLabelPos(item);
        int block = labelPosition == -1 ? -1 : doc.getNextElementPosition(labelPosition);
        int closing = doc.getClosingTagForTagAtPosition(block);
        if (block == -1 || !doc.tagNameEquals(block, "fo:block") || closing <= block)
            continue; // a label without a block of its own keeps what it has
        EditActionGroup labelGroup(&doc);
        deleteRecorded(block, closing - 1);
        insertRecorded(block, "<fo:block" + attributes + ">" + label);
        getNextLabel(label, label, number);
    }
    doc.addCaretMark();
}

// The content of the current element becomes the selection.
void ListEditing::selectListLabel()
{
    int element = doc.getCurrentElementPosition(doc.caret);
    int first = positionAfterStartTag(element);
    int closing = doc.getClosingTagForTagAtPosition(element);
    if (first == -1 || closing < first)
        return;
    doc.setCaret(false, first);
    doc.setCaret(true, closing);
}
