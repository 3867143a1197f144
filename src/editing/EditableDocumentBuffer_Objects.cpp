#include "editing/EditableDocumentBuffer.h"

// Static content ------------------------------------------------------------------------

bool EditableDocumentBuffer::isInFoStaticContent(int position, Core::String flowName)
{
    if (isOnInvalidPosition(position))
        return false;
    int const staticContent = searchParent("fo:static-content", position, false, true, Core::String());
    if (staticContent == -1)
        return false;
    if (flowName.isEmpty())
        return true;
    return getTagPropertyValue(staticContent, "fo:flow-name") == flowName;
}

// Protection ---------------------------------------------------------------------------

namespace {

// The protection record protects the whole document unless it is about something
// else, is not enforced, or allows editing.
bool protectsDocument(Core::String const &object, Core::String const &enforce,
                      Core::String const &allowEditing)
{
    return object.toLower() == "document" && enforce.toLower() != "false" && allowEditing.toLower() != "true";
}

} // namespace

// Walks the root's children from the first "ot:security" up to the layout master set,
// which ends the head of the document. A document that names no "ot:security" at all
// is answered by one search of the string.
bool EditableDocumentBuffer::documentIsProtectedFromEditing()
{
    if (content.find("<ot:security") == -1)
        return false;
    int const root = getRootElementPos();
    if (root == -1)
        return false;
    for (int element = getNextChildByName("ot:security", root); element != -1;
         element = getSiblingElement(element)) {
        if (tagNameEquals(element, "fo:layout-master-set"))
            return false;
        if (tagNameEquals(element, "ot:security") &&
            protectsDocument(getTagPropertyValue(element, "ot:object"),
                             getTagPropertyValue(element, "ot:enforce-protection"),
                             getTagPropertyValue(element, "ot:allow-editing")))
            return true;
    }
    return false;
}

// Attributes -----------------------------------------------------------------------------

// An attribute of an element in the property's own namespace is written without the
// prefix ("flow-name" on "fo:static-content"); one written with it counts as well.
Core::String EditableDocumentBuffer::getTagPropertyValue(int tagPosition,
                                                         Core::String const &propertyName) const
{
    if (!onTagStartPosition(tagPosition))
        return Core::String();
    int const colon = propertyName.find(':');
    Core::String const plainName =
        colon == -1 ? propertyName : propertyName.subString(colon + 1, propertyName.length() - 1);
    for (int attribute = getNextAttributePosition(tagPosition); attribute != -1;
         attribute = getNextAttributePosition(attribute)) {
        Core::String const name = getNameForAttributeAt(attribute);
        if (name == plainName || name == propertyName)
            return getValueForAttributeAt(attribute);
    }
    return Core::String();
}
