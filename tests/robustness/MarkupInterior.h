#pragma once

// Where a position stands in the markup, for checking carets from outside the engine.
//
// A caret stands before the unit at its index. It is "inside" a construct when it would
// split it: after the "<" of a tag and up to its ">", after the "&" of an entity and up
// to its ";", and the same for comments, CDATA sections, processing instructions and
// declarations. In front of the first unit is outside:
//
//     <fo:block>a|&amp;b</fo:block>     outside
//     <fo:block>a&a|mp;b</fo:block>     inside an entity
//     <fo:bl|ock>ab</fo:block>          inside a tag
//
// The answer comes from a scan from the start of the string written for this check
// alone: it must not share a fault with the engine's own scanners.

#include "support/String.h"

namespace foedit::test {

enum class MarkupInterior {
    Outside,
    Tag,
    Entity,
    Comment,
    CData,
    ProcessingInstruction,
    Declaration, // <!DOCTYPE ...> and the like
};

// What `position` would split; Outside for -1 and for positions past the end.
MarkupInterior markupInteriorAt(Core::String const &text, int position);

// `position` itself when it splits nothing, otherwise the position behind what it splits.
int atomBoundaryAtOrAfter(Core::String const &text, int position);

const char *describe(MarkupInterior interior);

} // namespace foedit::test
