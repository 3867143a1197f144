#include "support/ShorthandCollapse.h"

#include "support/ShorthandExpansion.h"
#include "support/XslPropertyTable.h"
#include "support/XslValueSyntax.h"

#include <algorithm>
#include <map>
#include <set>

using XslPropertyTable::ShorthandGrammar;
using XslPropertyTable::ShorthandInfo;

namespace ShorthandCollapse {
namespace {

constexpr const char *kSides[] = {"top", "right", "bottom", "left"};
constexpr const char *kAspects[] = {"width", "style", "color"};

Core::String borderName(int side, int aspect)
{
    return Core::String("border-") + kSides[side] + "-" + kAspects[aspect];
}

// CSS's shortest box form: "1pt" for four equal sides, "1pt 2pt" when top equals
// bottom and left equals right, and so on.
Core::String minimalBox(std::vector<Core::String> const &v)
{
    if (v[3] != v[1])
        return XslValueSyntax::join(v);
    if (v[2] != v[0])
        return XslValueSyntax::join({v[0], v[1], v[2]});
    if (v[1] != v[0])
        return XslValueSyntax::join({v[0], v[1]});
    return v[0];
}

struct Fold {
    Core::String name; // qualified
    Core::String value;
    std::vector<int> replaced; // indexes in the list
};

// The longhands of one namespace prefix and the folds made of them.
class PrefixGroup {
public:
    PrefixGroup(Core::Vector<EditableProperty> const &properties, Core::String namePrefix,
                std::vector<bool> &folded)
        : list(properties), prefix(std::move(namePrefix)), used(folded)
    {
        // "" takes the names without a colon, "fo:" those whose only prefix it is.
        for (int i = 0; i < list.size(); ++i)
            if (list[i].getName().startsWith(prefix) && list[i].getName().find(u':') == prefix.length() - 1)
                byLocal[list[i].getLocalName()] = i;
    }

    void foldBorders();
    void foldShorthand(ShorthandInfo const &shorthand);
    std::vector<Fold> const &result() const { return folds; }

private:
    // Index of a longhand that can still fold: present, not empty, not folded yet.
    int available(Core::String const &local) const
    {
        auto found = byLocal.find(local);
        if (found == byLocal.end() || used[static_cast<std::size_t>(found->second)] ||
            list[found->second].getValue().isEmpty())
            return -1;
        return found->second;
    }
    Core::String valueOf(Core::String const &local) const { return list[available(local)].getValue(); }
    bool allAvailable(std::vector<Core::String> const &locals) const
    {
        return std::all_of(locals.begin(), locals.end(),
                           [this](const auto &local) { return available(local) >= 0; });
    }
    bool tryFold(Core::String const &shorthandName, std::vector<Core::String> const &candidates,
                 std::vector<Core::String> const &locals);
    bool readsBack(ShorthandInfo const &shorthand, Core::String const &value,
                   std::vector<Core::String> const &locals) const;

    void foldAllSides();
    void foldEachAspect();
    void foldEachSide(std::vector<std::vector<bool>> const &present);
    std::vector<Core::String> candidatesFor(ShorthandInfo const &shorthand,
                                            std::vector<Core::String> const &v) const;

    Core::Vector<EditableProperty> const &list;
    Core::String prefix; // with its colon, or empty
    std::vector<bool> &used;
    std::map<Core::String, int> byLocal;
    std::vector<Fold> folds;
};

bool PrefixGroup::readsBack(ShorthandInfo const &shorthand, Core::String const &value,
                            std::vector<Core::String> const &locals) const
{
    std::vector<ShorthandExpansion::Component> components;
    if (!ShorthandExpansion::expand(shorthand, value, components) || components.size() != locals.size())
        return false;
    std::set<Core::String> wanted(locals.begin(), locals.end());
    for (const auto &component : components) {
        Core::String local(component.name);
        if (!wanted.erase(local) || valueOf(local) != component.value)
            return false;
    }
    return wanted.empty();
}

bool PrefixGroup::tryFold(Core::String const &shorthandName, std::vector<Core::String> const &candidates,
                          std::vector<Core::String> const &locals)
{
    const ShorthandInfo *shorthand = XslPropertyTable::findShorthand(shorthandName.view());
    // A shorthand that stayed because its value did not read must not get a twin.
    if (!shorthand || !shorthand->collapsible || byLocal.count(shorthandName) || !allAvailable(locals))
        return false;
    // "inherit" in every component is the one value that no grammar spells out.
    bool allInherit = std::all_of(locals.begin(), locals.end(),
                                  [this](const auto &local) { return valueOf(local) == "inherit"; });
    std::vector<Core::String> texts = candidates;
    if (allInherit)
        texts.insert(texts.begin(), "inherit");
    for (const Core::String &candidate : texts) {
        if (!readsBack(*shorthand, candidate, locals))
            continue;
        Fold fold{prefix + shorthandName, candidate, {}};
        for (const Core::String &local : locals) {
            int index = available(local);
            fold.replaced.push_back(index);
            used[static_cast<std::size_t>(index)] = true;
        }
        folds.push_back(std::move(fold));
        return true;
    }
    return false;
}

// "border" when two or three aspects are the same on all four sides.
void PrefixGroup::foldAllSides()
{
    std::vector<Core::String> values;
    std::vector<Core::String> locals;
    for (int aspect = 0; aspect < 3; ++aspect) {
        std::vector<Core::String> sideLocals;
        for (int side = 0; side < 4; ++side)
            sideLocals.push_back(borderName(side, aspect));
        if (!allAvailable(sideLocals))
            continue;
        Core::String first = valueOf(sideLocals[0]);
        bool uniform = std::all_of(sideLocals.begin(), sideLocals.end(),
                                   [&](const auto &local) { return valueOf(local) == first; });
        if (!uniform)
            continue;
        values.push_back(first);
        locals.insert(locals.end(), sideLocals.begin(), sideLocals.end());
    }
    if (values.size() >= 2)
        tryFold("border", {XslValueSyntax::join(values)}, locals);
}

// "border-width", "border-style", "border-color" for an aspect given on all sides.
void PrefixGroup::foldEachAspect()
{
    for (int aspect = 0; aspect < 3; ++aspect) {
        std::vector<Core::String> locals;
        for (int side = 0; side < 4; ++side)
            locals.push_back(borderName(side, aspect));
        if (!allAvailable(locals))
            continue;
        std::vector<Core::String> values;
        for (const auto &local : locals)
            values.push_back(valueOf(local));
        tryFold(Core::String("border-") + kAspects[aspect], {minimalBox(values)}, locals);
    }
}

// "border-top" and the like for two or three aspects of one side. A side some of
// whose aspects went into another shorthand is left alone: the two shorthands would
// both claim the aspect this one leaves out.
void PrefixGroup::foldEachSide(std::vector<std::vector<bool>> const &present)
{
    for (int side = 0; side < 4; ++side) {
        std::vector<Core::String> values;
        std::vector<Core::String> locals;
        bool intact = true;
        for (int aspect = 0; aspect < 3; ++aspect) {
            Core::String local = borderName(side, aspect);
            if (available(local) >= 0) {
                values.push_back(valueOf(local));
                locals.push_back(local);
            } else if (present[side][aspect]) {
                intact = false;
            }
        }
        if (intact && values.size() >= 2)
            tryFold(Core::String("border-") + kSides[side], {XslValueSyntax::join(values)}, locals);
    }
}

void PrefixGroup::foldBorders()
{
    std::vector<std::vector<bool>> present(4, std::vector<bool>(3));
    for (int side = 0; side < 4; ++side)
        for (int aspect = 0; aspect < 3; ++aspect)
            present[side][aspect] = available(borderName(side, aspect)) >= 0;
    foldAllSides();
    foldEachAspect();
    foldEachSide(present);
}

bool isInitial(Core::String const &value, const char *component)
{
    const auto *info = XslPropertyTable::findProperty(Core::String(component).view());
    return info && info->initial && value == info->initial;
}

// The texts that might stand for the component values `v`, shortest first; the
// first that reads back to exactly `v` is taken.
std::vector<Core::String> PrefixGroup::candidatesFor(ShorthandInfo const &shorthand,
                                                     std::vector<Core::String> const &v) const
{
    const auto &c = shorthand.components;
    switch (shorthand.grammar) {
    case ShorthandGrammar::Box:
        return {minimalBox(v)};
    case ShorthandGrammar::Pair:
        return {v[0] == v[1] ? v[0] : XslValueSyntax::join(v)};
    case ShorthandGrammar::BackgroundPosition:
        return {v[0], XslValueSyntax::join(v)};
    case ShorthandGrammar::Keywords:
        for (const auto &row : XslPropertyTable::keywordRows()) {
            bool matches = Core::String(row.shorthand) == shorthand.name;
            for (std::size_t i = 0; matches && i < v.size(); ++i)
                matches = v[i] == row.values[i];
            if (matches)
                return {row.keyword};
        }
        return {};
    case ShorthandGrammar::Font: {
        std::vector<Core::String> words;
        for (int i = 0; i < 3; ++i)
            if (!isInitial(v[i], c[i]))
                words.push_back(v[i]);
        words.push_back(isInitial(v[4], c[4]) ? v[3] : v[3] + "/" + v[4]);
        words.push_back(v[5]);
        return {XslValueSyntax::join(words)};
    }
    case ShorthandGrammar::Background: {
        std::vector<Core::String> words;
        for (int i = 0; i < 4; ++i)
            if (!isInitial(v[i], c[i]))
                words.push_back(v[i]);
        if (!isInitial(v[4], c[4]) || !isInitial(v[5], c[5])) {
            words.push_back(v[4]);
            words.push_back(v[5]);
        }
        return {words.empty() ? v[0] : XslValueSyntax::join(words)};
    }
    case ShorthandGrammar::BorderSide:
    case ShorthandGrammar::PageSize:
        return {};
    }
    return {};
}

void PrefixGroup::foldShorthand(ShorthandInfo const &shorthand)
{
    std::vector<Core::String> locals;
    for (int i = 0; i < XslPropertyTable::kMaxComponents && shorthand.components[i]; ++i)
        locals.emplace_back(shorthand.components[i]);
    if (!shorthand.collapsible || !allAvailable(locals))
        return;
    std::vector<Core::String> values;
    for (const auto &local : locals)
        values.push_back(valueOf(local));
    tryFold(shorthand.name, candidatesFor(shorthand, values), locals);
}

// The border shorthands are folded together by foldBorders, which weighs them
// against each other.
bool isBorderFamily(ShorthandInfo const &shorthand)
{
    return shorthand.grammar == ShorthandGrammar::BorderSide ||
           (shorthand.grammar == ShorthandGrammar::Box && Core::String(shorthand.name).startsWith("border-"));
}

std::set<Core::String> prefixesOf(Core::Vector<EditableProperty> const &list)
{
    std::set<Core::String> prefixes;
    for (const EditableProperty &property : list) {
        Core::String ns = property.getNamespace();
        if (ns != "xmlns" && ns != "xml" && property.getName() != "xmlns")
            prefixes.insert(ns.isEmpty() ? ns : ns + ":");
    }
    return prefixes;
}

} // namespace

void foldLonghands(Core::Vector<EditableProperty> &properties)
{
    std::vector<bool> used(static_cast<std::size_t>(properties.size()));
    std::vector<Fold> folds;
    for (const Core::String &prefix : prefixesOf(properties)) {
        PrefixGroup group(properties, prefix, used);
        group.foldBorders();
        for (const ShorthandInfo &shorthand : XslPropertyTable::shorthands())
            if (!isBorderFamily(shorthand))
                group.foldShorthand(shorthand);
        folds.insert(folds.end(), group.result().begin(), group.result().end());
    }
    std::map<int, const Fold *> foldAt; // a fold stands where its first longhand stood
    for (const Fold &fold : folds)
        foldAt[*std::min_element(fold.replaced.begin(), fold.replaced.end())] = &fold;
    Core::Vector<EditableProperty> result;
    for (int i = 0; i < properties.size(); ++i) {
        if (auto found = foldAt.find(i); found != foldAt.end())
            result.emplace_back(found->second->name, found->second->value);
        else if (!used[static_cast<std::size_t>(i)])
            result.push_back(properties[i]);
    }
    properties = std::move(result);
}

} // namespace ShorthandCollapse
