#include "support/PropertyCollection.h"

int PropertyCollection::indexOf(Core::String const &name) const noexcept
{
    for (int i = 0; i < properties.size(); ++i)
        if (properties[i].getName() == name)
            return i;
    return -1;
}

void PropertyCollection::addProperty(EditableProperty property, bool replace)
{
    int existing = indexOf(property.getName());
    if (existing < 0)
        properties.push_back(std::move(property));
    else if (replace)
        properties[existing] = std::move(property);
}

void PropertyCollection::addProperties(PropertyCollection const &other)
{
    for (const EditableProperty &property : other.properties)
        addProperty(property, true);
}

EditableProperty *PropertyCollection::getProperty(Core::String const &name)
{
    int index = indexOf(name);
    return index < 0 ? nullptr : &properties[index];
}

const EditableProperty *PropertyCollection::getProperty(Core::String const &name) const
{
    int index = indexOf(name);
    return index < 0 ? nullptr : &properties[index];
}

Core::String PropertyCollection::getPropertyValue(Core::String const &name) const
{
    int index = indexOf(name);
    return index < 0 ? Core::String() : properties[index].getValue();
}

Core::String PropertyCollection::getPropertiesString() const
{
    Core::String result;
    for (const EditableProperty &property : properties) {
        if (!result.isEmpty())
            result += u' ';
        result += property.getName();
        result += "=\"";
        result += property.getValue();
        result += u'"';
    }
    return result;
}

void PropertyCollection::removePropertyByName(Core::String const &name)
{
    int index = indexOf(name);
    if (index >= 0)
        properties.erase(properties.begin() + index);
}

void PropertyCollection::removeNonFormattingProperties()
{
    std::erase_if(properties, [](const EditableProperty &property) {
        return !EditableProperty::isFormatting(property.getName());
    });
}

// Renames every property whose prefix (with its colon, or empty for "none") is
// `from` to carry `to` instead, keeping the place of each; a renamed property that
// collides with a name already present is dropped.
void PropertyCollection::renameAll(Core::String const &from, Core::String const &to)
{
    Core::Vector<EditableProperty> renamed;
    for (const EditableProperty &property : properties) {
        Core::String name = property.getName();
        bool hasPrefix = name.find(u':') >= 0;
        bool matches = from.isEmpty() ? !hasPrefix : name.startsWith(from);
        if (!matches) {
            renamed.push_back(property);
            continue;
        }
        Core::String newName = to + name.substr(from.length(), name.length() - from.length());
        if (indexOf(newName) < 0)
            renamed.push_back(EditableProperty(newName, property.getValue()));
    }
    properties = std::move(renamed);
}

void PropertyCollection::setNamespaceForProperties(Core::String const &prefix)
{
    if (!prefix.isEmpty())
        renameAll(Core::String(), prefix + ":");
}

void PropertyCollection::removeNamespaceForPropertiesWith(Core::String const &prefix)
{
    if (!prefix.isEmpty())
        renameAll(prefix + ":", Core::String());
}

bool operator==(PropertyCollection const &a, PropertyCollection const &b)
{
    if (a.properties.size() != b.properties.size())
        return false;
    for (int i = 0; i < a.properties.size(); ++i)
        if (a.properties[i].getName() != b.properties[i].getName() ||
            a.properties[i].getValue() != b.properties[i].getValue())
            return false;
    return true;
}
