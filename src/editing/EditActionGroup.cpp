#include "editing/EditActionGroup.h"

#include "editing/EditActionStack.h"
#include "editing/EditableDocumentBuffer.h"

EditActionGroup::EditActionGroup(EditActionStack *actionStack) : stack(actionStack)
{
    stack->startActionGroup();
}

EditActionGroup::EditActionGroup(EditableDocumentBuffer *buffer) : EditActionGroup(&buffer->actionStack) {}

EditActionGroup::~EditActionGroup()
{
    if (stack != nullptr)
        stack->endActionGroup();
}
