#include "support/PropertiesHelper.h"

#include "support/ShorthandCollapse.h"
#include "support/ShorthandExpansion.h"
#include "support/XslPropertyTable.h"
#include "support/XslValueSyntax.h"

#include <algorithm>
#include <map>

namespace {

// Namespace declarations and the xml: attributes are markup, not properties.
bool isPropertyName(EditableProperty const &property)
{
    Core::String ns = property.getNamespace();
    return ns != "xmlns" && ns != "xml" && property.getName() != "xmlns";
}

// What one entry of the collection sets: itself, or the components of a shorthand.
struct Source {
    int index; // place in the collection
    int precision;
    std::vector<EditableProperty> sets;
};

Source readSource(EditableProperty const &property, int index)
{
    Source source{index, XslPropertyTable::kExplicitPrecision, {property}};
    if (!isPropertyName(property))
        return source;
    const auto *shorthand = XslPropertyTable::findShorthand(property.getLocalName().view());
    std::vector<ShorthandExpansion::Component> components;
    if (!shorthand || !ShorthandExpansion::expand(*shorthand, property.getValue(), components))
        return source;
    Core::String ns = property.getNamespace();
    Core::String prefix = ns.isEmpty() ? Core::String() : ns + ":";
    source.precision = shorthand->precision;
    source.sets.clear();
    for (const auto &component : components)
        source.sets.emplace_back(prefix + component.name, component.value);
    return source;
}

// The value each longhand ends with: sources applied from the least precise up, a
// later source winning a tie.
std::map<Core::String, Core::String> resolveValues(std::vector<Source> sources)
{
    std::stable_sort(sources.begin(), sources.end(),
                     [](const Source &a, const Source &b) { return a.precision < b.precision; });
    std::map<Core::String, Core::String> values;
    for (const Source &source : sources)
        for (const EditableProperty &property : source.sets)
            values[property.getName()] = property.getValue();
    return values;
}

} // namespace

void PropertiesHelper::expandShorthands(PropertyCollection &properties)
{
    Core::Vector<EditableProperty> list = properties.getPropertyList();
    std::vector<Source> sources;
    for (int i = 0; i < list.size(); ++i)
        sources.push_back(readSource(list[i], i));
    std::map<Core::String, Core::String> values = resolveValues(sources);
    // Each longhand takes the place of the first entry that names it.
    PropertyCollection expanded;
    for (const Source &source : sources)
        for (const EditableProperty &property : source.sets)
            if (!expanded.containsProperty(property.getName()))
                expanded.addProperty(EditableProperty(property.getName(), values[property.getName()]), true);
    properties = expanded;
}

void PropertiesHelper::collapseShorthands(PropertyCollection &properties)
{
    expandShorthands(properties);
    Core::Vector<EditableProperty> list = properties.getPropertyList();
    ShorthandCollapse::foldLonghands(list);
    PropertyCollection collapsed;
    for (const EditableProperty &property : list)
        collapsed.addProperty(property, true);
    properties = collapsed;
}

void PropertiesHelper::removeDefaultValues(PropertyCollection &properties)
{
    for (const EditableProperty &property : properties.getPropertyList()) {
        Core::String ns = property.getNamespace();
        if (!ns.isEmpty() && ns != "fo")
            continue;
        const auto *info = XslPropertyTable::findProperty(property.getLocalName().view());
        if (info && !info->inherited && info->initial &&
            XslValueSyntax::sameValue(property.getValue(), info->initial))
            properties.removePropertyByName(property.getName());
    }
}
