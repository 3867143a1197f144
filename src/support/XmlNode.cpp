#include "support/XmlBackend.h"

namespace Xml {

namespace {

// An element name that may be qualified, matched against a node in place.
class NameMatcher {
public:
    explicit NameMatcher(const Core::String &name)
    {
        Core::String prefixText;
        Core::String localText;
        Backend::splitQualifiedName(name, prefixText, localText);
        hasPrefix = !prefixText.empty();
        prefix = XmlText(prefixText);
        local = XmlText(localText);
    }
    bool matches(const xmlNode *node) const
    {
        if (node->type != XML_ELEMENT_NODE || !xmlStrEqual(node->name, local))
            return false;
        if (!hasPrefix)
            return true;
        return node->ns && xmlStrEqual(node->ns->prefix, prefix);
    }

private:
    XmlText prefix{Core::String()};
    XmlText local{Core::String()};
    bool hasPrefix = false;
};

Node *nearestWrapped(xmlNode *node, bool forward)
{
    while (node && !Backend::isWrappedKind(node))
        node = forward ? node->next : node->prev;
    return Backend::wrap(node);
}

bool canHoldChildren(const xmlNode *node)
{
    return node && node->type == XML_ELEMENT_NODE;
}

bool hasElementParent(const xmlNode *node)
{
    return node && node->parent && node->parent->type == XML_ELEMENT_NODE;
}

xmlNode *newElement(xmlDoc *document, const Core::String &name, Core::String &prefix)
{
    Core::String namePrefix;
    Core::String local;
    Backend::splitQualifiedName(name, namePrefix, local);
    if (prefix.empty())
        prefix = namePrefix;
    return xmlNewDocNode(document, nullptr, XmlText(local), nullptr);
}

Element *linkNewElement(xmlNode *linked, xmlNode *element, const Core::String &prefix)
{
    if (!linked) {
        xmlFreeNode(element);
        return nullptr;
    }
    if (!prefix.empty())
        xmlSetNs(element, Backend::namespaceFor(element, prefix));
    return Backend::wrapElement(element);
}

} // namespace

std::list<Node *> Node::get_children(const Core::String &name) const
{
    std::list<Node *> children;
    const xmlNode *node = Backend::nodeOf(this);
    if (!canHoldChildren(node))
        return children;
    if (name.empty()) {
        for (xmlNode *child = node->children; child; child = child->next) {
            if (Backend::isWrappedKind(child))
                children.push_back(Backend::wrap(child));
        }
        return children;
    }
    const NameMatcher matcher(name);
    for (xmlNode *child = node->children; child; child = child->next) {
        if (matcher.matches(child))
            children.push_back(Backend::wrap(child));
    }
    return children;
}

Core::String Node::get_name() const
{
    if (const xmlAttr *attribute = Backend::attributeOf(this))
        return fromXml(attribute->name);
    return fromXml(Backend::nodeOf(this)->name);
}

Core::String Node::get_namespace_prefix() const
{
    if (const xmlAttr *attribute = Backend::attributeOf(this))
        return attribute->ns ? fromXml(attribute->ns->prefix) : Core::String();
    const xmlNode *node = Backend::nodeOf(this);
    if (node->type != XML_ELEMENT_NODE || !node->ns)
        return Core::String();
    return fromXml(node->ns->prefix);
}

std::map<Core::String, Core::String> Node::get_namespace_defs() const
{
    std::map<Core::String, Core::String> definitions;
    const xmlNode *node = Backend::nodeOf(this);
    if (!node || node->type != XML_ELEMENT_NODE)
        return definitions;
    for (const xmlNs *ns = node->nsDef; ns; ns = ns->next)
        definitions[fromXml(ns->prefix)] = fromXml(ns->href);
    return definitions;
}

Element *Node::get_parent() const
{
    if (const xmlAttr *attribute = Backend::attributeOf(this))
        return Backend::wrapElement(attribute->parent);
    const xmlNode *node = Backend::nodeOf(this);
    return hasElementParent(node) ? Backend::wrapElement(node->parent) : nullptr;
}

Node *Node::get_previous_sibling() const
{
    if (const xmlAttr *attribute = Backend::attributeOf(this))
        return Backend::wrapAttribute(attribute->prev);
    return nearestWrapped(Backend::nodeOf(this)->prev, false);
}

Node *Node::get_next_sibling() const
{
    if (const xmlAttr *attribute = Backend::attributeOf(this))
        return Backend::wrapAttribute(attribute->next);
    return nearestWrapped(Backend::nodeOf(this)->next, true);
}

bool Node::is_element() const noexcept
{
    const xmlNode *node = Backend::nodeOf(this);
    return node && node->type == XML_ELEMENT_NODE;
}

bool Node::is_text() const noexcept
{
    const xmlNode *node = Backend::nodeOf(this);
    return node && (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE);
}

void Node::set_name(const Core::String &name)
{
    xmlNode *node = Backend::nodeOf(this);
    if (!node || node->type != XML_ELEMENT_NODE || name.empty())
        return;
    Core::String prefix;
    Core::String local;
    Backend::splitQualifiedName(name, prefix, local);
    xmlNodeSetName(node, XmlText(local));
    if (!prefix.empty())
        set_namespace(prefix);
}

void Node::set_namespace(const Core::String &prefix)
{
    if (xmlAttr *attribute = Backend::attributeOf(this)) {
        // An attribute without prefix is in no namespace, never in the default one.
        if (attribute->parent)
            attribute->ns = prefix.empty() ? nullptr : Backend::namespaceFor(attribute->parent, prefix);
        return;
    }
    xmlNode *node = Backend::nodeOf(this);
    if (node->type == XML_ELEMENT_NODE)
        xmlSetNs(node, Backend::namespaceFor(node, prefix));
}

Element *Node::add_child(const Core::String &name, const Core::String &prefix)
{
    xmlNode *node = Backend::nodeOf(this);
    if (!canHoldChildren(node) || name.empty())
        return nullptr;
    Core::String elementPrefix = prefix;
    xmlNode *element = newElement(node->doc, name, elementPrefix);
    return linkNewElement(xmlAddChild(node, element), element, elementPrefix);
}

Element *Node::add_node_as_prev_sibling(Node *sibling, const Core::String &name, const Core::String &prefix)
{
    xmlNode *next = Backend::nodeOf(sibling);
    if (!hasElementParent(next) || name.empty())
        return nullptr;
    Core::String elementPrefix = prefix;
    xmlNode *element = newElement(next->doc, name, elementPrefix);
    return linkNewElement(xmlAddPrevSibling(next, element), element, elementPrefix);
}

Node *Node::import_node(const Node *source, bool deep)
{
    xmlNode *node = Backend::nodeOf(this);
    const xmlNode *from = Backend::nodeOf(source);
    if (!canHoldChildren(node) || !from)
        return nullptr;
    xmlNode *copy = Backend::copyForImport(from, node->doc, deep);
    if (!copy)
        return nullptr;
    return Backend::finishImport(xmlAddChild(node, copy), copy, from);
}

Node *Node::import_node_as_sibling(const Node *source, Node *sibling, bool deep)
{
    xmlNode *previous = Backend::nodeOf(sibling);
    const xmlNode *from = Backend::nodeOf(source);
    if (!hasElementParent(previous) || !from)
        return nullptr;
    xmlNode *copy = Backend::copyForImport(from, previous->doc, deep);
    if (!copy)
        return nullptr;
    return Backend::finishImport(xmlAddNextSibling(previous, copy), copy, from);
}

Node *Node::import_node_as_prev_sibling(const Node *source, Node *sibling, bool deep)
{
    xmlNode *next = Backend::nodeOf(sibling);
    const xmlNode *from = Backend::nodeOf(source);
    if (!hasElementParent(next) || !from)
        return nullptr;
    xmlNode *copy = Backend::copyForImport(from, next->doc, deep);
    if (!copy)
        return nullptr;
    return Backend::finishImport(xmlAddPrevSibling(next, copy), copy, from);
}

void Node::remove_child(Node *child)
{
    if (!child)
        return;
    if (xmlAttr *attribute = Backend::attributeOf(child)) {
        Backend::freeAttribute(attribute);
        return;
    }
    xmlNode *node = Backend::nodeOf(child);
    if (Backend::isEmptyText(node))
        return;
    Backend::freeNode(node);
}

} // namespace Xml
