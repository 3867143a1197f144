#include "support/XmlWriter.h"

#include "support/Encoder.h"
#include "support/Exception.h"
#include "support/XmlReader.h"

namespace Core::IO {

namespace {

String converterNameFor(DocumentEncoding encoding)
{
    switch (encoding) {
    case DocumentEncodingUTF8:
        return "UTF-8";
    case DocumentEncodingUTF16:
        return "UTF-16LE"; // the byte-order mark is written separately
    case DocumentEncodingISO88591:
        return "ISO-8859-1";
    }
    FOEDIT_THROW(Core::IOException(String("no document encoding has the number ") +
                                   String::number(static_cast<long long>(encoding))));
}

// UTF-8 goes without a byte-order mark, unless a reader would take the bytes for
// something else: text that starts with U+FEFF (read as the mark and dropped), or
// with "<" and "?" each beside a zero unit (read as UTF-16).
bool readsAsPlainUtf8(std::string_view bytes)
{
    std::size_t markLength = 0;
    return XmlReader::detectEncoding(bytes, markLength) == "UTF-8" && markLength == 0;
}

} // namespace

XmlWriter::XmlWriter(Stream *stream, DocumentEncoding encoding)
    : TextWriter(stream, converterNameFor(encoding)), documentEncoding_(encoding)
{
}

void XmlWriter::write(const String &text)
{
    if (started_) {
        TextWriter::write(text);
        return;
    }
    started_ = true;
    std::string bytes;
    if (!Encoder::encode(withDeclaredEncoding(text, declaredEncodingName(documentEncoding_)), encoding_,
                         bytes))
        FOEDIT_THROW(Core::IOException(String("cannot write text in the encoding '") + encoding_ + "'"));
    if (documentEncoding_ == DocumentEncodingUTF16)
        writeBytes("\xFF\xFE");
    else if (documentEncoding_ == DocumentEncodingUTF8 && !readsAsPlainUtf8(bytes))
        writeBytes("\xEF\xBB\xBF");
    writeBytes(bytes);
}

String XmlWriter::withDeclaredEncoding(const String &markup, const String &encodingName)
{
    XmlReader::Declaration declaration;
    if (!XmlReader::parseDeclaration(markup, declaration)) {
        const String upper = encodingName.toUpper();
        if (upper.startsWith("UTF-8") || upper.startsWith("UTF-16"))
            return markup;
        return "<?xml version=\"1.0\" encoding=\"" + encodingName + "\"?>\n" + markup;
    }
    String result(markup);
    if (declaration.encodingFrom >= 0)
        return result.replace(declaration.encodingFrom, declaration.encodingTo - declaration.encodingFrom,
                              encodingName);
    // The encoding attribute belongs right behind the version.
    return result.insert(declaration.versionEnd, " encoding=\"" + encodingName + "\"");
}

} // namespace Core::IO
