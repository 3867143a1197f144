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

    // The XML declaration at the start of `markup`, read by the rules of XML: "<?xml",
    // then pseudo-attributes `name="value"` (or with single quotes) apart by blanks,
    // then "?>". False when `markup` does not start with a declaration of that form;
    // a malformed one counts as none. Otherwise `versionEnd` is the position just
    // behind the first attribute's closing quote, and `encodingFrom`..`encodingTo`
    // (exclusive) the value of the encoding attribute, both -1 when it has none.
    // XmlWriter rewrites exactly what this reads.
    struct Declaration {
        int versionEnd = -1;
        int encodingFrom = -1;
        int encodingTo = -1;
    };
    static bool parseDeclaration(const String &markup, Declaration &declaration);
};

} // namespace Core::IO
