#include "support/PropertiesHelper.h"
#include "support/PropertiesTestText.h"

#include "common/TestPaths.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

namespace {

Core::String expanded(Core::String const &text)
{
    PropertyCollection properties = propertiesOf(text);
    PropertiesHelper::expandShorthands(properties);
    return properties.getPropertiesString();
}

Core::String collapsed(Core::String const &text)
{
    PropertyCollection properties = propertiesOf(text);
    PropertiesHelper::collapseShorthands(properties);
    return properties.getPropertiesString();
}

Core::String withoutDefaults(Core::String const &text)
{
    PropertyCollection properties = propertiesOf(text);
    PropertiesHelper::removeDefaultValues(properties);
    return properties.getPropertiesString();
}

} // namespace

TEST(PropertiesHelper, ShorthandsSurviveExpandAndCollapse)
{
    for (const char *text : {
             R"(fo:border="1pt solid black")",
             R"(fo:border="0.5pt solid")",
             R"(fo:border-width="0.5pt" fo:keep-with-next="always")",
             R"(fo:border-style="solid")",
             R"(fo:border-color="red blue")",
             R"x(fo:border-top="1pt + 1pt dashed rgb(100, 100, 100)")x",
             R"(fo:border="1pt solid" fo:border-bottom-color="red")",
             R"(fo:padding="1pt 2pt 3pt")",
             R"(fo:padding="1pt 2pt 3pt 4pt" fo:margin="20pt 0 40pt")",
             R"(fo:border-spacing="2pt 3pt")",
             R"(fo:font="bold 12pt/14pt Times New Roman, serif")",
             R"(fo:font="italic small-caps 10pt 'Arial'")",
             R"(fo:background="yellow url(a.png) no-repeat")",
             R"(fo:background-position="right top")",
             R"(fo:page-break-before="always" fo:page-break-after="avoid")",
             R"(fo:position="absolute")",
             R"(border="inherit")",
             R"(otd:padding="2pt" otd:note="n")",
         }) {
        PropertyCollection properties = propertiesOf(text);
        PropertiesHelper::expandShorthands(properties);
        EXPECT_NE(properties.getPropertiesString(), text) << text;
        PropertiesHelper::collapseShorthands(properties);
        EXPECT_EQ(properties.getPropertiesString(), text);
    }
}

TEST(PropertiesHelper, ExpansionWritesLonghandsInPlaceAndTheMorePreciseWins)
{
    EXPECT_EQ(expanded(R"(fo:id="a" fo:border-top="solid 2pt" fo:color="red")"),
              R"(fo:id="a" fo:border-top-width="2pt" fo:border-top-style="solid" fo:color="red")");
    EXPECT_EQ(expanded(R"(fo:padding="1pt 2pt")"),
              R"(fo:padding-top="1pt" fo:padding-right="2pt" fo:padding-bottom="1pt" fo:padding-left="2pt")");
    // An explicit longhand beats any shorthand; border-top beats border whatever the order.
    EXPECT_EQ(expanded(R"(fo:border-top="2pt dashed" fo:border-top-width="3pt" fo:border-style="solid")"),
              R"(fo:border-top-width="3pt" fo:border-top-style="dashed" fo:border-right-style="solid" )"
              R"(fo:border-bottom-style="solid" fo:border-left-style="solid")");
    // The font resets what it leaves out, so a bold parent does not show through.
    EXPECT_EQ(
        expanded(R"(fo:font="12pt Arial")"),
        R"(fo:font-style="normal" fo:font-variant="normal" fo:font-weight="normal" fo:font-size="12pt" )"
        R"(fo:line-height="normal" fo:font-family="Arial")");
    EXPECT_EQ(expanded(R"(fo:page-break-inside="avoid" fo:size="8.5in 11in")"),
              R"(fo:keep-together="always" fo:page-width="8.5in" fo:page-height="11in")");
    EXPECT_EQ(expanded(R"(xmlns:fo="urn:fo" xml:lang="en")"), R"(xmlns:fo="urn:fo" xml:lang="en")");
}

TEST(PropertiesHelper, ValuesThatDoNotReadStayAsTheyAre)
{
    for (const char *text : {R"(fo:border="1pt 2pt solid")", R"(fo:padding="1pt 2pt 3pt 4pt 5pt")",
                             R"(fo:font="bold 12pt")", R"(fo:font="caption")", R"(fo:size="landscape")",
                             R"(fo:page-break-before="sometimes")", R"(fo:padding="")"})
        EXPECT_EQ(expanded(text), text);
    // Nor does a leftover shorthand get a folded twin.
    EXPECT_EQ(collapsed(R"(fo:border="1pt 2pt solid" fo:border-top-width="1pt" fo:border-right-width="1pt" )"
                        R"(fo:border-bottom-width="1pt" fo:border-left-width="1pt")"),
              R"(fo:border="1pt 2pt solid" fo:border-width="1pt")");
}

TEST(PropertiesHelper, CollapseFindsTheShortestFormThatReadsBack)
{
    // One side changed after expanding: the rest still folds.
    EXPECT_EQ(collapsed(R"(fo:border="1pt solid black" fo:border-left-style="none")"),
              R"(fo:border="1pt black" fo:border-style="solid solid solid none")");
    EXPECT_EQ(
        collapsed(R"(fo:border-top-width="1pt" fo:border-top-style="solid" fo:border-bottom-style="solid")"),
        R"(fo:border-top="1pt solid" fo:border-bottom-style="solid")");
    EXPECT_EQ(
        collapsed(R"(fo:margin-top="0" fo:margin-bottom="0" fo:margin-left="1in" fo:margin-right="1in")"),
        R"(fo:margin="0 1in")");
    // A side whose width went into border-width cannot become border-top: both
    // would claim its colour.
    EXPECT_EQ(collapsed(R"(fo:border-width="1pt" fo:border-top-style="solid" fo:border-top-color="red")"),
              R"(fo:border-width="1pt" fo:border-top-style="solid" fo:border-top-color="red")");
    // Fonts and backgrounds fold only when complete, keeps only as a pair.
    EXPECT_EQ(collapsed(R"(fo:font-size="12pt" fo:font-family="Arial" fo:break-before="page")"),
              R"(fo:font-size="12pt" fo:font-family="Arial" fo:break-before="page")");
    // Empty values are tolerated and left alone.
    EXPECT_EQ(collapsed(R"(fo:padding-top="" fo:padding-right="" fo:padding-bottom="" fo:padding-left="")"),
              R"(fo:padding-top="" fo:padding-right="" fo:padding-bottom="" fo:padding-left="")");
}

TEST(PropertiesHelper, OnlyInitialValuesOfPropertiesThatDoNotInheritGo)
{
    EXPECT_EQ(withoutDefaults(R"(fo:border-top-style="none" fo:padding-left="0" fo:column-gap="12pt" )"
                              R"(fo:number-columns-spanned="1" fo:background-color="Transparent" )"
                              R"(fo:font-weight="normal" fo:text-align="start" fo:padding-right="0.5pt" )"
                              R"(otd:border-top-style="none" fo:border-top-color="black")"),
              R"(fo:font-weight="normal" fo:text-align="start" fo:padding-right="0.5pt" )"
              R"(otd:border-top-style="none" fo:border-top-color="black")");
}

namespace {

std::set<std::string> expandedSet(PropertyCollection properties)
{
    PropertiesHelper::expandShorthands(properties);
    std::set<std::string> pairs;
    for (const EditableProperty &property : properties.getPropertyList())
        pairs.insert((property.getName() + "=" + property.getValue()).toUtf8());
    return pairs;
}

} // namespace

// Every start tag of the real documents: folding changes the spelling, never the
// meaning, and folding twice changes nothing more.
TEST(PropertiesHelper, CollapseKeepsTheMeaningOfEveryTagOfTheCorpus)
{
    std::regex startTag(R"(<fo:[a-z-]+((\s+[a-z][\w:.-]*="[^"<]*")+)\s*/?>)");
    int tags = 0;
    for (const std::string &file : foedit::test::corpusFiles()) {
        std::string text = foedit::test::readFileBytes(file);
        for (std::sregex_iterator it(text.begin(), text.end(), startTag), end; it != end; ++it, ++tags) {
            PropertyCollection properties = propertiesOf(Core::String((*it)[1].str()).trim());
            properties.setNamespaceForProperties("fo");
            PropertyCollection folded = properties;
            PropertiesHelper::collapseShorthands(folded);
            ASSERT_EQ(expandedSet(folded), expandedSet(properties)) << (*it)[0].str();
            PropertyCollection again = folded;
            PropertiesHelper::collapseShorthands(again);
            ASSERT_EQ(again.getPropertiesString(), folded.getPropertiesString()) << (*it)[0].str();
        }
    }
    EXPECT_GT(tags, 1000);
}
