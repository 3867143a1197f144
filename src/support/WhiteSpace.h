#pragma once

namespace Core {

// The engine's white-space classifier: the Unicode White_Space set, fixed in code so
// that it answers the same on every machine and under every locale. Unlike the C
// library's iswspace in most locales it counts U+00A0, the placeholder character:
// scans that must not take a raw placeholder for white space test for 160 as well.
constexpr bool iswspace(char16_t c) noexcept
{
    if (c <= 0x20)
        return c == 0x20 || (c >= 0x09 && c <= 0x0D);
    if (c < 0x85)
        return false;
    return c == 0x85 || c == 0xA0 || c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 ||
           c == 0x2029 || c == 0x202F || c == 0x205F || c == 0x3000;
}

constexpr char16_t kNoBreakSpace = 0xA0;

// White space that is not the raw placeholder character.
constexpr bool isPlainWhiteSpace(char16_t c) noexcept { return c != kNoBreakSpace && iswspace(c); }

} // namespace Core
