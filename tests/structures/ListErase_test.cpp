// Delete and Backspace in a list, reached through the document's own erase: ordinary
// deletions inside an item's text, joins at the edges of items, and the moves in and
// out of a list from the blocks beside it. Every press is undone and redone.
#include "common/EditCheck.h"
#include "common/KeyPresses.h"
#include "common/MarkedDocument.h"
#include "structures/ListMarkup.h"

#include "editing/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

#include <string>

using foedit::test::EditCheck;
using foedit::test::listItem;
using foedit::test::listOf;
using foedit::test::numberedItems;
using foedit::test::numberedList;
using foedit::test::pressBackspace;
using foedit::test::pressDelete;

namespace {

void expectPress(std::string const &before, EditCheck::Edit const &press, std::string const &after)
{
    SCOPED_TRACE("before: " + before);
    EditCheck(before.c_str()).expect(press, after.c_str());
}

// A list directly in the flow, as documents written by hand have them.
std::string bareList(std::vector<std::string> const &bodies)
{
    std::string list = "<fo:list-block>";
    for (auto const &item : numberedItems(bodies))
        list += item;
    return list + "</fo:list-block>";
}

} // namespace

TEST(ListBackspaceTest, InsideTheTextIsAnOrdinaryDeletion)
{
    expectPress(numberedList({"a", "bc|d"}), pressBackspace, numberedList({"a", "b|d"}));
    expectPress(numberedList({"a", "b <fo:inline color=\"red\">|cd</fo:inline>"}), pressBackspace,
                numberedList({"a", "b|<fo:inline color=\"red\">cd</fo:inline>"}));
}

TEST(ListBackspaceTest, AtTheStartOfAnItemJoinsThePreviousItem)
{
    expectPress(numberedList({"a", "|b", "c", "d"}), pressBackspace, numberedList({"a|b", "c", "d"}));
    // The item's further blocks follow its text into the previous item.
    expectPress(
        listOf({listItem("1)", "a"), listItem("2)", "|b</fo:block><fo:block>b2"), listItem("3)", "c")}),
        pressBackspace, listOf({listItem("1)", "a|b</fo:block><fo:block>b2"), listItem("2)", "c")}));
}

TEST(ListBackspaceTest, AtTheStartOfTheFirstItemMovesItOutInFrontOfTheList)
{
    expectPress(numberedList({"|a", "b", "c"}), pressBackspace,
                "<fo:block><fo:block>|a</fo:block><fo:list-block>" + listItem("1)", "b") +
                    listItem("2)", "c") + "</fo:list-block></fo:block>");
}

TEST(ListEraseTest, EitherKeyInTheEmptyOnlyItemRemovesTheList)
{
    std::string const removed = "<fo:block><fo:block>|&#x00A0;</fo:block></fo:block>";
    expectPress(numberedList({"|&#x00A0;"}), pressBackspace, removed);
    expectPress(numberedList({"|&#x00A0;"}), pressDelete, removed);
    // Backspace at the start of the only item with text removes the list as well.
    expectPress(numberedList({"|ab"}), pressBackspace, "<fo:block><fo:block>|ab</fo:block></fo:block>");
}

TEST(ListDeleteTest, AtTheEndOfAnItemJoinsTheNextItem)
{
    expectPress(numberedList({"a|", "b", "c"}), pressDelete, numberedList({"a|b", "c"}));
    expectPress(numberedList({"a", "bc|d"}), pressDelete, numberedList({"a", "bc|"}));
}

TEST(ListDeleteTest, AtTheEndOfTheLastItemTakesInTheBlockBehindTheList)
{
    expectPress(numberedList({"a", "b|"}, "<fo:block>c</fo:block>"), pressDelete, numberedList({"a", "b|c"}));
    // A block that opens with an inline gives the inline whole, start tag and all.
    expectPress(numberedList({"a", "b|"}, "<fo:block><fo:inline color=\"red\">c</fo:inline> d</fo:block>"),
                pressDelete, numberedList({"a", "b|<fo:inline color=\"red\">c</fo:inline> d"}));
    // Nothing but the end of the block around the list: nothing happens.
    expectPress(numberedList({"a", "b|"}), pressDelete, numberedList({"a", "b|"}));
}

TEST(ListEraseTest, KeysBesideAListReachIntoIt)
{
    // Delete at the end of the block in front of a list: the first item's text joins it.
    expectPress("<fo:block>ab|</fo:block>" + bareList({"cd", "ef"}), pressDelete,
                "<fo:block>ab|cd</fo:block>" + bareList({"ef"}));
    // Backspace at the start of the block behind a list: its text joins the last item.
    expectPress(bareList({"ab", "cd"}) + "<fo:block>|ef</fo:block>", pressBackspace,
                bareList({"ab", "cd|ef"}));
}

TEST(ListEraseTest, KeysBesideAListWithoutItemsEndWithoutDeleting)
{
    std::string const empty = "<fo:list-block></fo:list-block>";
    expectPress("<fo:block>ab|</fo:block>" + empty + "<fo:block>cd</fo:block>", pressDelete,
                "<fo:block>ab|</fo:block>" + empty + "<fo:block>cd</fo:block>");
    // Backspace only moves the caret across the list.
    expectPress("<fo:block>ab</fo:block>" + empty + "<fo:block>|cd</fo:block>", pressBackspace,
                "<fo:block>ab|</fo:block>" + empty + "<fo:block>cd</fo:block>");
}
