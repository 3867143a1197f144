#pragma once

// Random editing sessions: a mix of caret moves, typing, deleting, breaks, formatting,
// lists and undo, weighted roughly as people edit. The same choices come either from a
// seed (reproducible sessions for the test suite) or from a fuzzer's bytes.

#include "robustness/SessionStep.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace foedit::test {

// A source of choices.
class Choices {
public:
    virtual ~Choices() = default;
    // A number in [0, bound); 0 for a bound of 0 or 1.
    virtual std::uint32_t below(std::uint32_t bound) = 0;
    bool oneIn(std::uint32_t n) { return below(n) == 0; }
};

// Choices from a seed. The generator is written out here (SplitMix64) rather than taken
// from <random>, whose distributions may differ between standard libraries: a seed must
// give the same session everywhere.
class SeededChoices : public Choices {
public:
    explicit SeededChoices(std::uint64_t seed) : state(seed) {}
    std::uint32_t below(std::uint32_t bound) override;

private:
    std::uint64_t state;
};

// Choices read from bytes, one byte for a bound up to 256 and four above; zeros once
// the bytes run out.
class ByteChoices : public Choices {
public:
    ByteChoices(const std::uint8_t *bytes, std::size_t count) : data(bytes), size(count) {}
    std::uint32_t below(std::uint32_t bound) override;
    bool exhausted() const { return used >= size; }

private:
    const std::uint8_t *data;
    std::size_t size;
    std::size_t used = 0;
};

Step chooseStep(Choices &choices);

// `count` steps from `seed`.
std::vector<Step> generateSession(std::uint64_t seed, int count);

// Steps from bytes until they run out, `limit` at most.
std::vector<Step> decodeSession(const std::uint8_t *data, std::size_t size, int limit);

// The properties a formatting step can apply, by index (`Step::count`): qualified name
// and value.
struct PropertyChoice {
    const char *name;
    const char *value;
};
const PropertyChoice &propertyChoice(int index);

} // namespace foedit::test
