#include "support/XmlBackend.h"

namespace Xml {

Core::String Attribute::get_value() const
{
    const xmlAttr *attribute = Backend::attributeOf(this);
    return takeXmlString(xmlNodeListGetString(attribute->doc, attribute->children, 1));
}

void Attribute::set_value(const Core::String &text)
{
    xmlAttr *attribute = Backend::attributeOf(this);
    if (attribute->parent)
        xmlSetNsProp(attribute->parent, attribute->ns, attribute->name, XmlText(text));
}

} // namespace Xml
