#include "editing/EditActionStack.h"

#include <iterator>
#include <utility>

EditActionStack::EditActionStack(int maximumLength) : limit(maximumLength) {}

EditActionStack::EditActionStack(const EditActionStack &other)
    : undoActions(other.undoActions), redoActions(other.redoActions), limit(other.limit),
      trackingPos(other.trackingPos)
{
}

EditActionStack &EditActionStack::operator=(const EditActionStack &other)
{
    if (this == &other)
        return *this;
    // Copy first, so that a throwing copy leaves this stack as it was.
    std::list<EditAction> undoCopy(other.undoActions);
    std::list<EditAction> redoCopy(other.redoActions);
    if (journaling()) {
        note(Change::UndoCleared, std::move(undoActions));
        note(Change::RedoCleared, std::move(redoActions));
    }
    undoActions = std::move(undoCopy);
    redoActions = std::move(redoCopy);
    limit = other.limit;
    trackingPos = other.trackingPos;
    return *this;
}

// Recording -------------------------------------------------------------------------

void EditActionStack::addAction(EditAction action)
{
    // An empty insertion or deletion leaves no trace, not even on the redo list.
    if (action.getString().isEmpty() && action.getType() != EditAction::SetCaret)
        return;
    if (static_cast<long long>(undoActions.size()) + 1 > limit && !undoActions.empty())
        trimUndoFront();
    // Inserts and deletions are stored as their inverse: what undo must execute.
    adjustTrackingPos(action);
    if (action.getType() == EditAction::InsertText || action.getType() == EditAction::DeleteText)
        action.mirror();
    pushUndo(std::move(action));
    clearRedoActionList();
}

// Markers bypass addAction: they are not trimmed for, and do not kill the redo branch.
void EditActionStack::startActionGroup()
{
    pushUndo(EditAction(EditAction::GroupStart));
}

void EditActionStack::endActionGroup()
{
    pushUndo(EditAction(EditAction::GroupEnd));
}

EditAction EditActionStack::getUndoAction()
{
    if (undoActions.empty())
        return EditAction(EditAction::GroupStart); // callers ask hasMoreUndoActions first
    adjustTrackingPos(undoActions.back());
    EditAction taken = undoActions.back();
    moveBackMirrored(undoActions, redoActions);
    note(Change::UndoTaken);
    return taken;
}

EditAction EditActionStack::getRedoAction()
{
    if (redoActions.empty())
        return EditAction(EditAction::GroupStart); // callers ask hasMoreRedoActions first
    adjustTrackingPos(redoActions.back());
    EditAction taken = redoActions.back();
    moveBackMirrored(redoActions, undoActions);
    note(Change::RedoTaken);
    return taken;
}

void EditActionStack::clearRedoActionList()
{
    if (redoActions.empty())
        return;
    if (journaling())
        note(Change::RedoCleared, std::move(redoActions));
    redoActions.clear();
}

void EditActionStack::clearStack()
{
    if (journaling() && !undoActions.empty())
        note(Change::UndoCleared, std::move(undoActions));
    undoActions.clear();
    clearRedoActionList();
}

int EditActionStack::retrieveTrackingPos() noexcept
{
    return std::exchange(trackingPos, -1);
}

// The tracking position follows the splice an action describes (for a stored action,
// the splice that executing it makes). It is not clamped: a position inside a deleted
// range may go below the deletion's start.
void EditActionStack::adjustTrackingPos(EditAction const &action) noexcept
{
    if (trackingPos == -1 || trackingPos < action.getActionPosition())
        return;
    if (action.getType() == EditAction::InsertText)
        trackingPos += action.getString().length();
    else if (action.getType() == EditAction::DeleteText)
        trackingPos -= action.getString().length();
}

void EditActionStack::pushUndo(EditAction &&action)
{
    undoActions.push_back(std::move(action));
    note(Change::UndoPushed);
}

void EditActionStack::trimUndoFront()
{
    if (!journaling()) {
        undoActions.pop_front();
        return;
    }
    std::list<EditAction> oldest;
    oldest.splice(oldest.begin(), undoActions, undoActions.begin());
    note(Change::UndoFrontTrimmed, std::move(oldest));
}

// Moves the node itself, so the action's text is not copied.
void EditActionStack::moveBackMirrored(std::list<EditAction> &from, std::list<EditAction> &to) noexcept
{
    to.splice(to.end(), from, std::prev(from.end()));
    to.back().mirror();
}

// Checkpoints ------------------------------------------------------------------------

EditActionStack::Checkpoint EditActionStack::openCheckpoint()
{
    ++openCheckpoints;
    return Checkpoint{journal.size(), trackingPos, limit};
}

void EditActionStack::rollBackTo(Checkpoint const &checkpoint)
{
    while (journal.size() > checkpoint.journalMark) {
        reverse(journal.back());
        journal.pop_back();
    }
    trackingPos = checkpoint.trackingPos;
    limit = checkpoint.limit;
}

void EditActionStack::releaseCheckpoint() noexcept
{
    if (openCheckpoints > 0)
        --openCheckpoints;
    if (openCheckpoints == 0)
        journal.clear(); // keeps its capacity: the next key press allocates nothing here
}

void EditActionStack::note(Change change, std::list<EditAction> &&removed)
{
    if (journaling())
        journal.push_back(JournalEntry{change, std::move(removed)});
}

void EditActionStack::reverse(JournalEntry &entry)
{
    switch (entry.change) {
    case Change::UndoPushed:
        undoActions.pop_back();
        break;
    case Change::UndoFrontTrimmed:
        undoActions.splice(undoActions.begin(), entry.removed);
        break;
    case Change::UndoTaken:
        moveBackMirrored(redoActions, undoActions);
        break;
    case Change::RedoTaken:
        moveBackMirrored(undoActions, redoActions);
        break;
    case Change::RedoCleared:
        redoActions.swap(entry.removed);
        break;
    case Change::UndoCleared:
        undoActions.swap(entry.removed);
        break;
    }
}
