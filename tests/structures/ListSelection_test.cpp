// Deleting a selection that meets a list: whole items go, the touched part of others,
// and the list renumbers. Reached through erase and typing on a plain document buffer
// and through ListBuffer::eraseListSelection.
#include "common/EditCheck.h"
#include "common/MarkedDocument.h"
#include "structures/ListMarkup.h"

#include "structures/ListBuffer.h"

#include <gtest/gtest.h>

#include <string>

using foedit::test::EditCheck;
using foedit::test::numberedList;

namespace {

void expectErase(std::string const &before, EditCheck::Edit const &edit, std::string const &after)
{
    SCOPED_TRACE("before: " + before);
    EditCheck(before.c_str()).expect(edit, after.c_str());
}

SmartPtr<ListBuffer> loadList(std::string const &markedBody)
{
    return foedit::test::makeMarkedBuffer<ListBuffer>(markedBody);
}

} // namespace

TEST(ListSelectionTest, TheTailOfTheLastTouchedItemTakesTheFirstTouchedItemsPlace)
{
    std::string const before = numberedList({"list 1", "^list 2", "list |3"});
    std::string const after = numberedList({"list 1", "|3"});
    expectErase(
        before, [](EditableDocumentBuffer &b) { b.erase(true, false); }, after);
    expectErase(
        before, [](EditableDocumentBuffer &b) { b.erase(false, false); }, after);
    EditCheck(before.c_str())
        .expectOn<ListBuffer>([](ListBuffer &b) { b.eraseListSelection(); }, after.c_str());
}

TEST(ListSelectionTest, WholeItemsGoAndTheRestRenumbers)
{
    expectErase(
        numberedList({"a", "^b", "c", "|d", "e"}), [](EditableDocumentBuffer &b) { b.erase(true, false); },
        numberedList({"a", "|d", "e"}));
    // Typing over the selection replaces it.
    expectErase(
        numberedList({"a", "^b", "c", "|d"}),
        [](EditableDocumentBuffer &b) { b.insertText("x", false, false); }, numberedList({"a", "x|d"}));
}

TEST(ListSelectionTest, OutsideAListThereIsNothingToErase)
{
    SmartPtr<ListBuffer> buffer = loadList("<fo:block>a^b|c</fo:block>");
    int start = buffer->getCaretPos() - 1;
    int end = buffer->getCaretPos();
    EXPECT_EQ(buffer->eraseListSelection(start, end), -1);
}

TEST(ListItemDeletionTest, AnItemCanGoWhenItsListKeepsAnother)
{
    EXPECT_FALSE(loadList(numberedList({"on|ly"}))->canDeleteListItem(""));
    EXPECT_TRUE(loadList(numberedList({"a", "b|"}))->canDeleteListItem(""));
    EXPECT_TRUE(loadList(numberedList({"a|", "b"}))->canDeleteListItem(""));
    EXPECT_FALSE(loadList("<fo:block>a|</fo:block>")->canDeleteListItem(""));
    std::string const path = "/fo:root/fo:page-sequence/fo:flow/fo:block/fo:list-block/fo:list-item";
    EXPECT_TRUE(loadList(numberedList({"a", "b|"}))->canDeleteListItem(path.c_str()));
    EXPECT_FALSE(loadList(numberedList({"b|"}))->canDeleteListItem(path.c_str()));
}

TEST(ListSelectionTest, AWholeListSelectedLeavesTheCaretOnAStopOfTheDocument)
{
    // From the text of the only item to behind the list: the block around the list
    // stays, with its placeholder and the caret.
    expectErase(
        "<fo:block>ab</fo:block>" + foedit::test::listOf({foedit::test::listItem("1)", "^cd")}, "|"),
        [](EditableDocumentBuffer &b) { b.erase(true, false); },
        "<fo:block>ab</fo:block><fo:block>|&#x00A0;</fo:block>");
    // From the block in front of a list to a block behind it: the caret stays where the
    // selection began, not in a tag that the deletion moved.
    SmartPtr<ListBuffer> buffer = loadList(
        "<fo:block>^a</fo:block><fo:list-block><fo:list-item><fo:list-item-body><fo:block>b</fo:block>"
        "</fo:list-item-body></fo:list-item></fo:list-block>"
        "<fo:block><fo:inline></fo:inline> of</fo:block><fo:block>c|</fo:block>");
    buffer->erase(true, false);
    Core::String const content = buffer->getContent();
    int const caret = buffer->getCaretPos();
    ASSERT_TRUE(caret > 0 && caret < content.length());
    EXPECT_LT(content.rFind(u'<', caret - 1), content.rFind(u'>', caret - 1)) << "caret inside a tag";
}

TEST(ListSelectionTest, AStartInAnItemFollowsWhatTheDeletionRemovedInFrontOfIt)
{
    // The selection is an inline's whole content: the emptied inline goes, and the caret
    // stays in front of the text, not where the inline's tags used to end.
    std::string const inlineContent = numberedList({"<fo:inline>^x|</fo:inline>Table"});
    expectErase(
        inlineContent, [](EditableDocumentBuffer &b) { b.erase(false, false); }, numberedList({"|Table"}));
    expectErase(
        inlineContent, [](EditableDocumentBuffer &b) { b.erase(true, false); }, numberedList({"|Table"}));
    // From an item to the end of an indented block behind the list: the blocks behind
    // empty, and the caret stays where the selection began.
    expectErase(
        numberedList({";^Title"}) + "<fo:block>\nIn this.\n</fo:block><fo:block>\nAccording.\n|</fo:block>",
        [](EditableDocumentBuffer &b) { b.erase(true, false); },
        numberedList({";|"}) + "<fo:block>&#x00A0;\n</fo:block>");
}

TEST(ListSelectionTest, AWholeListSelectedWithTheBlockBehindItLeavesTheCaretInTheListsBlock)
{
    // The list goes whole, its block stays for the caret; the block behind is either
    // taken whole or merged, and the caret never points past what was cut.
    expectErase(
        numberedList({"^ab"}) + "<fo:block>ef|</fo:block>",
        [](EditableDocumentBuffer &b) { b.erase(true, false); }, "<fo:block>|</fo:block>");
    expectErase(
        numberedList({"^ab"}) + "<fo:block>e|f</fo:block>",
        [](EditableDocumentBuffer &b) { b.erase(true, false); }, "<fo:block>|f</fo:block>");
}
