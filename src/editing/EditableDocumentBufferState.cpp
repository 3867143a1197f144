#include "editing/EditableDocumentBufferState.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"

EditableDocumentBufferState::EditableDocumentBufferState(EditableDocumentBuffer *documentBuffer)
    : content(documentBuffer->content), buffer(documentBuffer), caret(documentBuffer->caret),
      selectionPivot(documentBuffer->selectionPivot), history(documentBuffer->actionStack.openCheckpoint()),
      documentProtected(documentBuffer->documentProtected),
      typingGroupOpen(documentBuffer->keyTypingGroup != nullptr)
{
}

EditableDocumentBufferState::~EditableDocumentBufferState()
{
    buffer->actionStack.releaseCheckpoint();
}

EditableDocumentBufferState::EditableDocumentBufferState(const EditableDocumentBufferState &other)
    : content(other.content), buffer(other.buffer), caret(other.caret), selectionPivot(other.selectionPivot),
      history(other.history), documentProtected(other.documentProtected),
      typingGroupOpen(other.typingGroupOpen)
{
    buffer->actionStack.retainCheckpoint();
}

EditableDocumentBufferState &EditableDocumentBufferState::operator=(const EditableDocumentBufferState &other)
{
    if (this == &other)
        return *this;
    other.buffer->actionStack.retainCheckpoint();
    buffer->actionStack.releaseCheckpoint();
    content = other.content;
    buffer = other.buffer;
    caret = other.caret;
    selectionPivot = other.selectionPivot;
    history = other.history;
    documentProtected = other.documentProtected;
    typingGroupOpen = other.typingGroupOpen;
    return *this;
}

void EditableDocumentBufferState::restorePreviousState()
{
    buffer->replaceContent(content);
    buffer->caret = caret;
    buffer->selectionPivot = selectionPivot;
    buffer->actionStack.rollBackTo(history);
    buffer->documentProtected = documentProtected;
    if (!typingGroupOpen && buffer->keyTypingGroup != nullptr) {
        buffer->keyTypingGroup->abandon();
        delete buffer->keyTypingGroup;
        buffer->keyTypingGroup = nullptr;
    }
}
