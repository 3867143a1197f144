#pragma once

#include "support/DocumentEncoding.h"
#include "support/TextWriter.h"

namespace Core::IO {

// Writes a document's markup in one of the document encodings. The first write
// starts the file: the byte-order mark for UTF-16 (and for UTF-8 only when a reader
// would otherwise take the bytes for another encoding), and the XML declaration made
// to name the encoding of the bytes that follow (see withDeclaredEncoding), so that
// a reader decodes the file as it was written.
class XmlWriter : public TextWriter {
public:
    // Throws Core::IOException for a number that is no document encoding.
    XmlWriter(Stream *stream, DocumentEncoding encoding);

    void write(const String &text) override;

    // `markup` with its XML declaration naming `encodingName`:
    //  - a declaration with an encoding attribute gets that attribute's value
    //    replaced (the quotes are kept);
    //  - a declaration without one gets ` encoding="..."` behind its version;
    //  - markup without a declaration (or with a malformed one, which an XML reader
    //    would refuse anyway; see XmlReader::parseDeclaration) is left as it is for
    //    UTF-8 and UTF-16, which a reader knows without one, and for any other
    //    encoding gets
    //    `<?xml version="1.0" encoding="..."?>` and a line feed in front, since
    //    without it the file would be read as UTF-8.
    static String withDeclaredEncoding(const String &markup, const String &encodingName);

private:
    DocumentEncoding documentEncoding_;
    bool started_ = false;
};

} // namespace Core::IO
