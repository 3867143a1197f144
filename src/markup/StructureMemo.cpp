#include "markup/StructureMemo.h"

#include <algorithm>

namespace {

bool keyBefore(StructureMemo::Entry const &entry, int key)
{
    return entry.key < key;
}

bool byKey(StructureMemo::Entry const &a, StructureMemo::Entry const &b)
{
    return a.key < b.key;
}

// Where a position of the old string stands in the new one: before the splice it stays,
// behind the removed stretch it moves by the difference, and a position inside the
// removed stretch (only a bound of an entry can be there) goes to the splice.
int moved(int value, int position, int end, int delta)
{
    if (value < position)
        return value;
    return value >= end ? value + delta : position;
}

} // namespace

int StructureMemo::parentOf(int key) const
{
    Entry const *entry = findParent(key);
    return entry ? entry->value : Unknown;
}

int StructureMemo::closingOf(int key) const
{
    Entry const *entry = findClosing(key);
    return entry ? entry->value : Unknown;
}

void StructureMemo::rememberClosing(Entry const &entry)
{
    std::vector<Entry> one{entry};
    closings.add(one);
}

void StructureMemo::adjust(int position, int removed, int inserted, bool neutral)
{
    parents.adjust(position, removed, inserted, neutral);
    closings.adjust(position, removed, inserted, neutral);
}

void StructureMemo::clear()
{
    parents.clear();
    closings.clear();
}

StructureMemo::Entry const *StructureMemo::Table::find(int key) const
{
    auto found = std::lower_bound(entries.begin(), entries.end(), key, keyBefore);
    return found != entries.end() && found->key == key ? &*found : nullptr;
}

void StructureMemo::Table::add(std::vector<Entry> &added)
{
    if (added.empty())
        return;
    if (entries.size() + added.size() > maximumEntries)
        clear();
    for (Entry const &entry : added)
        longestReachAhead = std::max(longestReachAhead, entry.high - entry.key);
    if (added.size() == 1) {
        auto at = std::lower_bound(entries.begin(), entries.end(), added.front().key, keyBefore);
        entries.insert(at, added.front());
        return;
    }
    std::sort(added.begin(), added.end(), byKey);
    const auto middle = static_cast<std::ptrdiff_t>(entries.size());
    entries.insert(entries.end(), added.begin(), added.end());
    std::inplace_merge(entries.begin(), entries.begin() + middle, entries.end(), byKey);
    entries.erase(std::unique(entries.begin(), entries.end(),
                              [](Entry const &a, Entry const &b) { return a.key == b.key; }),
                  entries.end());
}

// One pass from the first entry the splice can reach. Keys keep their order: keys before
// the splice stay, keys inside the removed stretch go, keys behind it all move alike.
void StructureMemo::Table::adjust(int position, int removed, int inserted, bool neutral)
{
    const int end = position + removed;
    const int delta = inserted - removed;
    auto first = std::lower_bound(entries.begin(), entries.end(), position - longestReachAhead, keyBefore);
    auto kept = first;
    for (auto it = first; it != entries.end(); ++it) {
        Entry entry = *it;
        if (position > entry.high) {
            *kept++ = entry; // read wholly before the splice
            continue;
        }
        const bool wholeBehind = end <= entry.low;
        if (!wholeBehind) {
            auto removedHere = [&](int value) { return value >= position && value < end; };
            if (!neutral || removedHere(entry.key) || (entry.value >= 0 && removedHere(entry.value)))
                continue;
        }
        entry.key = moved(entry.key, position, end, delta);
        if (entry.value >= 0)
            entry.value = moved(entry.value, position, end, delta);
        if (entry.low >= 0)
            entry.low = moved(entry.low, position, end, delta);
        entry.high = moved(entry.high, position, end, delta);
        *kept++ = entry;
    }
    entries.erase(kept, entries.end());
}

void StructureMemo::Table::clear()
{
    entries.clear();
    longestReachAhead = 0;
}
