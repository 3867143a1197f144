#pragma once

#include "support/XmlNode.h"

namespace Xml {

class Attribute;
class TextNode;

// An element node. Attribute lookups follow one prefix rule:
//  - an empty prefix matches by local name alone, whatever the attribute's prefix
//    (a row's "otd:parent-group" answers to ("parent-group", ""));
//  - a prefix matches an attribute of that prefix, and also a plain attribute when it
//    is the element's own prefix (on "fo:table-cell", "border" answers to "" and "fo").
// The first attribute in document order that matches is the one meant.
class Element : public Node {
public:
    Attribute *get_attribute(const Core::String &name, const Core::String &prefix = Core::String()) const;
    // Snapshot of the attributes in document order (namespace declarations excluded).
    std::list<Attribute *> get_attributes() const;
    // Replaces the value of the attribute the prefix rule finds, or creates one: plain
    // with an empty prefix, otherwise in the namespace of `prefix`. The value is
    // literal text; the serialiser escapes it. The prefix "xmlns" declares the
    // namespace `name` with the URI `value` instead (unless the element already
    // declares that prefix) and answers null.
    Attribute *set_attribute(const Core::String &name, const Core::String &value,
                             const Core::String &prefix = Core::String());
    // Removes the attribute the prefix rule finds; true if one was removed.
    bool remove_attribute(const Core::String &name, const Core::String &prefix = Core::String());

    // The element's own prefix, empty when it has none.
    Core::String getNSPrefix() const { return get_namespace_prefix(); }

    // Appends a text node holding `text` literally.
    TextNode *add_child_text(const Core::String &text);
    // The first text child. Never null: an element without one answers a detached,
    // empty text node shared by its document, so that reading its content gives "".
    TextNode *get_child_text() const;
    // Makes `text` the content of the first text child, or appends one.
    void set_child_text(const Core::String &text);

private:
    using Node::Node;
    friend class Backend;
};

} // namespace Xml
