// Typing a 1,000-character paragraph into documents of 64 KB, 1 MB and 8 MB.
//
// Every key press takes a snapshot of the document and validates the whole string,
// so its cost grows with the document; it must not grow with the undo history, which
// grows by one action per key press here. One iteration types the whole paragraph
// into a fresh copy of the document; the counter "per_key_press" is the time of one
// key press, and the median over the repetitions is the number to read.

#include "common/BenchDocuments.h"
#include "common/StandardDocument.h"

#include "editing/EditAction.h"
#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kParagraphLength = 1000;

// A flow of paragraphs of about `bytes` bytes (two per code unit), with an empty
// block in the middle where the typing happens. `typingAt` is the position inside it.
Core::String makeDocument(long bytes, int &typingAt)
{
    int emptyBlock = -1;
    Core::String document =
        foedit::bench::proseAround("  <fo:block>&#x00A0;</fo:block>\n", bytes, emptyBlock);
    typingAt = emptyBlock == -1 ? -1 : emptyBlock + Core::String("  <fo:block>").length();
    return document;
}

// Types the paragraph into a fresh copy of the document per iteration, after filling
// the history with `history` caret marks.
void typeParagraphInto(benchmark::State &state, int history)
{
    int typingAt = -1;
    Core::String const document = makeDocument(state.range(0), typingAt);
    Core::String const text = "The quick brown fox jumps over the lazy dog. ";
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    for (auto _ : state) {
        state.PauseTiming();
        buffer->setContent(document, true);
        for (int i = 0; i < history; ++i)
            buffer->getActionStack().addAction(
                EditAction(EditAction::SetCaret, -1, typingAt, typingAt, Core::String()));
        buffer->setCaretPos(false, typingAt);
        state.ResumeTiming();
        for (int i = 0; i < kParagraphLength; ++i)
            buffer->insertText(Core::String::fromUnit(text[i % text.length()]), false, false);
        benchmark::DoNotOptimize(buffer->getCaretPos());
    }
    state.counters["per_key_press"] = benchmark::Counter(
        kParagraphLength, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void typeParagraph(benchmark::State &state)
{
    typeParagraphInto(state, 0);
}

// The same with 9,000 actions of history before the first key press: the time of a
// key press must not depend on it.
void typeParagraphAfterLongHistory(benchmark::State &state)
{
    typeParagraphInto(state, 9000);
}

} // namespace

BENCHMARK(typeParagraph)
    ->Arg(64L * 1024)
    ->Arg(1024L * 1024)
    ->Arg(8L * 1024 * 1024)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

BENCHMARK(typeParagraphAfterLongHistory)
    ->Arg(1024L * 1024)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
