#pragma once

// The documents the benchmarks load: prose repeated around what a benchmark measures,
// in the standard one-flow document of the tests (common/StandardDocument.h), or a
// document of the corpus.

#include "support/String.h"

#include <string>

namespace foedit::bench {

// A paragraph of prose with a bold inline, about 190 code units, on a line of its own.
extern const char *const proseParagraph;

// The standard document whose flow holds copies of `proseParagraph`, about `bytes` bytes
// of them (two per code unit), with `middle` between the two halves. `middleAt` is
// where `middle` starts.
Core::String proseAround(Core::String const &middle, long bytes, int &middleAt);

// `block` written `count` times.
Core::String repeated(Core::String const &block, int count);

// The document `fileName` of the corpus, as text.
Core::String corpusDocument(std::string const &fileName);

// The corpus document `fileName` with the content of its flow repeated until the
// document holds about `units` code units (at least that many, unless the flow is
// empty). Repetition keeps it well formed. Made once per name and size.
Core::String const &replicatedCorpusDocument(std::string const &fileName, int units);

} // namespace foedit::bench
