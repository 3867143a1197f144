#include "support/MemoryStream.h"

#include <algorithm>

namespace Core::IO {

std::size_t MemoryStream::read(char *buffer, std::size_t count)
{
    const std::size_t n = std::min(count, bytes_.size() - position_);
    bytes_.copy(buffer, n, position_);
    position_ += n;
    return n;
}

void MemoryStream::write(std::string_view bytes)
{
    bytes_.replace(position_, std::min(bytes.size(), bytes_.size() - position_), bytes);
    position_ += bytes.size();
}

void MemoryStream::seek(std::int64_t position)
{
    position_ = static_cast<std::size_t>(std::clamp<std::int64_t>(position, 0, getLength()));
}

} // namespace Core::IO
