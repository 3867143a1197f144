#include "support/String.h"

#include "support/WhiteSpace.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <ostream>

namespace Core {

namespace {

bool isAsciiLiteral(const char *text, int &length) noexcept
{
    length = 0;
    bool ascii = true;
    for (const char *c = text; *c != '\0'; ++c, ++length)
        ascii = ascii && static_cast<unsigned char>(*c) < 0x80;
    return ascii;
}

void appendUtf8(std::string &out, char32_t cp)
{
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

// Decodes UTF-8; an ill-formed sequence becomes U+FFFD, one per bad byte, so no input
// is rejected and nothing reads past the end.
std::u16string decodeUtf8(std::string_view in)
{
    std::u16string out;
    out.reserve(in.size());
    std::size_t i = 0;
    const std::size_t n = in.size();
    while (i < n) {
        const auto b0 = static_cast<unsigned char>(in[i]);
        if (b0 < 0x80) {
            out.push_back(b0);
            ++i;
            continue;
        }
        int extra = 0;
        char32_t cp = 0;
        char32_t minimum = 0;
        if ((b0 & 0xE0) == 0xC0) {
            extra = 1, cp = b0 & 0x1F, minimum = 0x80;
        } else if ((b0 & 0xF0) == 0xE0) {
            extra = 2, cp = b0 & 0x0F, minimum = 0x800;
        } else if ((b0 & 0xF8) == 0xF0) {
            extra = 3, cp = b0 & 0x07, minimum = 0x10000;
        } else {
            out.push_back(0xFFFD);
            ++i;
            continue;
        }
        bool ok = true;
        for (int k = 1; ok && k <= extra; ++k) {
            if (i + static_cast<std::size_t>(k) >= n) {
                ok = false;
                break;
            }
            const auto b = static_cast<unsigned char>(in[i + static_cast<std::size_t>(k)]);
            if ((b & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            cp = (cp << 6) | (b & 0x3F);
        }
        if (!ok || cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            out.push_back(0xFFFD);
            ++i;
            continue;
        }
        if (cp >= 0x10000) {
            cp -= 0x10000;
            out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
        } else {
            out.push_back(static_cast<char16_t>(cp));
        }
        i += static_cast<std::size_t>(extra) + 1;
    }
    return out;
}

char16_t lowerUnit(char16_t c) noexcept
{
    if ((c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
        return static_cast<char16_t>(c + 32);
    return c;
}

char16_t upperUnit(char16_t c) noexcept
{
    if ((c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7))
        return static_cast<char16_t>(c - 32);
    return c;
}

} // namespace

String::String(const char *utf8) : data_(utf8 ? decodeUtf8(utf8) : std::u16string()) {}
String::String(const std::string &utf8) : data_(decodeUtf8(utf8)) {}
String::String(const char16_t *units) : data_(units ? units : u"") {}
String::String(std::u16string units) : data_(std::move(units)) {}
String::String(std::u16string_view units) : data_(units) {}
String::String(int count, char16_t unit) : data_(static_cast<std::size_t>(std::max(count, 0)), unit) {}
String::String(const char16_t *units, int count)
    : data_(units && count > 0 ? std::u16string(units, static_cast<std::size_t>(count)) : std::u16string())
{
}

String String::fromUtf8(std::string_view utf8) { return String(decodeUtf8(utf8)); }

std::string String::toUtf8() const
{
    std::string out;
    out.reserve(data_.size());
    const std::size_t n = data_.size();
    for (std::size_t i = 0; i < n; ++i) {
        char32_t c = data_[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < n && data_[i + 1] >= 0xDC00 && data_[i + 1] <= 0xDFFF) {
            c = 0x10000 + ((c - 0xD800) << 10) + (data_[i + 1] - 0xDC00);
            ++i;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            c = 0xFFFD; // a lone surrogate has no UTF-8 form
        }
        appendUtf8(out, c);
    }
    return out;
}

String String::subString(int from, int to) const
{
    from = std::max(from, 0);
    to = std::min(to, length() - 1);
    if (from > to)
        return String();
    return String(data_.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from + 1)));
}

String String::substr(int from, int count) const
{
    if (count <= 0)
        return String();
    return subString(from, from + count - 1);
}

String String::substringBefore(const String &what) const
{
    const int at = find(what);
    return at < 0 ? *this : subString(0, at - 1);
}

String String::substringAfter(const String &what) const
{
    const int at = find(what);
    return at < 0 ? String() : subString(at + what.length(), length() - 1);
}

int String::find(char16_t unit, int from) const noexcept
{
    if (from < 0)
        from = 0;
    if (from >= length())
        return -1;
    const auto at = data_.find(unit, static_cast<std::size_t>(from));
    return at == std::u16string::npos ? -1 : static_cast<int>(at);
}

int String::find(std::u16string_view what, int from) const noexcept
{
    if (from < 0)
        from = 0;
    if (from > length())
        return -1;
    const auto at = view().find(what, static_cast<std::size_t>(from));
    return at == std::u16string_view::npos ? -1 : static_cast<int>(at);
}

int String::find(const char16_t *units, int from) const noexcept
{
    return find(std::u16string_view(units ? units : u""), from);
}

int String::find(const char *ascii, int from) const noexcept
{
    int n = 0;
    if (!ascii)
        return -1;
    if (!isAsciiLiteral(ascii, n))
        return find(String(ascii).view(), from);
    if (from < 0)
        from = 0;
    if (n == 0)
        return from <= length() ? from : -1;
    const char16_t first = static_cast<unsigned char>(ascii[0]);
    for (int i = find(first, from); i >= 0 && i + n <= length(); i = find(first, i + 1)) {
        int k = 1;
        while (k < n && data_[static_cast<std::size_t>(i + k)] == static_cast<unsigned char>(ascii[k]))
            ++k;
        if (k == n)
            return i;
    }
    return -1;
}

int String::rFind(char16_t unit, int from) const noexcept
{
    if (from < 0 || empty())
        return -1;
    if (from >= length())
        from = length() - 1;
    const auto at = data_.rfind(unit, static_cast<std::size_t>(from));
    return at == std::u16string::npos ? -1 : static_cast<int>(at);
}

int String::rFind(std::u16string_view what, int from) const noexcept
{
    if (from < 0)
        return -1;
    if (from > length())
        from = length();
    const auto at = view().rfind(what, static_cast<std::size_t>(from));
    return at == std::u16string_view::npos ? -1 : static_cast<int>(at);
}

int String::rFind(const char16_t *units, int from) const noexcept
{
    return rFind(std::u16string_view(units ? units : u""), from);
}

int String::rFind(const char *ascii, int from) const noexcept
{
    int n = 0;
    if (!ascii)
        return -1;
    if (!isAsciiLiteral(ascii, n))
        return rFind(String(ascii).view(), from);
    if (from < 0)
        return -1;
    if (n == 0)
        return std::min(from, length());
    const char16_t first = static_cast<unsigned char>(ascii[0]);
    int start = std::min(from, length() - n);
    for (int i = rFind(first, start); i >= 0; i = rFind(first, i - 1)) {
        int k = 1;
        while (k < n && data_[static_cast<std::size_t>(i + k)] == static_cast<unsigned char>(ascii[k]))
            ++k;
        if (k == n)
            return i;
    }
    return -1;
}

bool String::matchesAt(int position, const char *ascii) const noexcept
{
    int n = 0;
    if (!ascii)
        return false;
    if (!isAsciiLiteral(ascii, n))
        return matchesAt(position, String(ascii).view());
    if (position < 0 || position + n > length())
        return false;
    for (int k = 0; k < n; ++k)
        if (data_[static_cast<std::size_t>(position + k)] != static_cast<unsigned char>(ascii[k]))
            return false;
    return true;
}

bool String::matchesAt(int position, const char16_t *units) const noexcept
{
    return matchesAt(position, std::u16string_view(units ? units : u""));
}

bool String::matchesAt(int position, std::u16string_view what) const noexcept
{
    const int n = static_cast<int>(what.size());
    if (position < 0 || position + n > length())
        return false;
    return view().substr(static_cast<std::size_t>(position), what.size()) == what;
}

bool String::endsWith(const String &what) const noexcept
{
    return what.length() <= length() && matchesAt(length() - what.length(), what.view());
}

int String::compare(const String &other) const noexcept
{
    const int c = data_.compare(other.data_);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

bool String::equalsIgnoreCase(const String &other) const noexcept
{
    if (length() != other.length())
        return false;
    for (std::size_t i = 0; i < data_.size(); ++i)
        if (lowerUnit(data_[i]) != lowerUnit(other.data_[i]))
            return false;
    return true;
}

String &String::erase(int position, int count)
{
    if (position < 0 || position >= length() || count <= 0)
        return *this;
    data_.erase(static_cast<std::size_t>(position), static_cast<std::size_t>(std::min(count, length() - position)));
    return *this;
}

String &String::insert(int position, const String &text)
{
    position = std::clamp(position, 0, length());
    data_.insert(static_cast<std::size_t>(position), text.data_);
    return *this;
}

String &String::replace(int position, int count, const String &text)
{
    if (position < 0 || position > length())
        return *this;
    count = std::clamp(count, 0, length() - position);
    data_.replace(static_cast<std::size_t>(position), static_cast<std::size_t>(count), text.data_);
    return *this;
}

String &String::replaceAll(const String &what, const String &with)
{
    if (what.empty() || empty())
        return *this;
    std::u16string out;
    out.reserve(data_.size());
    std::size_t from = 0;
    for (std::size_t at = data_.find(what.data_); at != std::u16string::npos; at = data_.find(what.data_, from)) {
        out.append(data_, from, at - from);
        out += with.data_;
        from = at + what.data_.size();
    }
    out.append(data_, from, std::u16string::npos);
    data_ = std::move(out);
    return *this;
}

String String::replaced(const String &what, const String &with) const
{
    String copy(*this);
    copy.replaceAll(what, with);
    return copy;
}

String String::toLower() const
{
    String copy(*this);
    for (auto &c : copy.data_)
        c = lowerUnit(c);
    return copy;
}

String String::toUpper() const
{
    String copy(*this);
    for (auto &c : copy.data_)
        c = upperUnit(c);
    return copy;
}

String String::trimLeft() const
{
    int i = 0;
    while (i < length() && Core::iswspace(data_[static_cast<std::size_t>(i)]))
        ++i;
    return subString(i, length() - 1);
}

String String::trimRight() const
{
    int i = length() - 1;
    while (i >= 0 && Core::iswspace(data_[static_cast<std::size_t>(i)]))
        --i;
    return subString(0, i);
}

String String::trim() const { return trimLeft().trimRight(); }

String String::reverse() const
{
    String copy(*this);
    std::reverse(copy.data_.begin(), copy.data_.end());
    return copy;
}

String String::reverse(int from, int to) const
{
    String copy(*this);
    from = std::max(from, 0);
    to = std::min(to, length() - 1);
    if (from < to)
        std::reverse(copy.data_.begin() + from, copy.data_.begin() + to + 1);
    return copy;
}

bool String::isDigit() const noexcept
{
    if (empty())
        return false;
    return std::all_of(data_.begin(), data_.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

String String::format(const String &pattern, std::initializer_list<String> arguments)
{
    String out;
    out.reserve(pattern.length());
    const int n = pattern.length();
    for (int i = 0; i < n; ++i) {
        const char16_t c = pattern[i];
        if (c == u'{') {
            int j = i + 1;
            std::size_t index = 0;
            while (j < n && pattern[j] >= u'0' && pattern[j] <= u'9') {
                index = index * 10 + static_cast<std::size_t>(pattern[j] - u'0');
                ++j;
            }
            if (j > i + 1 && j < n && pattern[j] == u'}' && index < arguments.size()) {
                out += *(arguments.begin() + index);
                i = j;
                continue;
            }
        }
        out += c;
    }
    return out;
}

String String::number(long long value) { return String(std::to_string(value)); }

String String::number(double value)
{
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return String(std::string(buffer, result.ptr));
}

bool String::equalsLiteral(const char *utf8) const noexcept
{
    int n = 0;
    if (!utf8)
        return empty();
    if (!isAsciiLiteral(utf8, n))
        return data_ == decodeUtf8(utf8);
    return n == length() && matchesAt(0, utf8);
}

std::ostream &operator<<(std::ostream &out, const String &text) { return out << text.toUtf8(); }

} // namespace Core
