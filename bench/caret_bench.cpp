// Caret movement: right-arrow presses across a whole corpus document, and at the start,
// the middle and the end of documents of 64 KB, 1 MB and 8 MB made by repeating a corpus
// document's flow; Home on a 1 MB document. The cost of a press must follow the markup
// it crosses, not the size of the document.

#include "common/BenchDocuments.h"
#include "common/StandardDocument.h"

#include "editing/EditableDocumentBuffer.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace {

const char *const corpusDocument = "basic__readme.fo";

Core::String const &replicatedDocument(int units)
{
    return foedit::bench::replicatedCorpusDocument(corpusDocument, units);
}

// Every right-arrow press from Home to the end of the document.
void BM_RightArrowAcrossCorpusDocument(benchmark::State &state)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    buffer->setContent(foedit::bench::corpusDocument(corpusDocument), true);
    int const home = buffer->getCaretPos();
    long presses = 0;
    for (auto _ : state) {
        buffer->setCaretPos(false, home);
        for (int before = -1; buffer->getCaretPos() != before; ++presses) {
            before = buffer->getCaretPos();
            buffer->moveCaretRight(false, false, true);
        }
    }
    state.SetItemsProcessed(presses);
}
BENCHMARK(BM_RightArrowAcrossCorpusDocument)->Unit(benchmark::kMillisecond);

// 200 right-arrow presses from a caret stop at 1%, 50% or 99% of a replicated document.
void BM_RightArrowPresses(benchmark::State &state)
{
    int const units = static_cast<int>(state.range(0));
    int const percent = static_cast<int>(state.range(1));
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    Core::String text = replicatedDocument(units);
    buffer->setContent(text, true);
    // The first stop at or after the wanted share of the string: a block's text.
    int target = static_cast<int>(static_cast<long long>(text.length()) * percent / 100);
    int start = text.find("<fo:block", target);
    start = text.find(">", start) + 1;
    buffer->setCaretPos(false, start);
    int const presses = 200;
    for (auto _ : state) {
        buffer->setCaretPos(false, start);
        for (int i = 0; i < presses; ++i)
            buffer->moveCaretRight(false, false, true);
    }
    state.SetItemsProcessed(state.iterations() * presses);
    state.counters["us_per_press"] =
        benchmark::Counter(static_cast<double>(state.iterations() * presses),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_RightArrowPresses)
    ->ArgsProduct({{64 * 1024, 1024 * 1024, 8 * 1024 * 1024}, {1, 50, 99}})
    ->Unit(benchmark::kMillisecond);

void BM_MoveCaretHome(benchmark::State &state)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    buffer->setContent(replicatedDocument(1024 * 1024), true);
    for (auto _ : state)
        buffer->moveCaretHome(false);
}
BENCHMARK(BM_MoveCaretHome)->Unit(benchmark::kMicrosecond);

} // namespace
