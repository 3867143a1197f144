#include "support/TextReader.h"

#include "support/Encoder.h"
#include "support/Exception.h"

namespace Core::IO {

TextReader::TextReader(SmartPtr<Stream> stream, String encodingName)
    : stream_(std::move(stream)), encoding_(std::move(encodingName))
{
}

String TextReader::readToEnd()
{
    return decode(stream_->readToEnd(), encoding_, true);
}

String TextReader::decode(std::string_view bytes, const String &encodingName, bool dropMark)
{
    String text;
    if (!Encoder::decode(bytes, encodingName, text))
        FOEDIT_THROW(
            Core::IOException(String("cannot read text in the unknown encoding '") + encodingName + "'"));
    if (dropMark && text.startsWith(u'\uFEFF'))
        text.erase(0, 1);
    return text;
}

} // namespace Core::IO
