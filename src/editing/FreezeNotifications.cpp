#include "editing/FreezeNotifications.h"

#include "editing/EditableDocumentBuffer.h"

FreezeNotifications::FreezeNotifications(EditableDocumentBuffer *documentBuffer)
    : buffer(documentBuffer), savedMonitor(documentBuffer->monitor)
{
    buffer->monitor = this;
}

// An inner scope's saved monitor is the outer scope, so the flags bubble up and the
// host hears each kind of change once, when the outermost scope ends.
FreezeNotifications::~FreezeNotifications()
{
    buffer->monitor = savedMonitor;
    if (savedMonitor == nullptr)
        return;
    if (bufferChanged)
        savedMonitor->onBufferChanged();
    if (caretChanged)
        savedMonitor->onCaretChanged();
    if (selectionChanged)
        savedMonitor->onSelectionChanged();
}
