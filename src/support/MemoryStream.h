#pragma once

#include "support/Stream.h"

#include <string>

namespace Core::IO {

// A stream over bytes held in memory; used to hand markup to the DOM parser and to
// collect what a writer produces. Writing past the end makes the block longer.
class MemoryStream : public Stream {
public:
    MemoryStream() = default;
    explicit MemoryStream(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t read(char *buffer, std::size_t count) override;
    void write(std::string_view bytes) override;
    void seek(std::int64_t position) override;
    std::int64_t getPosition() const override { return static_cast<std::int64_t>(position_); }
    std::int64_t getLength() const override { return static_cast<std::int64_t>(bytes_.size()); }

    // All bytes of the stream, whatever the position.
    const std::string &getBytes() const noexcept { return bytes_; }

private:
    std::string bytes_;
    std::size_t position_ = 0; // always <= bytes_.size()
};

} // namespace Core::IO
