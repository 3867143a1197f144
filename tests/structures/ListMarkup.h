#pragma once

// Lists as the list commands write them, for tests. Bodies may carry the caret
// markers of MarkedDocument.h.
//
//     numberedList({"list1", "list2|"})
//
// is a list of two items labelled "1)" and "2)" whose bodies are one block each, with
// the caret at the end of the second, inside the block that createList puts around a list.

#include <string>
#include <vector>

namespace foedit::test {

inline std::string listItem(std::string const &label, std::string const &body,
                            std::string const &labelAttributes = "",
                            std::string const &bodyBlockAttributes = "")
{
    return "<fo:list-item><fo:list-item-label end-indent=\"label-end()\"><fo:block" + labelAttributes + ">" +
           label +
           "</fo:block></fo:list-item-label><fo:list-item-body start-indent=\"body-start()\"><fo:block" +
           bodyBlockAttributes + ">" + body + "</fo:block></fo:list-item-body></fo:list-item>";
}

// The list in its block; `behindList` stands in that block after the list.
inline std::string listOf(std::vector<std::string> const &items, std::string const &behindList = "")
{
    std::string list = "<fo:block><fo:list-block>";
    for (auto const &item : items)
        list += item;
    return list + "</fo:list-block>" + behindList + "</fo:block>";
}

inline std::vector<std::string> numberedItems(std::vector<std::string> const &bodies)
{
    std::vector<std::string> items;
    for (std::size_t i = 0; i < bodies.size(); ++i)
        items.push_back(listItem(std::to_string(i + 1) + ")", bodies[i]));
    return items;
}

inline std::string numberedList(std::vector<std::string> const &bodies, std::string const &behindList = "")
{
    return listOf(numberedItems(bodies), behindList);
}

inline const std::string bulletAttributes = " font-size=\"1.5em\" line-height=\"1em\"";

inline std::string bulletedList(std::vector<std::string> const &bodies)
{
    std::vector<std::string> items;
    for (auto const &body : bodies)
        items.push_back(listItem("&#x2022;", body, bulletAttributes));
    return listOf(items);
}

} // namespace foedit::test
