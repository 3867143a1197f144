#pragma once

#include "Key.h"

#include <functional>

// Turns the bytes a terminal sends into key presses: UTF-8 characters, control
// letters, and the escape sequences of xterm and its kin for arrows, Home, End and
// Delete with their Shift and Ctrl forms ("\x1b[1;2C" is Shift+Right).
namespace KeyDecoder {

// Gives the next byte (0 to 255), -1 when none came within `timeoutMs` (negative:
// wait for ever), or -2 at the end of the input.
using ByteSource = std::function<int(int timeoutMs)>;

// How long the rest of an escape sequence may take to arrive: a lone Esc is told
// from the start of a sequence by the silence after it.
constexpr int sequenceTimeoutMs = 50;

Key readKey(const ByteSource &next);

} // namespace KeyDecoder
