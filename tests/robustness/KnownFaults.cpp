#include "robustness/KnownFaults.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace foedit::test {

namespace {

// Each entry begins the text of an invariant that a fault still open breaks, the fault
// being stated as a disabled test in EngineFaults_test.cpp, for example
//     constexpr std::array<std::string_view, 1> reportedInvariants{"caret inside"};
// None is open: the caret faults once listed (caret or pivot outside the document, or
// inside a tag or an entity) are fixed, and every invariant fails the sessions again.
constexpr std::array<std::string_view, 0> reportedInvariants{};

bool strict()
{
    const char *value = std::getenv("FOEDIT_SESSION_STRICT");
    return value && std::strcmp(value, "1") == 0;
}

} // namespace

bool isReportedFault(const Violation &violation)
{
    if (strict())
        return false;
    for (std::string_view invariant : reportedInvariants) {
        if (violation.invariant.rfind(invariant, 0) == 0)
            return true;
    }
    return false;
}

} // namespace foedit::test
