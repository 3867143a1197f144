#pragma once

#include "support/Object.h"
#include "support/Stream.h"
#include "support/String.h"

namespace Core::IO {

// Writes text to a stream in one named encoding (see Core::Encoder for the names).
// Characters the encoding cannot hold are written as "&#xHHHH;" references. The
// stream is not owned and must outlive the writer.
class TextWriter : public Core::Object {
public:
    TextWriter(Stream *stream, String encodingName);

    // Encodes and writes `text`. Throws Core::IOException for an unknown encoding
    // or a stream that refuses the bytes.
    virtual void write(const String &text);

    const String &getEncoding() const noexcept { return encoding_; }

protected:
    void writeBytes(std::string_view bytes);

    Stream *stream_;
    String encoding_;
};

} // namespace Core::IO
