#pragma once

#include <cstddef>
#include <vector>

// Answers of the structural walks, kept from one question to the next and across edits.
//
// A walk up from the text of the last paragraph of a long flow to the flow itself
// crosses every paragraph before it. Remembering, for each start tag a walk crosses,
// where that walk ended makes the next walk stop at the nearest remembered sibling:
//
//   <fo:flow><fo:block>a</fo:block><fo:block>b</fo:block><fo:block>c|
//             ^ parent: the flow      ^ parent: the flow   (known: one hop to the flow)
//
// Each answer carries the stretch of the string it was read from, [low, high]. A splice
// wholly after that stretch leaves the answer as it is, one wholly before it moves it
// along, and one inside it drops it, unless the splice is plain text that cannot make
// or break any markup: then the positions behind the splice move along. So the memo
// never holds an answer that a fresh walk of the string would not give.
class StructureMemo {
public:
    static constexpr int Unknown = -2;

    // The walk from `key` gave `value`, reading nothing before `low` nor after `high`
    // (`low` -1: the walk may have read back to the start of the string).
    struct Entry {
        int key = -1;
        int value = -1;
        int low = -1;
        int high = -1;
    };

    // The remembered current element of the tag at `key` (its parent), or null.
    Entry const *findParent(int key) const { return parents.find(key); }
    // The remembered closing tag of the start tag at `key`, or null.
    Entry const *findClosing(int key) const { return closings.find(key); }
    int parentOf(int key) const;
    int closingOf(int key) const;

    // `entries` may come in any order; their keys must not be remembered yet.
    void rememberParents(std::vector<Entry> &entries) { parents.add(entries); }
    void rememberClosing(Entry const &entry);

    // The string had `removed` units at `position` replaced by `inserted` units;
    // `neutral` says the splice was plain text that changes no markup around it.
    void adjust(int position, int removed, int inserted, bool neutral);
    void clear();

    std::vector<Entry> const &parentEntries() const { return parents.entries; }
    std::vector<Entry> const &closingEntries() const { return closings.entries; }

private:
    // Entries sorted by key.
    class Table {
    public:
        Entry const *find(int key) const;
        void add(std::vector<Entry> &added);
        void adjust(int position, int removed, int inserted, bool neutral);
        void clear();

        std::vector<Entry> entries;

    private:
        // No entry reads further ahead of its key than this: entries whose key lies
        // further before a splice than this cannot be touched by it.
        int longestReachAhead = 0;
    };

    // A document of many megabytes has many tags; past this many answers the memo
    // starts over rather than grow without bound.
    static constexpr std::size_t maximumEntries = 1u << 20;

    Table parents;
    Table closings;
};
