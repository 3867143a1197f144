#pragma once

#include "support/String.h"

// A quick test of the whole markup string after a text edit: are tags, attribute quotes,
// comments and CDATA sections closed properly? It knows no names and does not match
// start tags with closing tags; it catches what a splice of text can break at the level
// of characters, and is cheap enough to run after every key press (one pass, no
// allocation, constant memory).
//
// The validator reads the string it was given by reference; the string must outlive it
// and may change between calls.
class XmlValidator {
public:
    explicit XmlValidator(const Core::String &markup) noexcept : text(markup) {}

    // True when the text is well formed in the sense above. Declarations and processing
    // instructions pass as tags, their quotes checked like attribute quotes.
    bool validate() const noexcept;

private:
    const Core::String &text;
};
