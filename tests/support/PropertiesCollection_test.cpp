#include "support/EditableProperty.h"
#include "support/PropertiesTestText.h"
#include "support/PropertyCollection.h"

#include <gtest/gtest.h>

TEST(PropertyCollection, ReplacingKeepsThePlaceAndNewNamesGoLast)
{
    PropertyCollection properties = propertiesOf(R"(fo:color="red" fo:font-size="9pt")");
    properties.addProperty(EditableProperty("fo:color", "blue"), true);
    properties.addProperty(EditableProperty("fo:font-weight", "bold"), true);
    properties.addProperty(EditableProperty("fo:font-size", "12pt"), false);
    EXPECT_EQ(properties.getPropertiesString(),
              R"(fo:color="blue" fo:font-size="9pt" fo:font-weight="bold")");

    properties.addProperties(propertiesOf(R"(fo:font-size="10pt" xml:lang="en")"));
    EXPECT_EQ(properties.getPropertiesString(),
              R"(fo:color="blue" fo:font-size="10pt" fo:font-weight="bold" xml:lang="en")");

    properties.removePropertyByName("fo:color");
    properties.removePropertyByName("fo:absent");
    EXPECT_EQ(properties.getPropertyValue("fo:font-size"), "10pt");
    EXPECT_EQ(properties.getPropertyValue("fo:color"), "");
    EXPECT_EQ(properties.getProperty("fo:color"), nullptr);
    EXPECT_EQ(PropertyCollection().getPropertiesString(), "");
}

TEST(PropertyCollection, PrefixesComeAndGoOnlyWhereTheyApply)
{
    PropertyCollection properties = propertiesOf(R"(color="red" fo:border="1pt" otd:note="x" xmlns:ot="u")");
    properties.setNamespaceForProperties("fo");
    EXPECT_EQ(properties.getPropertiesString(),
              R"(fo:color="red" fo:border="1pt" otd:note="x" xmlns:ot="u")");
    properties.removeNamespaceForPropertiesWith("fo");
    EXPECT_EQ(properties.getPropertiesString(), R"(color="red" border="1pt" otd:note="x" xmlns:ot="u")");

    // A renamed property never makes a second entry of a name.
    PropertyCollection clash = propertiesOf(R"(fo:color="red" color="blue")");
    clash.removeNamespaceForPropertiesWith("fo");
    EXPECT_EQ(clash.getPropertiesString(), R"(color="blue")");
}

TEST(EditableProperty, NamesAndValidity)
{
    EXPECT_FALSE(EditableProperty().isValid());
    EditableProperty declaration("xmlns:foo", "urn:x");
    EXPECT_TRUE(declaration.isValid());
    EXPECT_EQ(declaration.getNamespace(), "xmlns");
    EXPECT_EQ(EditableProperty("color", "red").getNamespace(), "");
    declaration.removeNamespaceFromName();
    EXPECT_EQ(declaration.getName(), "foo");
}

TEST(EditableProperty, FormattingIsPresentationNotStructure)
{
    for (const char *name :
         {"fo:font-weight", "fo:border", "fo:border-top-width", "fo:space-before.optimum", "fo:text-align",
          "fo:background-color", "color", "fo:class", "fo:page-break-before"})
        EXPECT_TRUE(EditableProperty::isFormatting(name)) << name;
    for (const char *name : {"fo:number-columns-spanned", "fo:number-rows-spanned", "fo:id",
                             "fo:master-reference", "fo:flow-name", "fo:internal-destination",
                             "otd:font-weight", "xml:lang", "fo:unknown", "xmlns:fo", ""})
        EXPECT_FALSE(EditableProperty::isFormatting(name)) << name;

    PropertyCollection row =
        propertiesOf(R"(fo:number-columns-spanned="2" fo:padding="1pt" fo:id="c1" ot:x="y")");
    row.removeNonFormattingProperties();
    EXPECT_EQ(row.getPropertiesString(), R"(fo:padding="1pt")");
}
