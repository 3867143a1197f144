#pragma once

#include "support/TextReader.h"

#include <cstddef>
#include <string_view>

namespace Core::IO {

// Reads an XML document's text, decoded as the document itself says: a byte-order
// mark wins (UTF-8, UTF-16 little- and big-endian); without one, UTF-16 is known by
// the "<?" of its declaration, and otherwise the declaration's encoding attribute
// names the encoding ("ISO-8859-1", "windows-1252", anything Core::Encoder knows).
// No mark and no encoding attribute means UTF-8. The text comes back as it stands,
// declaration included, with the byte-order mark dropped.
class XmlReader : public TextReader {
public:
    explicit XmlReader(SmartPtr<Stream> stream);

    // Throws Core::IOException when the stream cannot be read or the declared
    // encoding is unknown; getEncoding() then names the encoding found.
    String readToEnd() override;

    // The encoding of a document that starts with `bytes`, and the length of its
    // byte-order mark (0 when there is none).
    static String detectEncoding(std::string_view bytes, std::size_t &markLength);
};

} // namespace Core::IO
