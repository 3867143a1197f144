#pragma once

#include "dom/DOMBasedBuffer.h"

// The buffer of one table, edited as a tree. Only its place in the document session
// exists so far: the session keeps one cached instance for the table the caret is in.
class EditableTableBuffer : public DOMBasedBuffer {
public:
    ~EditableTableBuffer() override = default;
};
