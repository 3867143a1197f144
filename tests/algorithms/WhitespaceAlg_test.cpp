// Which positions draw nothing. Each case marks with `|` the position asked about; the
// rules are loaded from the element around it, as the caret walks load them.

#include "editing/CaretProbe.h"

#include "algorithms/WhitespaceAlg.h"

#include <gtest/gtest.h>

namespace foedit::test {
namespace {

bool skipped(Core::String const &markedBody)
{
    SmartPtr<CaretProbe> probe = loadProbe(markedBody);
    BufferAlgorithms::WhitespaceAlg rules{SmartPtr<EditableDocumentBuffer>(probe)};
    rules.loadFromElement(probe->getCurrentElementPosition(probe->getCaretPos()));
    return rules.isPositionSkipped(probe->getCaretPos());
}

TEST(WhitespaceAlg, CollapsedRunsKeepTheirFirstBlank)
{
    EXPECT_TRUE(skipped("<fo:block>|\n  two  words</fo:block>")); // leading run
    EXPECT_TRUE(skipped("<fo:block>\n | two  words</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block>two|  words</fo:block>")); // first blank of a run
    EXPECT_TRUE(skipped("<fo:block>two | words</fo:block>"));  // the rest of it
    EXPECT_TRUE(skipped("<fo:block>two words|\n</fo:block>")); // trailing run
    EXPECT_FALSE(skipped("<fo:block>tw|o</fo:block>"));
}

TEST(WhitespaceAlg, PreservingPropertiesMakeEveryBlankAStop)
{
    EXPECT_FALSE(skipped("<fo:block white-space=\"pre\">|  two\n  words\n</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block white-space=\"pre\">two | words</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block white-space=\"PRE\">two|\nwords</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block white-space-collapse=\"false\">two | words</fo:block>"));
    // Inherited from an editable ancestor, the nearest definition winning.
    EXPECT_FALSE(skipped("<fo:block white-space=\"pre\"><fo:inline>a | b</fo:inline></fo:block>"));
    EXPECT_TRUE(skipped(
        "<fo:block white-space=\"pre\"><fo:block white-space=\"normal\">a | b</fo:block></fo:block>"));
}

TEST(WhitespaceAlg, IgnoredLinefeedsWhateverElse)
{
    EXPECT_TRUE(
        skipped("<fo:block white-space=\"pre\" linefeed-treatment=\"ignore\">two|\nwords</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block linefeed-treatment=\"preserve\">two|\nwords</fo:block>"));
    EXPECT_TRUE(skipped("<fo:block white-space-treatment=\"ignore\">two| words</fo:block>"));
}

TEST(WhitespaceAlg, FirstBlankOfAnInlineAfterTextIsARealSpace)
{
    EXPECT_FALSE(skipped("<fo:block>text<fo:inline>| more</fo:inline></fo:block>"));
    EXPECT_TRUE(skipped("<fo:block><fo:inline>| more</fo:inline></fo:block>"));
}

TEST(WhitespaceAlg, PlaceholderCharacterIsNeverSkipped)
{
    EXPECT_FALSE(skipped(u"<fo:block>|\u00A0</fo:block>"));
    EXPECT_FALSE(skipped(u"<fo:block>a |\u00A0 b</fo:block>"));
}

TEST(WhitespaceAlg, BlankAfterALineBreakIsSwallowed)
{
    EXPECT_TRUE(skipped("<fo:block>one<fo:block/>| two</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block white-space-collapse=\"false\">one<fo:block/>| two</fo:block>"));
}

TEST(WhitespaceAlg, TagsThatAddNoPlaceOfTheirOwn)
{
    // Behind a placeholder: skipped in a block, a stop in an inline.
    EXPECT_TRUE(skipped("<fo:block>&#x00A0;|</fo:block>"));
    EXPECT_FALSE(skipped("<fo:block>a<fo:inline>&#x00A0;|</fo:inline></fo:block>"));
    // Two adjacent inlines are one place for the eye; a link's edge stays a stop.
    EXPECT_TRUE(skipped("<fo:block><fo:inline>a</fo:inline>|<fo:inline>b</fo:inline></fo:block>"));
    EXPECT_FALSE(skipped("<fo:block><fo:inline>a</fo:inline>|<fo:basic-link>b</fo:basic-link></fo:block>"));
    EXPECT_FALSE(skipped("<fo:block>a|<fo:inline>b</fo:inline></fo:block>"));
    // Behind indentation with nothing drawn before it.
    EXPECT_TRUE(skipped("<fo:block>\n  |<fo:inline>b</fo:inline></fo:block>"));
    EXPECT_FALSE(skipped("<fo:block>a\n  |<fo:inline>b</fo:inline></fo:block>"));
    EXPECT_FALSE(skipped("<fo:block>a\n  |</fo:block>"));
}

TEST(WhitespaceAlg, LoadingKeepsWhatThePropertiesDoNotMention)
{
    SmartPtr<CaretProbe> probe = loadProbe("<fo:block white-space=\"pre\">a</fo:block><fo:block "
                                           "linefeed-treatment=\"ignore\">|b</fo:block>");
    BufferAlgorithms::WhitespaceAlg rules{SmartPtr<EditableDocumentBuffer>(probe)};
    EXPECT_EQ(rules.getWhiteSpaceTreatment(), BufferAlgorithms::WhitespaceAlg::IgnoreIfSurroundingLinefeed);
    rules.loadFromElement(probe->content.find("<fo:block white-space"));
    rules.loadFromElement(probe->getCurrentElementPosition(probe->getCaretPos()));
    EXPECT_EQ(rules.getLinefeedTreatment(), BufferAlgorithms::WhitespaceAlg::LinefeedIgnore);
    EXPECT_EQ(rules.getWhiteSpaceTreatment(), BufferAlgorithms::WhitespaceAlg::Preserve);
    EXPECT_FALSE(rules.getWhiteSpaceCollapse());
    // Only editable elements pass their properties on, and a text position has none.
    EXPECT_TRUE(rules.getWhitespaceProperties(probe->getCaretPos()).isEmpty());
    EXPECT_EQ(rules.getWhitespaceProperties(probe->content.find("<fo:flow")).size(), 0);
}

TEST(WhitespaceAlg, ANullBufferThrows)
{
    BufferAlgorithms::WhitespaceAlg rules{SmartPtr<EditableDocumentBuffer>()};
    EXPECT_THROW(rules.isPositionSkipped(0), Core::NullPointerException);
}

} // namespace
} // namespace foedit::test
