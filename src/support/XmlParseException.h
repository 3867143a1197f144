#pragma once

#include "support/Exception.h"

namespace Xml {

// Markup that does not parse: not well formed, an undefined entity, an empty text.
// The message is the parser's, followed by the place in the parsed text.
class XmlParseException : public Core::Exception {
public:
    XmlParseException(const Core::String &parserMessage, int line, int column);

    const char *kind() const noexcept override { return "Xml::XmlParseException"; }
    // Where the parser stopped in the parsed text, from 1; 0 when unknown.
    int getDocumentLine() const noexcept { return documentLine; }
    int getDocumentColumn() const noexcept { return documentColumn; }
    // The parser's own words, without the place.
    const Core::String &getParserMessage() const noexcept { return parserMessage; }

private:
    Core::String parserMessage;
    int documentLine;
    int documentColumn;
};

} // namespace Xml
