#pragma once

#include "support/Object.h"
#include "support/String.h"

namespace Xml {

class Backend;
class Element;
class Node;
class TextNode;

// A tree of XML nodes, reference counted; it owns all its nodes. A document comes
// from `DomParser`, or is built from a root made here.
class XmlDocument : public Core::Object {
public:
    explicit XmlDocument(const Core::String &version = "1.0");
    ~XmlDocument() override;
    XmlDocument(const XmlDocument &) = delete;
    XmlDocument &operator=(const XmlDocument &) = delete;

    // The root element, null while there is none.
    Element *getRootNode() const;
    // Starts the tree with a new root, replacing any root there was. A qualified name
    // ("fo:table") declares its prefix with the well-known URI; a non-empty
    // `namespaceUri` declares that URI for `namespacePrefix` (or the name's prefix).
    Element *createRootNode(const Core::String &name, const Core::String &namespaceUri = Core::String(),
                            const Core::String &namespacePrefix = Core::String());
    // Starts the tree with a copy of `source`, which may belong to another document.
    // Prefixes declared outside the copied subtree are declared on the new root.
    Element *createRootNodeByImport(const Node *source, bool deep = true);

    // The whole document as markup, without an XML declaration; empty elements may
    // be written as `<name/>`. A Core::String holds Unicode, so `encoding` names the
    // encoding the text is meant for and changes nothing in it.
    Core::String writeToString(const Core::String &encoding = "UTF-8") const;
    // `<?xml version="1.0" encoding="..."?>` and a line feed.
    static Core::String getXmlDeclaration(const Core::String &encoding = "UTF-8");

private:
    explicit XmlDocument(void *parsedDocument) noexcept;

    void *handle_;    // the library's document; owns every node
    void *emptyText_; // detached empty text node behind Element::get_child_text, or null

    friend class Backend;
};

} // namespace Xml
