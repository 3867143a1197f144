// The DOM sub-buffer frame on a table inside a large document: making the tree from
// the stretch, writing it back as one undo step, and the shorthand round over the
// tree. The cost should follow the table's size, not the document's.

#include "common/TableStretch.h"

#include "dom/DOMBasedBuffer.h"
#include "editing/EditableDocumentBuffer.h"

#include <benchmark/benchmark.h>

using foedit::test::TableStretch;

namespace {

Core::String table(int rows)
{
    Core::String text =
        "<fo:table border=\"1pt solid black\" width=\"100%\"><fo:table-column column-width=\"3cm\"/>"
        "<fo:table-column column-width=\"3cm\"/><fo:table-body>";
    for (int r = 0; r < rows; ++r) {
        text += "<fo:table-row>";
        for (int c = 0; c < 2; ++c)
            text +=
                "<fo:table-cell padding=\"2pt\" border=\"0.5pt solid gray\"><fo:block>cell text</fo:block>"
                "</fo:table-cell>";
        text += "</fo:table-row>";
    }
    return text + "</fo:table-body></fo:table>";
}

// Blocks before and after the table, `kilobytes` in all (in code units).
Core::String document(int rows, int kilobytes)
{
    Core::String half;
    const Core::String block =
        "<fo:block>Some text of a paragraph, <fo:inline font-weight=\"bold\">bold</fo:inline>"
        " and plain again.</fo:block>";
    while (half.length() < kilobytes * 512)
        half += block;
    return "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><fo:page-sequence "
           "master-reference=\"A4\"><fo:flow flow-name=\"xsl-region-body\">" +
           half + table(rows) + half + "</fo:flow></fo:page-sequence></fo:root>";
}

SmartPtr<EditableDocumentBuffer> load(int rows, int kilobytes, int &tablePosition)
{
    SmartPtr<EditableDocumentBuffer> buffer(new EditableDocumentBuffer());
    buffer->setRootElement("fo:root");
    buffer->addEditableElement("fo:block");
    buffer->setContent(document(rows, kilobytes), true);
    tablePosition = buffer->getContent().find("<fo:table ");
    return buffer;
}

void BM_MakeSubBuffer(benchmark::State &state)
{
    int position = -1;
    SmartPtr<EditableDocumentBuffer> buffer =
        load(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), position);
    for (auto _ : state) {
        SmartPtr<TableStretch> stretch(new TableStretch(buffer.get(), position));
        benchmark::DoNotOptimize(stretch.get());
    }
}
BENCHMARK(BM_MakeSubBuffer)
    ->Args({10, 100})
    ->Args({10, 1000})
    ->Args({100, 1000})
    ->Args({1000, 1000})
    ->Unit(benchmark::kMicrosecond);

// A commit, then the undo that puts the document back for the next round.
void BM_CommitAndUndo(benchmark::State &state)
{
    int position = -1;
    SmartPtr<EditableDocumentBuffer> buffer =
        load(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), position);
    SmartPtr<TableStretch> stretch(new TableStretch(buffer.get(), position));
    for (auto _ : state) {
        stretch->commitChangesToEditableBuffer();
        buffer->undo();
    }
}
BENCHMARK(BM_CommitAndUndo)
    ->Args({10, 100})
    ->Args({10, 1000})
    ->Args({100, 1000})
    ->Args({1000, 1000})
    ->Unit(benchmark::kMicrosecond);

void BM_ShorthandRound(benchmark::State &state)
{
    int position = -1;
    SmartPtr<EditableDocumentBuffer> buffer = load(static_cast<int>(state.range(0)), 100, position);
    SmartPtr<TableStretch> stretch(new TableStretch(buffer.get(), position));
    for (auto _ : state)
        stretch->shorthandRound();
}
BENCHMARK(BM_ShorthandRound)->Arg(10)->Arg(100)->Unit(benchmark::kMicrosecond);

} // namespace
