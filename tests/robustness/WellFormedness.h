#pragma once

// Whether markup is well-formed XML with namespaces, as libxml2 judges it. Asked from
// outside the engine (whose own validator is a character-level check) to measure how
// often an edit leaves markup that a real parser refuses.

#include "support/String.h"

namespace foedit::test {

// Nothing is loaded from the disk or the network, and nothing is printed. An encoding
// named in an XML declaration is ignored: the string is handed over as UTF-8.
bool isWellFormedXml(Core::String const &markup);

} // namespace foedit::test
