#pragma once

#include "support/XmlNode.h"

namespace Xml {

// An attribute of an element. Its prefix is its own namespace prefix, empty for a
// plain attribute.
class Attribute : public Node {
public:
    // The value with entity and character references resolved.
    Core::String get_value() const;
    // Replaces the value; `text` is literal.
    void set_value(const Core::String &text);

private:
    using Node::Node;
    friend class Backend;
};

} // namespace Xml
