#pragma once

#include "support/Object.h"

namespace Drawing {

// Spelling service of a document; backed by Hunspell.
class SpellChecker : public Core::Object {
public:
    ~SpellChecker() override = default;
};

} // namespace Drawing
