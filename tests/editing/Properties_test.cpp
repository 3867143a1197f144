#include "common/MarkedDocument.h"

#include "support/XmlNamespaces.h"

#include <gtest/gtest.h>

using foedit::test::EditCheck;
using foedit::test::expectEdit;
using foedit::test::makeStandardBuffer;
using foedit::test::wrapInFlow;

namespace {

// Reaches the protected members of properties.
class PropertiesProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::clearPropertiesForElementAt;
    using EditableDocumentBuffer::getPropertiesFromElementAt;
    using EditableDocumentBuffer::setPropertiesForElementAt;
};

SmartPtr<PropertiesProbe> loadProbe(Core::String const &markedBody)
{
    return foedit::test::makeMarkedBuffer<PropertiesProbe>(markedBody);
}

PropertyCollection one(Core::String const &name, Core::String const &value)
{
    PropertyCollection properties;
    properties.addProperty(EditableProperty(name, value), true);
    return properties;
}

EditCheck::Edit setOnSelection(PropertyCollection properties)
{
    return [properties](EditableDocumentBuffer &buffer) { buffer.setProperties(properties, Core::String()); };
}

// The position of the first `what` in the buffer's string.
int positionOf(EditableDocumentBuffer const &buffer, const char *what)
{
    return buffer.getContent().find(what);
}

const Core::String blockPath = "/fo:root/fo:page-sequence/fo:flow/fo:block";

} // namespace

// Reading --------------------------------------------------------------------------------

TEST(PropertiesRead, PlainNamesTakeTheElementsPrefixAndOthersKeepTheirs)
{
    auto buffer =
        loadProbe(R"(<fo:block color="red" xml:lang="en" ot:id='7'><fo:inline>a|b</fo:inline></fo:block>)");
    EXPECT_EQ(buffer->getProperties(blockPath).getPropertiesString(),
              R"(fo:color="red" xml:lang="en" ot:id="7")");
    EXPECT_TRUE(buffer->getProperties("").isEmpty());
    EXPECT_EQ(buffer->getProperties("fo:block", buffer->getCaretPos()).getPropertyValue("fo:color"), "red");
    // Reads are total: a closing tag, text and nothing give nothing.
    EXPECT_TRUE(buffer->getPropertiesFromElementAt(positionOf(*buffer, "</fo:block>")).isEmpty());
    EXPECT_TRUE(buffer->getPropertiesFromElementAt(buffer->getCaretPos()).isEmpty());
    EXPECT_TRUE(buffer->getPropertiesFromElementAt(-1).isEmpty());
    EXPECT_TRUE(buffer->getPropertiesFromElementAt(buffer->getContent().length()).isEmpty());
}

TEST(PropertiesRead, InheritedAndParentValuesWalkOutward)
{
    auto buffer = loadProbe(
        R"(<fo:block font-size="9pt" color="red"><fo:inline color="blue">a|b</fo:inline></fo:block>)");
    int inlineTag = positionOf(*buffer, "<fo:inline");
    EXPECT_EQ(buffer->getInheritablePropertyValueAtPosition("fo:color", inlineTag), "blue");
    EXPECT_EQ(buffer->getInheritablePropertyValueAtPosition("fo:font-size", inlineTag), "9pt");
    EXPECT_EQ(buffer->getInheritablePropertyValueAtPosition("fo:font-weight", inlineTag), "");
    EXPECT_EQ(buffer->getInheritablePropertyValueAtPosition("fo:color", -1), "");

    Core::String value = "unchanged";
    EXPECT_TRUE(buffer->getParentProperty("fo:block", "fo:font-size", value));
    EXPECT_EQ(value, "9pt");
    EXPECT_FALSE(buffer->getParentProperty("fo:block", "fo:font-weight", value));
    EXPECT_FALSE(buffer->getParentProperty("fo:table", "fo:color", value));
    EXPECT_EQ(value, "9pt");
}

TEST(PropertiesRead, ListsWholeElementsAndClasses)
{
    auto buffer = loadProbe(
        R"(<fo:block class="intro">^a<fo:inline color="red">b</fo:inline><fo:inline>c</fo:inline>|d</fo:block>)");
    Core::Vector<PropertyCollection> inlines = buffer->getPropertiesList("fo:inline");
    ASSERT_EQ(inlines.size(), 2);
    EXPECT_EQ(inlines[0].getPropertiesString(), R"(fo:color="red")");
    EXPECT_TRUE(inlines[1].isEmpty());

    Core::String className;
    Core::String elementName;
    buffer->getCrtElementClassName(className, elementName);
    EXPECT_EQ(className, "intro");
    EXPECT_EQ(elementName, "block");

    EXPECT_EQ(buffer->getCrtObjectContent(blockPath),
              buffer->getContent().subString(positionOf(*buffer, "<fo:block"),
                                             positionOf(*buffer, "</fo:flow>") - 1));
    EXPECT_EQ(buffer->getCrtObjectContent("fo:block", false), buffer->getCrtObjectContent(blockPath));
    EXPECT_EQ(buffer->getCrtObjectContent("fo:table", false), "");
    EXPECT_EQ(buffer->getCrtObjectContent("/fo:root/fo:nothing"), "");
}

// Writing one element --------------------------------------------------------------------

TEST(PropertiesWrite, MergesIntoTheTagKeepingTheOtherAttributesAndTheirOrder)
{
    expectEdit(
        R"(<fo:block color="red" xml:lang="en">a|b</fo:block>)",
        [](EditableDocumentBuffer &b) { b.setProperty(EditableProperty("fo:font-weight", "bold"), ""); },
        R"(<fo:block color="red" xml:lang="en" font-weight="bold">a|b</fo:block>)");
    expectEdit(R"(<fo:block color="red" space-before="1pt">a|b</fo:block>)",
               [](EditableDocumentBuffer &b) { b.setProperties(one("fo:color", "blue"), blockPath); },
               R"(<fo:block color="blue" space-before="1pt">a|b</fo:block>)");
    expectEdit(R"(<fo:block>a<fo:inline>b|c</fo:inline></fo:block>)",
               [](EditableDocumentBuffer &b) { b.setParentProperty("fo:block", "fo:color", "red"); },
               R"(<fo:block color="red">a<fo:inline>b|c</fo:inline></fo:block>)");
    expectEdit(R"(<fo:block>a<fo:inline>b|c</fo:inline></fo:block>)",
               [](EditableDocumentBuffer &b) {
                   b.setProperties(one("fo:color", "red"), "fo:block", b.getCaretPos());
               },
               R"(<fo:block color="red">a<fo:inline>b|c</fo:inline></fo:block>)");
}

TEST(PropertiesWrite, ClearingCutsEveryAttributeAndKeepsTheTagsShape)
{
    expectEdit(R"(<fo:block color="red" xml:lang="en">a|b</fo:block>)",
               [](EditableDocumentBuffer &b) { b.removeProperties(""); }, R"(<fo:block>a|b</fo:block>)");
    expectEdit(R"(<fo:block>a^<fo:external-graphic src="a.png" content-width="2cm" />|b</fo:block>)",
               [](EditableDocumentBuffer &b) { b.removeProperties(""); },
               R"(<fo:block>a^<fo:external-graphic/>|b</fo:block>)");

    auto probe = loadProbe(R"(<fo:block>a<fo:external-graphic src="a.png"/>|b</fo:block>)");
    EXPECT_EQ(probe->clearPropertiesForElementAt(positionOf(*probe, "<fo:external")), R"( src="a.png")");
    EXPECT_EQ(probe->clearPropertiesForElementAt(positionOf(*probe, "<fo:external")), "");
    EXPECT_EQ(probe->clearPropertiesForElementAt(-1), "");
    EXPECT_EQ(probe->setPropertiesForElementAt(-1, one("fo:color", "red")), 0);
}

TEST(PropertiesWrite, ASelectedSelfClosingElementStaysSelected)
{
    expectEdit(R"(<fo:block>a^<fo:external-graphic src="a.png"/>|b</fo:block>)",
               setOnSelection(one("fo:content-width", "2cm")),
               R"(<fo:block>a^<fo:external-graphic src="a.png" content-width="2cm"/>|b</fo:block>)");
    expectEdit(R"(<fo:block>a|<fo:external-graphic src="a.png"/>^b</fo:block>)",
               setOnSelection(one("fo:content-width", "2cm")),
               R"(<fo:block>a|<fo:external-graphic src="a.png" content-width="2cm"/>^b</fo:block>)");
}

TEST(PropertiesWrite, ANewPrefixIsDeclaredOnTheRoot)
{
    Core::String ot = Xml::Namespaces::ot;
    EditCheck::document(wrapInFlow("<fo:block>a|b</fo:block>"))
        .expect([](EditableDocumentBuffer &b) { b.setProperty(EditableProperty("ot:note", "x"), ""); },
                wrapInFlow(R"(<fo:block ot:note="x">a|b</fo:block>)")
                    .replaced("Format\">", "Format\" xmlns:ot=\"" + ot + "\">"));
    // An unknown prefix is written as it is, with no declaration.
    expectEdit(
        "<fo:block>a|b</fo:block>",
        [](EditableDocumentBuffer &b) { b.setProperty(EditableProperty("zz:note", "x"), ""); },
        R"(<fo:block zz:note="x">a|b</fo:block>)");
}

TEST(PropertiesWrite, ClassesGoOnTheNamedElement)
{
    expectEdit(
        "<fo:block>a<fo:inline>b|c</fo:inline></fo:block>",
        [](EditableDocumentBuffer &b) { b.applyStyleOnElement("note", "block"); },
        R"(<fo:block class="note">a<fo:inline>b|c</fo:inline></fo:block>)");
    expectEdit(
        "<fo:block>a<fo:inline>b|c</fo:inline></fo:block>",
        [](EditableDocumentBuffer &b) { b.applyStyleOnElement("note", ""); },
        R"(<fo:block>a<fo:inline class="note">b|c</fo:inline></fo:block>)");
}

// Formatting a selection -----------------------------------------------------------------

TEST(PropertiesFormatInline, EveryRunGetsItsOwnWrapperAndTheSelectionFollows)
{
    expectEdit(R"(<fo:block>a^b<fo:inline font-size="9pt">cd</fo:inline>e|f</fo:block>)",
               setOnSelection(one("fo:font-weight", "bold")),
               R"(<fo:block>a<fo:inline font-weight="bold">^b</fo:inline>)"
               R"(<fo:inline font-size="9pt" font-weight="bold">cd</fo:inline>)"
               R"(<fo:inline font-weight="bold">e|</fo:inline>f</fo:block>)");
    // Selected backwards the caret stays in front.
    expectEdit(R"(<fo:block>a|bc^d</fo:block>)", setOnSelection(one("fo:color", "red")),
               R"(<fo:block>a<fo:inline color="red">|bc^</fo:inline>d</fo:block>)");
}

TEST(PropertiesFormatInline, RunsCrossLineBreaksAndBlocks)
{
    expectEdit(R"(<fo:block>a^b<fo:block/>c</fo:block><fo:block>d|e</fo:block>)",
               setOnSelection(one("fo:color", "red")),
               R"(<fo:block>a<fo:inline color="red">^b<fo:block/>c</fo:inline></fo:block>)"
               R"(<fo:block><fo:inline color="red">d|</fo:inline>e</fo:block>)");
}

TEST(PropertiesFormatInline, ARunThatFillsItsElementGetsNoSecondInline)
{
    expectEdit(R"(<fo:block>a<fo:inline>^abc|</fo:inline>d</fo:block>)",
               setOnSelection(one("fo:font-weight", "bold")),
               R"(<fo:block>a<fo:inline font-weight="bold">^abc|</fo:inline>d</fo:block>)");
    expectEdit(R"(<fo:block>^abc|</fo:block>)", setOnSelection(one("fo:font-weight", "bold")),
               R"(<fo:block font-weight="bold">^abc|</fo:block>)");
}

TEST(PropertiesFormatInline, TextAlignGoesToTheBlock)
{
    expectEdit(R"(<fo:block>a^bc|d</fo:block>)", setOnSelection(one("fo:text-align", "center")),
               R"(<fo:block text-align="center">a^bc|d</fo:block>)");
    PropertyCollection both = one("fo:text-align", "end");
    both.addProperty(EditableProperty("fo:font-style", "italic"), true);
    expectEdit(
        R"(<fo:block color="red">a^bc|d</fo:block>)", setOnSelection(both),
        R"(<fo:block color="red" text-align="end">a<fo:inline font-style="italic">^bc|</fo:inline>d</fo:block>)");
}
