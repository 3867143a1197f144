#pragma once

// Caret places picked from real documents, for tests that edit the corpus.

#include "support/String.h"

#include <vector>

namespace foedit::test {

// Up to `count` places spread evenly over the text of the first flow: positions behind
// a letter, outside tags, comments and CDATA sections, where a user can put the caret.
std::vector<int> placesInText(Core::String const &content, int count);

} // namespace foedit::test
