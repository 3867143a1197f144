#pragma once

#include "support/String.h"

// The encoding a document is saved in (EditableDocumentBuffer::saveToFile). A host
// may pass any number; only these three write a file, any other writes nothing.
//
//   1  UTF-8, no byte-order mark
//   2  UTF-16, little-endian, with a byte-order mark
//   3  ISO-8859-1; characters it cannot hold become "&#xHHHH;" references
enum DocumentEncoding : int {
    DocumentEncodingUTF8 = 1,
    DocumentEncodingUTF16 = 2,
    DocumentEncodingISO88591 = 3,
};

namespace Core::IO {

// The name a saved file's XML declaration gives for `encoding` ("UTF-8", "UTF-16",
// "ISO-8859-1"); empty for a number that writes nothing.
inline String declaredEncodingName(DocumentEncoding encoding)
{
    switch (encoding) {
    case DocumentEncodingUTF8:
        return "UTF-8";
    case DocumentEncodingUTF16:
        return "UTF-16";
    case DocumentEncodingISO88591:
        return "ISO-8859-1";
    }
    return String();
}

} // namespace Core::IO
