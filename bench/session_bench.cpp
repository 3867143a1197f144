// The document session on a 1 MB document: loading, the per-key-press snapshot
// (whose cost must not grow with the history), and undo/redo of a long typing run.

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/EditableDocumentBufferState.h"
#include "editing/FreezeNotifications.h"

#include <benchmark/benchmark.h>

namespace {

// Reaches the recorded splices, which is how every editing operation changes the text.
class SessionBenchBuffer : public EditableDocumentBuffer {
public:
    SessionBenchBuffer()
    {
        setRootElement("fo:root");
        for (const char *name : {"fo:block", "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override"})
            addEditableElement(name);
        for (const char *name : {"fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override"})
            addInlineEditableElement(name);
    }

    // One key press as insertText makes it: a snapshot for the roll-back, a frozen
    // scope, and a recorded insertion at the caret inside the open typing group.
    void typeKey(Core::String const &key)
    {
        EditableDocumentBufferState snapshot(this);
        FreezeNotifications freeze(this);
        EditActionGroup group(this);
        int const position = getCaretPos();
        addCaretMark();
        insertXmlTextAtPosition(position, key);
        addAction(EditAction(EditAction::InsertText, position, -1, -1, key));
        addCaretMark();
    }

    // A recorded edit somewhere else, to give the history depth.
    void recordEdit(int position)
    {
        EditActionGroup group(this);
        addCaretMark();
        insertXmlTextAtPosition(position, "x");
        addAction(EditAction(EditAction::InsertText, position, -1, -1, "x"));
        addCaretMark();
    }
};

// About 1 MB (in code units) of blocks with inlines, in one flow.
Core::String megabyteDocument()
{
    Core::String body;
    Core::String const block = "<fo:block font-size=\"10pt\">Lorem ipsum dolor sit amet, <fo:inline "
                               "font-weight=\"bold\">consectetur</fo:inline> adipiscing elit.</fo:block>\r\n";
    while (body.length() < 1000000)
        body += block;
    return Core::String("<?xml version=\"1.0\" encoding=\"UTF-8\"?><fo:root "
                        "xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><fo:layout-master-set>"
                        "<fo:simple-page-master master-name=\"A4\"><fo:region-body/></fo:simple-page-master>"
                        "</fo:layout-master-set><fo:page-sequence master-reference=\"A4\">"
                        "<fo:flow flow-name=\"xsl-region-body\">") +
           body + "</fo:flow></fo:page-sequence></fo:root>";
}

Core::String const &document()
{
    static Core::String const text = megabyteDocument();
    return text;
}

void BM_SetContent(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer(new SessionBenchBuffer());
    bool const keepHistory = state.range(0) != 0;
    for (auto _ : state) {
        buffer->setContent(document(), !keepHistory);
        if (keepHistory)
            buffer->getActionStack().clearStack();
    }
    state.SetBytesProcessed(state.iterations() * document().length() * 2);
    state.SetLabel(keepHistory ? "recorded pair" : "clearing history");
}
BENCHMARK(BM_SetContent)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// A key press's snapshot and frozen recorded insertion, with a history of
// `range(0)` actions behind it: the time should not depend on that depth.
void BM_KeyPressWithHistoryDepth(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer(new SessionBenchBuffer());
    buffer->setContent(document(), true);
    int const caret = buffer->getCaretPos();
    for (int i = 0; i < state.range(0) / 5; ++i)
        buffer->recordEdit(caret);
    state.counters["history"] = static_cast<double>(buffer->getActionStack().undoActionCount());
    for (auto _ : state)
        buffer->typeKey("a");
}
BENCHMARK(BM_KeyPressWithHistoryDepth)->Arg(0)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// A snapshot taken and rolled back after a key press, at full history depth.
void BM_SnapshotRollBack(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer(new SessionBenchBuffer());
    buffer->setContent(document(), true);
    int const caret = buffer->getCaretPos();
    for (int i = 0; i < 2000; ++i)
        buffer->recordEdit(caret);
    for (auto _ : state) {
        EditableDocumentBufferState snapshot(buffer.get());
        buffer->recordEdit(caret);
        snapshot.restorePreviousState();
    }
}
BENCHMARK(BM_SnapshotRollBack)->Unit(benchmark::kMicrosecond);

// Undo and redo of one typing run of `range(0)` keys, all in one group.
void BM_UndoRedoTypingRun(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer(new SessionBenchBuffer());
    buffer->setContent(document(), true);
    {
        EditActionGroup typingRun(buffer.get());
        for (int i = 0; i < state.range(0); ++i)
            buffer->typeKey("a");
    }
    for (auto _ : state) {
        buffer->undo();
        buffer->redo();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_UndoRedoTypingRun)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
