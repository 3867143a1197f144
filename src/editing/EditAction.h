#pragma once

#include "support/String.h"

// One recorded step of the history: a splice (position and text), a caret mark, a
// whole-document replacement, or a group marker. The undo list stores inverses, so
// what it holds is what must be executed.
class EditAction {
public:
    enum EditActionType : int {
        InsertText = 0, // insert `text` at `actionPosition`
        DeleteText = 1, // delete length(text) units at `actionPosition`
        SetContent = 2, // replace the whole content by `text`
        SetCaret = 3,   // restore caret and pivot
        GroupStart = 4, // marker, never executed
        GroupEnd = 5,   // marker, never executed
    };

    explicit EditAction(EditActionType type);
    EditAction(EditActionType type, int actionPosition, int caretPosition, int selPivotPosition,
               Core::String text);

    EditActionType getType() const noexcept { return type; }
    int getActionPosition() const noexcept { return actionPosition; }
    int getCaretPosition() const noexcept { return caretPosition; }
    int getSelPivotPosition() const noexcept { return selPivotPosition; }
    Core::String const &getString() const noexcept { return text; }
    bool mustKeepSelection() const noexcept { return keepSelection; }

    // The same action for the other direction: InsertText <-> DeleteText,
    // GroupStart <-> GroupEnd, the others are their own mirror.
    EditAction mirrored() const;
    EditAction withType(EditActionType newType) const;
    // Turns this action into its mirror in place (the history moves actions between
    // its lists without copying their text).
    void mirror() noexcept;
    static EditActionType mirrorType(EditActionType type) noexcept;

private:
    Core::String text;
    int caretPosition = -1;
    int selPivotPosition = -1;
    int actionPosition = 0;
    EditActionType type = SetCaret;
    bool keepSelection = false; // carried along, never acted on
};
