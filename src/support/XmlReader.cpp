#include "support/XmlReader.h"

#include "support/Exception.h"

#include <algorithm>

namespace Core::IO {

namespace {

bool startsWithBytes(std::string_view bytes, std::string_view prefix)
{
    return bytes.substr(0, prefix.size()) == prefix;
}

bool isXmlBlank(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

// The bytes up to the first "?>" as Latin-1 text: enough of a document in an
// ASCII-compatible encoding to read its declaration.
String declarationPrefix(std::string_view bytes)
{
    const std::size_t end = bytes.find("?>");
    const std::string_view prefix = bytes.substr(0, end == std::string_view::npos ? bytes.size() : end + 2);
    String text;
    text.reserve(static_cast<int>(prefix.size()));
    for (const char byte : prefix)
        text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return text;
}

// An XML encoding name: a letter, then letters, digits, ".", "_" and "-". ICU would
// match a name with other characters loosely to some converter.
bool isEncodingName(const String &name)
{
    const auto isLetter = [](char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); };
    const auto &units = name.units();
    return !units.empty() && isLetter(units.front()) &&
           std::all_of(units.begin(), units.end(), [&](char16_t c) {
               return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'.' || c == u'_' || c == u'-';
           });
}

} // namespace

XmlReader::XmlReader(SmartPtr<Stream> stream) : TextReader(std::move(stream), "UTF-8") {}

String XmlReader::readToEnd()
{
    const std::string bytes = stream_->readToEnd();
    std::size_t markLength = 0;
    encoding_ = detectEncoding(bytes, markLength);
    if (!isEncodingName(encoding_))
        FOEDIT_THROW(
            Core::IOException(String("cannot read text in the malformed encoding '") + encoding_ + "'"));
    // The mark is cut as bytes; a U+FEFF behind it is text and stays.
    return decode(std::string_view(bytes).substr(markLength), encoding_, false);
}

String XmlReader::detectEncoding(std::string_view bytes, std::size_t &markLength)
{
    markLength = 0;
    if (startsWithBytes(bytes, "\xEF\xBB\xBF")) {
        markLength = 3;
        return "UTF-8";
    }
    if (startsWithBytes(bytes, "\xFF\xFE")) {
        markLength = 2;
        return "UTF-16LE";
    }
    if (startsWithBytes(bytes, "\xFE\xFF")) {
        markLength = 2;
        return "UTF-16BE";
    }
    if (startsWithBytes(bytes, std::string_view("<\0?\0", 4)))
        return "UTF-16LE";
    if (startsWithBytes(bytes, std::string_view("\0<\0?", 4)))
        return "UTF-16BE";
    const String prefix = declarationPrefix(bytes);
    Declaration declaration;
    if (!parseDeclaration(prefix, declaration) || declaration.encodingFrom < 0)
        return "UTF-8";
    const String name = prefix.subString(declaration.encodingFrom, declaration.encodingTo - 1);
    // A declaration readable as ASCII cannot be in UTF-16 or UTF-32, whatever it says.
    const String declared = name.toUpper();
    if (declared.startsWith("UTF-16") || declared.startsWith("UTF-32"))
        return "UTF-8";
    return name;
}

bool XmlReader::parseDeclaration(const String &markup, Declaration &declaration)
{
    declaration = Declaration();
    if (!markup.matchesAt(0, "<?xml") || !isXmlBlank(markup[5]))
        return false;
    int i = 5;
    for (;;) {
        const int blanks = i;
        while (isXmlBlank(markup[i]))
            ++i;
        if (markup.matchesAt(i, "?>"))
            return declaration.versionEnd >= 0;
        const int nameFrom = i;
        while (markup[i] >= u'a' && markup[i] <= u'z')
            ++i;
        if (i == nameFrom || nameFrom == blanks)
            return false; // no name, or a name not apart from what went before
        const int nameTo = i;
        while (isXmlBlank(markup[i]))
            ++i;
        if (markup[i] != u'=')
            return false;
        ++i;
        while (isXmlBlank(markup[i]))
            ++i;
        const char16_t quote = markup[i];
        if (quote != u'"' && quote != u'\'')
            return false;
        const int valueFrom = i + 1;
        const int valueTo = markup.find(quote, valueFrom);
        if (valueTo < 0 || markup.subString(valueFrom, valueTo - 1).contains("?>"))
            return false;
        i = valueTo + 1;
        if (declaration.versionEnd < 0)
            declaration.versionEnd = i;
        if (nameTo - nameFrom == 8 && markup.matchesAt(nameFrom, "encoding")) {
            declaration.encodingFrom = valueFrom;
            declaration.encodingTo = valueTo;
        }
    }
}

} // namespace Core::IO
