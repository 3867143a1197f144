// Members of the document buffer built on the markup walks: the parent of the caret's
// element, paths from the caret, namespaces in scope, the selection as a fragment.

#include "editing/EditableDocumentBuffer.h"
#include "support/EditableProperty.h"
#include "support/PropertyCollection.h"

void EditableDocumentBuffer::getParentElementNameAndPosition(int &position, Core::String &name) const
{
    position = searchParent(getCurrentElementName(position), position);
    const Core::String parent = getCurrentElementName(position);
    if (!parent.isEmpty())
        name = parent;
}

int EditableDocumentBuffer::getElementPositionFromPath(Core::String path) const
{
    return getElementPositionFromPath(path, caret);
}

Core::String EditableDocumentBuffer::getSelectedElementPath(int position) const
{
    return getElementPath(position) + "/" + getNameForTagAtPosition(position);
}

Core::String EditableDocumentBuffer::getNamespaces() const
{
    return namespaceSetToString(getNamespacesFromAllContainers(caret));
}

// How the namespaces of a pasted fragment get declared in the document: as an attribute
// of the root, `declaration` split at "=" and the value freed of its quotes.
int EditableDocumentBuffer::updateRootNamespaces(Core::String const &declaration)
{
    const int equals = declaration.find(u'=');
    const Core::String name = equals < 0 ? declaration : declaration.subString(0, equals - 1);
    const Core::String value =
        equals < 0 ? Core::String() : declaration.subString(equals + 1, declaration.length() - 1).replaced("\"", "");
    PropertyCollection properties;
    properties.addProperty(EditableProperty(name, value), true);
    return setPropertiesForElementAt(getRootElementPos(), properties);
}

// A closing tag's "/" is not part of its prefix.
Core::String EditableDocumentBuffer::getElementNamespace(int position) const
{
    const Core::String name = getNameForTagAtPosition(position);
    const int colon = name.find(u':');
    const int start = name.startsWith(u'/') ? 1 : 0;
    return colon < 0 ? Core::String() : name.subString(start, colon - 1);
}

bool EditableDocumentBuffer::nameContainsNamespace(Core::String const &name)
{
    return name.contains(u':');
}

Core::String EditableDocumentBuffer::getSelectionAsNativeText() const
{
    if (!hasSelectedText())
        return Core::String();
    return getNativeText(getSelectionStartIndex(), getSelectionEndIndex());
}
