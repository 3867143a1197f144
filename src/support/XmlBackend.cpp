#include "support/XmlBackend.h"

#include "support/XmlContentNode.h"
#include "support/XmlNamespaces.h"

#include <libxml/parser.h>

namespace Xml {

Core::String takeXmlString(xmlChar *owned)
{
    Core::String text = fromXml(owned);
    if (owned)
        xmlFree(owned);
    return text;
}

bool Backend::isWrappedKind(const xmlNode *node) noexcept
{
    switch (node->type) {
    case XML_ELEMENT_NODE:
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
    case XML_ENTITY_REF_NODE:
        return true;
    default:
        return false;
    }
}

Node *Backend::wrap(xmlNode *node)
{
    if (!node || !isWrappedKind(node))
        return nullptr;
    if (node->_private)
        return static_cast<Node *>(node->_private);
    Node *wrapper = nullptr;
    switch (node->type) {
    case XML_ELEMENT_NODE:
        wrapper = new Element(node, false);
        break;
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
        wrapper = new TextNode(node, false);
        break;
    default:
        wrapper = new ContentNode(node, false);
        break;
    }
    node->_private = wrapper;
    return wrapper;
}

Element *Backend::wrapElement(xmlNode *node)
{
    if (!node || node->type != XML_ELEMENT_NODE)
        return nullptr;
    return static_cast<Element *>(wrap(node));
}

Attribute *Backend::wrapAttribute(xmlAttr *attribute)
{
    if (!attribute)
        return nullptr;
    if (!attribute->_private)
        attribute->_private = static_cast<Node *>(new Attribute(attribute, true));
    return static_cast<Attribute *>(static_cast<Node *>(attribute->_private));
}

xmlNode *Backend::nodeOf(const Node *node) noexcept
{
    return node && !node->isAttribute_ ? static_cast<xmlNode *>(node->handle_) : nullptr;
}

xmlAttr *Backend::attributeOf(const Node *node) noexcept
{
    return node && node->isAttribute_ ? static_cast<xmlAttr *>(node->handle_) : nullptr;
}

xmlDoc *Backend::documentOf(const XmlDocument *document) noexcept
{
    return document ? static_cast<xmlDoc *>(document->handle_) : nullptr;
}

XmlDocument *Backend::makeDocument(xmlDoc *parsed)
{
    return new XmlDocument(static_cast<void *>(parsed));
}

TextNode *Backend::emptyTextOf(xmlDoc *document)
{
    auto *owner = document ? static_cast<XmlDocument *>(document->_private) : nullptr;
    if (!owner)
        return nullptr;
    if (!owner->emptyText_)
        owner->emptyText_ = xmlNewDocText(document, reinterpret_cast<const xmlChar *>(""));
    auto *text = static_cast<xmlNode *>(owner->emptyText_);
    // A caller may have written into it; it must read empty again for the next one.
    xmlNodeSetContent(text, reinterpret_cast<const xmlChar *>(""));
    return static_cast<TextNode *>(wrap(text));
}

bool Backend::isEmptyText(const xmlNode *node) noexcept
{
    const auto *owner = node->doc ? static_cast<const XmlDocument *>(node->doc->_private) : nullptr;
    return owner && owner->emptyText_ == node;
}

namespace {

void deleteWrapperOf(xmlNode *node)
{
    if (node->type == XML_ELEMENT_NODE) {
        for (xmlAttr *attribute = node->properties; attribute; attribute = attribute->next) {
            Backend::destroyWrapper(attribute->_private);
            attribute->_private = nullptr;
        }
    }
    if (Backend::isWrappedKind(node)) {
        Backend::destroyWrapper(node->_private);
        node->_private = nullptr;
    }
}

// Calls `visit` on `root` and on everything below it, in document order. Iterative,
// so a deep tree cannot exhaust the stack. Only elements are entered: an entity
// reference's children belong to the entity's declaration. `visit` may change a
// node but not the links of the tree.
template <typename Visit> void visitSubtree(xmlNode *root, Visit visit)
{
    xmlNode *current = root;
    for (;;) {
        visit(current);
        if (current->type == XML_ELEMENT_NODE && current->children) {
            current = current->children;
            continue;
        }
        while (current != root && !current->next)
            current = current->parent;
        if (current == root)
            return;
        current = current->next;
    }
}

// Deletes the wrappers of `root` and of everything below it.
void deleteWrappersOfSubtree(xmlNode *root)
{
    visitSubtree(root, deleteWrapperOf);
}

} // namespace

void Backend::freeNode(xmlNode *node)
{
    if (!node)
        return;
    xmlUnlinkNode(node);
    deleteWrappersOfSubtree(node);
    xmlFreeNode(node);
}

void Backend::freeAttribute(xmlAttr *attribute)
{
    if (!attribute)
        return;
    Backend::destroyWrapper(attribute->_private);
    attribute->_private = nullptr;
    xmlRemoveProp(attribute);
}

void Backend::freeDocument(XmlDocument &document)
{
    auto *doc = static_cast<xmlDoc *>(document.handle_);
    if (!doc)
        return;
    for (xmlNode *child = doc->children; child; child = child->next) {
        if (isWrappedKind(child))
            deleteWrappersOfSubtree(child);
    }
    if (auto *text = static_cast<xmlNode *>(document.emptyText_)) {
        deleteWrapperOf(text);
        xmlFreeNode(text);
        document.emptyText_ = nullptr;
    }
    xmlFreeDoc(doc);
    document.handle_ = nullptr;
}

bool Backend::nameIs(const xmlChar *name, const Core::String &expected)
{
    return xmlStrEqual(name ? name : reinterpret_cast<const xmlChar *>(""), XmlText(expected)) != 0;
}

void Backend::splitQualifiedName(const Core::String &name, Core::String &prefix, Core::String &local)
{
    const int colon = name.find(u':');
    if (colon < 0) {
        prefix = Core::String();
        local = name;
        return;
    }
    prefix = name.subString(0, colon - 1);
    local = name.subString(colon + 1, name.length() - 1);
}

xmlNs *Backend::namespaceFor(xmlNode *scope, const Core::String &prefix)
{
    if (prefix.empty())
        return xmlSearchNs(scope->doc, scope, nullptr);
    const XmlText name(prefix);
    if (xmlNs *found = xmlSearchNs(scope->doc, scope, name))
        return found;
    return xmlNewNs(scope, XmlText(Namespaces::uriForPrefix(prefix)), name);
}

namespace {

bool declaresPrefix(const xmlNode *node, const xmlChar *prefix)
{
    for (const xmlNs *ns = node->nsDef; ns; ns = ns->next) {
        if (xmlStrEqual(ns->prefix, prefix))
            return true;
    }
    return false;
}

// Points every use of `from` inside `root` at `to`.
void redirectNamespace(xmlNode *root, const xmlNs *from, xmlNs *to)
{
    visitSubtree(root, [from, to](xmlNode *node) {
        if (node->type != XML_ELEMENT_NODE)
            return;
        if (node->ns == from)
            node->ns = to;
        for (xmlAttr *attribute = node->properties; attribute; attribute = attribute->next) {
            if (attribute->ns == from)
                attribute->ns = to;
        }
    });
}

} // namespace

// A copy made away from its tree carries declarations for every prefix it uses that
// was declared above the source: `<fo:table-row xmlns:fo="...">`. Where the copy's new
// place already declares the prefix with the same URI, the extra declaration is noise
// in the written markup and goes. Declarations the source made itself stay.
void Backend::dropRedundantDeclarations(xmlNode *copy, const xmlNode *source)
{
    if (copy->type != XML_ELEMENT_NODE || !copy->parent || copy->parent->type != XML_ELEMENT_NODE)
        return;
    xmlNs **link = &copy->nsDef;
    while (xmlNs *declaration = *link) {
        xmlNs *inScope = declaresPrefix(source, declaration->prefix)
                             ? nullptr
                             : xmlSearchNs(copy->doc, copy->parent, declaration->prefix);
        if (inScope && xmlStrEqual(inScope->href, declaration->href)) {
            redirectNamespace(copy, declaration, inScope);
            *link = declaration->next;
            declaration->next = nullptr;
            xmlFreeNs(declaration);
        } else {
            link = &declaration->next;
        }
    }
}

xmlNode *Backend::copyForImport(const xmlNode *source, xmlDoc *document, bool deep)
{
    auto *from = const_cast<xmlNode *>(source); // the library's copy takes a non-const node
    if (!deep && source->type == XML_ELEMENT_NODE)
        return xmlNewDocNode(document, nullptr, source->name, nullptr);
    return xmlDocCopyNode(from, document, 1);
}

Node *Backend::finishImport(xmlNode *linked, xmlNode *copy, const xmlNode *source)
{
    if (!linked) {
        xmlFreeNode(copy);
        return nullptr;
    }
    if (linked == copy)
        dropRedundantDeclarations(copy, source);
    return wrap(linked);
}

} // namespace Xml
