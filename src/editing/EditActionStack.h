#pragma once

#include "editing/EditAction.h"

#include <cstddef>
#include <list>
#include <vector>

// The undo and redo history: two lists of executable actions with group markers in
// line, a length limit on the undo list, and one tracking position that follows the
// recorded splices for the host.
//
// Transactions. `insertText` and `erase` take a snapshot on every key press and roll
// back to it when the markup no longer validates. Copying the two lists for that would
// make a key press cost as much as the history is deep, so the stack offers
// checkpoints instead: while at least one checkpoint is open, every change of the
// lists writes its inverse to `journal`, and actions that leave a list (the oldest one
// trimmed by the limit, the redo list cleared by a new edit, an action taken by undo)
// are moved into the journal entry, not copied. Rolling back replays the journal
// backwards down to the checkpoint's mark, which gives back exactly the lists as they
// were; releasing the last checkpoint drops the journal with whatever it holds. A key
// press thus costs a few journal entries, whatever the depth of the history.
class EditActionStack {
public:
    explicit EditActionStack(int limit = 10000);
    // A copy takes both lists, the limit and the tracking position; it starts with no
    // open checkpoint.
    EditActionStack(const EditActionStack &other);
    EditActionStack &operator=(const EditActionStack &other);
    ~EditActionStack() = default;

    void addAction(EditAction action);
    void startActionGroup();
    void endActionGroup();
    EditAction getUndoAction();
    EditAction getRedoAction();
    bool hasMoreUndoActions() const noexcept { return !undoActions.empty(); }
    bool hasMoreRedoActions() const noexcept { return !redoActions.empty(); }
    void clearRedoActionList();
    void clearStack();
    void startTrackingPos(int position) noexcept { trackingPos = position; }
    int retrieveTrackingPos() noexcept;

    int getLimit() const noexcept { return limit; }
    int undoActionCount() const noexcept { return static_cast<int>(undoActions.size()); }
    int redoActionCount() const noexcept { return static_cast<int>(redoActions.size()); }
    std::list<EditAction> const &getUndoActions() const noexcept { return undoActions; }
    std::list<EditAction> const &getRedoActions() const noexcept { return redoActions; }

    // A point the history can be rolled back to. Checkpoints nest (last opened, first
    // released); a copy of a snapshot holds the same checkpoint once more.
    struct Checkpoint {
        std::size_t journalMark = 0;
        int trackingPos = -1;
        int limit = 0;
    };
    Checkpoint openCheckpoint();
    // Gives back the lists, the tracking position and the limit as they were when
    // `checkpoint` was opened. The checkpoint stays open: later changes can be rolled
    // back to it again.
    void rollBackTo(Checkpoint const &checkpoint);
    // One more holder of an open checkpoint (a copied snapshot).
    void retainCheckpoint() noexcept { ++openCheckpoints; }
    // Closes one checkpoint; when none is left open the journal is dropped.
    void releaseCheckpoint() noexcept;
    int openCheckpointCount() const noexcept { return openCheckpoints; }

private:
    // How to reverse one change of the lists.
    enum class Change {
        UndoPushed,       // an action or marker went on the back of undoActions
        UndoFrontTrimmed, // the oldest action, kept in the entry, fell off by the limit
        UndoTaken,        // the back of undoActions moved, mirrored, to redoActions
        RedoTaken,        // the back of redoActions moved, mirrored, to undoActions
        RedoCleared,      // redoActions emptied; the entry keeps the old list
        UndoCleared,      // undoActions emptied; the entry keeps the old list
    };
    struct JournalEntry {
        Change change;
        std::list<EditAction> removed; // actions that left a list, moved here
    };

    bool journaling() const noexcept { return openCheckpoints > 0; }
    void note(Change change) { note(change, std::list<EditAction>()); }
    void note(Change change, std::list<EditAction> &&removed);
    void reverse(JournalEntry &entry);

    void pushUndo(EditAction &&action);
    void trimUndoFront();
    void adjustTrackingPos(EditAction const &action) noexcept;
    static void moveBackMirrored(std::list<EditAction> &from, std::list<EditAction> &to) noexcept;

    std::list<EditAction> undoActions; // executed from the back
    std::list<EditAction> redoActions; // executed from the back
    int limit;                         // maximum length of undoActions, markers counted
    int trackingPos = -1;              // follows splices; -1 when not tracking

    // Inverse changes since the oldest open checkpoint, in order; empty whenever no
    // checkpoint is open. Entries own the actions that left the lists meanwhile.
    std::vector<JournalEntry> journal;
    int openCheckpoints = 0; // snapshots alive that may still roll back
};
