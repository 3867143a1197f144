#include "structures/ListBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/FreezeNotifications.h"
#include "structures/ListEditing.h"

#include <utility>

void ListBuffer::makeList(ListType type)
{
    ListEditing(*this).makeList(type);
}

void ListBuffer::createList(ListType type)
{
    ListEditing(*this).createList(type);
}

void ListBuffer::removeList()
{
    ListEditing(*this).removeList();
}

void ListBuffer::changeLabelType(ListType type)
{
    ListEditing(*this).changeLabelType(type);
}

ListType ListBuffer::getListType()
{
    return ListEditing(*this).getListType();
}

Core::String ListBuffer::getFirstListLabel(ListType type)
{
    return ListEditing::getFirstListLabel(type);
}

void ListBuffer::getNextLabel(Core::String label, Core::String &next, int &number)
{
    ListEditing::getNextLabel(std::move(label), next, number);
}

int ListBuffer::getCurrentListSize()
{
    return ListEditing(*this).getCurrentListSize();
}

int ListBuffer::getCurrentItemNumber()
{
    return ListEditing(*this).getCurrentItemNumber();
}

void ListBuffer::selectListLabel()
{
    ListEditing(*this).selectListLabel();
}

void ListBuffer::breakList()
{
    ListEditing(*this).breakList();
}

void ListBuffer::eraseTextFromListBuffer(bool forward, bool wholeWord)
{
    ListEditing(*this).eraseTextFromListBuffer(forward, wholeWord);
}

// Called by the host, the deletion is one undo step; inside Delete or Backspace it
// joins the key's step.
int ListBuffer::eraseListSelection(int &start, int &end)
{
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    EditActionGroup group(this);
    addCaretMark();
    return ListEditing(*this).eraseListSelection(start, end);
}

int ListBuffer::eraseListSelection()
{
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    EditActionGroup group(this);
    addCaretMark();
    return ListEditing(*this).eraseListSelection();
}
