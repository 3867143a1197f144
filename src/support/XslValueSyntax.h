#pragma once

#include "support/String.h"

#include <vector>

// Reading XSL-FO property values just far enough to take shorthands apart and put
// them together again. Values are taken as they stand in the markup.
namespace XslValueSyntax {

// One value of a blank-separated list. A function call ("rgb(1, 2, 3)"), a quoted
// string and an expression joined by operators ("3mm + 1mm") each make one token.
struct Token {
    int start = 0; // index of the first unit in the value
    int end = 0;   // index behind the last unit
    Core::String text;
};

std::vector<Token> tokenize(Core::String const &value);
// The tokens joined by one blank each.
Core::String join(std::vector<Core::String> const &values);

bool isNumeric(Core::String const &token);     // starts like a number: "12pt", ".5mm", "-1in", "3mm + 1mm"
bool isBorderWidth(Core::String const &token); // a length or thin, medium, thick
bool isBorderStyle(Core::String const &token);
bool isFontSize(Core::String const &token);
bool isKeyword(Core::String const &token, std::initializer_list<const char *> keywords);

// Whether two values mean the same: keywords ignore case, numbers compare by value
// and unit ("12pt" and "12.0pt"), and a zero length is zero in any unit.
bool sameValue(Core::String const &a, Core::String const &b);

} // namespace XslValueSyntax
