#pragma once

#include "support/Object.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Core::IO {

// A positioned sequence of bytes: a file or a block of memory. Readers and writers
// work on a stream; the stream itself knows nothing of text or encodings.
class Stream : public Core::Object {
public:
    // Reads up to `count` bytes at the position into `buffer` and moves past them;
    // gives the number read, 0 at the end.
    virtual std::size_t read(char *buffer, std::size_t count) = 0;
    // Writes `bytes` at the position and moves past them.
    virtual void write(std::string_view bytes) = 0;
    // Moves to `position`, clamped to the stream's length.
    virtual void seek(std::int64_t position) = 0;
    virtual std::int64_t getPosition() const = 0;
    virtual std::int64_t getLength() const = 0;
    // Ends the use of the stream; a file stream makes its writes final here.
    virtual void close() {}

    // Every byte from the position to the end.
    std::string readToEnd();
};

} // namespace Core::IO
