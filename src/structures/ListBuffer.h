#pragma once

#include "editing/EditableDocumentBuffer.h"
#include "structures/ListType.h"
#include "support/String.h"

// The document buffer with the list commands of a word processor: a list made of the
// current block, labels "1)", "2)" or bullets kept in step by the buffer, Enter that
// splits an item or leaves the list, Delete and Backspace that join items.
//
// ListBuffer adds no data, and the document buffer reaches the same algorithms for its
// own keys (ListEditing), so a host may hold either class.
class ListBuffer : public EditableDocumentBuffer {
public:
    ListBuffer() = default;
    ~ListBuffer() override = default;

    // The toolbar command: a list of the current block when the caret is in none; the
    // list removed when it already has `type`; its labels rewritten otherwise.
    void makeList(ListType type);
    // Wraps the current block in a new list of one item.
    void createList(ListType type);
    // The list around the caret becomes its bodies' content.
    void removeList();
    // Rewrites every label of the list for `type`.
    void changeLabelType(ListType type);
    // The type of the list around the caret, read from its first label.
    ListType getListType();
    // "1)", the bullet "&#x2022;", or empty.
    Core::String getFirstListLabel(ListType type);
    // The label after `label`; `number` is set for a numbered one ("9)" gives "10)" and 10).
    void getNextLabel(Core::String label, Core::String &next, int &number);
    // Items with a label in the list around the caret.
    int getCurrentListSize();
    // The number in the label of the item around the caret, 0 when it is none.
    int getCurrentItemNumber();
    // Selects the content of the current element.
    void selectListLabel();

    // Enter in a list: the item splits at the caret, or an empty item leaves the list.
    void breakList();
    // One Delete (`forward`) or Backspace step in a list.
    void eraseTextFromListBuffer(bool forward, bool wholeWord);
    // Deletes [start, end) item by item in the list around `start`; both arguments
    // change. Returns the position behind the list, -1 when `start` is in no list.
    int eraseListSelection(int &start, int &end);
    // The same on the current selection.
    int eraseListSelection();
};
