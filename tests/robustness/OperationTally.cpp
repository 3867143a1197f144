#include "robustness/OperationTally.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <vector>

namespace foedit::test {

void OperationTally::played(const std::string &operation, bool changed)
{
    Counts &entry = counts[operation];
    ++entry.played;
    if (changed)
        ++entry.changed;
}

void OperationTally::brokeWellFormedness(const std::string &operation, const std::string &where)
{
    Counts &entry = counts[operation];
    if (entry.brokeWellFormedness++ == 0)
        entry.firstBreak = where;
}

void OperationTally::documentedException(const std::string &operation)
{
    ++counts[operation].documentedExceptions;
}

void OperationTally::add(const OperationTally &other)
{
    for (const auto &[operation, theirs] : other.counts) {
        Counts &ours = counts[operation];
        ours.played += theirs.played;
        ours.changed += theirs.changed;
        ours.documentedExceptions += theirs.documentedExceptions;
        if (ours.brokeWellFormedness == 0)
            ours.firstBreak = theirs.firstBreak;
        ours.brokeWellFormedness += theirs.brokeWellFormedness;
    }
}

long OperationTally::totalBreaks() const
{
    long total = 0;
    for (const auto &entry : counts)
        total += entry.second.brokeWellFormedness;
    return total;
}

void OperationTally::print(std::ostream &out) const
{
    std::vector<std::pair<std::string, Counts>> rows(counts.begin(), counts.end());
    std::stable_sort(rows.begin(), rows.end(), [](const auto &a, const auto &b) {
        return a.second.brokeWellFormedness > b.second.brokeWellFormedness;
    });
    out << std::left << std::setw(22) << "operation" << std::right << std::setw(9) << "steps" << std::setw(9)
        << "changed" << std::setw(11) << "ill-formed" << std::setw(11) << "exceptions"
        << "  first ill-formed\n";
    for (const auto &[operation, entry] : rows) {
        out << std::left << std::setw(22) << operation << std::right << std::setw(9) << entry.played
            << std::setw(9) << entry.changed << std::setw(11) << entry.brokeWellFormedness << std::setw(11)
            << entry.documentedExceptions << "  " << entry.firstBreak << '\n';
    }
}

} // namespace foedit::test
