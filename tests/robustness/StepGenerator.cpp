#include "robustness/StepGenerator.h"

#include <iterator>

namespace foedit::test {

namespace {

// Texts a user types. Besides words: the blank and the tab that the engine turns into
// placeholders, characters that must be escaped, a raw no-break space, a label-like
// "1)", and characters outside ASCII, one of them outside the 16-bit plane.
const char16_t *const typedTexts[] = {
    u"a", u"Z",     u"word",   u"two words",    u" ",          u"  ",     u"\t", u"\n",   u"<", u"&",
    u">", u"\"q\"", u"\u00e9", u"\u65e5\u672c", u"\U0001F600", u"\u00a0", u"1)", u"x y ", u";", u"&amp;",
};

// Markup a user pastes: balanced fragments of every kind the engine builds or meets,
// and unbalanced ones that the engine must refuse by rolling back.
const char16_t *const pastedMarkup[] = {
    u"<fo:inline font-weight=\"bold\">bold</fo:inline>",
    u"<fo:block>pasted</fo:block>",
    u"<fo:block />",
    u"x<fo:inline>y</fo:inline>z",
    u"<!-- note -->",
    u"a &amp; b",
    u"&#x00A0;",
    u"<fo:inline color=\"red\"><fo:inline font-style=\"italic\">it</fo:inline></fo:inline>",
    (u"<fo:block><fo:list-block><fo:list-item><fo:list-item-label end-indent=\"label-end()\"><fo:block>1)"
     u"</fo:block></fo:list-item-label><fo:list-item-body start-indent=\"body-start()\"><fo:block>item"
     u"</fo:block></fo:list-item-body></fo:list-item></fo:list-block></fo:block>"),
    (u"<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>cell</fo:block></fo:table-cell>"
     u"</fo:table-row></fo:table-body></fo:table>"),
    u"<![CDATA[raw <text>]]>",
    u"<fo:inline>",
    u"</fo:block>",
    u"<fo:block><fo:inline>",
    u"a<b",
};

// Units that fuzzed text is made of: the ones the scanners and the escaping care about.
const char16_t typedUnits[] = {
    u'a', u'b', u' ', u'\t', u'\n', u'<', u'>', u'&', u';',   u'#',   u'"',   u'\'',  u'/',   u'=',
    u'!', u'?', u'-', u'[',  u']',  u')', u'1', u'x', 0x00A0, 0x2022, 0xD83D, 0xDE00, 0x00E9, 0xFEFF,
};

const PropertyChoice properties[] = {
    {"fo:font-weight", "bold"},  {"fo:font-style", "italic"},
    {"fo:color", "red"},         {"fo:text-decoration", "underline"},
    {"fo:text-align", "center"}, {"fo:background-color", "yellow"},
    {"fo:font-size", "14pt"},    {"fo:font-family", "Courier"},
};

template <typename T, std::size_t N> constexpr std::uint32_t countOf(T (&)[N])
{
    return static_cast<std::uint32_t>(N);
}

std::u16string composedText(Choices &choices)
{
    std::u16string text;
    const std::uint32_t length = 1 + choices.below(8);
    for (std::uint32_t i = 0; i < length; ++i)
        text += typedUnits[choices.below(countOf(typedUnits))];
    return text;
}

std::u16string typedText(Choices &choices)
{
    if (choices.oneIn(4))
        return composedText(choices);
    return typedTexts[choices.below(countOf(typedTexts))];
}

Step arrow(Choices &choices)
{
    Step step;
    step.kind = StepKind::Arrow;
    step.extend = choices.oneIn(4);
    step.forward = choices.oneIn(2);
    step.byWord = choices.oneIn(4);
    step.merge = choices.oneIn(2);
    return step;
}

Step withKind(StepKind kind)
{
    Step step;
    step.kind = kind;
    return step;
}

Step shifted(StepKind kind, Choices &choices)
{
    Step step = withKind(kind);
    step.extend = choices.oneIn(4);
    return step;
}

Step click(Choices &choices)
{
    Step step = withKind(StepKind::Click);
    step.extend = choices.oneIn(4);
    step.at = choices.below(0xFFFFFFFFu);
    return step;
}

Step typing(Choices &choices, StepKind kind)
{
    Step step = withKind(kind);
    if (kind == StepKind::PasteMarkup) {
        step.text = pastedMarkup[choices.below(countOf(pastedMarkup))];
    } else {
        step.text = typedText(choices);
        step.count = static_cast<int>(choices.below(countOf(properties)));
    }
    return step;
}

Step erase(Choices &choices)
{
    Step step = withKind(StepKind::Erase);
    step.forward = choices.oneIn(2);
    step.byWord = choices.oneIn(5);
    return step;
}

// Half of the breaks are plain Enter; the rest spread over every value, 7 (no type) included.
Step lineBreak(Choices &choices)
{
    Step step = withKind(StepKind::Break);
    step.count = choices.oneIn(2) ? 5 : static_cast<int>(choices.below(8));
    step.after = choices.oneIn(3);
    return step;
}

Step withCount(StepKind kind, int count)
{
    Step step = withKind(kind);
    step.count = count;
    return step;
}

} // namespace

std::uint32_t SeededChoices::below(std::uint32_t bound)
{
    state += 0x9E3779B97F4A7C15ull;
    std::uint64_t z = state;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    z ^= z >> 31;
    return bound <= 1 ? 0 : static_cast<std::uint32_t>(z % bound);
}

std::uint32_t ByteChoices::below(std::uint32_t bound)
{
    const std::size_t width = bound <= 256 ? 1 : 4;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < width; ++i) {
        value = (value << 8) | (used < size ? data[used] : 0u);
        ++used;
    }
    return bound <= 1 ? 0 : value % bound;
}

// Weights out of 100, roughly as people edit: mostly arrows, typing and deleting.
Step chooseStep(Choices &choices)
{
    const std::uint32_t roll = choices.below(100);
    if (roll < 29)
        return arrow(choices);
    if (roll < 31)
        return shifted(StepKind::Home, choices);
    if (roll < 33)
        return shifted(StepKind::End, choices);
    if (roll < 41)
        return click(choices);
    if (roll < 57)
        return typing(choices, StepKind::Type);
    if (roll < 61)
        return typing(choices, StepKind::PasteMarkup);
    if (roll < 64)
        return typing(choices, StepKind::TypeFormatted);
    if (roll < 78)
        return erase(choices);
    if (roll < 85)
        return lineBreak(choices);
    if (roll < 88)
        return withCount(StepKind::FormatSelection, static_cast<int>(choices.below(countOf(properties))));
    if (roll < 90)
        return withCount(StepKind::FormatBlock, static_cast<int>(choices.below(countOf(properties))));
    if (roll < 93)
        return withCount(StepKind::MakeList, static_cast<int>(choices.below(3)));
    if (roll < 94)
        return withKind(StepKind::RemoveList);
    if (roll < 95)
        return withKind(StepKind::SelectParent);
    if (roll < 96)
        return withKind(StepKind::ResetSelection);
    if (roll < 99)
        return withCount(StepKind::Undo, 1 + static_cast<int>(choices.below(4)));
    return withCount(StepKind::Redo, 1 + static_cast<int>(choices.below(4)));
}

std::vector<Step> generateSession(std::uint64_t seed, int count)
{
    SeededChoices choices(seed);
    std::vector<Step> steps;
    steps.reserve(static_cast<std::size_t>(count > 0 ? count : 0));
    for (int i = 0; i < count; ++i)
        steps.push_back(chooseStep(choices));
    return steps;
}

std::vector<Step> decodeSession(const std::uint8_t *data, std::size_t size, int limit)
{
    ByteChoices choices(data, size);
    std::vector<Step> steps;
    while (!choices.exhausted() && static_cast<int>(steps.size()) < limit)
        steps.push_back(chooseStep(choices));
    return steps;
}

const PropertyChoice &propertyChoice(int index)
{
    const auto count = static_cast<int>(std::size(properties));
    return properties[((index % count) + count) % count];
}

} // namespace foedit::test
