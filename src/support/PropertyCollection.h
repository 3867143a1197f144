#pragma once

#include "support/EditableProperty.h"
#include "support/String.h"
#include "support/Vector.h"

// The attributes of one element as properties: ordered, names unique. A copyable
// value. A replaced property keeps its place; a new name goes last, so a tag written
// back from a collection keeps the order its attributes had.
class PropertyCollection {
public:
    PropertyCollection() = default;

    // Adds `property`. With `replace` an existing property of that name takes the new
    // value; without, the existing one stays.
    void addProperty(EditableProperty property, bool replace);
    void setProperty(EditableProperty property, bool replace) { addProperty(std::move(property), replace); }
    // Adds every property of `other`, its values winning.
    void addProperties(PropertyCollection const &other);

    bool containsProperty(Core::String const &name) const noexcept { return indexOf(name) >= 0; }
    // Null when absent. The pointer lives as long as the collection is not changed.
    EditableProperty *getProperty(Core::String const &name);
    const EditableProperty *getProperty(Core::String const &name) const;
    // Empty when absent.
    Core::String getPropertyValue(Core::String const &name) const;
    Core::Vector<EditableProperty> getPropertyList() const { return properties; }
    int size() const noexcept { return properties.size(); }
    bool isEmpty() const noexcept { return properties.empty(); }

    // `name="value"` pairs separated by one blank, ready to stand in a start tag.
    Core::String getPropertiesString() const;

    void removePropertyByName(Core::String const &name);
    void removeNonFormattingProperties();
    // Gives `prefix` to every name that has none. A renamed property gives way to one
    // that already carries the qualified name.
    void setNamespaceForProperties(Core::String const &prefix);
    // Cuts `prefix` from every name that has it; other prefixes stay. A renamed
    // property gives way to one that already carries the plain name.
    void removeNamespaceForPropertiesWith(Core::String const &prefix);

    friend bool operator==(PropertyCollection const &a, PropertyCollection const &b);

private:
    int indexOf(Core::String const &name) const noexcept;
    void renameAll(Core::String const &from, Core::String const &to);

    // Invariant: no two entries share a name.
    Core::Vector<EditableProperty> properties;
};
