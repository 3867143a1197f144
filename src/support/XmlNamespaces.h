#pragma once

#include "support/String.h"

namespace Xml {

// The namespace URIs of the prefixes the engine writes. "fo" and "xsl" are the W3C
// namespaces; "ot" (extensions), "otd" (templates) and "oc" are this engine's own
// fixed values.
namespace Namespaces {

inline constexpr const char *fo = "http://www.w3.org/1999/XSL/Format";
inline constexpr const char *xsl = "http://www.w3.org/1999/XSL/Transform";
inline constexpr const char *ot = "http://www.foedit.org/2024/extensions";
inline constexpr const char *otd = "http://www.foedit.org/2024/template";
inline constexpr const char *oc = "http://www.foedit.org/2024/content";
inline constexpr const char *svg = "http://www.w3.org/2000/svg";
inline constexpr const char *xlink = "http://www.w3.org/1999/xlink";

// The URI for `prefix`: one of the above, or "urn:x-foedit:" and the prefix for a
// prefix the engine does not know, so that a new node can always be declared.
Core::String uriForPrefix(const Core::String &prefix);

} // namespace Namespaces
} // namespace Xml
