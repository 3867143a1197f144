#pragma once

// Shortens a failing session: removes steps, in halves, then quarters, down to single
// steps, for as long as the session still fails the same way. What is left is usually
// a handful of steps, printed as a script to replay in the foedit tool or to turn into
// a test.

#include "robustness/SessionDriver.h"
#include "robustness/SessionStep.h"

#include "support/String.h"

#include <functional>
#include <vector>

namespace foedit::test {

using SessionFailure = std::function<bool(const SessionResult &)>;

struct ShrinkResult {
    std::vector<Step> steps;
    SessionResult result; // of the shortest session found, which fails
    int replays = 0;
};

// `steps` must fail by `fails`. `maxReplays` bounds the work, since each try replays a
// session from the start.
ShrinkResult shrinkSession(Core::String const &document, std::vector<Step> steps, const SessionFailure &fails,
                           const DriverOptions &options, int maxReplays = 400);

// Shortens the document of a failing session instead: removes lines, then single
// tags and text runs within what is left, as long as the markup stays well formed and the
// session still fails. Gives a document small enough to state in a test.
Core::String shrinkDocument(Core::String const &document, const std::vector<Step> &steps,
                            const SessionFailure &fails, const DriverOptions &options, int maxReplays = 400);

// A failure of the same invariant as `violation`.
SessionFailure sameInvariantAs(const Violation &violation);

} // namespace foedit::test
