#pragma once

#include "support/String.h"

#include <type_traits>

namespace Core {

// Number text in the engine's attribute values: integers of list labels, column
// counts and numbers, floats of column widths. Every function answers; none throws.
class Format {
public:
    // The leading integer of `text` after any white space, with an optional sign, and
    // 0 when the text does not start with one ("12)" gives 12, "x" gives 0). Values
    // past the range of int are clamped to it.
    static int parseInt(const String &text) noexcept;

    // Strict form: true and `value` set only when the whole text, white space around
    // it aside, is one decimal integer that fits an int. `value` is left alone on
    // failure.
    static bool parseInt(const String &text, int &value) noexcept;

    // Strict, like the strict parseInt: a decimal number with optional sign, fraction
    // and exponent ("12", "-0.5", "1e3"); infinities and NaN are refused.
    static bool parseFloat(const String &text, float &value) noexcept;

    // Prints `value`. An empty format gives the shortest text that reads back as the
    // same float ("33.333332", "25", never "-0"); "F<n>" (or "f<n>") gives n digits
    // after the point, 0 to 9. Any other format is taken as empty.
    static String formatValue(float value, const String &format);

    // "{0} of {1}" filled in order; arguments may be strings or numbers.
    template <typename... Args> static String format(const String &pattern, const Args &...arguments)
    {
        return String::format(pattern, {toText(arguments)...});
    }

private:
    template <typename T> static String toText(const T &argument)
    {
        if constexpr (std::is_integral_v<T>)
            return String::number(static_cast<long long>(argument));
        else if constexpr (std::is_floating_point_v<T>)
            return String::number(static_cast<double>(argument));
        else
            return String(argument);
    }
};

} // namespace Core
