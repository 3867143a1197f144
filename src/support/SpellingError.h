#pragma once

#include "support/Object.h"
#include "support/String.h"
#include "support/Vector.h"

namespace Drawing {

// A word that no dictionary in use accepts: where it stands, the dictionaries that
// were asked, and their suggestions.
class SpellingError : public Core::Object {
public:
    SpellingError() = default;
    SpellingError(int wordStart, int wordEnd) : start(wordStart), end(wordEnd) {}

    int start = -1;
    int end = -1;
    Core::Vector<Core::String> dictionaries;
    Core::Vector<Core::String> suggestions;
};

} // namespace Drawing
