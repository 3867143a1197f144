#include "support/XmlBackend.h"

namespace Xml {

namespace {

// The prefix rule of attribute lookups, with the names converted once.
class AttributeMatcher {
public:
    AttributeMatcher(const xmlNode *element, const Core::String &name, const Core::String &prefix)
        : local(Core::String()), wanted(Core::String())
    {
        Core::String wantedPrefix = prefix;
        Core::String localName = name;
        if (wantedPrefix.empty())
            Backend::splitQualifiedName(name, wantedPrefix, localName);
        local = XmlText(localName);
        wanted = XmlText(wantedPrefix);
        anyPrefix = wantedPrefix.empty();
        const xmlChar *own = element->ns ? element->ns->prefix : nullptr;
        plainMatches = !anyPrefix && own && xmlStrEqual(own, wanted);
    }
    bool matches(const xmlAttr *attribute) const
    {
        if (!xmlStrEqual(attribute->name, local))
            return false;
        if (anyPrefix)
            return true;
        if (attribute->ns && attribute->ns->prefix)
            return xmlStrEqual(attribute->ns->prefix, wanted);
        return plainMatches;
    }
    const XmlText &localName() const noexcept { return local; }

private:
    XmlText local;
    XmlText wanted;
    bool anyPrefix = true;
    bool plainMatches = false; // a plain attribute answers to the element's own prefix
};

xmlAttr *findAttribute(const xmlNode *element, const Core::String &name, const Core::String &prefix)
{
    const AttributeMatcher matcher(element, name, prefix);
    for (xmlAttr *attribute = element->properties; attribute; attribute = attribute->next) {
        if (matcher.matches(attribute))
            return attribute;
    }
    return nullptr;
}

xmlNode *firstTextChild(const xmlNode *element)
{
    for (xmlNode *child = element->children; child; child = child->next) {
        if (child->type == XML_TEXT_NODE || child->type == XML_CDATA_SECTION_NODE)
            return child;
    }
    return nullptr;
}

// "xmlns:p" is no attribute but a namespace declaration; it is made as one, once.
Attribute *declareNamespace(xmlNode *element, const Core::String &prefix, const XmlText &uri)
{
    const XmlText name(prefix);
    for (const xmlNs *ns = element->nsDef; ns; ns = ns->next) {
        if (xmlStrEqual(ns->prefix, name))
            return nullptr;
    }
    xmlNewNs(element, uri, name);
    return nullptr;
}

} // namespace

Attribute *Element::get_attribute(const Core::String &name, const Core::String &prefix) const
{
    return Backend::wrapAttribute(findAttribute(Backend::nodeOf(this), name, prefix));
}

std::list<Attribute *> Element::get_attributes() const
{
    std::list<Attribute *> attributes;
    for (xmlAttr *attribute = Backend::nodeOf(this)->properties; attribute; attribute = attribute->next)
        attributes.push_back(Backend::wrapAttribute(attribute));
    return attributes;
}

Attribute *Element::set_attribute(const Core::String &name, const Core::String &value,
                                  const Core::String &prefix)
{
    xmlNode *element = Backend::nodeOf(this);
    if (name.empty())
        return nullptr;
    const XmlText text(value);
    if (prefix == "xmlns")
        return declareNamespace(element, name, text);
    if (xmlAttr *existing = findAttribute(element, name, prefix)) {
        // Replaces the value in place, so the attribute keeps its place and identity.
        return Backend::wrapAttribute(xmlSetNsProp(element, existing->ns, existing->name, text));
    }
    Core::String namePrefix;
    Core::String local;
    Backend::splitQualifiedName(name, namePrefix, local);
    const Core::String &attributePrefix = prefix.empty() ? namePrefix : prefix;
    xmlNs *ns = attributePrefix.empty() ? nullptr : Backend::namespaceFor(element, attributePrefix);
    return Backend::wrapAttribute(xmlNewNsProp(element, ns, XmlText(local), text));
}

bool Element::remove_attribute(const Core::String &name, const Core::String &prefix)
{
    xmlAttr *attribute = findAttribute(Backend::nodeOf(this), name, prefix);
    if (!attribute)
        return false;
    Backend::freeAttribute(attribute);
    return true;
}

TextNode *Element::add_child_text(const Core::String &text)
{
    xmlNode *element = Backend::nodeOf(this);
    xmlNode *child = xmlNewDocText(element->doc, XmlText(text));
    if (!child)
        return nullptr;
    // A text appended behind a text merges into it; the library then frees `child`.
    xmlNode *linked = xmlAddChild(element, child);
    if (!linked) {
        xmlFreeNode(child);
        return nullptr;
    }
    return static_cast<TextNode *>(Backend::wrap(linked));
}

TextNode *Element::get_child_text() const
{
    const xmlNode *element = Backend::nodeOf(this);
    if (xmlNode *text = firstTextChild(element))
        return static_cast<TextNode *>(Backend::wrap(text));
    return Backend::emptyTextOf(element->doc);
}

void Element::set_child_text(const Core::String &text)
{
    if (xmlNode *child = firstTextChild(Backend::nodeOf(this))) {
        xmlNodeSetContent(child, XmlText(text)); // literal for text nodes
        return;
    }
    add_child_text(text);
}

} // namespace Xml
