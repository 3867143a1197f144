#pragma once

#include <span>
#include <string_view>

// What the engine knows about XSL-FO properties: the data of XslPropertyTable.cpp and
// lookups into it. Names here are local names ("border-top-width"); callers cut the
// prefix of a qualified name first. Used by EditableProperty and PropertiesHelper only.
namespace XslPropertyTable {

struct PropertyInfo {
    const char *name;
    bool formatting; // presentation, as opposed to identity, structure or linking
    bool inherited;
    // The initial value when a literal states it; null when it depends on the
    // element, the media or another property ("the value of color").
    const char *initial;
};

// How the value of a shorthand is read and written.
enum class ShorthandGrammar : int {
    Box,                // one to four values: top, right, bottom, left
    BorderSide,         // width || style || color, for each side listed
    Pair,               // one or two values; one value sets both
    PageSize,           // one or two lengths: page-width, page-height
    Keywords,           // a keyword that stands for fixed component values
    Font,               // [style || variant || weight]? size[/line-height]? family
    Background,         // color || image || repeat || attachment || position
    BackgroundPosition, // horizontal and vertical, keywords in either order
};

constexpr int kMaxComponents = 12;

struct ShorthandInfo {
    const char *name;
    ShorthandGrammar grammar;
    // Precision in the sense of shorthand expansion: where two shorthands of one
    // element set the same component, the more precise one wins; an explicit
    // longhand always wins.
    int precision;
    // False for shorthands that are only read: writing them would replace longhands
    // that documents usually carry as they are (page-width, keep-together).
    bool collapsible;
    // Component names in grammar order; for BorderSide grouped by side, each side
    // width, style, color. Unused slots are null.
    const char *components[kMaxComponents];
};

// A row of a keyword shorthand: `keyword` stands for these component values.
struct ShorthandKeyword {
    const char *shorthand;
    const char *keyword;
    const char *values[2];
};

constexpr int kExplicitPrecision = 100;

const PropertyInfo *findProperty(std::u16string_view localName) noexcept;
const ShorthandInfo *findShorthand(std::u16string_view localName) noexcept;
std::span<const ShorthandInfo> shorthands() noexcept; // in the order collapsing tries them
std::span<const ShorthandKeyword> keywordRows() noexcept;

// The property names that cannot stand on an inline: they go to the enclosing block.
std::span<const char *const> nonInlineNames() noexcept;

} // namespace XslPropertyTable
