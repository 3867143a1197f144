#pragma once

#include "editing/IEditableBufferMonitor.h"

class EditableDocumentBuffer;

// Scope guard that defers the monitor: while it lives the buffer's monitor is this
// object, which only notes what changed. When it ends, the saved monitor is put back
// and called once per change, always in the order buffer, caret, selection. Scopes
// nest: an inner scope's saved monitor is the outer scope.
class FreezeNotifications : public IEditableBufferMonitor {
public:
    explicit FreezeNotifications(EditableDocumentBuffer *buffer);
    ~FreezeNotifications() override;
    FreezeNotifications(const FreezeNotifications &) = delete;
    FreezeNotifications &operator=(const FreezeNotifications &) = delete;

    void onBufferChanged() override { bufferChanged = true; }
    void onCaretChanged() override { caretChanged = true; }
    void onSelectionChanged() override { selectionChanged = true; }
    bool isChanged() const noexcept { return bufferChanged || caretChanged || selectionChanged; }

private:
    EditableDocumentBuffer *buffer;
    IEditableBufferMonitor *savedMonitor;
    bool bufferChanged = false;
    bool caretChanged = false;
    bool selectionChanged = false;
};
