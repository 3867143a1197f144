#include "robustness/SessionShrinker.h"

#include "robustness/WellFormedness.h"

#include <algorithm>

namespace foedit::test {

namespace {

// Steps after the one that failed cannot matter.
void dropStepsAfterFailure(std::vector<Step> &steps, const SessionResult &result)
{
    if (result.violation && result.violation->step >= 0 &&
        static_cast<std::size_t>(result.violation->step) + 1 < steps.size())
        steps.resize(static_cast<std::size_t>(result.violation->step) + 1);
}

class Shrinker {
public:
    Shrinker(Core::String const &text, const SessionFailure &failure, const DriverOptions &driverOptions,
             int replayBudget)
        : document(text), fails(failure), options(driverOptions), maxReplays(replayBudget)
    {
    }

    ShrinkResult run(std::vector<Step> steps)
    {
        best.steps = std::move(steps);
        best.result = runSession(document, best.steps, options);
        dropStepsAfterFailure(best.steps, best.result);
        std::size_t chunk = std::max<std::size_t>(1, best.steps.size() / 2);
        while (budgetLeft()) {
            const bool removed = sweep(chunk);
            if (chunk == 1 && !removed)
                break;
            if (!removed || chunk > 1)
                chunk = std::max<std::size_t>(1, chunk / 2);
        }
        best.replays = replays;
        return best;
    }

private:
    bool budgetLeft() const { return replays < maxReplays; }

    // Tries to remove each run of `chunk` steps in turn; true when one could go.
    bool sweep(std::size_t chunk)
    {
        bool removed = false;
        std::size_t start = 0;
        while (start < best.steps.size() && budgetLeft()) {
            std::vector<Step> candidate = best.steps;
            const std::size_t end = std::min(candidate.size(), start + chunk);
            candidate.erase(candidate.begin() + static_cast<std::ptrdiff_t>(start),
                            candidate.begin() + static_cast<std::ptrdiff_t>(end));
            ++replays;
            SessionResult result = runSession(document, candidate, options);
            if (fails(result)) {
                dropStepsAfterFailure(candidate, result);
                best.steps = std::move(candidate);
                best.result = std::move(result);
                removed = true;
            } else {
                start += chunk;
            }
        }
        return removed;
    }

    Core::String const &document;
    const SessionFailure &fails;
    const DriverOptions &options;
    int maxReplays;
    int replays = 0;
    ShrinkResult best;
};

} // namespace

ShrinkResult shrinkSession(Core::String const &document, std::vector<Step> steps, const SessionFailure &fails,
                           const DriverOptions &options, int maxReplays)
{
    return Shrinker(document, fails, options, maxReplays).run(std::move(steps));
}

namespace {

// Pieces of markup: the lines (each with its line feed), or the tags and the text runs
// between them.
std::vector<Core::String> splitLines(const Core::String &text)
{
    std::vector<Core::String> pieces;
    int start = 0;
    while (start < text.length()) {
        const int feed = text.find(u'\n', start);
        const int end = feed < 0 ? text.length() - 1 : feed;
        pieces.push_back(text.subString(start, end));
        start = end + 1;
    }
    return pieces;
}

std::vector<Core::String> splitTags(const Core::String &text)
{
    std::vector<Core::String> pieces;
    int start = 0;
    while (start < text.length()) {
        int end = text[start] == u'<' ? text.find(u'>', start) : text.find(u'<', start) - 1;
        if (end < 0 || end >= text.length())
            end = text.length() - 1;
        pieces.push_back(text.subString(start, end));
        start = end + 1;
    }
    return pieces;
}

Core::String joined(const std::vector<Core::String> &pieces)
{
    Core::String text;
    for (const Core::String &piece : pieces)
        text += piece;
    return text;
}

// Removes runs of pieces, halving the run length down to one, while `keeps` accepts
// what is left. `budget` counts the tries.
void removePieces(std::vector<Core::String> &pieces, const std::function<bool(const Core::String &)> &keeps,
                  int &budget)
{
    for (std::size_t chunk = std::max<std::size_t>(1, pieces.size() / 2); budget > 0;
         chunk = std::max<std::size_t>(1, chunk / 2)) {
        bool removed = false;
        for (std::size_t start = 0; start < pieces.size() && budget > 0;) {
            std::vector<Core::String> candidate = pieces;
            candidate.erase(candidate.begin() + static_cast<std::ptrdiff_t>(start),
                            candidate.begin() +
                                static_cast<std::ptrdiff_t>(std::min(candidate.size(), start + chunk)));
            if (keeps(joined(candidate))) {
                pieces = std::move(candidate);
                removed = true;
            } else {
                start += chunk;
            }
        }
        if (chunk == 1 && !removed)
            break;
    }
}

} // namespace

Core::String shrinkDocument(Core::String const &document, const std::vector<Step> &steps,
                            const SessionFailure &fails, const DriverOptions &options, int maxReplays)
{
    int budget = maxReplays;
    const auto keeps = [&](const Core::String &candidate) {
        if (!isWellFormedXml(candidate))
            return false;
        --budget;
        return fails(runSession(candidate, steps, options));
    };
    std::vector<Core::String> lines = splitLines(document);
    removePieces(lines, keeps, budget);
    std::vector<Core::String> tags = splitTags(joined(lines));
    removePieces(tags, keeps, budget);
    return joined(tags);
}

SessionFailure sameInvariantAs(const Violation &violation)
{
    return [invariant = violation.invariant](const SessionResult &result) {
        return result.violation && result.violation->invariant == invariant;
    };
}

} // namespace foedit::test
