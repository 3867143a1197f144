#include "support/EditableProperty.h"

#include "support/XslPropertyTable.h"

EditableProperty::EditableProperty(Core::String propertyName, Core::String propertyValue)
    : name(std::move(propertyName)), value(std::move(propertyValue)), valid(!name.isEmpty())
{
}

Core::String EditableProperty::getNamespace() const
{
    int colon = name.find(u':');
    return colon < 0 ? Core::String() : name.left(colon);
}

Core::String EditableProperty::getLocalName() const
{
    int colon = name.find(u':');
    return colon < 0 ? name : name.substr(colon + 1, name.length() - colon - 1);
}

void EditableProperty::removeNamespaceFromName()
{
    name = getLocalName();
}

bool EditableProperty::isFormatting(Core::String const &name)
{
    std::u16string_view local = name.view();
    int colon = name.find(u':');
    if (colon >= 0) {
        if (!name.matchesAt(0, "fo:"))
            return false;
        local.remove_prefix(static_cast<std::size_t>(colon) + 1);
    }
    if (const auto *property = XslPropertyTable::findProperty(local))
        return property->formatting;
    return XslPropertyTable::findShorthand(local) != nullptr;
}
