// The document session on a 1 MB document: loading, the per-key-press snapshot
// (whose cost must not grow with the history), and undo/redo of a long typing run.

#include "common/BenchDocuments.h"
#include "common/StandardDocument.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/EditableDocumentBufferState.h"

#include <benchmark/benchmark.h>

namespace {

// Reaches the recorded splices, which is how every editing operation changes the text.
class SessionBenchBuffer : public EditableDocumentBuffer {
public:
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
    Core::String const block = "<fo:block font-size=\"10pt\">Lorem ipsum dolor sit amet, <fo:inline "
                               "font-weight=\"bold\">consectetur</fo:inline> adipiscing elit.</fo:block>\r\n";
    int const megabyte = 1000000;
    return foedit::test::wrapInFlow(
        foedit::bench::repeated(block, (megabyte + block.length() - 1) / block.length()));
}

Core::String const &document()
{
    static Core::String const text = megabyteDocument();
    return text;
}

void BM_SetContent(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer = foedit::test::makeStandardBuffer<SessionBenchBuffer>();
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

// One key press (insertText: snapshot, recorded insertion, validation of the whole
// string) with a history of `range(0)` actions behind it: the time must not depend on
// that depth.
void BM_KeyPressWithHistoryDepth(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer = foedit::test::makeStandardBuffer<SessionBenchBuffer>();
    buffer->setContent(document(), true);
    int const caret = buffer->getCaretPos();
    for (int i = 0; i < state.range(0) / 5; ++i)
        buffer->recordEdit(caret);
    state.counters["history"] = static_cast<double>(buffer->getActionStack().undoActionCount());
    for (auto _ : state) {
        buffer->insertText("a", false, false);
        buffer->endKeyTypingSequence(); // each key its own step, so the history keeps growing
    }
}
BENCHMARK(BM_KeyPressWithHistoryDepth)->Arg(0)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// A snapshot taken, one recorded edit, and the roll-back, with `range(0)` actions of
// history behind it: one copy of the document each way, nothing for the history.
void BM_SnapshotRollBack(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer = foedit::test::makeStandardBuffer<SessionBenchBuffer>();
    buffer->setContent(document(), true);
    int const caret = buffer->getCaretPos();
    for (int i = 0; i < state.range(0) / 5; ++i)
        buffer->recordEdit(caret);
    for (auto _ : state) {
        EditableDocumentBufferState snapshot(buffer.get());
        buffer->recordEdit(caret);
        snapshot.restorePreviousState();
    }
}
BENCHMARK(BM_SnapshotRollBack)->Arg(0)->Arg(10000)->Unit(benchmark::kMicrosecond);

// Undo and redo of one typing run of `range(0)` keys, one undo step.
void BM_UndoRedoTypingRun(benchmark::State &state)
{
    SmartPtr<SessionBenchBuffer> buffer = foedit::test::makeStandardBuffer<SessionBenchBuffer>();
    buffer->setContent(document(), true);
    for (int i = 0; i < state.range(0); ++i)
        buffer->insertText("a", false, false);
    buffer->endKeyTypingSequence();
    for (auto _ : state) {
        buffer->undo();
        buffer->redo();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_UndoRedoTypingRun)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
