#include "support/XslPropertyTable.h"

#include <string>
#include <unordered_map>
#include <vector>

// The XSL 1.1 properties, as the W3C Recommendation (section 7) defines them. This
// file is data only: the one place where the engine's XSL-FO knowledge is written
// down. Compound components (".minimum", ".within-page") are looked up by the name in
// front of the dot.
namespace XslPropertyTable {
namespace {

constexpr bool F = true;  // formatting
constexpr bool S = false; // structure, identity, linking, selection of masters
constexpr bool I = true;  // inherited
constexpr bool N = false; // not inherited

// clang-format off
constexpr PropertyInfo kProperties[] = {
    // Absolute and relative position
    {"absolute-position", F, N, "auto"},
    {"top", F, N, "auto"},
    {"right", F, N, "auto"},
    {"bottom", F, N, "auto"},
    {"left", F, N, "auto"},
    {"relative-position", F, N, "static"},
    {"z-index", F, N, "auto"},

    // Aural
    {"azimuth", F, I, "center"},
    {"cue-after", F, N, "none"},
    {"cue-before", F, N, "none"},
    {"elevation", F, I, "level"},
    {"pause-after", F, N, nullptr},
    {"pause-before", F, N, nullptr},
    {"pitch", F, I, "medium"},
    {"pitch-range", F, I, "50"},
    {"play-during", F, N, "auto"},
    {"richness", F, I, "50"},
    {"speak", F, I, "normal"},
    {"speak-header", F, I, "once"},
    {"speak-numeral", F, I, "continuous"},
    {"speak-punctuation", F, I, "none"},
    {"speech-rate", F, I, "medium"},
    {"stress", F, I, "50"},
    {"voice-family", F, I, nullptr},
    {"volume", F, I, "medium"},

    // Background
    {"background-attachment", F, N, "scroll"},
    {"background-color", F, N, "transparent"},
    {"background-image", F, N, "none"},
    {"background-repeat", F, N, "repeat"},
    {"background-position-horizontal", F, N, "0%"},
    {"background-position-vertical", F, N, "0%"},

    // Borders: the colour's initial value is the element's "color"
    {"border-before-color", F, N, nullptr},
    {"border-before-style", F, N, "none"},
    {"border-before-width", F, N, "medium"},
    {"border-after-color", F, N, nullptr},
    {"border-after-style", F, N, "none"},
    {"border-after-width", F, N, "medium"},
    {"border-start-color", F, N, nullptr},
    {"border-start-style", F, N, "none"},
    {"border-start-width", F, N, "medium"},
    {"border-end-color", F, N, nullptr},
    {"border-end-style", F, N, "none"},
    {"border-end-width", F, N, "medium"},
    {"border-top-color", F, N, nullptr},
    {"border-top-style", F, N, "none"},
    {"border-top-width", F, N, "medium"},
    {"border-bottom-color", F, N, nullptr},
    {"border-bottom-style", F, N, "none"},
    {"border-bottom-width", F, N, "medium"},
    {"border-left-color", F, N, nullptr},
    {"border-left-style", F, N, "none"},
    {"border-left-width", F, N, "medium"},
    {"border-right-color", F, N, nullptr},
    {"border-right-style", F, N, "none"},
    {"border-right-width", F, N, "medium"},

    // Padding
    {"padding-before", F, N, "0pt"},
    {"padding-after", F, N, "0pt"},
    {"padding-start", F, N, "0pt"},
    {"padding-end", F, N, "0pt"},
    {"padding-top", F, N, "0pt"},
    {"padding-bottom", F, N, "0pt"},
    {"padding-left", F, N, "0pt"},
    {"padding-right", F, N, "0pt"},

    // Fonts
    {"font-family", F, I, nullptr},
    {"font-selection-strategy", F, I, "auto"},
    {"font-size", F, I, "medium"},
    {"font-stretch", F, I, "normal"},
    {"font-size-adjust", F, I, "none"},
    {"font-style", F, I, "normal"},
    {"font-variant", F, I, "normal"},
    {"font-weight", F, I, "normal"},

    // Hyphenation and language
    {"country", F, I, "none"},
    {"language", F, I, "none"},
    {"script", F, I, "auto"},
    {"hyphenate", F, I, "false"},
    {"hyphenation-character", F, I, nullptr},
    {"hyphenation-push-character-count", F, I, "2"},
    {"hyphenation-remain-character-count", F, I, "2"},

    // Margins and spaces
    {"margin-top", F, N, "0pt"},
    {"margin-bottom", F, N, "0pt"},
    {"margin-left", F, N, "0pt"},
    {"margin-right", F, N, "0pt"},
    {"space-before", F, N, "0pt"},
    {"space-after", F, N, "0pt"},
    {"space-start", F, N, "0pt"},
    {"space-end", F, N, "0pt"},
    {"start-indent", F, I, "0pt"},
    {"end-indent", F, I, "0pt"},

    // Area alignment
    {"alignment-adjust", F, N, "auto"},
    {"alignment-baseline", F, N, "auto"},
    {"baseline-shift", F, N, "baseline"},
    {"display-align", F, I, "auto"},
    {"dominant-baseline", F, N, "auto"},
    {"relative-align", F, I, "before"},

    // Area dimensions
    {"allowed-height-scale", F, I, "any"},
    {"allowed-width-scale", F, I, "any"},
    {"block-progression-dimension", F, N, "auto"},
    {"content-height", F, N, "auto"},
    {"content-width", F, N, "auto"},
    {"height", F, N, "auto"},
    {"inline-progression-dimension", F, N, "auto"},
    {"max-height", F, N, nullptr},
    {"max-width", F, N, nullptr},
    {"min-height", F, N, nullptr},
    {"min-width", F, N, nullptr},
    {"scaling", F, N, "uniform"},
    {"scaling-method", F, N, "auto"},
    {"width", F, N, "auto"},

    // Blocks and lines
    {"hyphenation-keep", F, I, "auto"},
    {"hyphenation-ladder-count", F, I, "no-limit"},
    {"last-line-end-indent", F, I, "0pt"},
    {"line-height", F, I, "normal"},
    {"line-height-shift-adjustment", F, I, "consider-shifts"},
    {"line-stacking-strategy", F, I, "max-height"},
    {"linefeed-treatment", F, I, "treat-as-space"},
    {"white-space-treatment", F, I, "ignore-if-surrounding-linefeed"},
    {"text-align", F, I, "start"},
    {"text-align-last", F, I, "relative"},
    {"text-indent", F, I, "0pt"},
    {"white-space-collapse", F, I, "true"},
    {"wrap-option", F, I, "wrap"},

    // Characters
    {"character", S, N, nullptr},
    {"letter-spacing", F, I, "normal"},
    {"suppress-at-line-break", F, N, "auto"},
    {"text-decoration", F, N, "none"},
    {"text-shadow", F, N, "none"},
    {"text-transform", F, I, "none"},
    {"treat-as-word-space", F, N, "auto"},
    {"word-spacing", F, I, "normal"},

    // Colour
    {"color", F, I, nullptr},
    {"color-profile-name", F, N, nullptr},
    {"rendering-intent", F, N, "auto"},

    // Floats
    {"clear", F, N, "none"},
    {"float", F, N, "none"},
    {"intrusion-displace", F, N, "auto"},

    // Keeps and breaks
    {"break-after", F, N, "auto"},
    {"break-before", F, N, "auto"},
    {"keep-together", F, I, "auto"},
    {"keep-with-next", F, N, "auto"},
    {"keep-with-previous", F, N, "auto"},
    {"orphans", F, I, "2"},
    {"widows", F, I, "2"},

    // Layout
    {"clip", F, N, "auto"},
    {"overflow", F, N, "auto"},
    {"reference-orientation", F, I, "0"},
    {"span", F, N, "none"},

    // Leaders and rules
    {"leader-alignment", F, I, "none"},
    {"leader-pattern", F, I, "space"},
    {"leader-pattern-width", F, I, "use-font-metrics"},
    {"leader-length", F, I, nullptr},
    {"rule-style", F, I, "solid"},
    {"rule-thickness", F, I, "1.0pt"},

    // Dynamic effects and links
    {"active-state", S, N, nullptr},
    {"auto-restore", S, I, "true"},
    {"case-name", S, N, nullptr},
    {"case-title", S, N, nullptr},
    {"destination-placement-offset", S, N, "0pt"},
    {"external-destination", S, N, nullptr},
    {"indicate-destination", S, N, "false"},
    {"internal-destination", S, N, nullptr},
    {"show-destination", S, N, "replace"},
    {"starting-state", S, N, "show"},
    {"switch-to", S, N, "xsl-any"},
    {"target-presentation-context", S, N, "use-target-processing-context"},
    {"target-processing-context", S, N, "document-root"},
    {"target-stylesheet", S, N, "use-normal-stylesheet"},

    // Markers
    {"marker-class-name", S, N, nullptr},
    {"retrieve-class-name", S, N, nullptr},
    {"retrieve-position", S, N, "first-starting-within-page"},
    {"retrieve-boundary", S, N, "page-sequence"},
    {"retrieve-position-within-table", S, N, "first-starting"},
    {"retrieve-boundary-within-table", S, N, "table"},

    // Number to string conversion
    {"format", S, N, "1"},
    {"grouping-separator", S, N, nullptr},
    {"grouping-size", S, N, nullptr},
    {"letter-value", S, N, "auto"},

    // Pagination: the page geometry is formatting, the naming and the choice of
    // masters is structure
    {"blank-or-not-blank", S, N, "any"},
    {"column-count", F, N, "1"},
    {"column-gap", F, N, "12.0pt"},
    {"extent", F, N, "0.0pt"},
    {"flow-name", S, N, nullptr},
    {"force-page-count", S, N, "auto"},
    {"initial-page-number", S, N, "auto"},
    {"master-name", S, N, nullptr},
    {"master-reference", S, N, nullptr},
    {"maximum-repeats", S, N, "no-limit"},
    {"media-usage", F, N, "auto"},
    {"odd-or-even", S, N, "any"},
    {"page-height", F, N, "auto"},
    {"page-position", S, N, "any"},
    {"page-width", F, N, "auto"},
    {"precedence", F, N, "false"},
    {"region-name", S, N, nullptr},
    {"flow-map-name", S, N, nullptr},
    {"flow-map-reference", S, N, nullptr},
    {"flow-name-reference", S, N, nullptr},
    {"region-name-reference", S, N, nullptr},

    // Tables: spans and positions in the grid are structure
    {"border-after-precedence", F, N, nullptr},
    {"border-before-precedence", F, N, nullptr},
    {"border-collapse", F, I, "collapse"},
    {"border-end-precedence", F, N, nullptr},
    {"border-separation", F, I, "0pt"},
    {"border-start-precedence", F, N, nullptr},
    {"caption-side", F, I, "before"},
    {"column-number", S, N, nullptr},
    {"column-width", F, N, "auto"},
    {"empty-cells", F, I, "show"},
    {"ends-row", S, N, "false"},
    {"number-columns-repeated", S, N, "1"},
    {"number-columns-spanned", S, N, "1"},
    {"number-rows-spanned", S, N, "1"},
    {"starts-row", S, N, "false"},
    {"table-layout", F, N, "auto"},
    {"table-omit-footer-at-break", F, N, "false"},
    {"table-omit-header-at-break", F, N, "false"},

    // Writing mode
    {"direction", F, I, "ltr"},
    {"glyph-orientation-horizontal", F, I, "0deg"},
    {"glyph-orientation-vertical", F, I, "auto"},
    {"text-altitude", F, N, "use-font-metrics"},
    {"text-depth", F, N, "use-font-metrics"},
    {"unicode-bidi", F, N, "normal"},
    {"writing-mode", F, I, "lr-tb"},

    // Miscellaneous
    {"change-bar-class", S, N, nullptr},
    {"change-bar-color", F, I, nullptr},
    {"change-bar-offset", F, I, "6pt"},
    {"change-bar-placement", F, I, "start"},
    {"change-bar-style", F, I, "none"},
    {"change-bar-width", F, I, "medium"},
    {"content-type", S, N, "auto"},
    {"id", S, N, nullptr},
    {"index-class", S, N, nullptr},
    {"index-key", S, N, nullptr},
    {"intrinsic-scale-value", F, I, "100%"},
    {"merge-pages-across-index-key-references", S, I, "merge"},
    {"merge-ranges-across-index-key-references", S, I, "merge"},
    {"merge-sequential-page-numbers", S, I, "merge"},
    {"page-citation-strategy", S, N, "all"},
    {"provisional-distance-between-starts", F, I, "24.0pt"},
    {"provisional-label-separation", F, I, "6.0pt"},
    {"ref-id", S, N, nullptr},
    {"ref-index-key", S, N, nullptr},
    {"role", S, N, "none"},
    {"scale-option", F, N, "width"},
    {"score-spaces", F, I, "true"},
    {"source-document", S, N, "none"},
    {"src", S, N, nullptr},
    {"visibility", F, I, "visible"},

    // Not XSL: the name of a style class of the designer. It formats the element, so
    // copying formatting copies it.
    {"class", F, N, nullptr},
};

#define SIDES3(prefix) \
    prefix "top-width", prefix "top-style", prefix "top-color", \
    prefix "right-width", prefix "right-style", prefix "right-color", \
    prefix "bottom-width", prefix "bottom-style", prefix "bottom-color", \
    prefix "left-width", prefix "left-style", prefix "left-color"

// Ordered for collapsing: the border family first, and a whole background before its
// position alone.
using G = ShorthandGrammar;
constexpr ShorthandInfo kShorthands[] = {
    {"border", G::BorderSide, 1, true, {SIDES3("border-")}},
    {"border-width", G::Box, 2, true,
     {"border-top-width", "border-right-width", "border-bottom-width", "border-left-width"}},
    {"border-style", G::Box, 2, true,
     {"border-top-style", "border-right-style", "border-bottom-style", "border-left-style"}},
    {"border-color", G::Box, 2, true,
     {"border-top-color", "border-right-color", "border-bottom-color", "border-left-color"}},
    {"border-top", G::BorderSide, 3, true, {"border-top-width", "border-top-style", "border-top-color"}},
    {"border-right", G::BorderSide, 3, true, {"border-right-width", "border-right-style", "border-right-color"}},
    {"border-bottom", G::BorderSide, 3, true,
     {"border-bottom-width", "border-bottom-style", "border-bottom-color"}},
    {"border-left", G::BorderSide, 3, true, {"border-left-width", "border-left-style", "border-left-color"}},
    {"border-spacing", G::Pair, 1, true,
     {"border-separation.inline-progression-direction", "border-separation.block-progression-direction"}},
    {"padding", G::Box, 1, true, {"padding-top", "padding-right", "padding-bottom", "padding-left"}},
    {"margin", G::Box, 1, true, {"margin-top", "margin-right", "margin-bottom", "margin-left"}},
    {"font", G::Font, 1, true,
     {"font-style", "font-variant", "font-weight", "font-size", "line-height", "font-family"}},
    {"background", G::Background, 1, true,
     {"background-color", "background-image", "background-repeat", "background-attachment",
      "background-position-horizontal", "background-position-vertical"}},
    {"background-position", G::BackgroundPosition, 2, true,
     {"background-position-horizontal", "background-position-vertical"}},
    {"page-break-before", G::Keywords, 1, true, {"break-before", "keep-with-previous"}},
    {"page-break-after", G::Keywords, 1, true, {"break-after", "keep-with-next"}},
    {"page-break-inside", G::Keywords, 1, false, {"keep-together"}},
    {"position", G::Keywords, 1, true, {"relative-position", "absolute-position"}},
    {"size", G::PageSize, 1, false, {"page-width", "page-height"}},
};
#undef SIDES3

constexpr ShorthandKeyword kKeywords[] = {
    {"page-break-before", "auto", {"auto", "auto"}},
    {"page-break-before", "always", {"page", "auto"}},
    {"page-break-before", "avoid", {"auto", "always"}},
    {"page-break-before", "left", {"even-page", "auto"}},
    {"page-break-before", "right", {"odd-page", "auto"}},
    {"page-break-after", "auto", {"auto", "auto"}},
    {"page-break-after", "always", {"page", "auto"}},
    {"page-break-after", "avoid", {"auto", "always"}},
    {"page-break-after", "left", {"even-page", "auto"}},
    {"page-break-after", "right", {"odd-page", "auto"}},
    {"page-break-inside", "auto", {"auto", nullptr}},
    {"page-break-inside", "avoid", {"always", nullptr}},
    {"position", "static", {"static", "auto"}},
    {"position", "relative", {"relative", "auto"}},
    {"position", "absolute", {"static", "absolute"}},
    {"position", "fixed", {"static", "fixed"}},
};

constexpr const char *kNonInlineNames[] = {"fo:text-align"};
// clang-format on

// Names indexed as UTF-16 views, so a lookup compares in place and allocates nothing.
template <typename Row> class NameIndex {
public:
    template <std::size_t Count> explicit NameIndex(const Row (&rows)[Count])
    {
        names.reserve(Count); // the views below point into these strings: no reallocation
        for (const Row &row : rows) {
            std::u16string &name = names.emplace_back();
            for (const char *c = row.name; *c; ++c)
                name.push_back(static_cast<char16_t>(static_cast<unsigned char>(*c)));
            byName.emplace(std::u16string_view(name), &row);
        }
    }

    const Row *find(std::u16string_view name) const noexcept
    {
        auto found = byName.find(name);
        return found == byName.end() ? nullptr : found->second;
    }

private:
    std::vector<std::u16string> names;
    std::unordered_map<std::u16string_view, const Row *> byName;
};

} // namespace

const PropertyInfo *findProperty(std::u16string_view localName) noexcept
{
    static const NameIndex<PropertyInfo> index(kProperties);
    // A component of a compound property shares the facts of the property.
    auto dot = localName.find(u'.');
    return index.find(dot == std::u16string_view::npos ? localName : localName.substr(0, dot));
}

const ShorthandInfo *findShorthand(std::u16string_view localName) noexcept
{
    static const NameIndex<ShorthandInfo> index(kShorthands);
    return index.find(localName);
}

std::span<const ShorthandInfo> shorthands() noexcept
{
    return kShorthands;
}

std::span<const ShorthandKeyword> keywordRows() noexcept
{
    return kKeywords;
}

std::span<const char *const> nonInlineNames() noexcept
{
    return kNonInlineNames;
}

} // namespace XslPropertyTable
