#pragma once

// Private to the sources of the Xml layer: the bridge between its node objects and
// the libxml2 tree under them. No public header includes this one.

#include "support/String.h"
#include "support/XmlAttribute.h"
#include "support/XmlDocument.h"
#include "support/XmlElement.h"
#include "support/XmlTextNode.h"

#include <libxml/tree.h>

namespace Xml {

// Each libxml2 node that a caller has seen carries its one wrapper object in
// `_private`; wrappers are made on first sight and deleted just before their node is
// freed, so a node keeps one identity for its whole life. A document's `_private`
// points to its XmlDocument.
class Backend {
public:
    // --- wrappers ---
    static Node *wrap(xmlNode *node);
    static Element *wrapElement(xmlNode *node);
    static Attribute *wrapAttribute(xmlAttr *attribute);
    static xmlNode *nodeOf(const Node *node) noexcept;      // null for attributes
    static xmlAttr *attributeOf(const Node *node) noexcept; // null for other nodes
    static xmlDoc *documentOf(const XmlDocument *document) noexcept;
    static XmlDocument *makeDocument(xmlDoc *parsed);
    static TextNode *emptyTextOf(xmlDoc *document);
    // True for the detached text node behind emptyTextOf, which only its document frees.
    static bool isEmptyText(const xmlNode *node) noexcept;

    // --- freeing: wrappers first, then the library's node ---
    static void destroyWrapper(void *wrapper) noexcept { delete static_cast<Node *>(wrapper); }
    static void freeNode(xmlNode *node);
    static void freeAttribute(xmlAttr *attribute);
    static void freeDocument(XmlDocument &document);

    // --- names and namespaces ---
    static bool isWrappedKind(const xmlNode *node) noexcept;
    static bool nameIs(const xmlChar *name, const Core::String &expected);
    // Splits "fo:block" into "fo" and "block"; a name without ":" has no prefix.
    static void splitQualifiedName(const Core::String &name, Core::String &prefix, Core::String &local);
    // The namespace of `prefix` in scope at `scope`, declared on `scope` when absent.
    static xmlNs *namespaceFor(xmlNode *scope, const Core::String &prefix);
    // After a copy has been linked in, drops the declarations the copy had to carry
    // for prefixes that its new place declares with the same URI.
    static void dropRedundantDeclarations(xmlNode *copy, const xmlNode *source);
    static xmlNode *copyForImport(const xmlNode *source, xmlDoc *document, bool deep);
    static Node *finishImport(xmlNode *linked, xmlNode *copy, const xmlNode *source);
};

// UTF-8 of `text` as the library's characters, and back.
inline Core::String fromXml(const xmlChar *text)
{
    return text ? Core::String::fromUtf8(reinterpret_cast<const char *>(text)) : Core::String();
}

// The library takes and returns `xmlChar` strings that it may keep (the caller frees
// returned ones); this holds the bytes for one call.
class XmlText {
public:
    explicit XmlText(const Core::String &text) : bytes(text.toUtf8()) {}
    operator const xmlChar *() const noexcept { return reinterpret_cast<const xmlChar *>(bytes.c_str()); }
    bool empty() const noexcept { return bytes.empty(); }

private:
    std::string bytes;
};

// Takes a string the library allocated and frees it.
Core::String takeXmlString(xmlChar *owned);

} // namespace Xml
