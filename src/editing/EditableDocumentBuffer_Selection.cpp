// Selecting whole elements: the element at the caret, a table, an element by path, and
// the parent, one level higher at each call.

#include "editing/EditableDocumentBuffer.h"

#include "editing/FreezeNotifications.h"

#include <algorithm>

namespace {

// Row groups and list items are no unit the user selects: selectParent climbs past them.
bool isPassedOverBySelectParent(Core::String const &name)
{
    return name == "fo:table-body" || name == "fo:table-header" || name == "fo:list-item";
}

} // namespace

// Selects from the start tag of the element at `element` to the position behind its
// closing tag, pivot first.
void EditableDocumentBuffer::selectWholeElement(int element)
{
    int closing = getClosingTagForTagAtPosition(element);
    if (closing == -1)
        return;
    FreezeNotifications freeze(this);
    setCaret(false, element);
    setCaret(true, getNextEditablePositionInXml(closing));
}

void EditableDocumentBuffer::selectCurrentElement()
{
    if (!isOnInvalidPosition(caret))
        selectWholeElement(getCurrentElementPosition(caret));
}

void EditableDocumentBuffer::selectTable()
{
    if (!isOnInvalidPosition(caret))
        selectWholeElement(searchParent("fo:table", caret));
}

void EditableDocumentBuffer::selectElementStartingAtCaretPosition()
{
    int closing = getClosingTagForTagAtPosition(caret);
    if (closing == -1)
        return;
    FreezeNotifications freeze(this);
    setCaret(true, getNextEditablePositionInXml(closing));
}

// The element's content and start tag, without its closing tag.
void EditableDocumentBuffer::selectElement(Core::String path)
{
    int element = getElementPositionFromPath(path, caret);
    int closing = getClosingTagForTagAtPosition(element);
    if (closing == -1)
        return;
    FreezeNotifications freeze(this);
    setCaret(false, element);
    setCaret(true, closing);
}

bool EditableDocumentBuffer::hasSelectedTable()
{
    if (!hasSelectedText())
        return false;
    int start = getSelectionStartIndex();
    if (!tagNameEquals(start, "fo:table"))
        return false;
    int after = getNextEditablePositionInXml(getClosingTagForTagAtPosition(start));
    return after != -1 && getPreviousTagName(after) == "/fo:table";
}

bool EditableDocumentBuffer::selectionCrossTable()
{
    if (!hasSelectedText())
        return false;
    return searchParent("fo:table", caret) != searchParent("fo:table", selectionPivot);
}

// The first and the last caret stop inside the element at `element`, -1 for none.
void EditableDocumentBuffer::getElementStopRange(int element, int &first, int &last)
{
    first = last = -1;
    if (element == -1)
        return;
    first = getNextEditablePositionInFo(element, false, false);
    int after = getNextEditablePositionInXml(getClosingTagForTagAtPosition(element));
    if (after != -1)
        last = getPreviousEditablePositionInFo(after, false, false);
}

bool EditableDocumentBuffer::isElementSelected(Core::String const &name)
{
    if (!hasSelectedText() || name.empty())
        return false;
    int first = -1;
    int last = -1;
    getElementStopRange(searchParent(name, caret), first, last);
    if (first == -1 || last == -1)
        return false;
    return std::min(caret, selectionPivot) <= first && std::max(caret, selectionPivot) >= last;
}

bool EditableDocumentBuffer::selectionIsEntireElementContent(int first, int last)
{
    if (isOnInvalidPosition(first) || isOnInvalidPosition(last))
        return false;
    int element = getCurrentElementPosition(first);
    return element != -1 && getNextEditablePositionInXml(element) == first &&
           getClosingTagForTagAtPosition(element) == last;
}

// Each call selects one level more, remembering in `selectedElement` what it selected:
// a cell's text, then its row, then the table (row groups passed over), and so on up to
// the page sequence, which is never selected.
void EditableDocumentBuffer::selectParent()
{
    if (isOnInvalidPosition(caret))
        return;
    FreezeNotifications freeze(this);
    Core::String name = getParentElementName(caret);
    int first = -1;
    int last = -1;
    getElementStopRange(searchParent(name, caret), first, last);
    if (!hasSelectedText() || selectedElement.empty())
        selectedElement = name;
    bool climb = hasSelectedText() && !selectedElement.empty() && isElementSelected(selectedElement);
    if (!climb && first != last) {
        selectedElement = name;
    } else {
        int inner = searchParent(selectedElement, caret);
        int outer = inner == -1 ? -1 : getCurrentElementPosition(inner);
        selectedElement = outer == -1 ? Core::String() : getNameForTagAtPosition(outer, true);
        if (selectedElement == "fo:page-sequence") {
            selectedElement = name;
            return;
        }
        while (outer != -1 && isPassedOverBySelectParent(selectedElement)) {
            outer = getCurrentElementPosition(outer);
            selectedElement = outer == -1 ? Core::String() : getNameForTagAtPosition(outer, true);
        }
        if (outer == -1)
            return;
        getElementStopRange(outer, first, last);
    }
    if (first == -1 || last == -1)
        return;
    setCaret(false, first);
    setCaret(true, last);
}
