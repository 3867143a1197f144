#pragma once

// The check every edit test goes through: the document before, the edit, the document
// after, and the history both ways.
//
//     expectEdit("<fo:block>ab|cd</fo:block>",
//                [](EditableDocumentBuffer &b) { b.insertText("X", false, false); },
//                "<fo:block>abX|cd</fo:block>");
//
// Steps, each reported with the step's name when it fails:
//  1. Load `before` (marked, see MarkedDocument.h) into a standard-host buffer.
//  2. Run the edit; the marked result must equal `after`, markers included, so the
//     caret and the selection are always checked.
//  3. undo(): the exact original string comes back, and caret and pivot exactly.
//  4. redo(): the exact string after the edit comes back. Caret and pivot must be as
//     after the edit too, because a recorded edit ends with a caret mark and redo
//     executes that mark last. An edit that by design records no final caret mark
//     (a SetContent pair, an insertion with only the caret before recorded) says so
//     with `redoRestoresStringOnly()`, and then only the string is compared.
//  5. undo() once more gives the original again, so the redo left the history usable.
//
// An edit that changes nothing is checked the same way: `after` equals `before`, and
// undo and redo must leave it so.

#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

#include <functional>

namespace foedit::test {

class EditCheck {
public:
    using Edit = std::function<void(EditableDocumentBuffer &)>;
    using Setup = std::function<void(EditableDocumentBuffer &)>;

    // `markedBefore` is the body of the standard one-flow document.
    explicit EditCheck(Core::String markedBefore);
    // `markedBefore` is a whole document; results are compared on the whole string.
    static EditCheck document(Core::String markedBefore);

    // Runs after the standard host configuration and before loading (another root,
    // page-master mode, ...).
    EditCheck &withSetup(Setup setup);
    // See step 4.
    EditCheck &redoRestoresStringOnly();

    // Runs the check on an EditableDocumentBuffer.
    void expect(Edit const &edit, Core::String const &markedAfter) const;

    // Runs the check on a buffer of a derived class (a class that adds methods only),
    // so the edit can call those methods: check.expectOn<ListBuffer>([](ListBuffer &b)
    // { ... }, after).
    template <typename Buffer>
    void expectOn(std::function<void(Buffer &)> const &edit, Core::String const &markedAfter) const
    {
        SmartPtr<Buffer> buffer(new Buffer());
        Buffer &typed = *buffer;
        run(
            SmartPtr<EditableDocumentBuffer>(buffer),
            [&typed, &edit](EditableDocumentBuffer &) { edit(typed); }, markedAfter);
    }

private:
    void run(SmartPtr<EditableDocumentBuffer> buffer, Edit const &edit,
             Core::String const &markedAfter) const;
    Core::String marked(EditableDocumentBuffer const &buffer) const;

    Core::String before;
    bool wholeDocument = false;
    bool redoChecksCaret = true;
    Setup setup;
};

// EditCheck(before).expect(edit, after).
void expectEdit(Core::String const &before, EditCheck::Edit const &edit, Core::String const &after);

} // namespace foedit::test
