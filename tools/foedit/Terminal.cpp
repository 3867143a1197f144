#include "Terminal.h"

#include <cerrno>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Terminal {

bool isTerminal(int fd)
{
    return isatty(fd) == 1;
}

Size size(int fd)
{
    winsize window{};
    Size result;
    if (ioctl(fd, TIOCGWINSZ, &window) == 0 && window.ws_row > 0 && window.ws_col > 0) {
        result.rows = window.ws_row;
        result.columns = window.ws_col;
    }
    return result;
}

RawMode::RawMode(int input) : fd(input)
{
    termios settings{};
    if (!isTerminal(input) || tcgetattr(input, &settings) != 0)
        return;
    saved = settings;
    settings.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG | IEXTEN);
    settings.c_iflag &= ~static_cast<tcflag_t>(IXON | ICRNL | BRKINT | INPCK | ISTRIP);
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    tcsetattr(input, TCSAFLUSH, &settings);
}

RawMode::~RawMode()
{
    if (saved)
        tcsetattr(fd, TCSAFLUSH, &*saved);
}

int readByte(int fd, int timeoutMs)
{
    pollfd request{fd, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&request, 1, timeoutMs < 0 ? -1 : timeoutMs);
    } while (ready < 0 && errno == EINTR);
    if (ready == 0)
        return -1;
    if (ready < 0)
        return -2;
    unsigned char byte = 0;
    ssize_t count = 0;
    do {
        count = read(fd, &byte, 1);
    } while (count < 0 && errno == EINTR);
    return count == 1 ? byte : -2;
}

} // namespace Terminal
