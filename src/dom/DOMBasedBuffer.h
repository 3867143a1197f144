#pragma once

#include "editing/EditAction.h"
#include "support/Object.h"
#include "support/PropertyCollection.h"
#include "support/SmartPtr.h"
#include "support/String.h"
#include "support/XmlDocument.h"

#include <functional>
#include <set>

class EditableDocumentBuffer;
namespace Xml {
class Element;
}

// The frame of every object that is edited as a tree: a table, a page master, a
// bookmark list. It parses one stretch of the document's flat string into a private
// `Xml::XmlDocument`, lets its subclass change the tree with DOM calls, and on commit
// writes the tree back over the stretch as one undo step:
//
//     SetCaret, DeleteText(old stretch), InsertText(new text), SetCaret
//
// A sub-buffer dropped without a commit leaves the document as it was. After a
// commit `startPosition` and `endPosition` are stale (the frame keeps no stage flag);
// a subclass that commits twice refreshes them first.
//
// A stretch uses prefixes declared on its ancestors, so before parsing, the
// declarations in scope are added to its opening tag; writing back takes them away
// again, so the document gains no declarations.
class DOMBasedBuffer : public Core::Object {
public:
    explicit DOMBasedBuffer(EditableDocumentBuffer *buffer);
    // Copies share the tree: two copies edit the same nodes.
    DOMBasedBuffer(const DOMBasedBuffer &other);
    DOMBasedBuffer &operator=(const DOMBasedBuffer &other);
    ~DOMBasedBuffer() override;

    virtual void commitChangesToEditableBuffer() = 0;

    // The attribute's value, or "" when `get_attribute` finds none (or for a null
    // element): an absent attribute and an empty one read the same.
    static Core::String getAttributeValue(Xml::Element *element, Core::String name,
                                          Core::String namespacePrefix);
    // The first element child, in document order, whose local name is `name`; direct
    // children only, compared exactly. Null if none, or for a null parent.
    static Xml::Element *getElementByName(Xml::Element *parent, Core::String name);
    // One property per attribute, in attribute order, named with the attribute's own
    // prefix or else the element's: `border` on "fo:table-cell" reads as "fo:border",
    // "otd:note" stays "otd:note". On an element without prefix a plain attribute
    // keeps its plain name. Empty for a null element.
    static PropertyCollection getElementProperties(Xml::Element *element);
    // Makes the element's attributes exactly `properties`: removes them all (stopping
    // early, silently, should a removal fail), then writes each property, plain when its
    // prefix is the element's own.
    static void setElementProperties(Xml::Element *element, PropertyCollection &properties);

protected:
    // Shorthands over the whole tree. Edits work on longhands: expand, change
    // "border-left-style", collapse, and the document keeps `border="1pt solid black"`
    // wherever the four sides still agree. The walk recurses through the virtual
    // slots, so an override sees every element.
    virtual void collapseShorthands(bool removeDefaults);
    virtual void collapseElementAttributes(Xml::Element *element, bool removeDefaults);
    virtual void expandShorthands();
    virtual void expandElementAttributes(Xml::Element *element);

    // ---- Making the tree from the string ----
    // Sets the stretch to the element whose start tag is at `openingTag`: from its "<"
    // through the ">" of its closing tag (or of the tag itself when it is
    // self-closing). False, with both positions -1, when there is no such element.
    bool selectStretchOfElementAt(int openingTag);
    // The markup of the stretch as it stands in the document.
    Core::String getStretchText() const;
    // The declarations in scope at the stretch that its opening tag does not make.
    std::set<Core::String> getNamespacesMissingFromStretch() const;
    // `markup` with ` xmlns:p="uri"` for each declaration added to its first tag.
    static Core::String addNamespacesToOpeningTag(Core::String const &markup,
                                                  std::set<Core::String> const &declarations);
    // `markup` without those declarations in its first tag, blanks included.
    static Core::String removeNamespacesFromOpeningTag(Core::String const &markup,
                                                       std::set<Core::String> const &declarations);
    // Parses `markup` into `dom`. A failure raises the parser's exception and leaves
    // `dom` and the document as they were.
    void parseStretch(Core::String const &markup);
    // Parses the stretch, made self-contained by its namespaces in scope.
    void loadStretch();

    // ---- Writing the tree back ----
    // The tree as markup, trimmed, without the declarations that loadStretch added.
    Core::String getTreeTextForStretch() const;
    // Replaces the stretch by `text` as one undo step and one notification: closes the
    // typing run, freezes the monitor, and records SetCaret, DeleteText, InsertText,
    // then runs `placeCaret` and records the last SetCaret. Without a document it does
    // nothing.
    void replaceStretch(Core::String const &text, std::function<void()> const &placeCaret = {});
    // The usual commit: replaceStretch(getTreeTextForStretch(), placeCaret).
    void writeTreeToStretch(std::function<void()> const &placeCaret = {});

    // ---- The document's protected members, for the subclasses' own protocols ----
    void setDocumentCaret(bool extendSelection, int position);
    void insertIntoDocument(int position, Core::String const &text);
    Core::String deleteFromDocument(int first, int last);
    void recordAction(EditAction const &action);
    void notifyDocumentSelectionChanged();

    SmartPtr<Xml::XmlDocument> dom;         // the tree; null until the stretch is parsed; shared by copies
    EditableDocumentBuffer *documentBuffer; // owns the flat string; not owned, must outlive this
    int startPosition;                      // first character of the stretch, or -1
    int endPosition;                        // last character of the stretch, inclusive, or -1
};
