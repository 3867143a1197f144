// The two hottest reads of the markup string: XmlValidator::validate, which runs over the
// whole string after every text edit, and getCurrentElementPosition, which almost every
// edit calls many times. Documents of about 1 MB and 8 MB (in code units) are made from
// the largest corpus document by repeating the content of its flow, which keeps them
// well formed.

#include "common/BenchDocuments.h"

#include "markup/EditableXmlBuffer.h"
#include "support/WhiteSpace.h"
#include "template/XmlValidator.h"

#include <benchmark/benchmark.h>

#include <map>
#include <vector>

namespace {

const char *const corpusDocument = "svg__embedding.fo"; // the largest of the corpus

class Probe : public EditableXmlBuffer {
public:
    explicit Probe(Core::String text)
    {
        replaceContent(std::move(text));
        rootElement = "fo:root";
    }
    using EditableXmlBuffer::getCurrentElementPosition;
};

Core::String const &replicatedDocument(int units)
{
    return foedit::bench::replicatedCorpusDocument(corpusDocument, units);
}

// Where a caret stands when typing: text right after a tag. `count` of them, spread
// evenly over the document.
std::vector<int> caretLikePositions(Core::String const &text, int count)
{
    std::vector<int> positions;
    const int step = text.length() / count;
    for (int from = 0; static_cast<int>(positions.size()) < count && from < text.length(); from += step) {
        int p = from;
        while (p < text.length() && !(text[p - 1] == u'>' && text[p] != u'<' && !Core::iswspace(text[p])))
            ++p;
        if (p < text.length())
            positions.push_back(p);
    }
    return positions;
}

void BM_Validate(benchmark::State &state)
{
    const Core::String &text = replicatedDocument(static_cast<int>(state.range(0)));
    const XmlValidator validator(text);
    if (!validator.validate())
        state.SkipWithError("the replicated document does not validate");
    for (auto _ : state)
        benchmark::DoNotOptimize(validator.validate());
    state.SetBytesProcessed(state.iterations() * text.length() * 2);
}
BENCHMARK(BM_Validate)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMillisecond);

// The cost of one call, averaged over 4096 caret-like positions throughout the document.
void BM_CurrentElementPosition(benchmark::State &state)
{
    const Core::String &text = replicatedDocument(static_cast<int>(state.range(0)));
    const Probe probe(text);
    const std::vector<int> positions = caretLikePositions(text, 4096);
    for (auto _ : state)
        for (int p : positions)
            benchmark::DoNotOptimize(probe.getCurrentElementPosition(p));
    state.SetItemsProcessed(state.iterations() * static_cast<long long>(positions.size()));
}
BENCHMARK(BM_CurrentElementPosition)->Arg(1 << 20)->Arg(8 << 20)->Unit(benchmark::kMillisecond);

// The position right before the flow's closing tag: its current element is the flow, so
// the walk crosses every block of the flow. This is the walk's worst case, and the reason
// callers never ask it for positions between blocks in a loop.
void BM_CurrentElementPositionAtTheEndOfTheFlow(benchmark::State &state)
{
    const Core::String &text = replicatedDocument(static_cast<int>(state.range(0)));
    const Probe probe(text);
    const int p = text.find("</fo:flow>");
    for (auto _ : state)
        benchmark::DoNotOptimize(probe.getCurrentElementPosition(p));
    state.SetBytesProcessed(state.iterations() * p * 2);
}
BENCHMARK(BM_CurrentElementPositionAtTheEndOfTheFlow)
    ->Arg(1 << 20)
    ->Arg(8 << 20)
    ->Unit(benchmark::kMillisecond);

} // namespace
