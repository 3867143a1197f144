#include "dom/DOMBasedBuffer.h"

#include "support/PropertiesHelper.h"
#include "support/XmlAttribute.h"
#include "support/XmlElement.h"

DOMBasedBuffer::DOMBasedBuffer(EditableDocumentBuffer *buffer)
    : dom(), documentBuffer(buffer), startPosition(-1), endPosition(-1)
{
}

DOMBasedBuffer::DOMBasedBuffer(const DOMBasedBuffer &other)
    : Core::Object(other), dom(other.dom), documentBuffer(other.documentBuffer),
      startPosition(other.startPosition), endPosition(other.endPosition)
{
}

DOMBasedBuffer &DOMBasedBuffer::operator=(const DOMBasedBuffer &other)
{
    // SmartPtr's assignment takes the new reference before it drops the old one, so
    // assigning a buffer to itself keeps the tree alive.
    dom = other.dom;
    documentBuffer = other.documentBuffer;
    startPosition = other.startPosition;
    endPosition = other.endPosition;
    return *this;
}

DOMBasedBuffer::~DOMBasedBuffer() = default;

// ---- Static helpers ------------------------------------------------------------------------

Core::String DOMBasedBuffer::getAttributeValue(Xml::Element *element, Core::String name,
                                               Core::String namespacePrefix)
{
    if (!element)
        return Core::String();
    const Xml::Attribute *attribute = element->get_attribute(name, namespacePrefix);
    return attribute ? attribute->get_value() : Core::String();
}

Xml::Element *DOMBasedBuffer::getElementByName(Xml::Element *parent, Core::String name)
{
    if (!parent)
        return nullptr;
    for (Xml::Node *child : parent->get_children()) {
        if (child->is_element() && child->get_name() == name)
            return static_cast<Xml::Element *>(child);
    }
    return nullptr;
}

namespace {

// The prefix a property of this attribute carries: its own, or else its element's.
Core::String propertyPrefixOf(const Xml::Attribute *attribute, const Xml::Element *element)
{
    Core::String prefix = attribute->get_namespace_prefix();
    return prefix.empty() ? element->getNSPrefix() : prefix;
}

} // namespace

PropertyCollection DOMBasedBuffer::getElementProperties(Xml::Element *element)
{
    PropertyCollection properties;
    if (!element)
        return properties;
    for (const Xml::Attribute *attribute : element->get_attributes()) {
        if (!attribute)
            continue;
        const Core::String prefix = propertyPrefixOf(attribute, element);
        const Core::String name =
            prefix.empty() ? attribute->get_name() : prefix + ":" + attribute->get_name();
        properties.addProperty(EditableProperty(name, attribute->get_value()), true);
    }
    return properties;
}

namespace {

void removeAllAttributes(Xml::Element *element)
{
    for (;;) {
        const std::list<Xml::Attribute *> attributes = element->get_attributes();
        if (attributes.empty())
            return;
        const Xml::Attribute *first = attributes.front();
        // A removal that fails ends the phase; what is left stays beside the new values.
        if (!element->remove_attribute(first->get_name(), propertyPrefixOf(first, element)))
            return;
    }
}

void writeProperties(Xml::Element *element, const PropertyCollection &properties)
{
    const Core::String ownPrefix = element->getNSPrefix();
    for (EditableProperty property : properties.getPropertyList()) {
        Core::String prefix = property.getNamespace();
        property.removeNamespaceFromName();
        if (prefix == ownPrefix)
            prefix = Core::String();
        element->set_attribute(property.getName(), property.getValue(), prefix);
    }
}

} // namespace

void DOMBasedBuffer::setElementProperties(Xml::Element *element, PropertyCollection &properties)
{
    if (!element)
        return;
    removeAllAttributes(element);
    writeProperties(element, properties);
}

// ---- Shorthands ------------------------------------------------------------------------------

void DOMBasedBuffer::collapseShorthands(bool removeDefaults)
{
    collapseElementAttributes(dom->getRootNode(), removeDefaults);
}

void DOMBasedBuffer::expandShorthands()
{
    expandElementAttributes(dom->getRootNode());
}

namespace {

std::list<Xml::Element *> elementChildren(const Xml::Element *element)
{
    std::list<Xml::Element *> children;
    for (Xml::Node *child : element->get_children()) {
        if (child->is_element())
            children.push_back(static_cast<Xml::Element *>(child));
    }
    return children;
}

} // namespace

void DOMBasedBuffer::collapseElementAttributes(Xml::Element *element, bool removeDefaults)
{
    if (!element)
        return;
    PropertyCollection properties = getElementProperties(element);
    if (removeDefaults)
        PropertiesHelper::removeDefaultValues(properties);
    PropertiesHelper::collapseShorthands(properties);
    setElementProperties(element, properties);
    for (Xml::Element *child : elementChildren(element))
        collapseElementAttributes(child, removeDefaults);
}

void DOMBasedBuffer::expandElementAttributes(Xml::Element *element)
{
    if (!element)
        return;
    PropertyCollection properties = getElementProperties(element);
    PropertiesHelper::expandShorthands(properties);
    setElementProperties(element, properties);
    for (Xml::Element *child : elementChildren(element))
        expandElementAttributes(child);
}
