// Any bytes handed to the document reader, as a file on disk could hold them: the
// encoding is detected and the text decoded without a crash, a hang or a read out of
// range, and a successful read survives a save-shaped round trip through UTF-8 and UTF-16.
#include "support/Exception.h"
#include "support/MemoryStream.h"
#include "support/XmlReader.h"
#include "support/XmlWriter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Core::setLogSink([](const Core::String &) {});
    std::string bytes(reinterpret_cast<const char *>(data), size);
    Core::String text;
    try {
        text = Core::IO::XmlReader(SmartPtr<Core::IO::Stream>(new Core::IO::MemoryStream(bytes))).readToEnd();
    } catch (const Core::IOException &) {
        return 0; // an encoding no converter knows
    }
    for (const DocumentEncoding encoding : {DocumentEncodingUTF8, DocumentEncodingUTF16}) {
        SmartPtr<Core::IO::MemoryStream> saved(new Core::IO::MemoryStream());
        Core::IO::XmlWriter(saved.get(), encoding).write(text);
        saved->seek(0);
        const Core::String back = Core::IO::XmlReader(saved).readToEnd();
        if (back != Core::IO::XmlWriter::withDeclaredEncoding(text, Core::IO::declaredEncodingName(encoding)))
            std::abort();
    }
    return 0;
}
