#include "support/Stream.h"

namespace Core::IO {

std::string Stream::readToEnd()
{
    std::string bytes;
    const std::int64_t remaining = getLength() - getPosition();
    if (remaining > 0)
        bytes.reserve(static_cast<std::size_t>(remaining));
    char chunk[65536];
    for (std::size_t n = read(chunk, sizeof chunk); n > 0; n = read(chunk, sizeof chunk))
        bytes.append(chunk, n);
    return bytes;
}

} // namespace Core::IO
