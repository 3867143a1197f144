#include "support/ShorthandExpansion.h"

#include "support/XslValueSyntax.h"

#include <array>

using XslPropertyTable::ShorthandGrammar;
using XslPropertyTable::ShorthandInfo;
using XslValueSyntax::isKeyword;
using XslValueSyntax::Token;

namespace ShorthandExpansion {
namespace {

using Components = std::vector<Component>;

int componentCount(ShorthandInfo const &shorthand)
{
    int count = 0;
    while (count < XslPropertyTable::kMaxComponents && shorthand.components[count])
        ++count;
    return count;
}

Core::String initialValueOf(const char *component)
{
    const auto *info = XslPropertyTable::findProperty(Core::String(component).view());
    return info && info->initial ? Core::String(info->initial) : Core::String();
}

// "inherit" alone stands for "inherit" in every component, whatever the grammar.
void expandInherit(ShorthandInfo const &shorthand, Components &out)
{
    for (int i = 0; i < componentCount(shorthand); ++i)
        out.push_back({shorthand.components[i], "inherit"});
}

// padding="1pt 2pt": top, right, bottom, left, the missing ones copied from the
// opposite side as in CSS.
bool expandBox(ShorthandInfo const &shorthand, std::vector<Token> const &tokens, Components &out)
{
    if (tokens.empty() || tokens.size() > 4)
        return false;
    const Core::String &top = tokens[0].text;
    const Core::String &right = tokens.size() > 1 ? tokens[1].text : top;
    const Core::String &bottom = tokens.size() > 2 ? tokens[2].text : top;
    const Core::String &left = tokens.size() > 3 ? tokens[3].text : right;
    const Core::String *sides[] = {&top, &right, &bottom, &left};
    for (int i = 0; i < 4; ++i)
        out.push_back({shorthand.components[i], *sides[i]});
    return true;
}

// border="1pt solid red": width, style and colour in any order, each at most once,
// applied to every side the shorthand covers.
bool expandBorderSide(ShorthandInfo const &shorthand, std::vector<Token> const &tokens, Components &out)
{
    if (tokens.empty() || tokens.size() > 3)
        return false;
    std::array<Core::String, 3> aspects; // width, style, colour
    for (const Token &token : tokens) {
        int aspect = XslValueSyntax::isBorderStyle(token.text)   ? 1
                     : XslValueSyntax::isBorderWidth(token.text) ? 0
                                                                 : 2;
        if (!aspects[aspect].isEmpty())
            return false;
        aspects[aspect] = token.text;
    }
    for (int i = 0; i < componentCount(shorthand); ++i)
        if (!aspects[i % 3].isEmpty())
            out.push_back({shorthand.components[i], aspects[i % 3]});
    return true;
}

bool expandPair(ShorthandInfo const &shorthand, std::vector<Token> const &tokens, bool lengthsOnly,
                Components &out)
{
    if (tokens.empty() || tokens.size() > 2)
        return false;
    for (const Token &token : tokens)
        if (lengthsOnly && !XslValueSyntax::isNumeric(token.text))
            return false;
    out.push_back({shorthand.components[0], tokens[0].text});
    out.push_back({shorthand.components[1], tokens.back().text});
    return true;
}

bool expandKeywords(ShorthandInfo const &shorthand, std::vector<Token> const &tokens, Components &out)
{
    if (tokens.size() != 1)
        return false;
    for (const auto &row : XslPropertyTable::keywordRows()) {
        if (Core::String(row.shorthand) != shorthand.name || !tokens[0].text.equalsIgnoreCase(row.keyword))
            continue;
        for (int i = 0; i < componentCount(shorthand); ++i)
            out.push_back({shorthand.components[i], row.values[i]});
        return true;
    }
    return false;
}

// background-position="right top": a keyword pair may come in either order; one
// value leaves the other axis centred.
bool readPosition(std::vector<Core::String> const &values, Core::String &horizontal, Core::String &vertical)
{
    if (values.empty() || values.size() > 2)
        return false;
    if (values.size() == 1) {
        bool verticalOnly = isKeyword(values[0], {"top", "bottom"});
        horizontal = verticalOnly ? Core::String("center") : values[0];
        vertical = verticalOnly ? values[0] : Core::String("center");
        return true;
    }
    bool swapped = isKeyword(values[0], {"top", "bottom"}) || isKeyword(values[1], {"left", "right"});
    horizontal = swapped ? values[1] : values[0];
    vertical = swapped ? values[0] : values[1];
    return true;
}

bool expandBackgroundPosition(ShorthandInfo const &shorthand, std::vector<Token> const &tokens,
                              Components &out)
{
    std::vector<Core::String> values;
    for (const Token &token : tokens)
        values.push_back(token.text);
    Core::String horizontal;
    Core::String vertical;
    if (!readPosition(values, horizontal, vertical))
        return false;
    out.push_back({shorthand.components[0], horizontal});
    out.push_back({shorthand.components[1], vertical});
    return true;
}

// background="yellow url(a.png) no-repeat": colour, image, repeat, attachment and
// position in any order; what is left out takes its initial value.
bool expandBackground(ShorthandInfo const &shorthand, std::vector<Token> const &tokens, Components &out)
{
    if (tokens.empty())
        return false;
    std::array<Core::String, 4> parts; // colour, image, repeat, attachment
    std::vector<Core::String> position;
    for (const Token &token : tokens) {
        const Core::String &text = token.text;
        int part = -1;
        if (isKeyword(text, {"none"}) || text.toLower().startsWith("url("))
            part = 1;
        else if (isKeyword(text, {"repeat", "repeat-x", "repeat-y", "no-repeat"}))
            part = 2;
        else if (isKeyword(text, {"scroll", "fixed"}))
            part = 3;
        else if (isKeyword(text, {"left", "right", "top", "bottom", "center"}) ||
                 XslValueSyntax::isNumeric(text))
            position.push_back(text);
        else
            part = 0;
        if (part < 0)
            continue;
        if (!parts[static_cast<std::size_t>(part)].isEmpty())
            return false;
        parts[static_cast<std::size_t>(part)] = text;
    }
    Core::String horizontal = initialValueOf(shorthand.components[4]);
    Core::String vertical = initialValueOf(shorthand.components[5]);
    if (!position.empty() && !readPosition(position, horizontal, vertical))
        return false;
    for (int i = 0; i < 4; ++i) {
        const Core::String &part = parts[static_cast<std::size_t>(i)];
        out.push_back(
            {shorthand.components[i], part.isEmpty() ? initialValueOf(shorthand.components[i]) : part});
    }
    out.push_back({shorthand.components[4], horizontal});
    out.push_back({shorthand.components[5], vertical});
    return true;
}

bool isFontWeight(Core::String const &token)
{
    if (isKeyword(token, {"bold", "bolder", "lighter"}))
        return true;
    return token.length() == 3 && token[0] >= u'1' && token[0] <= u'9' && token[1] == u'0' &&
           token[2] == u'0';
}

// font="bold 12pt/14pt Times, serif": leading style, variant and weight words, the
// size with an optional line height, then the family list to the end of the value.
// The words left out are reset to "normal", which is what makes the shorthand differ
// from its longhands on an element that would inherit them.
bool expandFont(ShorthandInfo const &shorthand, Core::String const &value, std::vector<Token> const &tokens,
                Components &out)
{
    std::array<Core::String, 5> parts; // style, variant, weight, size, line height
    std::size_t i = 0;
    for (; i < tokens.size() && i < 3; ++i) {
        const Core::String &word = tokens[i].text;
        if (isKeyword(word, {"italic", "oblique", "backslant"}))
            parts[0] = word;
        else if (isKeyword(word, {"small-caps"}))
            parts[1] = word;
        else if (isFontWeight(word))
            parts[2] = word;
        else if (!isKeyword(word, {"normal"}))
            break;
    }
    if (i >= tokens.size())
        return false;
    Core::String size = tokens[i].text;
    int slash = size.find(u'/');
    if (slash >= 0) {
        parts[4] = size.substr(slash + 1, size.length() - slash - 1);
        size = size.left(slash);
    }
    ++i;
    if (parts[4].isEmpty() && i < tokens.size() && tokens[i].text.startsWith(u'/')) {
        parts[4] = tokens[i].text.substr(1, tokens[i].text.length() - 1);
        ++i;
        if (parts[4].isEmpty() && i < tokens.size())
            parts[4] = tokens[i++].text;
    }
    if (!XslValueSyntax::isFontSize(size) || (slash >= 0 && parts[4].isEmpty()) || i >= tokens.size())
        return false;
    parts[3] = size;
    Core::String family = value.subString(tokens[i].start, value.length() - 1).trim();
    for (int k = 0; k < 5; ++k) {
        const Core::String &part = parts[static_cast<std::size_t>(k)];
        out.push_back(
            {shorthand.components[k], part.isEmpty() ? initialValueOf(shorthand.components[k]) : part});
    }
    out.push_back({shorthand.components[5], family});
    return true;
}

bool expandByGrammar(ShorthandInfo const &shorthand, Core::String const &value, Components &out)
{
    std::vector<Token> tokens = XslValueSyntax::tokenize(value);
    switch (shorthand.grammar) {
    case ShorthandGrammar::Box:
        return expandBox(shorthand, tokens, out);
    case ShorthandGrammar::BorderSide:
        return expandBorderSide(shorthand, tokens, out);
    case ShorthandGrammar::Pair:
        return expandPair(shorthand, tokens, false, out);
    case ShorthandGrammar::PageSize:
        return expandPair(shorthand, tokens, true, out);
    case ShorthandGrammar::Keywords:
        return expandKeywords(shorthand, tokens, out);
    case ShorthandGrammar::Font:
        return expandFont(shorthand, value, tokens, out);
    case ShorthandGrammar::Background:
        return expandBackground(shorthand, tokens, out);
    case ShorthandGrammar::BackgroundPosition:
        return expandBackgroundPosition(shorthand, tokens, out);
    }
    return false;
}

} // namespace

bool expand(ShorthandInfo const &shorthand, Core::String const &value, Components &components)
{
    components.clear();
    if (value.trim() == "inherit") {
        expandInherit(shorthand, components);
        return true;
    }
    if (expandByGrammar(shorthand, value, components))
        return true;
    components.clear();
    return false;
}

} // namespace ShorthandExpansion
