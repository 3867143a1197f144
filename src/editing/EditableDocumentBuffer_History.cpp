#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/FreezeNotifications.h"

// Undo and redo ------------------------------------------------------------------------

void EditableDocumentBuffer::undo()
{
    FreezeNotifications freeze(this);
    endKeyTypingSequence();
    if (!actionStack.hasMoreUndoActions())
        return;
    replayOneStep(true);
}

void EditableDocumentBuffer::redo()
{
    FreezeNotifications freeze(this);
    endKeyTypingSequence();
    if (!actionStack.hasMoreRedoActions())
        return;
    replayOneStep(false);
}

// Executes one ungrouped action or one outermost group from the back of the undo (or
// redo) list. Group markers are counted, never executed. A list trimmed by the limit
// may have lost its opening marker: the walk then stops where the list ends.
//
//     undo list:  ... GroupStart SetCaret InsertText SetCaret GroupEnd   <- back
//     depth:               0                                     1
void EditableDocumentBuffer::replayOneStep(bool undoing)
{
    auto hasMore = [&] {
        return undoing ? actionStack.hasMoreUndoActions() : actionStack.hasMoreRedoActions();
    };
    auto take = [&] { return undoing ? actionStack.getUndoAction() : actionStack.getRedoAction(); };
    int depth = 0;
    for (EditAction action = take();; action = take()) {
        switch (action.getType()) {
        case EditAction::GroupStart:
            --depth;
            if (!hasMore() || depth == 0)
                return;
            break;
        case EditAction::GroupEnd:
            if (!hasMore())
                return;
            ++depth;
            break;
        default:
            executeAction(action);
            if (!hasMore() || depth < 1)
                return;
            break;
        }
    }
}

// Replays one stored action. Nothing is recorded: the splices do not record.
void EditableDocumentBuffer::executeAction(EditAction action)
{
    FreezeNotifications freeze(this);
    switch (action.getType()) {
    case EditAction::InsertText:
        insertXmlTextAtPosition(action.getActionPosition(), action.getString());
        notifyBufferChanged();
        break;
    case EditAction::DeleteText:
        deleteXmlText(action.getActionPosition(),
                      action.getActionPosition() + action.getString().length() - 1);
        notifyBufferChanged();
        break;
    case EditAction::SetContent:
        replaceContent(action.getString());
        moveCaretHome(false);
        notifyBufferChanged();
        break;
    case EditAction::SetCaret:
        setCaret(false, action.getSelPivotPosition());
        setCaret(true, action.getCaretPosition());
        break;
    case EditAction::GroupStart:
    case EditAction::GroupEnd:
        break;
    }
    // The one repair of a replay onto a document changed without records.
    if (isOnInvalidPosition(caret))
        moveCaretHome(false);
}

// The splices ------------------------------------------------------------------------

// Caret and pivot at or after `position` move up with the text:
//
//     <fo:block>ab|cd</fo:block>   insert "XY" at the "c"   <fo:block>abXY|cd</fo:block>
//     (a caret exactly at the position moves too)
//
// A position outside 0..length changes nothing.
void EditableDocumentBuffer::insertXmlTextAtPosition(int position, Core::String text)
{
    if (position < 0 || position > content.length())
        return;
    bool const tagsKept = spliceContent(position, 0, text);
    int const length = text.length();
    int const newCaret = caret >= position ? caret + length : caret;
    int const newPivot = selectionPivot >= position ? selectionPivot + length : selectionPivot;
    placeCaretAfterSplice(newCaret, newPivot, tagsKept);
    notifyBufferChanged();
}

// Erases first..last, both included, and returns what was erased. Caret and pivot
// are each moved by one rule:
//   v <= first          stays
//   first < v < last    becomes first
//   v >= last           becomes v - last + first - 1
// The last rule gives first - 1 for a value on `last`, one less than the natural
// answer; stored histories and callers count on exactly this.
// A range that is empty or not inside the content changes nothing.
Core::String EditableDocumentBuffer::deleteXmlText(int first, int last)
{
    if (first < 0 || last < first || last >= content.length())
        return Core::String();
    Core::String erased = content.subString(first, last);
    bool const tagsKept = spliceContent(first, last - first + 1, Core::String());
    auto adjust = [first, last](int value) {
        if (value <= first)
            return value;
        if (value < last)
            return first;
        return value - last + first - 1;
    };
    placeCaretAfterSplice(adjust(caret), adjust(selectionPivot), tagsKept);
    notifyBufferChanged();
    return erased;
}

// The new ends go through the caret gate: the pivot first, then the caret extends
// from it. If the extension fails the flow test, the caret stays on the pivot. When the
// splice left every tag as it was, both ends stand in the elements they stood in, so
// the flow test, a walk up from the caret, is not asked again: a run of splices far
// from a selection (a list renumbering its labels) would ask it once each.
void EditableDocumentBuffer::placeCaretAfterSplice(int newCaret, int newPivot, bool tagsKept)
{
    if (newCaret != newPivot) {
        setCaret(false, newPivot);
        selectionStaysInItsFlow = tagsKept;
        setCaret(true, newCaret);
        selectionStaysInItsFlow = false;
    } else {
        setCaret(false, newCaret);
    }
}

// The one splice that records itself, as one group.
void EditableDocumentBuffer::replaceXmlText(int first, int last, Core::String text)
{
    EditActionGroup group(this);
    addCaretMark();
    Core::String erased = deleteXmlText(first, last);
    addAction(EditAction(EditAction::DeleteText, first, -1, -1, std::move(erased)));
    insertXmlTextAtPosition(first, text);
    addAction(EditAction(EditAction::InsertText, first, -1, -1, std::move(text)));
    addCaretMark();
}

void EditableDocumentBuffer::addCaretMark()
{
    addAction(EditAction(EditAction::SetCaret, -1, caret, selectionPivot, Core::String()));
}
