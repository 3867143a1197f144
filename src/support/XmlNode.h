#pragma once

#include "support/String.h"

#include <list>
#include <map>

namespace Xml {

class Backend;
class Element;
class XmlDocument;

// A node of an `XmlDocument`: an element, a text or CDATA node, a comment, or an
// attribute. Nodes belong to their document: they are made through the document's
// operations, stay valid until they are removed (`remove_child`) or the document
// dies, and are never deleted by their users. A node answers to one object for its
// whole life, so pointers may be compared and stored in maps.
//
// Names are local names without prefix; a prefix is a namespace prefix such as "fo",
// never a URI. The underlying XML library is an implementation detail of the sources
// of this layer and never shows in its headers.
class Node {
public:
    Node(const Node &) = delete;
    Node &operator=(const Node &) = delete;

    // A snapshot of the child nodes in document order. With an empty name, every
    // child, text nodes included; with a name, only the element children of that local
    // name (a qualified "fo:block" matches prefix and local name). Children may be
    // removed while the list is walked.
    std::list<Node *> get_children(const Core::String &name = Core::String()) const;

    Core::String get_name() const;
    Core::String get_namespace_prefix() const;
    // Prefix to URI of the declarations made on this node itself; the default
    // namespace, if declared here, has the empty prefix.
    std::map<Core::String, Core::String> get_namespace_defs() const;

    // The parent element, null at the root. An attribute's parent is its element.
    Element *get_parent() const;
    // The adjacent node of any kind (text nodes and comments count), or null.
    Node *get_previous_sibling() const;
    Node *get_next_sibling() const;

    bool is_element() const noexcept;
    bool is_text() const noexcept; // text and CDATA sections

    // Renames in place, keeping attributes and children. A qualified name also
    // moves the node into the namespace of its prefix.
    void set_name(const Core::String &name);
    // Puts the node in the namespace of `prefix` as seen from the node. A prefix that
    // nothing in scope declares is declared on the node itself with its well-known URI
    // (see XmlNamespaces.h). An empty prefix means the default namespace in scope.
    void set_namespace(const Core::String &prefix);

    // Appends a new element as the last child; null when this node cannot hold one.
    Element *add_child(const Core::String &name, const Core::String &prefix = Core::String());
    // Makes a new element and inserts it right before `sibling`; null for a null
    // sibling or one that is not in a tree.
    Element *add_node_as_prev_sibling(Node *sibling, const Core::String &name,
                                      const Core::String &prefix = Core::String());

    // Appends a copy of `source`, which may belong to another document, as the last
    // child and returns the copy (for a text node it may merge into a neighbouring
    // text node, which is then returned). With `deep` false an element is copied bare:
    // its local name only, no children, attributes or namespace. Attributes cannot be
    // imported this way: null.
    Node *import_node(const Node *source, bool deep = true);
    // Inserts a copy of `source` right after, or right before, `sibling` among its
    // siblings. `this` does not decide the place.
    Node *import_node_as_sibling(const Node *source, Node *sibling, bool deep = true);
    Node *import_node_as_prev_sibling(const Node *source, Node *sibling, bool deep = true);

    // Unlinks `child` from wherever it stands and destroys it with its subtree (an
    // attribute is removed from its element). `this` need not be the parent. Every
    // pointer into the removed subtree is invalid afterwards.
    void remove_child(Node *child);

protected:
    Node(void *handle, bool isAttribute) noexcept : handle_(handle), isAttribute_(isAttribute) {}
    virtual ~Node() = default;

    // The library's node (an element, text or other node, or an attribute, as
    // `isAttribute_` tells). Only the sources of this layer look inside.
    void *handle_;
    bool isAttribute_;

    friend class Backend;
};

} // namespace Xml
