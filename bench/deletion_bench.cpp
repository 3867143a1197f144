// Delete, Backspace and Enter in the middle of documents of 64 KB, 1 MB and 8 MB, and
// Delete on a selection of 30 KB. Each iteration presses the key once and undoes it
// untimed, so the document keeps its size. The press includes the whole transaction: the snapshot of document
// and history, the walks, and the validation of the whole string that erase runs.
#include "common/StandardDocument.h"

#include "editing/BreakType.h"
#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <map>

namespace {

// One flow of paragraphs, some with inlines and line breaks, about `bytes` long.
Core::String const &documentOfSize(int bytes)
{
    static std::map<int, Core::String> cache;
    auto found = cache.find(bytes);
    if (found != cache.end())
        return found->second;
    Core::String const paragraph = "\t<fo:block color=\"black\">Lorem ipsum dolor sit amet, <fo:inline "
                                   "font-weight=\"bold\">consectetur</fo:inline> adipiscing elit.<fo:block/>"
                                   "Sed do eiusmod tempor incididunt ut labore.</fo:block>\n";
    Core::String body = "\n";
    body.reserve(bytes + 256);
    while (foedit::test::flowBodyStart() + body.length() < bytes)
        body += paragraph;
    return cache.emplace(bytes, foedit::test::wrapInFlow(body)).first->second;
}

SmartPtr<EditableDocumentBuffer> loadDocument(int bytes)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    buffer->setContent(documentOfSize(bytes), true);
    return buffer;
}

// The start of the text of the first paragraph behind the middle of the document,
// plus `offset`.
int middleOfText(EditableDocumentBuffer const &buffer, int offset)
{
    Core::String const content = buffer.getContent();
    int const block = content.find("<fo:block color", content.length() / 2);
    return content.find('>', block) + 1 + offset;
}

void pressAndUndo(benchmark::State &state, int offset,
                  std::function<void(EditableDocumentBuffer &)> const &key)
{
    SmartPtr<EditableDocumentBuffer> buffer = loadDocument(static_cast<int>(state.range(0)));
    int const caret = middleOfText(*buffer, offset);
    for (auto _ : state) {
        buffer->setCaretPos(false, caret);
        key(*buffer);
        state.PauseTiming();
        buffer->undo();
        state.ResumeTiming();
    }
    state.counters["document_kb"] = static_cast<double>(buffer->getContent().length()) / 1024.0;
}

void BM_BackspaceInText(benchmark::State &state)
{
    pressAndUndo(state, 5, [](EditableDocumentBuffer &buffer) { buffer.erase(false, false); });
}

void BM_DeleteInText(benchmark::State &state)
{
    pressAndUndo(state, 5, [](EditableDocumentBuffer &buffer) { buffer.erase(true, false); });
}

// At the start of a paragraph: the block joins the one before it.
void BM_BackspaceJoiningBlocks(benchmark::State &state)
{
    pressAndUndo(state, 0, [](EditableDocumentBuffer &buffer) { buffer.erase(false, false); });
}

void BM_EnterInText(benchmark::State &state)
{
    pressAndUndo(state, 5, [](EditableDocumentBuffer &buffer) { buffer.insertBreak(ParagraphBreak, false); });
}

void BM_LineBreakInText(benchmark::State &state)
{
    pressAndUndo(state, 5, [](EditableDocumentBuffer &buffer) { buffer.insertBreak(LineBreak, false); });
}

// A selection of about 30 KB of paragraphs from a quarter into the document: a deletion
// splices once per element it meets, and each splice must not cost the whole flow.
void BM_DeleteSelection(benchmark::State &state)
{
    SmartPtr<EditableDocumentBuffer> buffer = loadDocument(static_cast<int>(state.range(0)));
    Core::String const content = buffer->getContent();
    auto textOfParagraphFrom = [&content](int from) {
        return content.find('>', content.find("<fo:block color", from)) + 6;
    };
    int const start = textOfParagraphFrom(content.length() / 4);
    int const end = textOfParagraphFrom(start + 30 * 1024);
    for (auto _ : state) {
        buffer->setCaretPos(false, start);
        buffer->setCaretPos(true, end);
        buffer->erase(true, false);
        state.PauseTiming();
        buffer->undo();
        state.ResumeTiming();
    }
    state.counters["selected_kb"] = static_cast<double>(end - start) / 1024.0;
}

} // namespace

BENCHMARK(BM_DeleteSelection)->Arg(64 << 10)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BackspaceInText)->Arg(64 << 10)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DeleteInText)->Arg(64 << 10)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BackspaceJoiningBlocks)
    ->Arg(64 << 10)
    ->Arg(1 << 20)
    ->Arg(8 << 20)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_EnterInText)->Arg(64 << 10)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_LineBreakInText)->Arg(64 << 10)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMicrosecond);
