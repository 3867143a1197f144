#pragma once

#include "markup/XmlElementType.h"
#include "support/Object.h"
#include "support/String.h"

#include <set>
#include <vector>

// The document as one flat string of markup, and the scanners that read structure
// from it by position. There is no tree and no index: every question walks the string
// from a position, so an edit is nothing but a splice.
class EditableXmlBuffer : public Core::Object {
public:
    EditableXmlBuffer() = default;
    ~EditableXmlBuffer() override = default;

    void setRootElement(Core::String const &name) { rootElement = name; }
    static bool isInsideStartTag(Core::String text, int position);

protected:
    Core::String content;     // the whole document, UTF-16 code units
    Core::String rootElement; // qualified name of the root, given by the host
};
