#include "support/XslValueSyntax.h"

#include "support/WhiteSpace.h"

#include <charconv>
#include <string>

namespace XslValueSyntax {
namespace {

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool isOperator(Core::String const &text)
{
    return text == "+" || text == "-" || text == "*" || text == "div" || text == "mod";
}

// Blank-separated pieces, with parentheses and quotes kept together.
std::vector<Token> rawTokens(Core::String const &value)
{
    std::vector<Token> tokens;
    int i = 0;
    int n = value.length();
    while (i < n) {
        while (i < n && Core::iswspace(value[i]))
            ++i;
        if (i >= n)
            break;
        int start = i;
        int depth = 0;
        char16_t quote = 0;
        for (; i < n; ++i) {
            char16_t c = value[i];
            if (quote) {
                if (c == quote)
                    quote = 0;
            } else if (c == u'\'' || c == u'"') {
                quote = c;
            } else if (c == u'(') {
                ++depth;
            } else if (c == u')') {
                if (depth > 0)
                    --depth;
            } else if (depth == 0 && Core::iswspace(c)) {
                break;
            }
        }
        tokens.push_back({start, i, value.subString(start, i - 1)});
    }
    return tokens;
}

// A number and its unit, the whole text: "12.0pt", "50%", "0".
bool parseNumber(Core::String const &text, double &number, Core::String &unit)
{
    std::string ascii;
    int i = 0;
    if (text[i] == u'+' || text[i] == u'-')
        ascii.push_back(static_cast<char>(text[i++]));
    bool digits = false;
    while (isDigit(text[i]) || text[i] == u'.') {
        digits = digits || isDigit(text[i]);
        ascii.push_back(static_cast<char>(text[i++]));
    }
    if (!digits)
        return false;
    for (int j = i; j < text.length(); ++j) {
        char16_t c = text[j];
        bool letter = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'%';
        if (!letter)
            return false;
    }
    if (ascii.front() == '+')
        ascii.erase(0, 1);
    auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
    if (error != std::errc() || end != ascii.data() + ascii.size())
        return false;
    unit = text.substr(i, text.length() - i).toLower();
    return true;
}

bool isLengthUnit(Core::String const &unit)
{
    return unit.isEmpty() || unit == "pt" || unit == "mm" || unit == "cm" || unit == "in" || unit == "pc" ||
           unit == "px" || unit == "em";
}

} // namespace

std::vector<Token> tokenize(Core::String const &value)
{
    std::vector<Token> raw = rawTokens(value);
    std::vector<Token> tokens;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        bool joins = isOperator(raw[i].text) && !tokens.empty() && i + 1 < raw.size();
        if (!joins) {
            tokens.push_back(raw[i]);
            continue;
        }
        Token &left = tokens.back();
        const Token &right = raw[++i];
        left.end = right.end;
        left.text = value.subString(left.start, left.end - 1);
    }
    return tokens;
}

Core::String join(std::vector<Core::String> const &values)
{
    Core::String result;
    for (const Core::String &value : values) {
        if (!result.isEmpty())
            result += u' ';
        result += value;
    }
    return result;
}

bool isNumeric(Core::String const &token)
{
    char16_t first = token[0];
    if (first == u'+' || first == u'-')
        first = token[1] == u'.' ? token[2] : token[1];
    else if (first == u'.')
        first = token[1];
    return isDigit(first);
}

bool isKeyword(Core::String const &token, std::initializer_list<const char *> keywords)
{
    for (const char *keyword : keywords)
        if (token.equalsIgnoreCase(keyword))
            return true;
    return false;
}

bool isBorderWidth(Core::String const &token)
{
    return isNumeric(token) || isKeyword(token, {"thin", "medium", "thick"});
}

bool isBorderStyle(Core::String const &token)
{
    return isKeyword(token, {"none", "hidden", "dotted", "dashed", "solid", "double", "groove", "ridge",
                             "inset", "outset"});
}

bool isFontSize(Core::String const &token)
{
    return isNumeric(token) || isKeyword(token, {"xx-small", "x-small", "small", "medium", "large", "x-large",
                                                 "xx-large", "larger", "smaller"});
}

bool sameValue(Core::String const &a, Core::String const &b)
{
    Core::String left = a.trim();
    Core::String right = b.trim();
    if (left.equalsIgnoreCase(right))
        return true;
    double leftNumber = 0;
    double rightNumber = 0;
    Core::String leftUnit;
    Core::String rightUnit;
    if (!parseNumber(left, leftNumber, leftUnit) || !parseNumber(right, rightNumber, rightUnit))
        return false;
    if (leftNumber == 0 && rightNumber == 0 && isLengthUnit(leftUnit) && isLengthUnit(rightUnit))
        return true;
    return leftNumber == rightNumber && leftUnit == rightUnit;
}

} // namespace XslValueSyntax
