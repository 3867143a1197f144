#pragma once

#include "structures/ListBuffer.h"

namespace foedit::test {

// The buffer a session drives: a ListBuffer, as a designer holds, with the two
// questions a click and a paragraph command need opened up. A host learns from its
// layout where a click puts the caret; the session, which has none, asks the engine
// for the next caret stop.
class SessionBuffer : public ListBuffer {
public:
    using EditableDocumentBuffer::getNextEditablePositionInFo;
    using EditableXmlBuffer::searchParent;
};

} // namespace foedit::test
