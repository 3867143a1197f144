// Enter and Backspace in a numbered list of 10, 100 and 1,000 items that stands in the
// middle of a 1 MB document.
//
// Enter in the first item rewrites the rest of the list in one splice, numbers
// included; Backspace at the start of the second item joins it to the first and
// writes every label behind it anew, one splice per label; Backspace inside an item's
// text is an ordinary deletion, whose list part is only finding out where it stands.
// Each iteration presses the key once and, untimed, undoes it.

#include "common/BenchDocuments.h"
#include "common/StandardDocument.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr long kDocumentBytes = 1L << 20;

Core::String item(int number)
{
    return Core::String(("<fo:list-item><fo:list-item-label end-indent=\"label-end()\"><fo:block>" +
                         std::to_string(number) +
                         ")</fo:block></fo:list-item-label><fo:list-item-body start-indent=\"body-start()\">"
                         "<fo:block>Item text of a list item, long enough to read.</fo:block>"
                         "</fo:list-item-body></fo:list-item>")
                            .c_str());
}

// Paragraphs around a list of `items` items. `firstText` is the start of the first
// item's text, `secondText` of the second's.
Core::String makeDocument(int items, int &firstText, int &secondText)
{
    Core::String list = "<fo:block><fo:list-block>";
    for (int n = 1; n <= items; ++n)
        list += item(n);
    list += "</fo:list-block></fo:block>\n";
    int listAt = -1;
    Core::String document = foedit::bench::proseAround(list, kDocumentBytes, listAt);
    firstText = document.find("Item text");
    secondText = document.find("Item text", firstText + 1);
    return document;
}

SmartPtr<EditableDocumentBuffer> makeBuffer(Core::String const &document)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    buffer->setContent(document, true);
    return buffer;
}

template <typename Press>
void pressAndUndo(benchmark::State &state, bool inFirstItem, int offset, Press press)
{
    int firstText = -1;
    int secondText = -1;
    Core::String const document = makeDocument(static_cast<int>(state.range(0)), firstText, secondText);
    SmartPtr<EditableDocumentBuffer> buffer = makeBuffer(document);
    int const caret = (inFirstItem ? firstText : secondText) + offset;
    for (auto _ : state) {
        state.PauseTiming();
        buffer->setCaretPos(false, caret);
        state.ResumeTiming();
        press(*buffer);
        state.PauseTiming();
        buffer->undo();
        state.ResumeTiming();
    }
    if (buffer->getContent() != document)
        state.SkipWithError("undo did not give the document back");
}

void BM_EnterInTheFirstItem(benchmark::State &state)
{
    pressAndUndo(state, true, 9, [](EditableDocumentBuffer &b) { b.insertBreak(ListBreak, false); });
}

void BM_BackspaceJoiningTheSecondItem(benchmark::State &state)
{
    pressAndUndo(state, false, 0, [](EditableDocumentBuffer &b) { b.erase(false, false); });
}

void BM_BackspaceInsideAnItem(benchmark::State &state)
{
    pressAndUndo(state, false, 9, [](EditableDocumentBuffer &b) { b.erase(false, false); });
}

} // namespace

BENCHMARK(BM_EnterInTheFirstItem)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BackspaceJoiningTheSecondItem)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BackspaceInsideAnItem)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
