#pragma once

#include "support/XmlNode.h"

namespace Xml {

// A node that carries text: a text node, a CDATA section, a comment or a processing
// instruction.
class ContentNode : public Node {
public:
    // The text with entity and character references resolved: a cell's "&#x00A0;"
    // reads as the single character U+00A0.
    Core::String get_content() const;
    // Replaces the text; `text` is literal.
    void set_content(const Core::String &text);

protected:
    using Node::Node;
    friend class Backend;
};

} // namespace Xml
