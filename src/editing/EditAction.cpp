#include "editing/EditAction.h"

#include <utility>

EditAction::EditAction(EditActionType actionType) : type(actionType) {}

EditAction::EditAction(EditActionType actionType, int position, int caret, int pivot, Core::String actionText)
    : text(std::move(actionText)), caretPosition(caret), selPivotPosition(pivot), actionPosition(position),
      type(actionType)
{
}

EditAction::EditActionType EditAction::mirrorType(EditActionType actionType) noexcept
{
    switch (actionType) {
    case InsertText:
        return DeleteText;
    case DeleteText:
        return InsertText;
    case GroupStart:
        return GroupEnd;
    case GroupEnd:
        return GroupStart;
    default:
        return actionType;
    }
}

EditAction EditAction::mirrored() const
{
    return withType(mirrorType(type));
}

void EditAction::mirror() noexcept
{
    type = mirrorType(type);
}

EditAction EditAction::withType(EditActionType newType) const
{
    EditAction copy(*this);
    copy.type = newType;
    return copy;
}
