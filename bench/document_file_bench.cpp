// Loading and saving a document: the file layer's share of opening and of every
// save. Measured on the largest document of the corpus, repeated to make a long one.
#include "support/DocumentFile.h"
#include "support/Exception.h"

#include "common/TestPaths.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

namespace {

Core::String largeDocument(int copies)
{
    const Core::String one = Core::IO::readDocumentFile(foedit::test::corpusDir() + "/svg__embedding.fo");
    Core::String text;
    for (int i = 0; i < copies; ++i)
        text += one;
    return text;
}

std::string scratchPath()
{
    return (std::filesystem::temp_directory_path() / ("foedit-bench-" + std::to_string(::getpid()) + ".fo"))
        .string();
}

void BM_SaveDocument(benchmark::State &state)
{
    const Core::String text = largeDocument(static_cast<int>(state.range(1)));
    const auto encoding = static_cast<DocumentEncoding>(state.range(0));
    const std::string path = scratchPath();
    for (auto _ : state)
        Core::IO::writeDocumentFile(path, text, encoding);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * text.length() * 2);
    std::filesystem::remove(path);
}

void BM_LoadDocument(benchmark::State &state)
{
    const Core::String text = largeDocument(static_cast<int>(state.range(1)));
    const std::string path = scratchPath();
    Core::IO::writeDocumentFile(path, text, static_cast<DocumentEncoding>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Core::IO::readDocumentFile(path));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * text.length() * 2);
    std::filesystem::remove(path);
}

// Arguments: encoding (1 UTF-8, 2 UTF-16, 3 ISO-8859-1), copies of a 110 KB document.
BENCHMARK(BM_SaveDocument)->ArgsProduct({{1, 2, 3}, {1, 10}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadDocument)->ArgsProduct({{1, 2, 3}, {1, 10}})->Unit(benchmark::kMillisecond);

} // namespace
