#pragma once

#include "structures/ListType.h"
#include "support/String.h"

class EditableDocumentBuffer;

// The list algorithms: word-processor behaviour for XSL-FO list markup.
//
// A list as the buffer makes it stands in a block of its own:
//
//     <fo:block><fo:list-block>
//       <fo:list-item>
//         <fo:list-item-label end-indent="label-end()"><fo:block>1)</fo:block></fo:list-item-label>
//         <fo:list-item-body start-indent="body-start()"><fo:block>text</fo:block></fo:list-item-body>
//       </fo:list-item>
//     </fo:list-block></fo:block>
//
// (on one line in the string). Labels are stored text that these algorithms rewrite;
// the caret never enters them.
//
// Both ListBuffer and the document buffer itself (Delete, Backspace, Enter and the
// selection walk inside lists) use these algorithms, and a host may hold a plain
// EditableDocumentBuffer, so they work on an EditableDocumentBuffer reference rather
// than on a ListBuffer. An object is made for one call and keeps nothing.
//
// The code is split by concern:
//   ListEditing_Structure.cpp  items, labels, bodies and blocks of a list by position
//   ListEditing_Labels.cpp     label texts, list types and numbering
//   ListEditing_Make.cpp       making, removing and relabelling a list
//   ListEditing_Break.cpp      Enter in a list
//   ListEditing_Erase.cpp      Delete and Backspace in a list
//   ListEditing_Selection.cpp  deleting a selection that meets a list
class ListEditing {
public:
    explicit ListEditing(EditableDocumentBuffer &document) : doc(document) {}

    // ---- Structure (ListEditing_Structure.cpp). Every answer is -1 when there is none. ----
    // The nearest "fo:list-block" ("fo:list-item") around `position`.
    int getListPos(int position) const;
    int getItemPos(int position) const;
    // The item's next (previous) sibling item in its list.
    int getNextItemPos(int itemPosition) const;
    int getPreviousItemPos(int itemPosition) const;
    int getFirstItemPos(int listPosition) const;
    // The item `count` items into the list: 1 is the first item.
    int getNthItemPos(int listPosition, int count) const;
    int getItemLabelPos(int itemPosition) const;
    int getItemBodyPos(int itemPosition) const;
    // The first "fo:block" inside the element, at any depth.
    int getFirstBlockInElement(int elementPosition) const;
    // The last "fo:block" on the level of the first one: nested blocks are passed over.
    int getLastBlockInElement(int elementPosition) const;
    // How many items of the list around `position` begin before it.
    int getListItemNumber(int position) const;
    // Items with a label in the list around the caret.
    int getCurrentListSize() const;
    // The index behind the start tag (the closing tag) of the element at `element`.
    int positionAfterStartTag(int element) const;
    int positionAfterElement(int element) const;
    int nextChildNamed(Core::String const &name, int from) const;

    // ---- Labels and numbering (ListEditing_Labels.cpp) ----
    static Core::String getFirstListLabel(ListType type);
    // The label after `label`: the number before the first ")" plus one, or a bullet
    // again, or `label` itself. `number` is set only for a numbered label.
    static void getNextLabel(Core::String label, Core::String &next, int &number);
    // Read from the first label of the list around the caret (of the list at `list`).
    ListType getListType() const;
    ListType getListTypeOf(int listPosition) const;
    int getCurrentItemNumber() const;
    Core::String getItemLabelValue(int labelPosition) const;
    // Replaces the content of the label's block, as one undo step of its own.
    void setItemLabelValue(int labelPosition, Core::String const &text);
    // Writes "n)" into the labels from `itemPosition` on; a first item becomes "1)".
    void recalculateNumbering(int itemPosition);

    // ---- Making, removing and relabelling (ListEditing_Make.cpp) ----
    void makeList(ListType type);
    void createList(ListType type);
    void removeList();
    void changeLabelType(ListType type);
    void selectListLabel();

    // ---- Enter (ListEditing_Break.cpp) ----
    void breakList();
    // The markup of a new item (of its body) that takes everything of the item around
    // `position` (-1: the caret) from there on.
    Core::String createNewItem(Core::String const &label, int position);
    Core::String createNewItemBody(int position);
    // Nothing but white space and start tags lies between the body's start and `position`.
    bool isFirstPositionInItemBody(int position) const;

    // ---- Delete and Backspace (ListEditing_Erase.cpp) ----
    void eraseTextFromListBuffer(bool forward, bool wholeWord);

    // ---- Selections (ListEditing_Selection.cpp) ----
    // Deletes [start, end) item by item inside the list around `start`; returns the
    // position behind the list, -1 when `start` is in no list or the list is lost.
    int eraseListSelection(int &start, int &end);
    int eraseListSelection();
    bool canDeleteListItem(Core::String const &path);

private:
    // The list, item and element around the caret, as Enter and the erase keys read them.
    struct ItemAtCaret {
        int list = -1;
        int listEnd = -1; // its closing tag
        int item = -1;
        int itemEnd = -1; // its closing tag
        int element = -1; // the current element at the caret
        Core::String elementName;
    };
    bool readItemAtCaret(ItemAtCaret &at) const;

    // Phases of breakList.
    void leaveListFromEmptyItem(ItemAtCaret const &at);
    void splitItem(ItemAtCaret const &at);
    Core::String labelBlockContent(int labelPosition) const;
    Core::String renumberedRest(ItemAtCaret const &at, int number) const;
    void dropEmptyInlineAtCaret();

    // Phases of eraseTextFromListBuffer.
    struct ErasePlace {
        ItemAtCaret at;
        int body = -1;
        int firstBlock = -1;
        int lastBlock = -1;
        ListType type = OtherList;
    };
    bool onlyItemIsEmpty(ErasePlace const &place) const;
    void backspaceInItem(ErasePlace const &place, bool wholeWord);
    void joinPreviousItem(ErasePlace const &place, int previousItem);
    void moveFirstItemOutOfList(ErasePlace const &place);
    void deleteInItem(ErasePlace const &place, bool wholeWord);
    void joinNextItem(ErasePlace const &place, int end, int nextItem);
    void takeInBlockBehindList(ErasePlace const &place, int end);
    int outermostStartInside(int block, int position) const;

    // Phases of eraseListSelection.
    struct SelectionEnd {
        bool inList = false;
        int item = 0;       // with inList: the end's item, counted from 1
        int itemOffset = 0; // with inList: the end's distance from that item's start
        int tailOffset = 0; // without: the end's distance from the position behind the list
    };
    SelectionEnd rememberSelectionEnd(int list, int listEnd, int end) const;
    int recomputeSelectionEnd(int list, SelectionEnd const &remembered) const;
    bool selectPartOfItem(int start, int end, int last);
    bool erasePartOfItem(int list, SelectionEnd const &remembered, int start, int &end, int last,
                         int &goOnFrom);
    void eraseWholeItem(int item, int itemBehind, int last, bool endsHere, int &end,
                        SelectionEnd &remembered);

    // Splices that record themselves: the history stores their inverse.
    Core::String deleteRecorded(int first, int last);
    void insertRecorded(int position, Core::String const &text);

    EditableDocumentBuffer &doc;
};
