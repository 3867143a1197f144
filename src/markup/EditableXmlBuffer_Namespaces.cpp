// Namespace declarations `xmlns:prefix="uri"`, gathered so that a fragment cut out of the
// document can declare the prefixes it uses. Default namespaces (`xmlns="uri"`) are not
// collected.

#include "markup/EditableXmlBuffer.h"

EditableXmlBuffer::NamespaceSet EditableXmlBuffer::getNamespacesFromElementAt(int element) const
{
    NamespaceSet declarations;
    if (!onTagStartPosition(element))
        return declarations;
    const int end = findTagEnd(element, content);
    for (int a = getNextAttributePosition(element + 1); a >= 0 && a < end; a = getNextAttributePosition(a))
        if (content.matchesAt(a, "xmlns:"))
            declarations.insert(getNameForAttributeAt(a) + "=\"" + getValueForAttributeAt(a) + "\"");
    return declarations;
}

namespace {

Core::String declaredName(Core::String const &declaration)
{
    return declaration.substringBefore("=").toLower();
}

} // namespace

// Compares the part before "=", ignoring case: is this prefix declared already?
bool EditableXmlBuffer::namespaceIsDefined(Core::String const &declaration, NamespaceSet namespaces)
{
    const Core::String name = declaredName(declaration);
    for (Core::String const &member : namespaces)
        if (declaredName(member) == name)
            return true;
    return false;
}

// From the current element up through the root; the nearest declaration of a prefix wins.
EditableXmlBuffer::NamespaceSet EditableXmlBuffer::getNamespacesFromAllContainers(int position) const
{
    NamespaceSet declarations;
    for (int t = getCurrentElementPosition(position); t >= 0; t = getCurrentElementPosition(t))
        for (Core::String const &declaration : getNamespacesFromElementAt(t))
            if (!namespaceIsDefined(declaration, declarations))
                declarations.insert(declaration);
    return declarations;
}

// Each declaration with a blank in front, ready to go behind a tag name.
Core::String EditableXmlBuffer::namespaceSetToString(NamespaceSet namespaces)
{
    Core::String text;
    for (Core::String const &declaration : namespaces)
        text += " " + declaration;
    return text;
}
