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

private:
    EditActionStack *stack;
};
