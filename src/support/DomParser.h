#pragma once

#include "support/SmartPtr.h"
#include "support/Stream.h"
#include "support/String.h"
#include "support/XmlDocument.h"

#include <string>

namespace Xml {

// Parses markup into an XmlDocument. Parsing never touches the network or the disk:
// no DTD is loaded, no external entity is read, and an entity that the markup does
// not declare is an error. A failure raises XmlParseException (logged first) and
// leaves the parser's previous document as it was.
class DomParser {
public:
    DomParser() = default;

    // The bytes from the stream's current position to its end, read as UTF-8 (the
    // engine hands the parser text it has converted itself, so an encoding named in an
    // XML declaration is ignored).
    void parseStream(SmartPtr<Core::IO::Stream> stream);
    // UTF-8 bytes, as parseStream reads them.
    void parseMemory(const std::string &utf8);
    // Markup as a string.
    void parseString(const Core::String &markup);

    // The last parsed document; null before the first success. The document carries
    // its own reference count and outlives the parser.
    SmartPtr<XmlDocument> getDocument() const { return document; }

private:
    SmartPtr<XmlDocument> document;
};

} // namespace Xml
