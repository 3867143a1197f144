// Escaping, character data, well-formed fragments of a range, placeholders, namespaces.

#include "MarkupProbe.h"

#include <gtest/gtest.h>

using foedit::test::mark;
using foedit::test::MarkupProbe;

#define FO_DOC(body) "<?xml version=\"1.0\"?><fo:root>" body "</fo:root>"

namespace {

// The fragment of the range from `|` through the character right after `^`.
Core::String nativeText(std::string_view markup)
{
    auto m = mark(markup);
    return MarkupProbe(m).getNativeText(m.at, m.expected);
}

} // namespace

TEST(Escaping, TypedTextBecomesValidMarkup)
{
    Core::String text = Core::String(u"a<b>&\"'\t\n\r\x01z\u00A0");
    MarkupProbe::convertToValidXMLText(text);
    EXPECT_EQ(text, Core::String(u"a&lt;b&gt;&amp;&quot;&apos;\t   z\u00A0"));
    Core::String empty;
    MarkupProbe::convertToValidXMLText(empty);
    EXPECT_EQ(empty, "");

    MarkupProbe probe("x&amp;y;z&lt");
    EXPECT_EQ(probe.getEscapeCharacterString(1), "&amp;");
    EXPECT_EQ(probe.getEscapeCharacterString(7), ";");
    EXPECT_EQ(probe.getEscapeCharacterString(9), "&lt"); // no ";": to the end
    EXPECT_EQ(probe.getEscapeCharacterString(-1), "");
}

TEST(CharacterData, TextOfAnElementWithoutItsChildren)
{
    // An entity gives its "&"; after a child or a self-closing tag one atom is dropped.
    auto m = mark("<?x?><r>|<l>ab&amp;c<x/>dx<i>q</i>ef<!--c-->gh</l></r>");
    EXPECT_EQ(MarkupProbe(m).getCharacterDataForElementAt(m.at), "ab&cxfh");
    EXPECT_EQ(MarkupProbe("<?x?><r><l/>x</r>").getCharacterDataForElementAt(8), "");
    EXPECT_EQ(MarkupProbe("<?x?><r><l>abc").getCharacterDataForElementAt(8), "");
}

TEST(NativeText, RangesInsideAndAcrossElements)
{
    EXPECT_EQ(nativeText(FO_DOC("<fo:block>a|b^cd</fo:block>")), "bc");
    EXPECT_EQ(nativeText(FO_DOC(
                  "<fo:flow><fo:block color=\"red\">a|b</fo:block><fo:block>^cd</fo:block></fo:flow>")),
              "<fo:block color=\"red\">b</fo:block><fo:block>c</fo:block>");
    // A whole element, a self-closing tag and a comment in the range come out once.
    EXPECT_EQ(nativeText(FO_DOC("<fo:block>a|b<fo:inline>x</fo:inline><fo:block/><!--y-->^cd</fo:block>")),
              "b<fo:inline>x</fo:inline><fo:block/><!--y-->c");
    EXPECT_EQ(nativeText(FO_DOC("<fo:block>a|b<fo:inline>x^y</fo:inline></fo:block>")),
              "b<fo:inline>xy</fo:inline>");
    EXPECT_EQ(nativeText(FO_DOC("<fo:block>a^b|c</fo:block>")), ""); // reversed
}

TEST(NativeText, CellsBringTheirTableWithAnAutoLayout)
{
    EXPECT_EQ(nativeText(FO_DOC("<fo:flow><fo:table table-layout=\"fixed\"><fo:table-body><fo:table-row>"
                                "<fo:table-cell><fo:block>a|b</fo:block></fo:table-cell>"
                                "<fo:table-cell><fo:block>^cd</fo:block></fo:table-cell>"
                                "</fo:table-row></fo:table-body></fo:table></fo:flow>")),
              "<fo:table table-layout=\"auto\"><fo:table-body><fo:table-row>"
              "<fo:table-cell><fo:block>b</fo:block></fo:table-cell>"
              "<fo:table-cell><fo:block>c</fo:block></fo:table-cell>"
              "</fo:table-row></fo:table-body></fo:table>");
}

TEST(NativeText, ListBodiesBringTheirLabel)
{
    EXPECT_EQ(
        nativeText(FO_DOC("<fo:flow><fo:list-block>"
                          "<fo:list-item><fo:list-item-label><fo:block>1.</fo:block></fo:list-item-label>"
                          "<fo:list-item-body><fo:block>a|b</fo:block></fo:list-item-body></fo:list-item>"
                          "<fo:list-item><fo:list-item-label><fo:block>2.</fo:block></fo:list-item-label>"
                          "<fo:list-item-body><fo:block>^cd</fo:block></fo:list-item-body></fo:list-item>"
                          "</fo:list-block></fo:flow>")),
        "<fo:list-block><fo:list-item><fo:list-item-label><fo:block>1.</fo:block></fo:list-item-label>"
        "<fo:list-item-body><fo:block>b</fo:block></fo:list-item-body></fo:list-item>"
        "<fo:list-item><fo:list-item-label><fo:block>2.</fo:block></fo:list-item-label>"
        "<fo:list-item-body><fo:block>c</fo:block></fo:list-item-body></fo:list-item></fo:list-block>");
}

TEST(NativeText, ElementsLeftOpenByARange)
{
    auto m =
        mark(FO_DOC("<fo:block>a|b</fo:block><fo:block>c<fo:inline>d^e</fo:inline><fo:block/></fo:block>"));
    MarkupProbe probe(m);
    const auto open = probe.getClosingTagsBetweenPositions(m.at, m.expected);
    ASSERT_EQ(open.size(), 2u);
    EXPECT_EQ(open[0], "fo:block");
    EXPECT_EQ(open[1], "fo:inline");
    EXPECT_EQ(MarkupProbe::stringArrayToReverseTagString(open), "</fo:inline></fo:block>");
    EXPECT_EQ(MarkupProbe::stringArrayToTagString(open), "</fo:block></fo:inline>");
    EXPECT_TRUE(probe.getClosingTagsBetweenPositions(m.expected, m.at).empty());
}

TEST(Placeholders, AnElementHoldingJustAPlaceholder)
{
    for (auto [markup, expected] : std::initializer_list<std::pair<const char16_t *, bool>>{
             {u"<?x?><r><b> &#x00A0;\n</b></r>", true},
             {u"<?x?><r><b>\u00A0</b></r>", true},
             {u"<?x?><r><b>&#x00A0;&#x00A0;</b></r>", false},
             {u"<?x?><r><b>\u00A0\u00A0</b></r>", false},
             {u"<?x?><r><b>&#x00A0;x</b></r>", false},
             {u"<?x?><r><b>&#xa0;</b></r>", false},
             {u"<?x?><r><b></b></r>", false},
             {u"<?x?><r><b/>&#x00A0;</r>", false},
             {u"<?x?><r><b>&#x00A0;", false},
         }) {
        EXPECT_EQ(MarkupProbe(markup).elementContainsJustNonBreakingSpace(8), expected)
            << Core::String(markup);
    }
}

TEST(Placeholders, PlaceholderBeforeTheClosingTag)
{
    const Core::String entity = "<?x?><r><b>&#x00A0; \n</b></r>";
    const Core::String raw = u"<?x?><r><b>\u00A0\u00A0</b></r>";
    EXPECT_TRUE(MarkupProbe(entity).isNbspFollowedByCloseElement(11));
    EXPECT_TRUE(MarkupProbe(entity).nbspFollowedByWspaceAndElementCloseTagAt(11));
    // A second raw placeholder is white space to one test and content to the other.
    EXPECT_TRUE(MarkupProbe(raw).isNbspFollowedByCloseElement(11));
    EXPECT_FALSE(MarkupProbe(raw).nbspFollowedByWspaceAndElementCloseTagAt(11));
    EXPECT_FALSE(MarkupProbe("<?x?><r><b>&#x00A0;x</b></r>").isNbspFollowedByCloseElement(11));
    EXPECT_FALSE(MarkupProbe("<?x?><r><b>&#x00A0;<i/></b></r>").isNbspFollowedByCloseElement(11));
    EXPECT_FALSE(MarkupProbe("<?x?><r><b>&#x00A0;</r>").nbspFollowedByWspaceAndElementCloseTagAt(11));
    EXPECT_FALSE(MarkupProbe(entity).isNbspFollowedByCloseElement(12));

    auto m = mark("<?x?><r><b>x|&amp;<i/>&#x00A0;</b></r>");
    EXPECT_EQ(MarkupProbe(m).getNonBreakingSpacePosition(m.at), m.text.find("&#x00A0;"));
    EXPECT_EQ(MarkupProbe("<?x?><r>ab</r>").getNonBreakingSpacePosition(8), -1);
}

TEST(Placeholders, FirstOfTheTrailingSpaces)
{
    for (auto [markup, expected] : std::initializer_list<std::pair<const char *, bool>>{
             {"<?x?><r><b>ab|  </b></r>", true},
             {"<?x?><r><b>ab |  </b></r>", false},
             {"<?x?><r><b>ab|</b></r>", false},
             {"<?x?><r><b>ab| x</b></r>", false},
             {"<?x?><r><b>ab| <i/></b></r>", false},
         }) {
        auto m = mark(markup);
        EXPECT_EQ(MarkupProbe(m).isLastValidWhiteSpaceBeforeElementClosed(m.at), expected) << markup;
    }
}

TEST(Namespaces, NearestDeclarationOfAPrefixWins)
{
    auto m = mark("<?x?><fo:root xmlns:fo=\"F\" xmlns=\"D\" xmlns:ot='A' a=\"xmlns:no\">"
                  "<ot:x xmlns:ot=\"B\"><fo:block>|t</fo:block></ot:x></fo:root>");
    MarkupProbe probe(m);
    const auto atRoot = probe.getNamespacesFromElementAt(5);
    EXPECT_EQ(atRoot, (MarkupProbe::NamespaceSet{"xmlns:fo=\"F\"", "xmlns:ot=\"A\""}));
    const auto all = probe.getNamespacesFromAllContainers(m.at);
    EXPECT_EQ(all, (MarkupProbe::NamespaceSet{"xmlns:fo=\"F\"", "xmlns:ot=\"B\""}));
    EXPECT_EQ(MarkupProbe::namespaceSetToString(all), " xmlns:fo=\"F\" xmlns:ot=\"B\"");
    EXPECT_EQ(MarkupProbe::namespaceSetToString({}), "");
    EXPECT_TRUE(MarkupProbe::namespaceIsDefined("XMLNS:FO=\"other\"", all));
    EXPECT_FALSE(MarkupProbe::namespaceIsDefined("xmlns:f=\"F\"", all));
    EXPECT_TRUE(probe.getNamespacesFromAllContainers(2).empty());
    EXPECT_TRUE(probe.getNamespacesFromElementAt(6).empty());
}
