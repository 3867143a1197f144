#include "support/XmlWriter.h"

#include "support/Exception.h"

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

bool isXmlBlank(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

// Where the value of `name="..."` starts inside [from, to), or -1.
int pseudoAttributeValue(const String &markup, const char *name, int from, int to)
{
    const int nameLength = String(name).length();
    for (int at = markup.find(name, from); at >= 0 && at < to; at = markup.find(name, at + 1)) {
        int i = at + nameLength;
        while (i < to && isXmlBlank(markup[i]))
            ++i;
        if (i >= to || markup[i] != u'=')
            continue;
        ++i;
        while (i < to && isXmlBlank(markup[i]))
            ++i;
        if (i < to && (markup[i] == u'"' || markup[i] == u'\''))
            return i + 1;
    }
    return -1;
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
    if (documentEncoding_ == DocumentEncodingUTF16)
        writeBytes("\xFF\xFE");
    TextWriter::write(withDeclaredEncoding(text, declaredEncodingName(documentEncoding_)));
}

String XmlWriter::withDeclaredEncoding(const String &markup, const String &encodingName)
{
    const bool hasDeclaration = markup.matchesAt(0, "<?xml") && isXmlBlank(markup[5]);
    const int end = hasDeclaration ? markup.find("?>", 0) : -1;
    if (end < 0) {
        const String upper = encodingName.toUpper();
        if (upper.startsWith("UTF-8") || upper.startsWith("UTF-16"))
            return markup;
        return "<?xml version=\"1.0\" encoding=\"" + encodingName + "\"?>\n" + markup;
    }
    String result(markup);
    const int value = pseudoAttributeValue(markup, "encoding", 5, end);
    if (value >= 0) {
        const int close = markup.find(markup[value - 1], value);
        if (close >= 0 && close < end)
            return result.replace(value, close - value, encodingName);
    }
    // No usable encoding attribute: it belongs right behind the version.
    const int version = pseudoAttributeValue(markup, "version", 5, end);
    const int versionClose = version >= 0 ? markup.find(markup[version - 1], version) : -1;
    const int at = versionClose >= 0 && versionClose < end ? versionClose + 1 : 5;
    return result.insert(at, " encoding=\"" + encodingName + "\"");
}

} // namespace Core::IO
