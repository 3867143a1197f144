#pragma once

#include "editing/EditActionStack.h"
#include "support/String.h"

class EditableDocumentBuffer;

// A snapshot of a buffer for one transaction: content, caret, pivot, history and the
// protection flag. `restorePreviousState` writes it all back, silently: no monitor
// call and no recorded action. The caller holds a FreezeNotifications around the
// whole transaction.
//
// The history is not copied: the snapshot holds a checkpoint of the buffer's
// EditActionStack, which journals what the transaction changes and gives it back on
// restore (see EditActionStack). So a snapshot costs one copy of the document and
// nothing that grows with the history. Snapshots are locals of one operation and
// must not outlive their buffer.
//
// The typing group belongs to the history too: a typing group opened during the
// transaction has its start marker rolled back with the lists, so restoring also
// drops that group without its end marker. Otherwise the next endKeyTypingSequence
// would leave a lone end marker behind, and the history would no longer be as before.
class EditableDocumentBufferState {
public:
    explicit EditableDocumentBufferState(EditableDocumentBuffer *buffer);
    virtual ~EditableDocumentBufferState();
    // A copy holds the same checkpoint once more, and restores to the same state.
    EditableDocumentBufferState(const EditableDocumentBufferState &other);
    EditableDocumentBufferState &operator=(const EditableDocumentBufferState &other);

    void restorePreviousState();

private:
    Core::String content;
    EditableDocumentBuffer *buffer;
    int caret;
    int selectionPivot;
    EditActionStack::Checkpoint history; // stands for the lists, limit and tracking position
    bool documentProtected;
    bool typingGroupOpen; // keyTypingGroup was set when the snapshot was taken
};
