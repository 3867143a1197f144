#pragma once

#include "editing/EditAction.h"

#include <list>

// The undo and redo history: two lists of executable actions with group markers in
// line, a length limit on the undo list, and one tracking position that follows the
// recorded splices for the host.
class EditActionStack {
public:
    explicit EditActionStack(int limit = 10000);

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

private:
    std::list<EditAction> undoActions; // executed from the back
    std::list<EditAction> redoActions; // executed from the back
    int limit;                         // maximum length of undoActions, markers counted
    int trackingPos = -1;              // follows splices; -1 when not tracking
};
