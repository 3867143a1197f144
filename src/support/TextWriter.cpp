#include "support/TextWriter.h"

#include "support/Encoder.h"
#include "support/Exception.h"

namespace Core::IO {

TextWriter::TextWriter(Stream *stream, String encodingName)
    : stream_(stream), encoding_(std::move(encodingName))
{
}

void TextWriter::write(const String &text)
{
    std::string bytes;
    if (!Encoder::encode(text, encoding_, bytes))
        FOEDIT_THROW(
            Core::IOException(String("cannot write text in the unknown encoding '") + encoding_ + "'"));
    writeBytes(bytes);
}

void TextWriter::writeBytes(std::string_view bytes)
{
    if (!stream_)
        FOEDIT_THROW(Core::IOException("cannot write text without a stream"));
    stream_->write(bytes);
}

} // namespace Core::IO
