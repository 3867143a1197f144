// Properties and export on documents of growing size. Writing one tag costs its
// splices and no walk from the start of the document. Formatting a selection costs a
// few splices per run of text, and plain text one caret step per tag; both therefore
// grow with what a splice and a caret step cost on the document.

#include "common/BenchDocuments.h"
#include "common/StandardDocument.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/PropertiesHelper.h"

#include <benchmark/benchmark.h>

namespace {

class PropertiesBenchBuffer : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::getPlainText;
    using EditableDocumentBuffer::setPropertiesForElementAt;
    void select(int pivot, int caretPosition)
    {
        setCaretPos(false, pivot);
        setCaretPos(true, caretPosition);
    }
};

// `blocks` blocks of about 100 code units, each with an inline, in one flow.
Core::String documentOf(int blocks)
{
    Core::String const block = "<fo:block font-size=\"10pt\">Lorem ipsum dolor sit amet, <fo:inline "
                               "font-style=\"italic\">consectetur</fo:inline> adipiscing elit.</fo:block>";
    return foedit::test::wrapInFlow(foedit::bench::repeated(block, blocks));
}

SmartPtr<PropertiesBenchBuffer> load(int blocks)
{
    SmartPtr<PropertiesBenchBuffer> buffer = foedit::test::makeStandardBuffer<PropertiesBenchBuffer>();
    buffer->setContent(documentOf(blocks), true);
    return buffer;
}

PropertyCollection bold()
{
    PropertyCollection properties;
    properties.addProperty(EditableProperty("fo:font-weight", "bold"), true);
    return properties;
}

// One property on the last block of the document, then undone.
void BM_SetPropertyOnLastBlock(benchmark::State &state)
{
    auto buffer = load(static_cast<int>(state.range(0)));
    int const lastBlock = buffer->getContent().rFind("<fo:block", buffer->getContent().length() - 1);
    for (auto _ : state) {
        buffer->setPropertiesForElementAt(lastBlock, bold());
        buffer->undo();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_SetPropertyOnLastBlock)->RangeMultiplier(4)->Range(64, 16384)->Complexity();

// Bold over the text of 16 blocks at the end of the document, then undone.
void BM_FormatSixteenBlocks(benchmark::State &state)
{
    auto buffer = load(static_cast<int>(state.range(0)));
    Core::String const content = buffer->getContent();
    int end = content.rFind("</fo:block>", content.length() - 1);
    int start = end;
    for (int i = 0; i < 16; ++i)
        start = content.rFind("<fo:block", start - 1);
    start = content.find(u'>', start) + 1;
    for (auto _ : state) {
        buffer->select(start, end);
        buffer->setProperties(bold(), Core::String());
        buffer->undo();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_FormatSixteenBlocks)->RangeMultiplier(4)->Range(64, 4096)->Complexity();

// Bold over the whole flow: every block adds its runs.
void BM_FormatWholeFlow(benchmark::State &state)
{
    auto buffer = load(static_cast<int>(state.range(0)));
    Core::String const content = buffer->getContent();
    int start = content.find(u'>', content.find("<fo:block")) + 1;
    int end = content.rFind("</fo:block>", content.length() - 1);
    for (auto _ : state) {
        buffer->select(start, end);
        buffer->setProperties(bold(), Core::String());
        buffer->undo();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_FormatWholeFlow)->RangeMultiplier(4)->Range(16, 256)->Complexity();

void BM_PlainTextOfWholeFlow(benchmark::State &state)
{
    auto buffer = load(static_cast<int>(state.range(0)));
    Core::String const content = buffer->getContent();
    int start = content.find("<fo:block");
    int end = content.find("</fo:flow>");
    for (auto _ : state)
        benchmark::DoNotOptimize(buffer->getPlainText(start, end));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PlainTextOfWholeFlow)->RangeMultiplier(4)->Range(64, 4096)->Complexity();

// The attributes of a bordered table cell folded and unfolded, as the table and page
// master buffers do for every element they commit.
void BM_CollapseAndExpandCell(benchmark::State &state)
{
    PropertyCollection cell;
    for (const char *side : {"top", "right", "bottom", "left"}) {
        cell.addProperty(EditableProperty(Core::String("fo:border-") + side + "-width", "0.5pt"), true);
        cell.addProperty(EditableProperty(Core::String("fo:border-") + side + "-style", "solid"), true);
        cell.addProperty(EditableProperty(Core::String("fo:border-") + side + "-color", "black"), true);
        cell.addProperty(EditableProperty(Core::String("fo:padding-") + side, "2pt"), true);
    }
    cell.addProperty(EditableProperty("fo:number-columns-spanned", "1"), true);
    for (auto _ : state) {
        PropertyCollection properties = cell;
        PropertiesHelper::removeDefaultValues(properties);
        PropertiesHelper::collapseShorthands(properties);
        PropertiesHelper::expandShorthands(properties);
        benchmark::DoNotOptimize(properties);
    }
}
BENCHMARK(BM_CollapseAndExpandCell);

} // namespace
