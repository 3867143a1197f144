#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "support/SpellChecker.h"
#include "tables/EditableTableBuffer.h"

EditableDocumentBuffer::EditableDocumentBuffer() = default;

// An open typing group is closed first, so the history it belongs to stays balanced
// while the buffer goes down.
EditableDocumentBuffer::~EditableDocumentBuffer()
{
    endKeyTypingSequence();
    tableBufferCache.reset();
    spellChecker.reset();
}
