#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Text ready for the console: one cell per character, each with what it stands for,
// so the same cells print as plain marked text (what `expect` compares) or in colour.
enum CellStyle : std::uint8_t {
    CellText = 0,
    CellTag = 1,      // inside "<...>"
    CellEntity = 2,   // inside "&...;"
    CellSelected = 4, // between caret and pivot; combines with the others
    CellCaret = 8,    // the caret marker "|"
    CellPivot = 16,   // the pivot marker "^"
};

struct StyledCell {
    char32_t character;
    std::uint8_t style;
};

using StyledText = std::vector<StyledCell>;

// The cells as UTF-8, without any colour.
std::string plainText(const StyledText &text);
// The cells as UTF-8 with ANSI colour sequences, ending with the colours reset.
std::string colouredText(const StyledText &text);
// Appends one code point as UTF-8.
void appendUtf8(std::string &out, char32_t character);
