#pragma once

#include "support/String.h"

// One attribute presented as a property: a qualified name ("fo:color") and a value,
// kept as it stands in the markup, entities included.
class EditableProperty {
public:
    // A property that was never set: isValid() is false.
    EditableProperty() = default;
    EditableProperty(Core::String name, Core::String value);

    Core::String getName() const { return name; }
    Core::String getValue() const { return value; }
    void setValue(Core::String newValue) { value = std::move(newValue); }
    // The prefix of the name without its colon, empty when the name has none. A
    // namespace declaration "xmlns:foo" answers "xmlns".
    Core::String getNamespace() const;
    // The name without its prefix.
    Core::String getLocalName() const;
    bool isValid() const noexcept { return valid; }
    void removeNamespaceFromName();

    // Whether the qualified name is a presentation property of XSL-FO (or a plain
    // name taken as one): "fo:font-weight" is, "fo:number-columns-spanned" and
    // "fo:id" are not, nor is any name of another namespace.
    static bool isFormatting(Core::String const &name);

private:
    Core::String name;
    Core::String value;
    bool valid = false;
};
