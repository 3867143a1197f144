#pragma once

#include "editing/EditActionStack.h"
#include "support/String.h"

class EditableDocumentBuffer;

// A full snapshot of a buffer for one transaction: content, caret, pivot, history and
// the protection flag. `restorePreviousState` writes it all back, silently.
class EditableDocumentBufferState {
public:
    explicit EditableDocumentBufferState(EditableDocumentBuffer *buffer);
    virtual ~EditableDocumentBufferState() = default;
    EditableDocumentBufferState(const EditableDocumentBufferState &) = default;
    EditableDocumentBufferState &operator=(const EditableDocumentBufferState &) = default;

    void restorePreviousState();

private:
    Core::String content;
    EditableDocumentBuffer *buffer;
    int caret;
    int selectionPivot;
    EditActionStack actionStack;
    bool documentProtected;
};
