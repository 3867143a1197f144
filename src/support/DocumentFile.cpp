#include "support/DocumentFile.h"

#include "support/FileStream.h"
#include "support/XmlReader.h"
#include "support/XmlWriter.h"

namespace Core::IO {

String readDocumentFile(const String &path)
{
    SmartPtr<XmlReader> reader(new XmlReader(SmartPtr<Stream>(new FileStream(path))));
    return reader->readToEnd();
}

bool writeDocumentFile(const String &path, const String &text, DocumentEncoding encoding)
{
    if (declaredEncodingName(encoding).empty())
        return false;
    SmartPtr<FileStream> stream(new FileStream(path, true, true, false));
    XmlWriter writer(stream.get(), encoding);
    writer.write(text);
    stream->close();
    return true;
}

} // namespace Core::IO
