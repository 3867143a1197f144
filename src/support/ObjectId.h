#pragma once

#include "support/String.h"

// Fresh identifiers for the objects a document names: form controls, repeated rows,
// annotations, security records.
class ObjectId {
public:
    // "id" followed by the 32 lowercase hexadecimal digits of a random UUID, such as
    // "id3f9c0e1a5b7d4c2e9a8f6b1d0c3e5a7f". It starts with a letter and holds only
    // letters and digits, so it is a valid XML name and NCName by itself and inside a
    // longer name, and a valid attribute value.
    static Core::String generate();
};
