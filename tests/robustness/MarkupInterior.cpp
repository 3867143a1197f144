#include "robustness/MarkupInterior.h"

#include <string_view>

namespace foedit::test {

namespace {

using View = std::u16string_view;

// One construct of the markup: [start, end], end being the index of its last unit.
struct Construct {
    MarkupInterior kind = MarkupInterior::Outside;
    std::size_t start = 0;
    std::size_t end = 0;
};

bool startsWithAt(View text, std::size_t at, std::u16string_view what)
{
    return text.substr(at, what.size()) == what;
}

// The index of the last unit of `terminator` found from `from`; the last index of the
// text when the construct never ends.
std::size_t endOf(View text, std::size_t from, std::u16string_view terminator)
{
    const std::size_t found = text.find(terminator, from);
    return found == View::npos ? text.size() - 1 : found + terminator.size() - 1;
}

// A tag or declaration ends at the first ">" outside quotes; a declaration's internal
// subset in brackets may hold ">" too.
std::size_t endOfTag(View text, std::size_t start)
{
    char16_t quote = 0;
    int brackets = 0;
    for (std::size_t i = start + 1; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (quote) {
            if (unit == quote)
                quote = 0;
        } else if (unit == u'"' || unit == u'\'') {
            quote = unit;
        } else if (unit == u'[') {
            ++brackets;
        } else if (unit == u']' && brackets > 0) {
            --brackets;
        } else if (unit == u'>' && brackets == 0) {
            return i;
        }
    }
    return text.size() - 1;
}

Construct markupAt(View text, std::size_t start)
{
    if (startsWithAt(text, start, u"<!--"))
        return {MarkupInterior::Comment, start, endOf(text, start + 4, u"-->")};
    if (startsWithAt(text, start, u"<![CDATA["))
        return {MarkupInterior::CData, start, endOf(text, start + 9, u"]]>")};
    if (startsWithAt(text, start, u"<?"))
        return {MarkupInterior::ProcessingInstruction, start, endOf(text, start + 2, u"?>")};
    if (startsWithAt(text, start, u"<!"))
        return {MarkupInterior::Declaration, start, endOfTag(text, start)};
    return {MarkupInterior::Tag, start, endOfTag(text, start)};
}

bool isEntityNameUnit(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'0' && unit <= u'9') || unit == u'#' || unit == u'_' || unit == u'-' || unit == u'.' ||
           unit == u':';
}

// An entity reference from the "&" at `start`; a stray "&" is a character of its own.
Construct entityAt(View text, std::size_t start)
{
    constexpr std::size_t longestName = 40;
    std::size_t i = start + 1;
    while (i < text.size() && i - start <= longestName && isEntityNameUnit(text[i]))
        ++i;
    if (i < text.size() && text[i] == u';' && i > start + 1)
        return {MarkupInterior::Entity, start, i};
    return {MarkupInterior::Outside, start, start};
}

} // namespace

namespace {

// The construct that `position` splits; Outside when it splits none.
Construct constructSplitAt(View text, int position)
{
    if (position <= 0 || static_cast<std::size_t>(position) >= text.size())
        return {};
    const auto target = static_cast<std::size_t>(position);
    std::size_t i = 0;
    while (i < target) {
        Construct construct;
        if (text[i] == u'<')
            construct = markupAt(text, i);
        else if (text[i] == u'&')
            construct = entityAt(text, i);
        else
            construct = {MarkupInterior::Outside, i, i};
        if (target <= construct.end)
            return construct;
        i = construct.end + 1;
    }
    return {};
}

} // namespace

MarkupInterior markupInteriorAt(Core::String const &markup, int position)
{
    return constructSplitAt(markup.view(), position).kind;
}

int atomBoundaryAtOrAfter(Core::String const &markup, int position)
{
    const Construct construct = constructSplitAt(markup.view(), position);
    if (construct.kind == MarkupInterior::Outside)
        return position;
    return static_cast<int>(construct.end) + 1;
}

const char *describe(MarkupInterior interior)
{
    switch (interior) {
    case MarkupInterior::Outside:
        return "outside markup";
    case MarkupInterior::Tag:
        return "inside a tag";
    case MarkupInterior::Entity:
        return "inside an entity";
    case MarkupInterior::Comment:
        return "inside a comment";
    case MarkupInterior::CData:
        return "inside a CDATA section";
    case MarkupInterior::ProcessingInstruction:
        return "inside a processing instruction";
    case MarkupInterior::Declaration:
        return "inside a declaration";
    }
    return "?";
}

} // namespace foedit::test
