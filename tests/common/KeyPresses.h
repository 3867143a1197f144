#pragma once

// The keys of the editing tests, as a host sends them to the buffer. Each is an edit
// for EditCheck: expectEdit("<fo:block>ab|cd</fo:block>", pressDelete, "<fo:block>ab|d</fo:block>").

#include "editing/EditableDocumentBuffer.h"

namespace foedit::test {

void pressDelete(EditableDocumentBuffer &buffer);
void pressBackspace(EditableDocumentBuffer &buffer);
// Delete with Ctrl held: up to the end of the word.
void pressControlDelete(EditableDocumentBuffer &buffer);
// Enter outside a list: a paragraph break.
void pressEnter(EditableDocumentBuffer &buffer);
// The line break command: a nested empty block.
void pressLineBreak(EditableDocumentBuffer &buffer);

} // namespace foedit::test
