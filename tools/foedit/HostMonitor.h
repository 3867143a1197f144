#pragma once

#include "editing/IEditableBufferMonitor.h"

#include <string>

class EditableDocumentBuffer;

// What a host does when the engine tells it of a change: keep the engine's table
// cache in step with the caret (the engine leaves that to its host), and note what
// was heard, so `--trace` can show which notifications an edit sent.
class HostMonitor : public IEditableBufferMonitor {
public:
    explicit HostMonitor(EditableDocumentBuffer &observed) : document(observed) {}

    void onBufferChanged() override;
    void onCaretChanged() override;
    void onSelectionChanged() override;

    // The notifications heard since the last call, in order ("buffer caret"), and
    // forgets them.
    std::string takeHeard();

private:
    void note(const char *what);

    EditableDocumentBuffer &document;
    std::string heard;
};
