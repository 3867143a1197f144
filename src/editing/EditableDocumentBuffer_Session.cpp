#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/FreezeNotifications.h"
#include "support/DocumentFile.h"
#include "tables/EditableTableBuffer.h"

// Loading -----------------------------------------------------------------------------

// Loading is recorded as an ungrouped pair of SetContent actions, the old text and the
// new one, so an open typing group is closed first: otherwise the pair would fall
// inside it, and after a load that clears the history its end marker would come back
// as a phantom undo step.
void EditableDocumentBuffer::setContent(Core::String const &text, bool clearHistory)
{
    FreezeNotifications freeze(this);
    endKeyTypingSequence();
    if (!clearHistory)
        addAction(EditAction(EditAction::SetContent, -1, -1, -1, content));
    if (text.find("\r\n") != -1)
        replaceContent(text.replaced("\r\n", "\n"));
    else
        replaceContent(text);
    moveCaretHome(false);
    refreshTableCacheAfterLoad();
    notifyBufferChanged();
    // The action keeps the text as given, pairs included: a redo brings them back.
    if (!clearHistory)
        addAction(EditAction(EditAction::SetContent, -1, -1, -1, text));
    else
        actionStack.clearStack();
    documentProtected = documentIsProtectedFromEditing();
}

// The file's own declaration decides its decoding. A file that cannot be opened throws
// before anything changes.
void EditableDocumentBuffer::setContentFromFile(Core::String const &path)
{
    FreezeNotifications freeze(this);
    Core::String text = Core::IO::readDocumentFile(path);
    setContent(text, true);
}

// The caret gate ---------------------------------------------------------------------

// Every caret move of the engine ends here. The host hears onCaretChanged first and
// onSelectionChanged second, the latter only when a selection existed or exists now.
void EditableDocumentBuffer::setCaret(bool extendSelection, int position)
{
    if (position == -1) {
        clearCaret();
        return;
    }
    bool const hadSelection = hasSelectedText();
    bool const allowed = caretMayStandAt(position);
    // On the dummy page of page-master editing no caret exists, whatever is asked.
    if (editingDummyPage) {
        clearCaret();
        return;
    }
    if (!allowed)
        return;
    if (position != caret) {
        // A selection never leaves its flow, static content or body.
        if (extendSelection && !selectionStaysInItsFlow && !positionsAreInTheSameFlowElement(caret, position))
            return;
        caret = position;
        notifyCaretChanged();
    }
    if (extendSelection) {
        if (!hadSelection && selectionPivot == caret)
            return;
    } else {
        selectionPivot = caret;
        if (!hadSelection)
            return;
    }
    notifySelectionChanged();
}

void EditableDocumentBuffer::clearCaret()
{
    caret = -1;
    selectionPivot = -1;
    notifyCaretChanged();
    notifySelectionChanged();
}

// In page-master editing only static content holds the caret.
bool EditableDocumentBuffer::caretMayStandAt(int position)
{
    if (!pageMasterEditing)
        return true;
    return isInFoStaticContent(position, Core::String()) && !editingDummyPage;
}

void EditableDocumentBuffer::setCaretPos(bool extendSelection, int position)
{
    endKeyTypingSequence();
    setCaret(extendSelection, position);
}

// The position does not change, so no flow test applies; with the caret at -1 both
// notifications go out.
void EditableDocumentBuffer::resetSelection()
{
    endKeyTypingSequence();
    setCaret(false, caret);
}

// Selection ----------------------------------------------------------------------------

int EditableDocumentBuffer::getSelectionStartIndex() const noexcept
{
    return caret < selectionPivot ? caret : selectionPivot;
}

// Inclusive: the last selected position, one less than the larger end.
int EditableDocumentBuffer::getSelectionEndIndex() const noexcept
{
    if (!hasSelectedText())
        return caret;
    return (caret > selectionPivot ? caret : selectionPivot) - 1;
}

bool EditableDocumentBuffer::offsetIsInSelection(int offset) const noexcept
{
    if (!hasSelectedText())
        return false;
    return offset >= getSelectionStartIndex() && offset <= getSelectionEndIndex() + 1;
}

// Monitor --------------------------------------------------------------------------------

void EditableDocumentBuffer::notifyBufferChanged()
{
    if (monitor != nullptr)
        monitor->onBufferChanged();
}

void EditableDocumentBuffer::notifyCaretChanged()
{
    if (monitor != nullptr)
        monitor->onCaretChanged();
}

void EditableDocumentBuffer::notifySelectionChanged()
{
    if (monitor != nullptr)
        monitor->onSelectionChanged();
}

// Typing -----------------------------------------------------------------------------------

// Safe at any time: ending the group writes its end marker into the history.
void EditableDocumentBuffer::endKeyTypingSequence()
{
    if (keyTypingGroup == nullptr)
        return;
    delete keyTypingGroup;
    keyTypingGroup = nullptr;
}

// Context of the caret ---------------------------------------------------------------------

bool EditableDocumentBuffer::caretIsInsideTable()
{
    return searchParent("fo:table", caret, false, true, Core::String()) != -1;
}

bool EditableDocumentBuffer::caretIsInsideList()
{
    return searchParent("fo:list-block", caret, false, true, Core::String()) != -1;
}

bool EditableDocumentBuffer::caretIsInsideListItemLabel()
{
    return searchParent("fo:list-item-label", caret, false, true, Core::String()) != -1;
}
