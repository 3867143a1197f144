#include "support/XmlReader.h"

#include <algorithm>

namespace Core::IO {

namespace {

bool startsWithBytes(std::string_view bytes, std::string_view prefix)
{
    return bytes.substr(0, prefix.size()) == prefix;
}

bool isXmlBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The value of the encoding pseudo-attribute of the declaration at the start of
// `bytes`, read as ASCII; empty when there is none.
std::string_view declaredEncoding(std::string_view bytes)
{
    if (!startsWithBytes(bytes, "<?xml") || bytes.size() < 6 || !isXmlBlank(bytes[5]))
        return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    for (std::size_t at = declaration.find("encoding"); at != std::string_view::npos;
         at = declaration.find("encoding", at + 1)) {
        std::size_t i = at + 8;
        while (i < declaration.size() && isXmlBlank(declaration[i]))
            ++i;
        if (i >= declaration.size() || declaration[i] != '=')
            continue;
        ++i;
        while (i < declaration.size() && isXmlBlank(declaration[i]))
            ++i;
        if (i >= declaration.size() || (declaration[i] != '"' && declaration[i] != '\''))
            continue;
        const std::size_t close = declaration.find(declaration[i], i + 1);
        if (close == std::string_view::npos)
            return {};
        return declaration.substr(i + 1, close - i - 1);
    }
    return {};
}

} // namespace

XmlReader::XmlReader(SmartPtr<Stream> stream) : TextReader(std::move(stream), "UTF-8") {}

String XmlReader::readToEnd()
{
    const std::string bytes = stream_->readToEnd();
    std::size_t markLength = 0;
    encoding_ = detectEncoding(bytes, markLength);
    return decode(std::string_view(bytes).substr(markLength), encoding_);
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
    // A declaration is short; looking further would only find markup.
    const std::string_view name = declaredEncoding(bytes.substr(0, std::min<std::size_t>(bytes.size(), 512)));
    // A declaration readable as ASCII cannot be in UTF-16 or UTF-32, whatever it says.
    const String declared = String(std::string(name)).toUpper();
    if (declared.empty() || declared.startsWith("UTF-16") || declared.startsWith("UTF-32"))
        return "UTF-8";
    return String(std::string(name));
}

} // namespace Core::IO
