// Enter and Backspace in a numbered list of 10, 100 and 1,000 items that stands in the
// middle of a 1 MB document.
//
// Enter in the first item rewrites the rest of the list in one splice, numbers
// included; Backspace at the start of the second item joins it to the first and
// writes every label behind it anew, one splice per label; Backspace inside an item's
// text is an ordinary deletion, whose list part is only finding out where it stands.
// Each iteration presses the key once and, untimed, undoes it.

#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr long kDocumentBytes = 1L << 20;

const char *const kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
    "<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
    "<fo:layout-master-set><fo:simple-page-master master-name=\"A4\">"
    "<fo:region-body/></fo:simple-page-master></fo:layout-master-set>"
    "<fo:page-sequence master-reference=\"A4\"><fo:flow flow-name=\"xsl-region-body\">\n";
const char *const kTail = "</fo:flow></fo:page-sequence></fo:root>\n";
const char *const kParagraph =
    "  <fo:block font-size=\"11pt\">Lorem ipsum dolor sit amet, <fo:inline font-weight=\"bold\">consectetur"
    "</fo:inline> adipiscing elit, sed do eiusmod tempor incididunt ut labore et dolore magna "
    "aliqua.</fo:block>\n";

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
    Core::String paragraph(kParagraph);
    long paragraphs = kDocumentBytes / 2 / paragraph.length();
    Core::String document(kHead);
    for (long i = 0; i < paragraphs; ++i) {
        if (i == paragraphs / 2) {
            document += "<fo:block><fo:list-block>";
            for (int n = 1; n <= items; ++n)
                document += item(n);
            document += "</fo:list-block></fo:block>\n";
        }
        document += paragraph;
    }
    document += kTail;
    firstText = document.find("Item text");
    secondText = document.find("Item text", firstText + 1);
    return document;
}

SmartPtr<EditableDocumentBuffer> makeBuffer(Core::String const &document)
{
    SmartPtr<EditableDocumentBuffer> buffer(new EditableDocumentBuffer());
    buffer->setRootElement("fo:root");
    for (const char *name :
         {"fo:block", "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override", "ot:form"})
        buffer->addEditableElement(name);
    for (const char *name : {"fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override"})
        buffer->addInlineEditableElement(name);
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
