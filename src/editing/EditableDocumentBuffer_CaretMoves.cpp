// The arrow keys. A move keeps to the kind of place the caret is in: from
// a flow it goes to a flow, from static content it stays in that static content. In a
// table the markup holds header, footer, body, while the reader sees header, body,
// footer: the moves follow the reader.

#include "editing/EditableDocumentBuffer.h"

#include "editing/FreezeNotifications.h"

#include <algorithm>

// ---- Right ----

void EditableDocumentBuffer::moveCaretRight(bool extendSelection, bool byWord, bool mergeInlineBoundaries)
{
    if (isOnInvalidPosition(caret))
        return;
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    bool inFlow = isInFlowAt(caret);
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
        target = isInFlowAt(next) ? next : getNextPositionAdjustedToFoFlow(next);
    else if (next != -1 && sameElementNamed("fo:static-content", caret, next))
        target = next;
    if (isOnInvalidPosition(target) || (inFlow && enterTableFromTheFront(target)))
        return;
    setCaret(extendSelection, target);
}

// Reading order across the row groups of the table around the caret:
//
//     header end  -> body start (the footer stands between them in the markup)
//     body end    -> footer start
//     footer end  -> behind the table, or nowhere when nothing follows the table:
//                    stepping on would enter the body again and go round for ever
//
// True when the caret has been dealt with.
bool EditableDocumentBuffer::moveRightInTableOrder()
{
    int table = tableAround(caret);
    if (table == -1)
        return false;
    // The next stop is the first one past an element around the caret exactly when
    // it lies outside that element, so no walk to the element's end is needed.
    int next = getNextEditablePositionInFo(caret, false, false);
    int nextElement = next == -1 ? -1 : currentElementOf(next);
    int target = -1;
    if (!hasAncestor(nextElement, table)) {
        int footer = getNextChildByName("fo:table-footer", table);
        if (footer != -1)
            target = getNextEditablePositionInFo(footer, false, false);
    } else if (int footer = rowGroupOfTable("fo:table-footer", caret, table); footer != -1) {
        if (!hasAncestor(nextElement, footer)) {
            target = positionAfterElement(table);
            if (isOnInvalidPosition(target))
                return true;
        }
    } else if (int header = rowGroupOfTable("fo:table-header", caret, table); header != -1) {
        int footerAhead = rowGroupOfTable("fo:table-footer", next, table);
        if (footerAhead != -1 && !hasAncestor(nextElement, header))
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
    int group = ancestorNamed(currentElementOf(position), name, false);
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
    WalkScope scope(*this);
    bool inFlow = isInFlowAt(caret);
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
        if (sameElementNamed("fo:static-content", caret, previous))
            setCaret(extendSelection, previous);
        return;
    }
    if (!isInFlowAt(previous)) {
        int target = getPreviousPositionAdjustedToFoFlow(previous, true);
        if (!isOnInvalidPosition(target))
            setCaret(extendSelection, target);
        return;
    }
    if (enterTableFromBehind(previous))
        return;
    setCaret(extendSelection, previous);
}

//     footer start       -> body end
//     first body's start -> header end, or the stop in front of the table (its
//                           "<"): the footer before it in the markup is seen last
bool EditableDocumentBuffer::moveLeftInTableOrder()
{
    int table = tableAround(caret);
    if (table == -1)
        return false;
    int previous = getPreviousEditablePositionInFo(caret, false, false);
    int previousElement = previous == -1 ? -1 : currentElementOf(previous);
    int target = -1;
    if (int footer = rowGroupOfTable("fo:table-footer", caret, table); footer != -1) {
        if (!hasAncestor(previousElement, footer))
            target = positionBeforeElementEnd(table);
    } else if (int body = rowGroupOfTable("fo:table-body", caret, table); body != -1) {
        // Only the first body: from a later one the previous body's end is the way back.
        if (!hasAncestor(previousElement, body) && rowGroupOfTable("fo:table-body", previous, table) == -1) {
            int header = getNextChildByName("fo:table-header", table);
            target = header != -1 ? positionBeforeElementEnd(header) : table;
        }
    }
    if (isOnInvalidPosition(target))
        return false;
    setCaret(false, target);
    return true;
}

// Entering a table from the front over a footer that stands first in the markup (the
// table has no header) lands at the start of the body, the first row the reader sees.
bool EditableDocumentBuffer::enterTableFromTheFront(int next)
{
    int table = tableAround(next);
    if (table == -1 || hasAncestor(currentElementOf(caret), table))
        return false;
    if (rowGroupOfTable("fo:table-footer", next, table) == -1)
        return false;
    int body = getNextChildByName("fo:table-body", table);
    int target = body == -1 ? -1 : getNextEditablePositionInFo(body, false, false);
    if (isOnInvalidPosition(target))
        return false;
    setCaret(false, target);
    return true;
}

// Entering a table from behind lands at the end of its footer, the last row the reader
// sees, rather than at the end of the body, the last in the markup.
bool EditableDocumentBuffer::enterTableFromBehind(int previous)
{
    int table = tableAround(previous);
    if (table == -1)
        return false;
    if (hasAncestor(currentElementOf(caret), table) && table <= tableAround(caret))
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
