#pragma once

#include "support/SmartPtr.h"
#include "support/String.h"

class EditableDocumentBuffer;

namespace BufferAlgorithms {

// A thin base for algorithms that work on a document from outside: it holds the
// document and forwards the few walks they all need. Every helper called while the
// document is null throws Core::NullPointerException.
class BufferAlg {
public:
    explicit BufferAlg(SmartPtr<EditableDocumentBuffer> buffer);
    virtual ~BufferAlg();

protected:
    // The nearest ancestor of `position` called `name` (prefix kept), up to the root.
    int searchParent(const Core::String &name, int position) const;
    int getNextElementByName(const Core::String &name, int position) const;
    Core::String getRootElement() const;
    int getCaretPos() const;
    int getClosingTagForTagAtPosition(int position) const;

    SmartPtr<EditableDocumentBuffer> document;
};

} // namespace BufferAlgorithms
