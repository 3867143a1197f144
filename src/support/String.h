#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>

namespace Core {

// A value string of UTF-16 code units. Positions are code-unit indexes (int).
//
// Conventions every scanner of the engine relies on:
//  - `subString(from, to)` includes `to`; it is empty when `from > to`, and the
//    range is clipped to the string, so it never reads out of range.
//  - `find` gives the lowest index at or after `from`, `rFind` the greatest index
//    at or before `from` (inclusive); both give -1 when nothing is found.
//  - `operator[]` outside the string yields 0 instead of reading out of range, so a
//    scanner handed a bad position sees a character that matches nothing.
//
// Literal overloads (`const char *` taken as ASCII/UTF-8, `const char16_t *`) compare
// in place, so hot loops can search for "</fo:block" without building a String.
class String {
public:
    using Units = std::u16string;

    String() = default;
    String(const char *utf8);                 // NOLINT(google-explicit-constructor)
    String(const std::string &utf8);          // NOLINT(google-explicit-constructor)
    String(const char16_t *units);            // NOLINT(google-explicit-constructor)
    String(std::u16string units);             // NOLINT(google-explicit-constructor)
    String(std::u16string_view units);        // NOLINT(google-explicit-constructor)
    String(int count, char16_t unit);
    String(const char16_t *units, int count);

    static String fromUtf8(std::string_view utf8);
    static String fromUnit(char16_t unit) { return String(1, unit); }

    // --- size and access ---
    int length() const noexcept { return static_cast<int>(data_.size()); }
    bool empty() const noexcept { return data_.empty(); }
    bool isEmpty() const noexcept { return data_.empty(); }
    char16_t operator[](int index) const noexcept
    {
        return (index >= 0 && index < length()) ? data_[static_cast<std::size_t>(index)] : u'\0';
    }
    char16_t at(int index) const noexcept { return (*this)[index]; }
    bool isValidIndex(int index) const noexcept { return index >= 0 && index < length(); }

    const std::u16string &units() const noexcept { return data_; }
    std::u16string_view view() const noexcept { return data_; }
    const char16_t *c_str() const noexcept { return data_.c_str(); }
    std::string toUtf8() const;

    // --- pieces ---
    String subString(int from, int to) const;   // inclusive `to`
    String substr(int from, int count) const;   // count units from `from`, clipped
    String left(int count) const { return substr(0, count); }
    String right(int count) const { return substr(length() - count, count); }
    String substringBefore(const String &what) const; // whole string when absent
    String substringAfter(const String &what) const;  // empty when absent

    // --- search: -1 when absent; rFind includes its start ---
    int find(char16_t unit, int from = 0) const noexcept;
    int find(const char *ascii, int from = 0) const noexcept;
    int find(const char16_t *units, int from = 0) const noexcept;
    int find(const String &what, int from = 0) const noexcept { return find(what.view(), from); }
    int find(std::u16string_view what, int from = 0) const noexcept;
    int rFind(char16_t unit, int from) const noexcept;
    int rFind(const char *ascii, int from) const noexcept;
    int rFind(const char16_t *units, int from) const noexcept;
    int rFind(const String &what, int from) const noexcept { return rFind(what.view(), from); }
    int rFind(std::u16string_view what, int from) const noexcept;
    int rFind(char16_t unit) const noexcept { return rFind(unit, length() - 1); }
    int rFind(const String &what) const noexcept { return rFind(what.view(), length() - 1); }
    bool contains(const String &what) const noexcept { return find(what) >= 0; }
    bool contains(const char *ascii) const noexcept { return find(ascii) >= 0; }
    bool contains(char16_t unit) const noexcept { return find(unit) >= 0; }

    // True when `what` stands at `position` (false when it would run past the end;
    // true for an empty `what` at any position from 0 to length()).
    bool matchesAt(int position, const char *ascii) const noexcept;
    bool matchesAt(int position, const char16_t *units) const noexcept;
    bool matchesAt(int position, std::u16string_view what) const noexcept;
    bool matchesAt(int position, const String &what) const noexcept { return matchesAt(position, what.view()); }

    bool startsWith(const char *ascii) const noexcept { return matchesAt(0, ascii); }
    bool startsWith(const char16_t *units) const noexcept { return matchesAt(0, units); }
    bool startsWith(const String &what) const noexcept { return matchesAt(0, what.view()); }
    bool startsWith(char16_t unit) const noexcept { return !empty() && data_.front() == unit; }
    bool endsWith(const String &what) const noexcept;
    bool endsWith(char16_t unit) const noexcept { return !empty() && data_.back() == unit; }

    // Three-way comparison by code units: <0, 0, >0.
    int compare(const String &other) const noexcept;
    // Equality of the range [from, from + what.length()) with `what`, in place.
    bool equalsIgnoreCase(const String &other) const noexcept;

    // --- changes, in place; each returns *this for chaining ---
    String &erase(int position, int count);
    String &insert(int position, const String &text);
    String &replace(int position, int count, const String &text);
    String &replaceAll(const String &what, const String &with);
    String &append(const String &text) { data_ += text.data_; return *this; }
    String &append(char16_t unit) { data_.push_back(unit); return *this; }
    String &prepend(const String &text) { data_.insert(0, text.data_); return *this; }
    void clear() noexcept { data_.clear(); }
    void reserve(int capacity) { if (capacity > 0) data_.reserve(static_cast<std::size_t>(capacity)); }

    // --- copies with a change ---
    String toLower() const;  // ASCII and Latin-1 letters
    String toUpper() const;
    String trim() const;     // strips white space of the engine's classifier, both ends
    String trimLeft() const;
    String trimRight() const;
    String reverse() const;
    String replaced(const String &what, const String &with) const;

    // True when non-empty and every unit is an ASCII digit.
    bool isDigit() const noexcept;
    // True for the ASCII digits "0" to "9" only.
    static bool isDigit(wchar_t unit) noexcept { return unit >= L'0' && unit <= L'9'; }
    // A copy with the units from `from` to `to` (inclusive, clipped to the string)
    // in reverse order; the rest stays in place.
    String reverse(int from, int to) const;

    // The text of a numbered message of the engine, with "{0}" where an argument
    // goes (format it with `format`); empty for a number that has no message.
    static String loadString(int id);

    // "{0} of {1}" with arguments in order; a "{n}" with no argument stays as written.
    static String format(const String &pattern, std::initializer_list<String> arguments);
    template <typename... Args>
    static String formatS(const String &pattern, const Args &...arguments)
    {
        return format(pattern, {String(arguments)...});
    }
    static String number(long long value);
    static String number(double value); // shortest text that reads back the same

    // --- operators ---
    String &operator+=(const String &text) { data_ += text.data_; return *this; }
    String &operator+=(char16_t unit) { data_.push_back(unit); return *this; }
    String &operator+=(const char *utf8) { return *this += String(utf8); }
    friend String operator+(String a, const String &b) { a += b; return a; }
    friend String operator+(String a, char16_t b) { a += b; return a; }
    friend String operator+(String a, const char *b) { a += String(b); return a; }
    friend String operator+(const char *a, const String &b) { String r(a); r += b; return r; }

    friend bool operator==(const String &a, const String &b) noexcept { return a.data_ == b.data_; }
    friend bool operator!=(const String &a, const String &b) noexcept { return a.data_ != b.data_; }
    friend bool operator<(const String &a, const String &b) noexcept { return a.data_ < b.data_; }
    friend bool operator>(const String &a, const String &b) noexcept { return b.data_ < a.data_; }
    friend bool operator<=(const String &a, const String &b) noexcept { return !(b.data_ < a.data_); }
    friend bool operator>=(const String &a, const String &b) noexcept { return !(a.data_ < b.data_); }
    friend bool operator==(const String &a, const char *b) noexcept { return a.equalsLiteral(b); }
    friend bool operator==(const char *a, const String &b) noexcept { return b == a; }
    friend bool operator!=(const String &a, const char *b) noexcept { return !(a == b); }
    friend bool operator!=(const char *a, const String &b) noexcept { return !(b == a); }
    friend bool operator==(const String &a, const char16_t *b) noexcept { return a.view() == std::u16string_view(b); }
    friend bool operator!=(const String &a, const char16_t *b) noexcept { return !(a == b); }
    friend bool operator<(const String &a, const char *b) { return a < String(b); }

private:
    bool equalsLiteral(const char *utf8) const noexcept;

    std::u16string data_;
};

std::ostream &operator<<(std::ostream &out, const String &text);

} // namespace Core

template <>
struct std::hash<Core::String> {
    std::size_t operator()(const Core::String &s) const noexcept { return std::hash<std::u16string>{}(s.units()); }
};
