#include "support/Format.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <string>

namespace Core {

namespace {

bool isBlank(char16_t c) noexcept
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}
bool isDecimalDigit(char16_t c) noexcept
{
    return c >= u'0' && c <= u'9';
}

// The text between leading and trailing blanks as ASCII, or false when it holds any
// unit outside ASCII (no number does).
bool trimmedAscii(const String &text, std::string &ascii)
{
    int from = 0;
    int to = text.length() - 1;
    while (from <= to && isBlank(text[from]))
        ++from;
    while (to >= from && isBlank(text[to]))
        --to;
    ascii.clear();
    for (int i = from; i <= to; ++i) {
        if (text[i] >= 0x80)
            return false;
        ascii.push_back(static_cast<char>(text[i]));
    }
    return true;
}

// std::from_chars takes no leading "+"; a number text may have one.
std::string_view withoutPlus(std::string_view ascii)
{
    if (ascii.size() > 1 && ascii.front() == '+' && ascii[1] != '-')
        ascii.remove_prefix(1);
    return ascii;
}

int fixedDigits(const String &format) noexcept
{
    if (format.length() != 2 || (format[0] != u'F' && format[0] != u'f') || !isDecimalDigit(format[1]))
        return -1;
    return format[1] - u'0';
}

} // namespace

int Format::parseInt(const String &text) noexcept
{
    int i = 0;
    while (isBlank(text[i]))
        ++i;
    bool negative = false;
    if (text[i] == u'+' || text[i] == u'-')
        negative = text[i++] == u'-';
    long long value = 0;
    for (; isDecimalDigit(text[i]); ++i) {
        value = value * 10 + (text[i] - u'0');
        if (value > static_cast<long long>(INT_MAX) + 1)
            value = static_cast<long long>(INT_MAX) + 1; // keep reading digits, stay clamped
    }
    if (negative)
        value = -value;
    if (value > INT_MAX)
        return INT_MAX;
    return static_cast<int>(value);
}

bool Format::parseInt(const String &text, int &value) noexcept
{
    std::string ascii;
    if (!trimmedAscii(text, ascii))
        return false;
    const std::string_view digits = withoutPlus(ascii);
    int parsed = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), parsed);
    if (error != std::errc() || end != digits.data() + digits.size() || digits.empty())
        return false;
    value = parsed;
    return true;
}

bool Format::parseFloat(const String &text, float &value) noexcept
{
    std::string ascii;
    if (!trimmedAscii(text, ascii))
        return false;
    const std::string_view number = withoutPlus(ascii);
    if (number.empty() || !(isDecimalDigit(number.back()) || number.back() == '.'))
        return false; // refuses "inf", "nan" and friends, which from_chars would take
    float parsed = 0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), parsed, std::chars_format::general);
    if (error != std::errc() || end != number.data() + number.size() || !std::isfinite(parsed))
        return false;
    value = parsed;
    return true;
}

String Format::formatValue(float value, const String &format)
{
    if (!std::isfinite(value))
        return String("0");
    char buffer[64];
    const int digits = fixedDigits(format);
    std::string text;
    if (digits >= 0) {
        const int length = std::snprintf(buffer, sizeof buffer, "%.*f", digits, static_cast<double>(value));
        text.assign(buffer, static_cast<std::size_t>(length > 0 ? length : 0));
    } else {
        text.assign(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    }
    // A value that prints as zero prints without a sign: never "-0" or "-0.00".
    if (!text.empty() && text.front() == '-' && text.find_first_of("123456789") == std::string::npos)
        text.erase(0, 1);
    return String(text);
}

} // namespace Core
