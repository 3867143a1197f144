#pragma once

#include <optional>
#include <termios.h>

// The console foedit runs on: whether a stream is a terminal, its size, raw input
// while keys are read one by one, and reading a byte with a time limit.
namespace Terminal {

bool isTerminal(int fd);

struct Size {
    int rows = 24;
    int columns = 80;
};
// The window's size, or 24 by 80 when it cannot be asked.
Size size(int fd);

// Raw input for as long as it lives: no echo, no line buffering, no signals from
// Ctrl+C/Ctrl+Z and no flow control from Ctrl+S/Ctrl+Q, so every key reaches foedit.
// Output processing stays, so "\n" still starts a new line. Does nothing on a stream
// that is no terminal.
class RawMode {
public:
    explicit RawMode(int input);
    ~RawMode();
    RawMode(const RawMode &) = delete;
    RawMode &operator=(const RawMode &) = delete;

private:
    int fd;
    std::optional<termios> saved;
};

// One byte from `fd`: 0 to 255, -1 when nothing came within `timeoutMs` (negative:
// wait for ever), -2 at the end of the input or on an error.
int readByte(int fd, int timeoutMs);

} // namespace Terminal
