#pragma once

// The DOM frame as a table sub-buffer uses it, for tests and benchmarks: the stretch of
// one element made into a tree, written back unchanged by commit.

#include "dom/DOMBasedBuffer.h"
#include "editing/EditableDocumentBuffer.h"
#include "support/String.h"
#include "support/XmlElement.h"

namespace foedit::test {

class TableStretch : public DOMBasedBuffer {
public:
    // `openingTag` is the "<" of the element's start tag.
    TableStretch(EditableDocumentBuffer *buffer, int openingTag) : DOMBasedBuffer(buffer)
    {
        selectStretchOfElementAt(openingTag);
        loadStretch();
    }
    void commitChangesToEditableBuffer() override { writeTreeToStretch(); }

    const Xml::Element *root() const { return dom->getRootNode(); }
    Core::String text() const { return getStretchText(); }
    // Shorthands taken apart and put together again, as the property dialogs do.
    void shorthandRound()
    {
        expandShorthands();
        collapseShorthands(true);
    }
};

} // namespace foedit::test
