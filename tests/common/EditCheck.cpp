#include "common/EditCheck.h"

#include "common/MarkedDocument.h"

#include <gtest/gtest.h>

#include <utility>

namespace foedit::test {

namespace {

// What the history must give back exactly.
struct Snapshot {
    Core::String content;
    int caret;
    int pivot;

    static Snapshot of(EditableDocumentBuffer const &buffer)
    {
        return {buffer.getContent(), buffer.getCaretPos(), buffer.getSelectionPivotPos()};
    }
};

void expectSame(EditableDocumentBuffer const &buffer, Snapshot const &expected, bool withCaret)
{
    EXPECT_EQ(buffer.getContent(), expected.content);
    if (!withCaret)
        return;
    EXPECT_EQ(buffer.getCaretPos(), expected.caret) << "caret";
    EXPECT_EQ(buffer.getSelectionPivotPos(), expected.pivot) << "pivot";
}

} // namespace

EditCheck::EditCheck(Core::String markedBefore) : before(std::move(markedBefore)) {}

EditCheck EditCheck::document(Core::String markedBefore)
{
    EditCheck check(std::move(markedBefore));
    check.wholeDocument = true;
    return check;
}

EditCheck &EditCheck::withSetup(Setup newSetup)
{
    setup = std::move(newSetup);
    return *this;
}

EditCheck &EditCheck::redoRestoresStringOnly()
{
    redoChecksCaret = false;
    return *this;
}

void EditCheck::expect(Edit const &edit, Core::String const &markedAfter) const
{
    run(SmartPtr<EditableDocumentBuffer>(new EditableDocumentBuffer()), edit, markedAfter);
}

Core::String EditCheck::marked(EditableDocumentBuffer const &buffer) const
{
    return wholeDocument ? markedContent(buffer) : markedFlow(buffer);
}

void EditCheck::run(SmartPtr<EditableDocumentBuffer> buffer, Edit const &edit,
                    Core::String const &markedAfter) const
{
    SCOPED_TRACE("before: " + before.toUtf8());
    configureStandardHost(*buffer);
    if (setup)
        setup(*buffer);
    if (wholeDocument)
        loadMarkedDocument(*buffer, before);
    else
        loadMarked(*buffer, before);
    Snapshot const original = Snapshot::of(*buffer);
    Core::String const originalMarked = marked(*buffer);

    edit(*buffer);
    EXPECT_EQ(marked(*buffer), markedAfter) << "after the edit";
    Snapshot const edited = Snapshot::of(*buffer);

    {
        SCOPED_TRACE("undo");
        buffer->undo();
        EXPECT_EQ(marked(*buffer), originalMarked);
        expectSame(*buffer, original, true);
    }
    {
        SCOPED_TRACE("redo");
        buffer->redo();
        expectSame(*buffer, edited, redoChecksCaret);
    }
    {
        SCOPED_TRACE("undo after redo");
        buffer->undo();
        expectSame(*buffer, original, true);
    }
}

void expectEdit(Core::String const &before, EditCheck::Edit const &edit, Core::String const &after)
{
    EditCheck(before).expect(edit, after);
}

} // namespace foedit::test
