// Enter in a list: the item splits at the caret and the items behind it renumber, or
// an empty item leaves the list. The host's Enter (insertBreak with ListBreak) reaches
// the same code on a plain document buffer as ListBuffer::breakList does.
#include "common/EditCheck.h"
#include "common/MarkedDocument.h"
#include "structures/ListMarkup.h"

#include "structures/ListBuffer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using foedit::test::EditCheck;
using foedit::test::listItem;
using foedit::test::listOf;
using foedit::test::numberedList;

namespace {

void pressEnter(EditableDocumentBuffer &buffer)
{
    buffer.insertBreak(ListBreak, false);
}

void expectEnter(std::string const &before, std::string const &after)
{
    SCOPED_TRACE("before: " + before);
    EditCheck(before.c_str()).expect(pressEnter, after.c_str());
}

std::vector<std::string> bodies(int count)
{
    std::vector<std::string> texts;
    for (int i = 1; i <= count; ++i)
        texts.push_back("item " + std::to_string(i));
    return texts;
}

} // namespace

TEST(ListEnterTest, AtTheEndOfTheLastItemAddsANumberedEmptyItem)
{
    expectEnter(numberedList({"list1", "list2|"}), numberedList({"list1", "list2", "|&#x00A0;"}));
    // ListBuffer's own command is the same step.
    EditCheck(numberedList({"list1", "list2|"}).c_str())
        .expectOn<ListBuffer>([](ListBuffer &b) { b.breakList(); },
                              numberedList({"list1", "list2", "|&#x00A0;"}).c_str());
}

TEST(ListEnterTest, InAnEmptyItemLeavesTheList)
{
    // The new paragraph stands behind the list, inside the block around it.
    expectEnter(numberedList({"list1", "list2", "|&#x00A0;"}),
                numberedList({"list1", "list2"}, "<fo:block>|&#x00A0;</fo:block>"));
    // From the middle of the list too; the items behind renumber.
    expectEnter(numberedList({"a", "|&#x00A0;", "c", "d"}),
                numberedList({"a", "c", "d"}, "<fo:block>|&#x00A0;</fo:block>"));
    // The empty only item takes the list with it.
    expectEnter(numberedList({"|&#x00A0;"}), "<fo:block><fo:block>|&#x00A0;</fo:block></fo:block>");
}

TEST(ListEnterTest, SplitsTheItemClosingAndReopeningItsInlines)
{
    std::string const red = "<fo:inline color=\"rgb(255,0,0)\">";
    expectEnter(numberedList({"list " + red + "x|x</fo:inline> list"}),
                numberedList({"list " + red + "x</fo:inline>", red + "|x</fo:inline> list"}));
}

TEST(ListEnterTest, AtTheStartOfAnItemLeavesAPlaceholderBehind)
{
    expectEnter(numberedList({"|ab", "cd"}), numberedList({"&#x00A0;", "|ab", "cd"}));
}

TEST(ListEnterTest, RenumbersEveryItemBehindTheSplit)
{
    expectEnter(numberedList({"a", "b|", "c", "d", "e"}),
                numberedList({"a", "b", "|&#x00A0;", "c", "d", "e"}));
    expectEnter(numberedList({"a", "b|c", "d"}), numberedList({"a", "b", "|c", "d"}));
}

TEST(ListEnterTest, NumbersGoOnPastNine)
{
    std::vector<std::string> before = bodies(10);
    before.back() += "|";
    std::vector<std::string> after = bodies(10);
    after.push_back("|&#x00A0;");
    expectEnter(numberedList(before), numberedList(after));
    // "9)" to "10)" in the middle of the list as well.
    before = bodies(10);
    before[7] += "|"; // item 8
    after = bodies(10);
    after.insert(after.begin() + 8, "|&#x00A0;");
    expectEnter(numberedList(before), numberedList(after));
}

TEST(ListEnterTest, TheNewBodyBlockKeepsOnlyFormattingProperties)
{
    std::string const attributes = " id=\"p1\" background-color=\"rgb(0,255,255)\"";
    expectEnter(listOf({listItem("1)", "ab|cd", "", attributes)}),
                listOf({listItem("1)", "ab", "", attributes),
                        listItem("2)", "|cd", "", " fo:background-color=\"rgb(0,255,255)\"")}));
}

TEST(ListEnterTest, LabelsThatAreNoNumbersStayAsTheyAre)
{
    expectEnter(listOf({listItem("a.", "x|"), listItem("b.", "y")}),
                listOf({listItem("a.", "x"), listItem("a.", "|&#x00A0;"), listItem("b.", "y")}));
    std::string const bullet = "&#x2022;";
    expectEnter(listOf({listItem(bullet, "x|", foedit::test::bulletAttributes),
                        listItem(bullet, "y", foedit::test::bulletAttributes)}),
                listOf({listItem(bullet, "x", foedit::test::bulletAttributes),
                        listItem(bullet, "|&#x00A0;", foedit::test::bulletAttributes),
                        listItem(bullet, "y", foedit::test::bulletAttributes)}));
}

TEST(ListEnterTest, OutsideAListChangesNothing)
{
    expectEnter("<fo:block>ab|cd</fo:block>", "<fo:block>ab|cd</fo:block>");
}

TEST(ListLabelTest, TheCaretNeverStopsInALabelAndTypingThereIsRefused)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    std::string const body = numberedList({"a", "b"});
    foedit::test::loadMarked(*buffer, ("<fo:block>|x</fo:block>" + body).c_str());
    Core::String const content = buffer->getContent();
    for (int guard = 0; guard < 200; ++guard) {
        int before = buffer->getCaretPos();
        buffer->moveCaretRight(false, false, false);
        if (buffer->getCaretPos() == before)
            break;
        int label = content.rFind("<fo:list-item-label", buffer->getCaretPos());
        int labelEnd = content.rFind("</fo:list-item-label>", buffer->getCaretPos());
        EXPECT_TRUE(label == -1 || labelEnd > label) << "caret in a label at " << buffer->getCaretPos();
    }
    int insideLabel = content.find("1)");
    foedit::test::placeCaretExactly(*buffer, insideLabel, insideLabel);
    EXPECT_FALSE(buffer->insertText("x", false, false));
    buffer->erase(false, false);
    pressEnter(*buffer);
    EXPECT_EQ(buffer->getContent(), content);
}
