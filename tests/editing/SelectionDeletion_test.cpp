// Deleting a selection that crosses element boundaries.

#include "common/EditCheck.h"
#include "common/MarkedDocument.h"
#include "common/TestPaths.h"
#include "common/TextPlaces.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "template/XmlValidator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using foedit::test::EditCheck;
using foedit::test::placesInText;

namespace {

// Reaches the protected deletion the way the editing commands call it: inside one
// action group, so that it is one undo step.
struct SelectionProbe : EditableDocumentBuffer {
    void deleteSelected()
    {
        EditActionGroup group(this);
        deleteSelection(false);
    }
};

void expectDeletion(Core::String const &before, Core::String const &after)
{
    EditCheck(before).expectOn<SelectionProbe>([](SelectionProbe &b) { b.deleteSelected(); }, after);
}

const char *const cellTable = "<fo:table><fo:table-body><fo:table-row>"
                              "<fo:table-cell><fo:block>one</fo:block></fo:table-cell>"
                              "<fo:table-cell><fo:block>two</fo:block></fo:table-cell>"
                              "</fo:table-row></fo:table-body></fo:table>";

} // namespace

TEST(SelectionDeletion, InsideOneBlock)
{
    expectDeletion("<fo:block>a^bc|d</fo:block>", "<fo:block>a|d</fo:block>");
    expectDeletion("<fo:block>a|bc^d</fo:block>", "<fo:block>a|d</fo:block>");
}

TEST(SelectionDeletion, BlocksJoinedByTheSelectionMerge)
{
    // The first block's start tag and the second's closing tag survive.
    expectDeletion("<fo:block color=\"red\">ab^c</fo:block><fo:block color=\"blue\">de|f</fo:block>",
                   "<fo:block color=\"red\">ab|f</fo:block>");
    // A block in between goes whole.
    expectDeletion("<fo:block>a^b</fo:block><fo:block>mid</fo:block><fo:block>c|d</fo:block>",
                   "<fo:block>a|d</fo:block>");
}

TEST(SelectionDeletion, EmptiedElementsGetAPlaceholderOrGo)
{
    // A block directly in the flow keeps its shell.
    expectDeletion("<fo:block>^abc|</fo:block>", "<fo:block>|&#x00A0;</fo:block>");
    // A nested block whose content is selected goes with its tags.
    expectDeletion("<fo:block>x<fo:block>^abc</fo:block>|y</fo:block>", "<fo:block>x|y</fo:block>");
    // An inline whose content is selected goes too.
    expectDeletion("<fo:block>x<fo:inline color=\"red\">^abc|</fo:inline>y</fo:block>",
                   "<fo:block>x|y</fo:block>");
    // Except directly inside a conditional inline, which must always hold one.
    expectDeletion(
        "<fo:block>x<otd:conditional-inline><fo:inline>^abc|</fo:inline></otd:conditional-inline></fo:block>",
        "<fo:block>x<otd:conditional-inline><fo:inline>|&#x00A0;</fo:inline></otd:conditional-inline></"
        "fo:block>");
}

// White space or a line break in front of what the selection empties: the emptied
// block gets its placeholder in front of where the selection began, and the caret
// stands before it, not inside it, nor inside the tag that stood there or that a merge
// brings there.
TEST(SelectionDeletion, AStartBehindWhiteSpaceOrALineBreakStaysInFrontOfTheNewPlaceholder)
{
    expectDeletion("<fo:block>\n    <fo:inline color=\"green\">^Block 0:</fo:inline>\n  "
                   "</fo:block><fo:block>b|</fo:block>",
                   "<fo:block>|&#x00A0;\n    </fo:block>");
    expectDeletion("<fo:block> <fo:inline>^ab</fo:inline> </fo:block><fo:block>c|d</fo:block>",
                   "<fo:block>|d</fo:block>");
    expectDeletion(
        "<fo:block> <fo:inline>^ab</fo:inline> </fo:block><fo:block><fo:block>c|d</fo:block></fo:block>",
        "<fo:block>|<fo:block>d</fo:block></fo:block>");
    expectDeletion("<fo:block>\n<fo:block />^Keep</fo:block><fo:block>and|</fo:block>",
                   "<fo:block>|&#x00A0;\n<fo:block /></fo:block>");
}

// From behind the placeholder of an empty block (its one caret stop) into the next
// block: the merge takes the placeholder, and the caret stays in front of the text
// that moved up, not in the closing tag behind it.
TEST(SelectionDeletion, AStartBehindAPlaceholderFollowsTheMerge)
{
    expectDeletion("<fo:block>&#x00A0;^</fo:block><fo:block>a|b</fo:block>", "<fo:block>|b</fo:block>");
    expectDeletion("<fo:block>&#x00A0;|</fo:block><fo:block>a^b</fo:block>", "<fo:block>|b</fo:block>");
    expectDeletion("<fo:block>x</fo:block><fo:block>&#x00A0;^</fo:block><fo:block>abc|d</fo:block>",
                   "<fo:block>x</fo:block><fo:block>|d</fo:block>");
}

// An inline whose only content is an inline: both go, and the deletion stops where the
// selection ends rather than by the length of the outer closing tag further on.
TEST(SelectionDeletion, NestedInlinesEmptiedByTheSelectionGoWithoutTakingMore)
{
    expectDeletion("<fo:block>a<fo:inline><fo:inline>^it</fo:inline></fo:inline>|Helvetica</fo:block>"
                   "<fo:block>x</fo:block>",
                   "<fo:block>a|Helvetica</fo:block><fo:block>x</fo:block>");
    expectDeletion("<fo:block>a<fo:inline><fo:inline>^it</fo:inline>|</fo:inline>b</fo:block>",
                   "<fo:block>a|b</fo:block>");
    expectDeletion(
        "<fo:block><fo:inline><fo:inline>^it</fo:inline></fo:inline>|</fo:block><fo:block>x</fo:block>",
        "<fo:block>|&#x00A0;</fo:block><fo:block>x</fo:block>");
    // Ctrl+Backspace selects back to the word's start inside the inlines first.
    EditCheck(
        "<fo:block>\n<fo:inline color=\"red\"><fo:inline>it</fo:inline></fo:inline>|Helvetica\n</fo:block>")
        .expect([](EditableDocumentBuffer &b) { b.erase(false, true); },
                "<fo:block>\n|Helvetica\n</fo:block>");
}

// A selection that ends in front of the raw placeholder of the next block: the merge
// takes that placeholder, the block left empty gets the entity one, and the selection
// collapses in front of it, rather than the caret staying one unit in front of the cut,
// in the start tag.
TEST(SelectionDeletion, AMergeThatEmptiesTheBlockCollapsesTheSelectionInFrontOfThePlaceholder)
{
    expectDeletion(Core::String::fromUtf8("<fo:block>^&#x00A0;</fo:block><fo:block>|\u00A0</fo:block>"),
                   "<fo:block>|&#x00A0;</fo:block>");
    expectDeletion(Core::String::fromUtf8("<fo:block>^ab</fo:block><fo:block>|\u00A0</fo:block>"),
                   "<fo:block>|&#x00A0;</fo:block>");
}

TEST(SelectionDeletion, TablesGoWholeOrKeepWhatReachesBeyond)
{
    Core::String const table = cellTable;
    expectDeletion("<fo:block>a^b</fo:block>" + table + "<fo:block>c|d</fo:block>",
                   "<fo:block>a|</fo:block><fo:block>d</fo:block>");
    // From text into the second cell: the first cell empties and gets its placeholder,
    // the second keeps what lies behind the selection.
    Core::String const partly = "<fo:table><fo:table-body><fo:table-row>"
                                "<fo:table-cell><fo:block>one</fo:block></fo:table-cell>"
                                "<fo:table-cell><fo:block>t|wo</fo:block></fo:table-cell>"
                                "</fo:table-row></fo:table-body></fo:table>";
    Core::String const emptied = "<fo:table><fo:table-body><fo:table-row>"
                                 "<fo:table-cell><fo:block>&#x00A0;</fo:block></fo:table-cell>"
                                 "<fo:table-cell><fo:block>wo</fo:block></fo:table-cell>"
                                 "</fo:table-row></fo:table-body></fo:table>";
    expectDeletion("<fo:block>a^b</fo:block>" + partly, "<fo:block>a|</fo:block>" + emptied);
}

TEST(SelectionDeletion, IndentationBeforeARemovedElementGoesWithIt)
{
    expectDeletion("<fo:block>x\n\t\t<fo:block>^abc</fo:block>|y</fo:block>", "<fo:block>x|y</fo:block>");
}

TEST(SelectionDeletion, ContentAtPositionKeepsTheUsersSelection)
{
    // The range lies before the selection, which moves down by what was cut.
    int const first = foedit::test::flowBodyStart() + 10;
    EditCheck("<fo:block>abcdef</fo:block><fo:block>gh^ij|</fo:block>")
        .expect(
            [first](EditableDocumentBuffer &b) {
                EditActionGroup group(&b);
                b.deleteContentAtPosition(true, first, first + 3);
            },
            "<fo:block>def</fo:block><fo:block>gh^ij|</fo:block>");
}

// On real documents: selections between places all through the flow, deleted and
// undone, give back exactly the string, the caret and the selection.
TEST(SelectionDeletion, SelectionsOnTheCorpusUndoExactly)
{
    for (std::string const &path : foedit::test::corpusFiles()) {
        SCOPED_TRACE(path);
        SmartPtr<SelectionProbe> buffer(new SelectionProbe());
        foedit::test::configureStandardHost(*buffer);
        buffer->setContentFromFile(Core::String(path));
        bool const wellFormed = XmlValidator(buffer->getContent()).validate();
        std::vector<int> const places = placesInText(buffer->getContent(), 8);
        // Short and long selections: to the next place, and across several.
        for (std::size_t i = 0; i + 1 < places.size(); ++i) {
            std::size_t const last = std::min(places.size() - 1, i + 1 + i % 2);
            Core::String const before = buffer->getContent();
            buffer->setCaretPos(false, places[i]);
            buffer->setCaretPos(true, places[last]);
            int const caret = buffer->getCaretPos();
            int const pivot = buffer->getSelectionPivotPos();
            buffer->deleteSelected();
            // A document that loaded ill formed can't be made well formed by an edit.
            EXPECT_TRUE(!wellFormed || XmlValidator(buffer->getContent()).validate());
            buffer->undo();
            ASSERT_EQ(buffer->getContent(), before);
            ASSERT_EQ(buffer->getCaretPos(), caret);
            ASSERT_EQ(buffer->getSelectionPivotPos(), pivot);
        }
    }
}
