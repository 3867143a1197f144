// The arrow keys, Home and End. A move keeps to the kind of place the caret is in: from
// a flow it goes to a flow, from static content it stays in that static content. In a
// table the markup holds header, footer, body, while the reader sees header, body,
// footer: the moves follow the reader.

#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"
#include "editing/FreezeNotifications.h"

#include <algorithm>

// ---- Right ----

void EditableDocumentBuffer::moveCaretRight(bool extendSelection, bool byWord, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(caret))
        return;
    FreezeNotifications freeze(this);
    bool inFlow = isInFoFlow(caret);
    endKeyTypingSequence();
    if (!extendSelection && hasSelectedText()) {
        setCaret(false, std::max(caret, selectionPivot));
        return;
    }
    if (moveRightInTableOrder())
        return;
    if (byWord) {
        jumpToNextWord(extendSelection);
        return;
    }
    int next = getNextEditablePositionInFo(caret, false, mergeInlineBoundaries);
    int target = -1;
    if (inFlow)
        target = isInFoFlow(next) ? next : getNextPositionAdjustedToFoFlow(next);
    else if (next != -1 && positionsAreInTheSameStaticContent(caret, next))
        target = next;
    if (!isOnInvalidPosition(target))
        setCaret(extendSelection, target);
}

// Reading order across the row groups of the table around the caret:
//
//     header end  -> body start (the footer stands between them in the markup)
//     body end    -> footer start
//     footer end  -> behind the table
//
// True when the caret has been moved.
bool EditableDocumentBuffer::moveRightInTableOrder()
{
    int table = searchParent("fo:table", caret);
    if (table == -1)
        return false;
    int tableEnd = getClosingTagForTagAtPosition(table);
    int next = getNextEditablePositionInFo(caret, false, false);
    int afterTable = getNextEditablePositionInFo(tableEnd, false, false);
    int target = -1;
    if (next == afterTable) {
        int footer = getNextChildByName("fo:table-footer", table);
        if (footer != -1)
            target = getNextEditablePositionInFo(footer, false, false);
    } else if (int footer = rowGroupOfTable("fo:table-footer", caret, table); footer != -1) {
        if (next == positionAfterElement(footer))
            target = afterTable;
    } else if (int header = rowGroupOfTable("fo:table-header", caret, table); header != -1) {
        int footerAhead = rowGroupOfTable("fo:table-footer", next, table);
        if (next == positionAfterElement(header) && footerAhead != -1)
            target = positionAfterElement(footerAhead);
    }
    if (isOnInvalidPosition(target))
        return false;
    setCaret(false, target);
    return true;
}

// The row group called `name` around `position`, when it belongs to `table` itself
// and not to a table nested in one of its cells.
int EditableDocumentBuffer::rowGroupOfTable(Core::String const &name, int position, int table)
{
    if (isOnInvalidPosition(position))
        return -1;
    int group = searchParent(name, position);
    return group > table ? group : -1;
}

// The first stop behind the closing tag of the element at `element`.
int EditableDocumentBuffer::positionAfterElement(int element)
{
    return getNextEditablePositionInFo(getClosingTagForTagAtPosition(element), false, false);
}

// The last stop before the closing tag of the element at `element`.
int EditableDocumentBuffer::positionBeforeElementEnd(int element)
{
    return getPreviousEditablePositionInFo(getClosingTagForTagAtPosition(element), false, false);
}

// ---- Left ----

void EditableDocumentBuffer::moveCaretLeft(bool extendSelection, bool byWord, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(caret))
        return;
    FreezeNotifications freeze(this);
    bool inFlow = isInFoFlow(caret);
    endKeyTypingSequence();
    if (!extendSelection && !byWord && hasSelectedText()) {
        setCaret(false, std::min(caret, selectionPivot));
        return;
    }
    if (moveLeftInTableOrder())
        return;
    if (byWord) {
        jumpToPreviousWord(extendSelection);
        return;
    }
    int previous = getPreviousEditablePositionInFo(caret, false, mergeInlineBoundaries);
    if (isOnInvalidPosition(previous))
        return;
    if (!inFlow) {
        if (positionsAreInTheSameStaticContent(caret, previous))
            setCaret(extendSelection, previous);
        return;
    }
    if (!isInFoFlow(previous)) {
        int target = getPreviousPositionAdjustedToFoFlow(previous, true);
        if (!isOnInvalidPosition(target))
            setCaret(extendSelection, target);
        return;
    }
    if (enterTableFromBehind(previous))
        return;
    setCaret(extendSelection, previous);
}

//     footer start -> body end
//     body start   -> header end
bool EditableDocumentBuffer::moveLeftInTableOrder()
{
    int table = searchParent("fo:table", caret);
    if (table == -1)
        return false;
    int previous = getPreviousEditablePositionInFo(caret, false, false);
    int target = -1;
    if (int footer = rowGroupOfTable("fo:table-footer", caret, table); footer != -1) {
        if (previous == getPreviousEditablePositionInFo(footer, false, false))
            target = getPreviousEditablePositionInFo(getClosingTagForTagAtPosition(table), false, false);
    } else if (int body = rowGroupOfTable("fo:table-body", caret, table); body != -1) {
        int header = getNextChildByName("fo:table-header", table);
        if (previous == getPreviousEditablePositionInFo(body, false, false) && header != -1)
            target = positionBeforeElementEnd(header);
    }
    if (isOnInvalidPosition(target))
        return false;
    setCaret(false, target);
    return true;
}

// Entering a table from behind lands at the end of its footer, the last row the reader
// sees, rather than at the end of the body, the last in the markup.
bool EditableDocumentBuffer::enterTableFromBehind(int previous)
{
    int table = searchParent("fo:table", previous);
    if (table == -1)
        return false;
    int caretTable = searchParent("fo:table", caret);
    if (elementContainsPosition(table, caret) && table <= caretTable)
        return false;
    int footer = getNextChildByName("fo:table-footer", table);
    if (footer == -1)
        return false;
    int target = positionBeforeElementEnd(footer);
    if (isOnInvalidPosition(target))
        return false;
    setCaret(false, target);
    return true;
}

// Repairs a caret that an edit left where it cannot stand: forward if possible,
// otherwise backward.
void EditableDocumentBuffer::adjustCaretToAnEditablePosition()
{
    if (canHoldCaret(caret))
        return;
    int before = caret;
    moveCaretRight(false, false, false);
    if (caret == before)
        moveCaretLeft(false, false, false);
}
