#pragma once

#include "support/String.h"

#include <string>
#include <string_view>

namespace Core {

// Conversions between the engine's UTF-16 strings and bytes. Named encodings go
// through ICU's converters, so any name ICU knows works ("UTF-8", "UTF-16LE",
// "ISO-8859-1", "windows-1252", "latin1", ...), matched without regard to case.
// No ICU type leaves this class.
class Encoder {
public:
    // UTF-8 bytes of `text`; a lone surrogate becomes U+FFFD.
    static std::string convertStringToUTF8(const String &text);
    // `bytes` read as UTF-8; each ill-formed byte becomes U+FFFD.
    static String convertUTF8ToString(std::string_view bytes);

    // True when a converter exists for `encodingName`.
    static bool isKnownEncoding(const String &encodingName);

    // `bytes` decoded from `encodingName` into `text`. Bytes the encoding does not
    // define become U+FFFD. False, with `text` untouched, for an unknown name or an
    // input beyond the engine's int positions.
    static bool decode(std::string_view bytes, const String &encodingName, String &text);

    // `text` encoded in `encodingName` into `bytes`, with no byte-order mark. A
    // character the encoding cannot hold is written as a hexadecimal character
    // reference ("&#x2022;"; a surrogate pair gives one reference to its code point),
    // which is the same character to an XML reader inside text and attribute values.
    // False, with `bytes` untouched, for an unknown name.
    static bool encode(const String &text, const String &encodingName, std::string &bytes);
};

} // namespace Core
