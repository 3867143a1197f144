#pragma once

#include "support/SmartPtr.h"
#include "support/Stream.h"
#include "support/String.h"

namespace Core::IO {

// Reads the bytes of a stream as text in one named encoding (see Core::Encoder for
// the names). A leading byte-order mark of that encoding is dropped.
class TextReader : public Core::Object {
public:
    explicit TextReader(SmartPtr<Stream> stream, String encodingName = "UTF-8");

    // The text from the stream's position to its end. Undefined bytes become
    // U+FFFD. Throws Core::IOException when the stream cannot be read or the
    // encoding is unknown.
    virtual String readToEnd();

    // The encoding the text was (or will be) read in.
    const String &getEncoding() const noexcept { return encoding_; }

protected:
    // `bytes` as text; with `dropMark`, a leading U+FEFF (the byte-order mark) goes.
    String decode(std::string_view bytes, const String &encodingName, bool dropMark);

    SmartPtr<Stream> stream_;
    String encoding_;
};

} // namespace Core::IO
