// Engine faults that the seeded sessions found, each cut down by hand to the smallest
// document and the one key press that shows it. A test that is disabled states a fault
// still open: it passes once the engine is fixed, and is then enabled. The comment of
// each test shows what the fault did.
//
// What each test checks is what a session checks: caret and pivot stand in the document
// and split no tag or entity, the markup still parses, and undo brings back the exact
// document, caret and selection.
#include "robustness/MarkupInterior.h"
#include "robustness/WellFormedness.h"

#include "common/MarkedDocument.h"

#include "structures/ListBuffer.h"

#include <gtest/gtest.h>

#include <functional>

using namespace foedit::test;

namespace {

// Loads `markedBody`, runs `edit`, checks the invariants, then undoes and checks that
// the marked body comes back exactly.
void expectEditKeepsInvariants(const char *markedBody, const std::function<void(ListBuffer &)> &edit)
{
    SmartPtr<ListBuffer> buffer(new ListBuffer());
    configureStandardHost(*buffer);
    loadMarked(*buffer, markedBody);
    const Core::String before = markedContent(*buffer);
    edit(*buffer);
    const Core::String content = buffer->getContent();
    const int caret = buffer->getCaretPos();
    SCOPED_TRACE("after the edit: " + markedFlow(*buffer).toUtf8() + " (caret " + std::to_string(caret) +
                 ", length " + std::to_string(content.length()) + ")");
    ASSERT_TRUE(caret >= 0 && caret < content.length());
    EXPECT_EQ(markupInteriorAt(content, caret), MarkupInterior::Outside);
    EXPECT_TRUE(isWellFormedXml(content));
    buffer->undo();
    EXPECT_EQ(markedContent(*buffer), before);
}

const char *const listItem =
    "<fo:list-item><fo:list-item-label end-indent=\"label-end()\"><fo:block>1)</fo:block>"
    "</fo:list-item-label><fo:list-item-body start-indent=\"body-start()\">";

// A selection from the text of the only item to behind the list, inside the block that
// wraps it, as the engine makes lists. Delete left
//     <fo:block>ab</fo:block><fo:block></fo:block>
// with the caret past the end of the document, and the block without its placeholder.
TEST(EngineFaultTest, DeletingAListFromItsTextToBehindItKeepsTheCaretInTheDocument)
{
    const std::string body =
        std::string("<fo:block>ab</fo:block><fo:block><fo:list-block>") + listItem +
        "<fo:block>^cd</fo:block></fo:list-item-body></fo:list-item></fo:list-block>|</fo:block>";
    expectEditKeepsInvariants(body.c_str(), [](ListBuffer &buffer) { buffer.erase(true, false); });
}

// A list as other tools write it (no label, no wrapping block), selected from the first
// block to the last along with the empty inline behind it. Delete left
//     <fo:block>&#x00A0;</fo:block><fo:block>&#x00A0;<fo:inline></fo|:inline></fo:block>
// with the caret inside the closing tag, where the next key typed into the tag.
TEST(EngineFaultTest, DeletingASelectionAcrossAListLeavesNoCaretInATag)
{
    expectEditKeepsInvariants("<fo:block>^a</fo:block><fo:list-block><fo:list-item><fo:list-item-body>"
                              "<fo:block>b</fo:block></fo:list-item-body></fo:list-item></fo:list-block>"
                              "<fo:block><fo:inline></fo:inline> of</fo:block><fo:block>c|</fo:block>",
                              [](ListBuffer &buffer) { buffer.erase(true, false); });
}

// The same list, with a comment between it and the last block: Delete left
//     <fo:block>&#x00A0;</fo:block><fo:block>&#x00A0;</fo:block|>
// and a key typed then went into the closing tag, "</fo:blockZ>".
TEST(EngineFaultTest, DeletingASelectionAcrossAListAndACommentLeavesNoCaretInATag)
{
    expectEditKeepsInvariants(
        "<fo:block>^a</fo:block><fo:list-block><fo:list-item><fo:list-item-label><fo:block>1)"
        "</fo:block></fo:list-item-label><fo:list-item-body><fo:block>b</fo:block>"
        "</fo:list-item-body></fo:list-item></fo:list-block><!-- c --><fo:block>e|</fo:block>",
        [](ListBuffer &buffer) { buffer.erase(true, false); });
}

const char *const listHead =
    "<fo:block><fo:list-block><fo:list-item><fo:list-item-label end-indent=\"label-end()\">"
    "<fo:block>1)</fo:block></fo:list-item-label><fo:list-item-body "
    "start-indent=\"body-start()\">";
const char *const listTail = "</fo:list-item-body></fo:list-item></fo:list-block></fo:block>";

// In an item, a selection of exactly an inline's content. Outside a list Backspace gives
// <fo:block>|Table</fo:block>; in the list it leaves
//     <fo:block>Table</fo:b|lock>
// and the next key types into the closing tag, which no check refuses.
TEST(EngineFaultTest, BackspaceOnAnInlinesWholeContentInAListItemLeavesNoCaretInATag)
{
    const std::string body =
        std::string(listHead) + "<fo:block><fo:inline>^x|</fo:inline>Table</fo:block>" + listTail;
    expectEditKeepsInvariants(body.c_str(), [](ListBuffer &buffer) { buffer.erase(false, false); });
}

// From the text of an item to the end of a block behind the list, where the document's
// indentation stands before the closing tags. Delete leaves
//     <fo:block>&|#x00A0;~</fo:block>
// with the caret one unit inside the placeholder.
TEST(EngineFaultTest, DeletingFromAListItemToIndentedBlocksLeavesNoCaretInAPlaceholder)
{
    const std::string body = std::string(listHead) + "<fo:block>;^Title</fo:block>" + listTail +
                             "<fo:block>\nIn this.\n</fo:block><fo:block>\nAccording.\n|</fo:block>";
    expectEditKeepsInvariants(body.c_str(), [](ListBuffer &buffer) { buffer.erase(true, false); });
}

} // namespace
