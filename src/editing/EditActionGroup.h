#pragma once

class EditActionStack;
class EditableDocumentBuffer;

// Scope guard: everything recorded while it lives is one undo step.
class EditActionGroup {
public:
    explicit EditActionGroup(EditActionStack *stack);
    explicit EditActionGroup(EditableDocumentBuffer *buffer);
    ~EditActionGroup();
    EditActionGroup(const EditActionGroup &) = delete;
    EditActionGroup &operator=(const EditActionGroup &) = delete;

    // Forgets the group without writing its end marker: for a group whose start
    // marker a rolled-back transaction has taken out of the history again.
    void abandon() noexcept { stack = nullptr; }

private:
    EditActionStack *stack; // null once abandoned
};
