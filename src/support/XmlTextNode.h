#pragma once

#include "support/XmlContentNode.h"

namespace Xml {

// Character data between tags: a text node or a CDATA section.
class TextNode : public ContentNode {
private:
    using ContentNode::ContentNode;
    friend class Backend;
};

} // namespace Xml
