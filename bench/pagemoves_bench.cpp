// Moves that name a page sequence by index, in documents of 10, 100 and 1,000 page
// sequences, each with two static contents and a flow of 40 blocks. Such a move counts
// sequences from the start of the document, so its cost follows the markup in front of
// the sequence it names: per byte it must stay flat as the document grows.

#include "common/StandardDocument.h"

#include "editing/EditableDocumentBuffer.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace {

// `staticName` is the flow-name of every sequence's first static content; the master's
// first side region is "head", so any other name leaves moveCaretToFirstStaticRegion
// nothing to find.
std::string sequencesDocument(int sequences, const char *staticName)
{
    std::string text = "<?xml version=\"1.0\"?>\n<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">\n"
                       "  <fo:layout-master-set>\n    <fo:simple-page-master master-name=\"A4\">\n"
                       "      <fo:region-body region-name=\"body\"/>\n"
                       "      <fo:region-before region-name=\"head\"/>\n"
                       "      <fo:region-after region-name=\"foot\"/>\n"
                       "    </fo:simple-page-master>\n  </fo:layout-master-set>\n";
    for (int s = 0; s < sequences; ++s) {
        text += "  <fo:page-sequence master-reference=\"A4\">\n";
        text += std::string("    <fo:static-content flow-name=\"") + staticName +
                "\"><fo:block>Page header</fo:block></fo:static-content>\n";
        text += "    <fo:static-content flow-name=\"foot\"><fo:block>Page "
                "footer</fo:block></fo:static-content>\n";
        text += "    <fo:flow flow-name=\"body\">\n";
        for (int b = 0; b < 40; ++b)
            text += "      <fo:block>A paragraph of the letter with <fo:inline font-weight=\"bold\">some "
                    "bold</fo:inline> words in it.</fo:block>\n";
        text += "    </fo:flow>\n  </fo:page-sequence>\n";
    }
    return text + "</fo:root>\n";
}

SmartPtr<EditableDocumentBuffer> loaded(int sequences, const char *staticName = "head")
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    buffer->setContent(Core::String::fromUtf8(sequencesDocument(sequences, staticName)), true);
    return buffer;
}

void reportBytes(benchmark::State &state, EditableDocumentBuffer &buffer)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * buffer.getContent().length());
}

// To the first stop of the last sequence's flow.
void BM_MoveCaretToLastPageSequence(benchmark::State &state)
{
    int const sequences = static_cast<int>(state.range(0));
    SmartPtr<EditableDocumentBuffer> buffer = loaded(sequences);
    for (auto _ : state)
        benchmark::DoNotOptimize(buffer->moveCaretToPageSequence(sequences - 1));
    reportBytes(state, *buffer);
}
BENCHMARK(BM_MoveCaretToLastPageSequence)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

// Back to the middle of the last sequence's flow by an offset.
void BM_MoveCaretToReferenceInLastSequence(benchmark::State &state)
{
    int const sequences = static_cast<int>(state.range(0));
    SmartPtr<EditableDocumentBuffer> buffer = loaded(sequences);
    Core::String const text = buffer->getContent();
    Core::String const flowTag = "<fo:flow flow-name=\"body\">";
    int const inside = text.rFind(flowTag, text.length() - 1) + flowTag.length();
    int const middle = text.find("some", inside + 2000);
    for (auto _ : state)
        benchmark::DoNotOptimize(buffer->moveCaretToReference(sequences - 1, middle - inside));
    reportBytes(state, *buffer);
}
BENCHMARK(BM_MoveCaretToReferenceInLastSequence)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

// Into the last sequence's header by region name.
void BM_MoveCaretToStaticRegionOfLastSequence(benchmark::State &state)
{
    int const sequences = static_cast<int>(state.range(0));
    SmartPtr<EditableDocumentBuffer> buffer = loaded(sequences);
    for (auto _ : state)
        buffer->moveCaretToStaticRegion("foot", sequences - 1);
    reportBytes(state, *buffer);
}
BENCHMARK(BM_MoveCaretToStaticRegionOfLastSequence)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond);

// The index of a caret in the last sequence.
void BM_CurrentPageSequenceIndexInLastSequence(benchmark::State &state)
{
    int const sequences = static_cast<int>(state.range(0));
    SmartPtr<EditableDocumentBuffer> buffer = loaded(sequences);
    buffer->moveCaretToPageSequence(sequences - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(buffer->getCurrentPageSequenceIdx());
    reportBytes(state, *buffer);
}
BENCHMARK(BM_CurrentPageSequenceIndexInLastSequence)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond);

// The worst case of the first static region: no sequence has a static content for the
// master's first side region, so every sequence is looked through.
void BM_MoveCaretToFirstStaticRegionFindingNone(benchmark::State &state)
{
    int const sequences = static_cast<int>(state.range(0));
    SmartPtr<EditableDocumentBuffer> buffer = loaded(sequences, "other");
    for (auto _ : state)
        buffer->moveCaretToFirstStaticRegion();
    reportBytes(state, *buffer);
}
BENCHMARK(BM_MoveCaretToFirstStaticRegionFindingNone)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond);

} // namespace
