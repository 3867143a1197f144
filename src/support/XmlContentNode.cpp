#include "support/XmlContentNode.h"

#include "support/XmlBackend.h"

namespace Xml {

Core::String ContentNode::get_content() const
{
    return takeXmlString(xmlNodeGetContent(Backend::nodeOf(this)));
}

void ContentNode::set_content(const Core::String &text)
{
    xmlNode *node = Backend::nodeOf(this);
    if (node->type != XML_ENTITY_REF_NODE) // an entity's text belongs to its declaration
        xmlNodeSetContent(node, XmlText(text));
}

} // namespace Xml
