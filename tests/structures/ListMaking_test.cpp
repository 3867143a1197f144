// Making a list of a block, changing its labels, removing it, and reading its type,
// size and numbers. Every edit is undone and redone (EditCheck).
#include "common/EditCheck.h"
#include "common/MarkedDocument.h"
#include "structures/ListMarkup.h"

#include "structures/ListBuffer.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using foedit::test::bulletedList;
using foedit::test::EditCheck;
using foedit::test::listItem;
using foedit::test::listOf;
using foedit::test::numberedList;

namespace {

void expectListEdit(std::string const &before, std::function<void(ListBuffer &)> const &edit,
                    std::string const &after)
{
    SCOPED_TRACE("before: " + before);
    EditCheck(before.c_str()).expectOn<ListBuffer>(edit, after.c_str());
}

SmartPtr<ListBuffer> loadList(std::string const &markedBody)
{
    return foedit::test::makeMarkedBuffer<ListBuffer>(markedBody);
}

} // namespace

TEST(MakeListTest, WrapsTheCurrentBlockInAListOfOneItem)
{
    expectListEdit(
        "<fo:block>te|st</fo:block>", [](ListBuffer &b) { b.makeList(NumberedList); },
        "<fo:block><fo:list-block><fo:list-item><fo:list-item-label end-indent=\"label-end()\">"
        "<fo:block>1)</fo:block></fo:list-item-label><fo:list-item-body start-indent=\"body-start()\">"
        "<fo:block>te|st</fo:block></fo:list-item-body></fo:list-item></fo:list-block></fo:block>");
    // The block keeps its attributes; a bullet label gets its own size.
    expectListEdit(
        "<fo:block color=\"red\">a|</fo:block><fo:block>b</fo:block>",
        [](ListBuffer &b) { b.createList(BulletedList); },
        listOf({listItem("&#x2022;", "a|", foedit::test::bulletAttributes, " color=\"red\"")}) +
            "<fo:block>b</fo:block>");
}

TEST(MakeListTest, WithAnotherTypeRewritesEveryLabel)
{
    expectListEdit(
        numberedList({"one", "tw|o", "three"}), [](ListBuffer &b) { b.makeList(BulletedList); },
        bulletedList({"one", "tw|o", "three"}));
    expectListEdit(
        bulletedList({"one", "tw|o", "three"}), [](ListBuffer &b) { b.makeList(NumberedList); },
        numberedList({"one", "tw|o", "three"}));
    // Labels that are neither numbers nor bullets are emptied by OtherList.
    expectListEdit(
        numberedList({"a|", "b"}), [](ListBuffer &b) { b.changeLabelType(OtherList); },
        listOf({listItem("", "a|"), listItem("", "b")}));
}

TEST(MakeListTest, WithTheListsOwnTypeRemovesTheList)
{
    // The bodies' blocks stay in the block that held the list; the caret goes to the
    // start of the first one.
    expectListEdit(
        numberedList({"one", "tw|o"}), [](ListBuffer &b) { b.makeList(NumberedList); },
        "<fo:block><fo:block>|one</fo:block><fo:block>two</fo:block></fo:block>");
    expectListEdit(
        bulletedList({"o|ne"}), [](ListBuffer &b) { b.removeList(); },
        "<fo:block><fo:block>|one</fo:block></fo:block>");
}

TEST(ListQueriesTest, TypeSizeAndNumberComeFromTheLabels)
{
    SmartPtr<ListBuffer> numbered = loadList(numberedList({"a", "b", "c|"}));
    EXPECT_EQ(numbered->getListType(), NumberedList);
    EXPECT_EQ(numbered->getCurrentListSize(), 3);
    EXPECT_EQ(numbered->getCurrentItemNumber(), 3);

    EXPECT_EQ(loadList(bulletedList({"a|"}))->getListType(), BulletedList);
    // Only the first label decides; a label that is no number nor bullet, or no label
    // block at all, makes an OtherList.
    EXPECT_EQ(loadList(listOf({listItem("a.", "x|"), listItem("2)", "y")}))->getListType(), OtherList);
    EXPECT_EQ(loadList(listOf({listItem("12)", "x|")}))->getListType(), NumberedList);
    EXPECT_EQ(
        loadList("<fo:block><fo:list-block><fo:list-item><fo:list-item-label end-indent=\"label-end()\">"
                 "</fo:list-item-label><fo:list-item-body><fo:block>x|</fo:block></fo:list-item-body>"
                 "</fo:list-item></fo:list-block></fo:block>")
            ->getListType(),
        OtherList);
    // Outside a list.
    SmartPtr<ListBuffer> plain = loadList("<fo:block>a|</fo:block>");
    EXPECT_EQ(plain->getListType(), OtherList);
    EXPECT_EQ(plain->getCurrentListSize(), 0);
}

TEST(ListQueriesTest, NextLabelReadsTheWholeNumberBeforeTheParenthesis)
{
    ListBuffer buffer;
    Core::String next;
    int number = -1;
    buffer.getNextLabel("9)", next, number);
    EXPECT_EQ(next, "10)");
    EXPECT_EQ(number, 10);
    buffer.getNextLabel("<fo:block text-align=\"end\">119)</fo:block>", next, number);
    EXPECT_EQ(next, "120)");

    number = -1;
    buffer.getNextLabel("&#x2022;", next, number);
    EXPECT_EQ(next, "&#x2022;");
    buffer.getNextLabel(u"\u2022", next, number);
    EXPECT_EQ(next, "&#x2022;");
    buffer.getNextLabel("a.", next, number);
    EXPECT_EQ(next, "a.");
    EXPECT_EQ(number, -1) << "only a numbered label sets the number";

    EXPECT_EQ(buffer.getFirstListLabel(NumberedList), "1)");
    EXPECT_EQ(buffer.getFirstListLabel(BulletedList), "&#x2022;");
    EXPECT_EQ(buffer.getFirstListLabel(static_cast<ListType>(7)), "");
}
