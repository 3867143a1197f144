#include "common/KeyPresses.h"

#include "editing/BreakType.h"

namespace foedit::test {

void pressDelete(EditableDocumentBuffer &buffer)
{
    buffer.erase(true, false);
}

void pressBackspace(EditableDocumentBuffer &buffer)
{
    buffer.erase(false, false);
}

void pressControlDelete(EditableDocumentBuffer &buffer)
{
    buffer.erase(true, true);
}

void pressEnter(EditableDocumentBuffer &buffer)
{
    buffer.insertBreak(ParagraphBreak, false);
}

void pressLineBreak(EditableDocumentBuffer &buffer)
{
    buffer.insertBreak(LineBreak, false);
}

} // namespace foedit::test
