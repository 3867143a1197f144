#pragma once

#include "support/DocumentEncoding.h"
#include "support/String.h"

namespace Core::IO {

// The text of the document file at `path`, decoded as its byte-order mark or XML
// declaration says (see XmlReader). Throws Core::IOException, with the path in the
// message, when the file is missing, unreadable, a folder, or declares an encoding
// no converter knows.
String readDocumentFile(const String &path);

// Saves `text` to `path` in `encoding`, as the markup stands except for the XML
// declaration, which is made to name the encoding written (XmlWriter). The old file
// is replaced only once the new one is complete (FileStream), so a save that fails
// leaves it intact. Gives false and touches nothing for a number that is no document
// encoding; throws Core::IOException when the file cannot be written.
bool writeDocumentFile(const String &path, const String &text, DocumentEncoding encoding);

} // namespace Core::IO
