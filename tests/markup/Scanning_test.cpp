// Single tags and single atoms: steps, tag kinds, names, matching tags, attributes.

#include "MarkupProbe.h"

#include <gtest/gtest.h>

using foedit::test::mark;
using foedit::test::MarkupProbe;

namespace {

// `|` is the argument of the step, `^` the expected result (none: -1).
int stepForward(std::string_view markup, int *expected)
{
    auto m = mark(markup);
    *expected = m.expected;
    return MarkupProbe(m).getNextEditablePositionInXml(m.at);
}

int stepBack(std::string_view markup, int *expected, Core::String root = "fo:root")
{
    auto m = mark(markup);
    *expected = m.expected;
    return MarkupProbe(m, root).getPreviousEditablePositionInXml(m.at);
}

} // namespace

TEST(AtomSteps, ForwardStepsOverOneAtom)
{
    int expected = 0;
    for (auto markup : {
             "<fo:block>|a^b</fo:block>",
             "<fo:block>|&#x00A0;^b</fo:block>",
             "<fo:block>a|<fo:inline color=\"red\">^b</fo:inline></fo:block>",
             "<fo:block>a|<fo:inline title=\"a>b\">^b</fo:inline></fo:block>", // quoted ">" is not the end
             "<fo:block>a|<!-- <fo:block> -->^b</fo:block>",
             "<fo:block>a|<![CDATA[ x>y ]]>^b</fo:block>",
             "<fo:block>a|<?pi x?>^b</fo:block>",
         }) {
        EXPECT_EQ(stepForward(markup, &expected), expected) << markup;
    }
}

TEST(AtomSteps, ForwardStepAtTheEnds)
{
    int expected = 0;
    // The last plain character steps to the length, unchecked; the last tag fails.
    EXPECT_EQ(stepForward("<fo:block>ab|c", &expected), 13);
    EXPECT_EQ(stepForward("<a>b|</a>", &expected), -1);
    // "</fo:root>" ends every forward walk, whatever the root is called.
    EXPECT_EQ(stepForward("<fo:block/>|</fo:root>tail", &expected), -1);
    // An entity without its ";" cannot be stepped over.
    EXPECT_EQ(stepForward("<a>x|&amp x</a>", &expected), -1);
    EXPECT_EQ(stepForward("|", &expected), -1);
    EXPECT_EQ(MarkupProbe("<a>b</a>").getNextEditablePositionInXml(-1), -1);
    EXPECT_EQ(MarkupProbe("<a>b</a>").getNextEditablePositionInXml(8), -1);
}

TEST(AtomSteps, UnterminatedCommentStepsToTwoInTheMemberOnly)
{
    // The member adds 3 to a failed find, as the editing code has always done; the static
    // form refuses the comment, but keeps the unchecked sum for CDATA.
    auto comment = mark("<a>x|<!-- never closed</a>");
    EXPECT_EQ(MarkupProbe(comment).getNextEditablePositionInXml(comment.at), 2);
    EXPECT_EQ(MarkupProbe::getNextEditablePositionInXml(comment.at, comment.text), -1);
    auto cdata = mark("<a>x|<![CDATA[ never closed</a>");
    EXPECT_EQ(MarkupProbe(cdata).getNextEditablePositionInXml(cdata.at), 2);
    EXPECT_EQ(MarkupProbe::getNextEditablePositionInXml(cdata.at, cdata.text), 2);
}

TEST(AtomSteps, BackwardStepsOverOneAtom)
{
    int expected = 0;
    for (auto markup : {
             "<fo:root><fo:block>a^b|</fo:block></fo:root>",
             "<fo:root><fo:block>^&#x00A0;|</fo:block></fo:root>", // directly after a tag too
             "<fo:root><fo:block>&amp;^&#x00A0;|</fo:block></fo:root>",
             "<fo:root><fo:block>^<fo:inline>|b</fo:inline></fo:block></fo:root>",
             "<fo:root><fo:block>x^;|</fo:block></fo:root>",   // a ";" with no "&" is a character
             "<fo:root><fo:block>^;|</fo:block></fo:root>",    // ... also right after a tag
             "<fo:root><fo:block>a;b^;|</fo:block></fo:root>", // another ";" comes first
             // A comment before the position is crossed with the tag in front of it.
             "<fo:root><fo:block>ab^<fo:block/><!-- c -->|</fo:block></fo:root>",
         }) {
        EXPECT_EQ(stepBack(markup, &expected), expected) << markup;
    }
}

TEST(AtomSteps, BackwardStepStopsAtTheRoot)
{
    int expected = 0;
    EXPECT_EQ(stepBack("<?xml version=\"1.0\"?>|<fo:root><fo:block/></fo:root>", &expected), -1);
    EXPECT_EQ(stepBack("<?xml?>|<otd:document></otd:document>", &expected, "otd:document"), -1);
    // Another element's start tag is no barrier.
    EXPECT_EQ(stepBack("<?xml?>^<fo:root>|<fo:block/></fo:root>", &expected), expected);
    EXPECT_EQ(stepBack("|<fo:root/>", &expected), -1);
    EXPECT_EQ(stepBack("x;|", &expected), -1); // runs past 0 looking for the "&"
}

TEST(RootPositions, FirstEditablePositionIsAfterTheRootStartTag)
{
    auto plain =
        mark("<?xml version=\"1.0\" encoding='a>b'?>\n<!DOCTYPE x>\n<!-- c -->^<fo:root a=\">\">|<x/>");
    MarkupProbe probe(plain);
    EXPECT_EQ(probe.getFirstEditablePositionInXml(), plain.at);
    EXPECT_EQ(probe.getRootElementPos(), plain.expected);

    auto cdata = mark("<![CDATA[<no>]]>^<fo:root>|</fo:root>");
    EXPECT_EQ(MarkupProbe(cdata).getFirstEditablePositionInXml(), cdata.at);
    EXPECT_EQ(MarkupProbe(cdata).getRootElementPos(), cdata.expected);

    EXPECT_EQ(MarkupProbe("").getFirstEditablePositionInXml(), -1);
    EXPECT_EQ(MarkupProbe("").getRootElementPos(), -1);
    EXPECT_EQ(MarkupProbe("<fo:root>").getFirstEditablePositionInXml(), -1); // nothing after it
    EXPECT_EQ(MarkupProbe("<?xml?><fo:root").getFirstEditablePositionInXml(), -1);
}

TEST(TagKinds, SelfClosingTagsTrackQuotes)
{
    MarkupProbe probe("<a x='/>'/><b y=\"it's\">x/></b><c/ ><d");
    EXPECT_TRUE(probe.selfClosingTagAtPosition(0));
    EXPECT_FALSE(probe.selfClosingTagAtPosition(11)); // the "/>" after it is in text
    EXPECT_FALSE(probe.selfClosingTagAtPosition(26));
    EXPECT_FALSE(probe.selfClosingTagAtPosition(30)); // "/ >": the character before ">" counts
    EXPECT_FALSE(probe.selfClosingTagAtPosition(35)); // runs off the end
    EXPECT_FALSE(probe.selfClosingTagAtPosition(1));
}

TEST(TagKinds, ElementTypeAtBothEnds)
{
    MarkupProbe probe("<r><?pi?><!--c--><![CDATA[d]]><e/></r>");
    EXPECT_EQ(probe.getElementTypeOnStartTagPosition(3), XmlProcessingInstruction);
    EXPECT_EQ(probe.getElementTypeOnStartTagPosition(9), XmlComment);
    EXPECT_EQ(probe.getElementTypeOnStartTagPosition(17), XmlCData);
    EXPECT_EQ(probe.getElementTypeOnStartTagPosition(30), XmlElement);
    EXPECT_EQ(probe.getElementTypeOnStartTagPosition(1), XmlNone);
    EXPECT_EQ(probe.getElementTypeOnEndTagPosition(8), XmlProcessingInstruction);
    EXPECT_EQ(probe.getElementTypeOnEndTagPosition(16), XmlComment);
    EXPECT_EQ(probe.getElementTypeOnEndTagPosition(29), XmlCData);
    EXPECT_EQ(probe.getElementTypeOnEndTagPosition(33), XmlElement);
    EXPECT_EQ(probe.getElementTypeOnEndTagPosition(32), XmlNone);
    EXPECT_EQ(probe.getElementTypeOnEndTagPosition(-1), XmlNone);

    // The ends and starts of those items.
    EXPECT_EQ(probe.getElementStartPosition(XmlComment, 16), 9);
    EXPECT_EQ(probe.getElementEndPosition(XmlComment, 9), 17);
    EXPECT_EQ(probe.getElementEndPosition(XmlCData, 17), 30);
    EXPECT_EQ(probe.getElementEndPosition(XmlProcessingInstruction, 3), 9);
    EXPECT_EQ(probe.getElementEndPosition(XmlElement, 30), 34);
    EXPECT_EQ(probe.getElementEndPosition(XmlNone, 5), 5);
    EXPECT_EQ(MarkupProbe("<r><!-- open").getElementEndPosition(XmlComment, 3), -1);

    // A "-->" that belongs to no comment is no comment end.
    MarkupProbe stray("<r>a--></r><!--x-->");
    EXPECT_EQ(stray.getElementTypeOnEndTagPosition(6), XmlNone);
    EXPECT_EQ(stray.getElementTypeOnEndTagPosition(18), XmlComment);
    MarkupProbe closed("<!--a--><r>b--></r>");
    EXPECT_EQ(closed.getElementTypeOnEndTagPosition(14), XmlNone);
}

TEST(TagNames, ClosingTagsKeepTheirSlash)
{
    MarkupProbe probe("<fo:block a='1'></fo:block><x/></x><fo:inline");
    EXPECT_EQ(probe.getNameForTagAtPosition(0), "fo:block");
    EXPECT_EQ(probe.getNameForTagAtPosition(0, false), "block");
    EXPECT_EQ(probe.getNameForTagAtPosition(16), "/fo:block");
    EXPECT_EQ(probe.getNameForTagAtPosition(16, false), "block");
    EXPECT_EQ(probe.getNameForTagAtPosition(27), "x");
    EXPECT_EQ(probe.getNameForTagAtPosition(31, false), "/x"); // no prefix: the "/" stays
    EXPECT_EQ(probe.getNameForTagAtPosition(35), "");          // runs off the end
    EXPECT_EQ(probe.getNameForTagAtPosition(1), "");           // not a tag
    EXPECT_EQ(MarkupProbe::getNameForTagAtPosition(16, probe.text()), "/fo:block");
    EXPECT_TRUE(probe.tagNameEquals(0, "fo:block"));
    EXPECT_FALSE(probe.tagNameEquals(0, "fo:bloc"));
    EXPECT_FALSE(probe.tagNameEquals(0, "fo:block "));
    EXPECT_TRUE(probe.tagNameEquals(16, "/fo:block"));
    EXPECT_TRUE(probe.tagNameEquals(16, "block", false));
    EXPECT_TRUE(probe.tagNameEquals(35, ""));

    // Only the form with the text second skips the position check.
    EXPECT_FALSE(probe.nextContentEquals("", -1));
    EXPECT_TRUE(MarkupProbe::nextContentEquals("", probe.text(), -5));
    EXPECT_FALSE(probe.nextContentEquals("inlines", 39)); // runs over the end
}

TEST(TagWalks, NextTagSkipsIgnoredItems)
{
    auto m = mark("<r>a|b &lt; <!-- <x> --><![CDATA[<y>]]><?pi <z>?>^<w/></r>");
    MarkupProbe probe(m);
    EXPECT_EQ(probe.getNextTagPosition(m.at), m.expected);
    EXPECT_EQ(probe.getNextTagPosition(m.expected), m.expected); // a tag gives itself
    EXPECT_EQ(probe.getNextTagName(m.at), "w");
    EXPECT_TRUE(probe.closingElementTagAtPosition(m.expected + 4)); // next is "</r>"
    EXPECT_FALSE(probe.closingElementTagAtPosition(m.at));
    EXPECT_EQ(MarkupProbe("<r>ab <x").getNextTagPosition(3), -1); // a name that never ends
    EXPECT_EQ(MarkupProbe("<r>a<!--b").getNextTagPosition(3), -1);
}

TEST(TagWalks, PreviousTagPassesCommentsAndCData)
{
    for (auto markup : {
             "<r>^<b>x<!-- <y> -->|</b></r>", "<r>^<b><![CDATA[ <y> ]]>x|</b></r>",
             "<r>^<b/><!--a--><![CDATA[b]]><!--c-->|</r>",
             "<r>^<b>x<!-- a --|></b></r>", // on the comment's ">", the tag before it
             "<r>^<b a=\"1\"|></b></r>",    // on a ">", the tag it ends
             "^<r>|<b/></r>",               // on a "<", the tag before
         }) {
        auto m = mark(markup);
        EXPECT_EQ(MarkupProbe(m).getPreviousTagPosition(m.at), m.expected) << markup;
    }

    // The static form passes CDATA only: it stops on a comment's start.
    auto m = mark("<r><b>x^<!-- a -->|</b></r>");
    EXPECT_EQ(MarkupProbe::getPreviousTagPosition(m.at, m.text), m.expected);
    Core::String name;
    EXPECT_EQ(MarkupProbe::getPreviousTagNameAndPosition(m.at, m.text, name), m.expected);
    EXPECT_EQ(name, "!--");
    EXPECT_EQ(MarkupProbe(m).getPreviousTagNameAndPos(m.at, name), 3);
    EXPECT_EQ(name, "b");
    EXPECT_EQ(MarkupProbe("x<!-- a -->").getPreviousTagPosition(10), -1);
    EXPECT_EQ(MarkupProbe("ab").getPreviousTagPosition(1), -1);
}

TEST(MatchingTags, ClosingTagCountsOnlyItsOwnName)
{
    auto m = mark("<?xml?><fo:root>|<fo:block><fo:block>a</fo:block><fo:inline/></fo:block>^</fo:root>");
    MarkupProbe probe(m);
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(m.at), m.expected - 11);
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(m.expected - 11), -1); // a closing tag
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(m.at + 10), m.at + 21);
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(m.at + 32), m.at + 32); // self-closing: itself
    EXPECT_EQ(probe.getStartTagForTagAtPosition(m.expected - 11), m.at);
    EXPECT_EQ(probe.getStartTagForTagAtPosition(m.at + 21), m.at + 10);
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(7), m.expected);
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(0), -1); // a processing instruction
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(m.at + 1), -1);
}

TEST(MatchingTags, SelfClosingChildOfTheSameNameBreaksTheBackwardWalkOnly)
{
    // From the closing tag the backward walk takes the nested <fo:block/> for the start.
    auto m = mark("<?xml?><fo:root>|<fo:block>a^<fo:block/>b</fo:block></fo:root>");
    MarkupProbe probe(m);
    const int closing = m.expected + 12;
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(m.at), closing);
    EXPECT_EQ(probe.getStartTagForTagAtPosition(closing), m.expected);
}

TEST(MatchingTags, IndexZeroIsNeverMatched)
{
    MarkupProbe probe("<a><b>x</b></a>");
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(0), -1);
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(3), 7);
    EXPECT_EQ(probe.getStartTagForTagAtPosition(11), -1);
    EXPECT_EQ(probe.getStartTagForTagAtPosition(7), 3);
    EXPECT_EQ(probe.getStartTagForTagAtPosition(3), -1); // a start tag
    // The closing tag at the very end has nothing after it to step to.
    EXPECT_EQ(MarkupProbe("<?x?><a><b>x</b></a>").getStartTagForTagAtPosition(16), -1);
}

TEST(MatchingTags, UnbalancedMarkupGivesMinusOne)
{
    MarkupProbe probe("<?x?><a><b>x</a>y");
    EXPECT_EQ(probe.getClosingTagForTagAtPosition(8), -1);
    EXPECT_EQ(probe.getStartTagForTagAtPosition(12), 5); // <b> has no closing tag to count
    MarkupProbe loose("<?x?><a>x<!-- never closed");
    EXPECT_EQ(loose.getClosingTagForTagAtPosition(5), -1);
}

TEST(Attributes, WalkFromTagToEachName)
{
    auto m = mark("<fo:block |a=\"1\"  b='x>\"/' c =\"\"d=\"4\"/>");
    MarkupProbe probe(m);
    const Core::String &t = probe.text();
    const int a = m.at, b = t.find(u'b', a), c = t.find(u'c', a), d = t.find(u'd', c);
    EXPECT_EQ(probe.getNextAttributePosition(0), a);
    EXPECT_EQ(probe.getNextAttributePosition(a), b);
    EXPECT_EQ(probe.getNextAttributePosition(b), c);
    EXPECT_EQ(probe.getNextAttributePosition(c), d);
    EXPECT_EQ(probe.getNextAttributePosition(d), -1); // "/" ends the tag
    EXPECT_EQ(probe.getNameForAttributeAt(b), "b");
    EXPECT_EQ(probe.getNameForAttributeAt(c), "c");
    EXPECT_EQ(probe.getValueForAttributeAt(b), "x>\"/");
    EXPECT_EQ(probe.getValueForAttributeAt(c), "");
    EXPECT_EQ(probe.getNextAttributeValuePosition(a), a + 3);
    EXPECT_EQ(probe.getPreviousAttributePosition(c), b);
    EXPECT_EQ(probe.getPreviousAttributePosition(b), a);
    EXPECT_EQ(probe.getPreviousAttributePosition(a), -1);
    EXPECT_TRUE(probe.containsAttribute(0, "c"));
    EXPECT_TRUE(probe.containsAttribute(0, "d"));
    EXPECT_FALSE(probe.containsAttribute(0, "fo:block"));
    EXPECT_FALSE(probe.containsAttribute(0, "x"));
}

TEST(Attributes, TagsWithoutAttributes)
{
    MarkupProbe probe("<fo:block>a</fo:block><x/><?xml?>");
    EXPECT_EQ(probe.getNextAttributePosition(0), -1);  // at its ">"
    EXPECT_EQ(probe.getNextAttributePosition(22), -1); // at its "/"
    EXPECT_EQ(probe.getNextAttributePosition(26), -1); // at the "?>" of an instruction
    EXPECT_EQ(probe.getValueForAttributeAt(0), "");
    EXPECT_EQ(MarkupProbe("<a b=\"open").getValueForAttributeAt(3), "");
}

TEST(Attributes, InsideStartTagTellsMarkupFromText)
{
    const Core::String text = "<r a='1'>t<!-- <c d> -->x<![CDATA[<e f>]]><?p q?></r>";
    EXPECT_TRUE(MarkupProbe::isInsideStartTag(text, 3));
    EXPECT_TRUE(MarkupProbe::isInsideStartTag(text, 1));
    EXPECT_FALSE(MarkupProbe::isInsideStartTag(text, 0));          // on the "<" the next ">" comes after it
    EXPECT_FALSE(MarkupProbe::isInsideStartTag(text, 9));          // text
    EXPECT_FALSE(MarkupProbe::isInsideStartTag(text, 17));         // in the comment's <c d>
    EXPECT_FALSE(MarkupProbe::isInsideStartTag(text, 37));         // in the CDATA's <e f>
    EXPECT_FALSE(MarkupProbe::isInsideStartTag(text, 45));         // in the instruction
    EXPECT_TRUE(MarkupProbe::isInsideStartTag("<a>b</a><c/>", 6)); // a closing tag counts
    EXPECT_FALSE(MarkupProbe::isInsideStartTag("<a>b</a>", 6));    // the last tag: no later "<"
    EXPECT_FALSE(MarkupProbe::isInsideStartTag(text, -1));
    EXPECT_FALSE(MarkupProbe::isInsideStartTag("", 0));
}
