#include "StyledText.h"

namespace {

// Markers stand out most; the selection shows under whatever it covers.
const char *colourOf(std::uint8_t style)
{
    if (style & CellCaret)
        return "\x1b[0;1;31m";
    if (style & CellPivot)
        return "\x1b[0;1;35m";
    const bool selected = (style & CellSelected) != 0;
    if (style & CellTag)
        return selected ? "\x1b[0;7;36m" : "\x1b[0;36m";
    if (style & CellEntity)
        return selected ? "\x1b[0;7;33m" : "\x1b[0;33m";
    return selected ? "\x1b[0;7m" : "\x1b[0m";
}

} // namespace

void appendUtf8(std::string &out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::string plainText(const StyledText &text)
{
    std::string out;
    out.reserve(text.size());
    for (const StyledCell &cell : text)
        appendUtf8(out, cell.character);
    return out;
}

std::string colouredText(const StyledText &text)
{
    std::string out;
    int current = -1;
    for (const StyledCell &cell : text) {
        if (cell.style != current) {
            out += colourOf(cell.style);
            current = cell.style;
        }
        appendUtf8(out, cell.character);
    }
    out += "\x1b[0m";
    return out;
}
