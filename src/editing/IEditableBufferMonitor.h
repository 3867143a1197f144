#pragma once

// The host's observer of one document buffer. Calls carry no argument: the host asks
// the buffer what it needs. Calls arrive on the caller's thread, inside the operation;
// a monitor may read the buffer but must not edit it.
class IEditableBufferMonitor {
public:
    virtual void onBufferChanged() = 0;
    virtual void onCaretChanged() = 0;
    virtual void onSelectionChanged() = 0;
    virtual ~IEditableBufferMonitor() = default;
};
