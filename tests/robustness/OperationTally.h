#pragma once

// Per operation of a session: how often it ran, changed the markup, and left markup
// that a real XML parser refuses where it had accepted it before. The last number is
// a measure to drive down, reported rather than failed on.

#include <iosfwd>
#include <map>
#include <string>

namespace foedit::test {

class OperationTally {
public:
    struct Counts {
        long played = 0;
        long changed = 0;
        long brokeWellFormedness = 0;
        long documentedExceptions = 0;
        std::string firstBreak; // where the first break happened, to replay it
    };

    void played(const std::string &operation, bool changed);
    void brokeWellFormedness(const std::string &operation, const std::string &where);
    void documentedException(const std::string &operation);
    void add(const OperationTally &other);

    long totalBreaks() const;
    const std::map<std::string, Counts> &byOperation() const { return counts; }

    // One line per operation, the ones that broke markup first.
    void print(std::ostream &out) const;

private:
    std::map<std::string, Counts> counts;
};

} // namespace foedit::test
