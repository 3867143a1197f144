#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/FreezeNotifications.h"
#include "support/WhiteSpace.h"
#include "support/XmlNamespaces.h"

#include <array>
#include <set>

// Attributes as properties: reading a start tag into a collection, writing one back
// by a splice inside the tag, and the public forms by path, name and selection.
//
//     <fo:block color="red" xml:lang="en">   reads as   fo:color="red" xml:lang="en"
//
// The prefix of the element goes onto plain names when reading and comes off again
// when writing; a name with another prefix keeps it both ways.

namespace {

// The declarations a write adds to the root when a property uses one of these
// prefixes and the element does not declare it.
std::array<Core::String, 4> const &knownDeclarations()
{
    static const std::array<Core::String, 4> declarations{
        Core::String("xmlns:fo=\"") + Xml::Namespaces::fo + "\"",
        Core::String("xmlns:xsl=\"") + Xml::Namespaces::xsl + "\"",
        Core::String("xmlns:ot=\"") + Xml::Namespaces::ot + "\"",
        Core::String("xmlns:otd=\"") + Xml::Namespaces::otd + "\"",
    };
    return declarations;
}

// Whether `declarations` (texts `xmlns:p="uri"`) declare `prefix`.
bool declaresPrefix(std::set<Core::String> const &declarations, Core::String const &prefix)
{
    Core::String name = "xmlns:" + prefix + "=";
    for (const Core::String &declaration : declarations)
        if (declaration.startsWith(name))
            return true;
    return false;
}

} // namespace

// Reading and writing one tag ----------------------------------------------------------

bool EditableDocumentBuffer::holdsAttributes(int position) const
{
    return onTagStartPosition(position) && !commentTagAtPosition(position) &&
           !cdataSectionAtPosition(position);
}

PropertyCollection EditableDocumentBuffer::getPropertiesFromElementAt(int elementPosition)
{
    PropertyCollection properties;
    // Only a tag has attributes (a processing instruction's pseudo-attributes count);
    // read from text the walk would take words for names.
    if (!holdsAttributes(elementPosition))
        return properties;
    Core::String ns = getElementNamespace(elementPosition);
    for (int a = getNextAttributePosition(elementPosition + 1); a != -1; a = getNextAttributePosition(a)) {
        Core::String name = getNameForAttributeAt(a);
        if (name.find(u':') < 0 && !ns.isEmpty())
            name = ns + ":" + name;
        properties.addProperty(EditableProperty(name, getValueForAttributeAt(a)), true);
    }
    return properties;
}

// The name ends at white space, at "/" or "?>", or at the ">" itself.
int EditableDocumentBuffer::getTagNameEndForAttributes(int elementPosition, int tagEnd) const
{
    int q = elementPosition;
    while (q < tagEnd && !content.matchesAt(q, "?>") && content[q] != u'/' && !Core::iswspace(content[q]))
        ++q;
    return q;
}

// Everything between the name and the end of the tag goes, except a closing "/" or
// "?", so a self-closing tag stays self-closing:
//
//     <fo:block color="red" />   becomes   <fo:block/>
Core::String EditableDocumentBuffer::clearPropertiesForElementAt(int elementPosition)
{
    int next = getNextEditablePositionInXml(elementPosition);
    if (!holdsAttributes(elementPosition) || next < 1)
        return Core::String();
    endKeyTypingSequence();
    EditActionGroup group(this);
    addCaretMark();
    int end = next - 1;
    int q = getTagNameEndForAttributes(elementPosition, end);
    Core::String removed;
    if (q != end) {
        int keep = (content[end - 1] == u'/' || content.matchesAt(end - 1, "?>")) ? 1 : 0;
        if (q <= end - keep - 1)
            removed = deleteXmlText(q, end - keep - 1);
    }
    addAction(EditAction(EditAction::DeleteText, q, caret, selectionPivot, removed));
    addCaretMark();
    return removed;
}

// A prefix the element does not declare itself is declared on the root, unless the
// root holds that very declaration already: writing it again would rewrite the root's
// tag with the text it has, a splice pair of no effect in every property write.
int EditableDocumentBuffer::declareNamespacesOfProperties(int elementPosition,
                                                          PropertyCollection const &properties)
{
    std::set<Core::String> declared = getNamespacesFromElementAt(elementPosition);
    std::set<Core::String> handled;
    int delta = 0;
    for (const EditableProperty &property : properties.getPropertyList()) {
        Core::String ns = property.getNamespace();
        // A plain name needs no declaration, and one prefix is declared once.
        if (ns.isEmpty() || ns == "xmlns" || declaresPrefix(declared, ns) || !handled.insert(ns).second)
            continue;
        for (const Core::String &declaration : knownDeclarations()) {
            if (!declaration.startsWith("xmlns:" + ns + "="))
                continue;
            if (getNamespacesFromElementAt(getRootElementPos()).count(declaration) == 0)
                delta += updateRootNamespaces(declaration);
            break;
        }
    }
    return delta;
}

int EditableDocumentBuffer::setPropertiesForElementAt(int elementPosition, PropertyCollection properties)
{
    if (!holdsAttributes(elementPosition) || getNextEditablePositionInXml(elementPosition) < 1)
        return 0;
    endKeyTypingSequence();
    EditActionGroup group(this);
    FreezeNotifications freeze(this);
    Core::String prefix = getElementNamespace(elementPosition);
    int delta = declareNamespacesOfProperties(elementPosition, properties);
    if (elementPosition > getRootElementPos())
        elementPosition += delta;

    PropertyCollection merged = getPropertiesFromElementAt(elementPosition);
    merged.setNamespaceForProperties(prefix);
    merged.addProperties(properties);
    int old = clearPropertiesForElementAt(elementPosition).length();
    merged.removeNamespaceForPropertiesWith(prefix);
    Core::String pairs = merged.getPropertiesString();
    Core::String attributes = pairs.isEmpty() ? Core::String() : " " + pairs;

    int tagEnd = getNextEditablePositionInXml(elementPosition) - 1;
    int at = getTagNameEndForAttributes(elementPosition, tagEnd);
    addAction(EditAction(EditAction::InsertText, at, caret, selectionPivot, attributes));
    insertXmlTextAtPosition(at, attributes);
    addCaretMark();
    return delta + attributes.length() - old;
}

// The public reads and writes -------------------------------------------------------------

int EditableDocumentBuffer::getPositionBehindElement(int elementPosition)
{
    if (!onTagStartPosition(elementPosition))
        return -1;
    if (selfClosingTagAtPosition(elementPosition))
        return getNextEditablePositionInXml(elementPosition);
    int closing = getClosingTagForTagAtPosition(elementPosition);
    return closing < 0 ? -1 : getNextEditablePositionInXml(closing);
}

PropertyCollection EditableDocumentBuffer::getProperties(Core::String const &path)
{
    endKeyTypingSequence();
    int start = getSelectionStartIndex();
    if (hasSelectedText() && onTagStartPosition(start) &&
        (path.isEmpty() || path == getSelectedElementPath(start)))
        return getPropertiesFromElementAt(start);
    return getPropertiesFromElementAt(getElementPositionFromPath(path, caret));
}

// A position whose own tag, or whose current element, has the name is taken as it
// stands: the caller asks about that element, even from inside its text.
PropertyCollection EditableDocumentBuffer::getProperties(Core::String const &name, int position)
{
    if (!tagNameEquals(position, name) && getCurrentElementName(position) != name)
        position = searchParent(name, position, false, true, Core::String());
    return getPropertiesFromElementAt(position);
}

Core::Vector<PropertyCollection> EditableDocumentBuffer::getPropertiesList(Core::String const &name)
{
    Core::Vector<PropertyCollection> list;
    int end = getSelectionEndIndex();
    for (int p = getNextElementByName(name, getSelectionStartIndex()); p != -1 && p < end;
         p = getNextElementByName(name, p))
        list.push_back(getProperties(name, p));
    return list;
}

// A self-closing element selected whole is selected whole again after its tag grew,
// with the caret on the same side as before.
void EditableDocumentBuffer::reselectElement(int start, int end, int growth)
{
    int newEnd = end + growth;
    if (selectionPivot <= caret) {
        setCaretPos(true, newEnd);
    } else {
        setCaretPos(false, newEnd);
        setCaretPos(true, start);
    }
}

void EditableDocumentBuffer::setProperties(PropertyCollection properties, Core::String path)
{
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    int start = getSelectionStartIndex();
    int end = caret > selectionPivot ? caret : selectionPivot;
    bool selection = hasSelectedText();
    if (path.isEmpty() && selection) {
        bool wholeElement = onTagStartPosition(start) && !closingElementTagAtPosition(start) &&
                            end == getPositionBehindElement(start);
        if (!wholeElement) {
            formatInline(start, end, properties);
            return;
        }
        bool selfClosing = selfClosingTagAtPosition(start);
        int growth = setPropertiesForElementAt(start, properties);
        if (selfClosing)
            reselectElement(start, end, growth);
    } else if (path.isEmpty()) {
        setPropertiesForElementAt(getCurrentElementPosition(caret), properties);
    } else if (selection && onTagStartPosition(start) && getSelectedElementPath(start) == path) {
        reselectElement(start, end, setPropertiesForElementAt(start, properties));
    } else {
        setPropertiesForElementAt(getElementPositionFromPath(path, caret), properties);
    }
}

void EditableDocumentBuffer::setProperties(PropertyCollection properties, Core::String name, int position)
{
    if (!tagNameEquals(position, name) && getCurrentElementName(position) != name)
        position = searchParent(name, position, false, true, Core::String());
    setPropertiesForElementAt(position, properties);
}

void EditableDocumentBuffer::setProperty(EditableProperty property, Core::String path)
{
    endKeyTypingSequence();
    PropertyCollection properties;
    properties.addProperty(std::move(property), true);
    setProperties(properties, path);
}

void EditableDocumentBuffer::removeProperties(Core::String const &path)
{
    FreezeNotifications freeze(this);
    int start = getSelectionStartIndex();
    int target = -1;
    if (!path.isEmpty()) {
        target = getElementPositionFromPath(path, caret);
        if (target == -1)
            target = start;
    } else if (hasSelectedText() && onTagStartPosition(start) && content[start + 1] != u'/') {
        target = start;
    } else {
        target = getCurrentElementPosition(start);
    }
    clearPropertiesForElementAt(target);
}

// Inherited values, parents, classes ----------------------------------------------------

// `position` is meant to be a start tag; from a text position the walk begins with
// the element around it.
Core::String EditableDocumentBuffer::getInheritablePropertyValueAtPosition(Core::String const &name,
                                                                           int position)
{
    if (position == -1)
        position = getCurrentElementPosition(position);
    for (; position != -1; position = getCurrentElementPosition(position)) {
        PropertyCollection properties = getPropertiesFromElementAt(position);
        if (properties.containsProperty(name))
            return properties.getPropertyValue(name);
    }
    return Core::String();
}

bool EditableDocumentBuffer::getParentProperty(Core::String elementName, Core::String propertyName,
                                               Core::String &value)
{
    int parent = searchParent(elementName, caret, false, true, Core::String());
    if (parent == -1)
        return false;
    PropertyCollection properties = getPropertiesFromElementAt(parent);
    const EditableProperty *property = properties.getProperty(propertyName);
    if (property == nullptr)
        return false;
    value = property->getValue();
    return true;
}

void EditableDocumentBuffer::setParentProperty(Core::String elementName, Core::String propertyName,
                                               Core::String value)
{
    int parent = searchParent(elementName, caret, false, true, Core::String());
    if (parent == -1)
        return;
    PropertyCollection properties = getPropertiesFromElementAt(parent);
    properties.addProperty(EditableProperty(propertyName, value), true);
    setPropertiesForElementAt(parent, properties);
}

// The selected element when the selection starts with its start tag, otherwise the
// element around the selection start (or the caret).
int EditableDocumentBuffer::getClassTarget(int start)
{
    if (hasSelectedText() && onTagStartPosition(start) && content[start + 1] != u'/')
        return start;
    return getCurrentElementPosition(start);
}

void EditableDocumentBuffer::applyStyleOnElement(Core::String className, Core::String elementName)
{
    int start = hasSelectedText() ? getSelectionStartIndex() : caret;
    if (isOnInvalidPosition(start))
        return;
    int target = getClassTarget(start);
    if (!elementName.isEmpty() && elementName != getNameForTagAtPosition(target, false))
        target = searchParent(elementName, start, false, false, Core::String());
    if (target == -1)
        return;
    PropertyCollection properties;
    properties.addProperty(EditableProperty("fo:class", className), true);
    // Without an element name a selection of text is formatted as a whole, which may
    // wrap runs in inlines that carry the class.
    setProperties(properties, elementName.isEmpty() ? Core::String() : getSelectedElementPath(target));
}

void EditableDocumentBuffer::getCrtElementClassName(Core::String &className, Core::String &elementName)
{
    int start = hasSelectedText() ? getSelectionStartIndex() : caret;
    if (isOnInvalidPosition(start))
        return;
    int target = getClassTarget(start);
    if (target == -1)
        return;
    elementName = getNameForTagAtPosition(target, false);
    PropertyCollection properties = getProperties(getSelectedElementPath(target));
    const EditableProperty *property = properties.getProperty("fo:class");
    if (property != nullptr && property->isValid())
        className = property->getValue();
}

// Whole elements ------------------------------------------------------------------------

Core::String EditableDocumentBuffer::getCrtObjectContent(Core::String path)
{
    int element = getElementPositionFromPath(path, caret);
    int behind = getPositionBehindElement(element);
    if (element == -1 || isOnInvalidPosition(behind))
        return Core::String();
    return content.subString(element, behind - 1);
}

Core::String EditableDocumentBuffer::getCrtObjectContent(Core::String name, bool inclusive)
{
    int element = searchParent(name, caret, inclusive, true, Core::String());
    int behind = getPositionBehindElement(element);
    if (element == -1 || isOnInvalidPosition(behind))
        return Core::String();
    return content.subString(element, behind - 1);
}
