#include "support/DomParser.h"
#include "support/Exception.h"
#include "support/MemoryStream.h"
#include "support/XmlAttribute.h"
#include "support/XmlElement.h"
#include "support/XmlParseException.h"
#include "support/XmlTextNode.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <vector>

using Core::String;

namespace {

const char *kFo = "http://www.w3.org/1999/XSL/Format";

SmartPtr<Xml::XmlDocument> parse(const String &markup)
{
    Xml::DomParser parser;
    parser.parseString(markup);
    return parser.getDocument();
}

String written(const SmartPtr<Xml::XmlDocument> &document)
{
    return document->writeToString("UTF-8").trim();
}

Xml::Element *element(Xml::Node *node)
{
    return dynamic_cast<Xml::Element *>(node);
}

Xml::Element *firstChild(Xml::Node *parent, const String &name)
{
    auto children = parent->get_children(name);
    return children.empty() ? nullptr : element(children.front());
}

// A table stretch whose prefixes are declared on its own root, as the frame makes it.
const String kTable = String("<fo:table xmlns:fo=\"") + kFo +
                      "\" xmlns:otd=\"urn:t\"><fo:table-body>"
                      "<fo:table-row otd:parent-group=\"g\"><fo:table-cell border=\"1pt solid black\">"
                      "<fo:block>a</fo:block></fo:table-cell></fo:table-row>"
                      "<fo:table-row><fo:table-cell><fo:block>b</fo:block></fo:table-cell></fo:table-row>"
                      "</fo:table-body></fo:table>";

} // namespace

TEST(XmlParseTest, ElementsAndAttributesGiveLocalNamesAndPrefixesApart)
{
    auto document = parse(kTable);
    Xml::Element *table = document->getRootNode();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->get_name(), "table");
    EXPECT_EQ(table->getNSPrefix(), "fo");
    EXPECT_EQ(table->get_namespace_defs().at("otd"), "urn:t");
    EXPECT_EQ(table->get_parent(), nullptr);

    Xml::Element *row = firstChild(firstChild(table, "table-body"), "table-row");
    ASSERT_NE(row, nullptr);
    auto attributes = row->get_attributes();
    ASSERT_EQ(attributes.size(), 1u);
    EXPECT_EQ(attributes.front()->get_name(), "parent-group");
    EXPECT_EQ(attributes.front()->get_namespace_prefix(), "otd");
    EXPECT_EQ(attributes.front()->get_parent(), row);
    EXPECT_TRUE(row->get_namespace_defs().empty());
}

TEST(XmlParseTest, StreamIsReadFromItsPositionAsUtf8WhateverTheDeclarationSays)
{
    SmartPtr<Core::IO::MemoryStream> stream(
        new Core::IO::MemoryStream("skipped<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xC3\xA9</a>"));
    stream->seek(7);
    Xml::DomParser parser;
    parser.parseStream(stream);
    EXPECT_EQ(parser.getDocument()->getRootNode()->get_child_text()->get_content(), u"\u00E9");
}

TEST(XmlElementTest, AttributeLookupFollowsThePrefixRule)
{
    auto document = parse(String("<fo:table-cell xmlns:fo=\"") + kFo +
                          "\" xmlns:otd=\"urn:t\" border=\"b\" otd:note=\"n\" xml:lang=\"en\"/>");
    Xml::Element *cell = document->getRootNode();

    // Plain attribute: any prefix of "" and the element's own prefix find it, a foreign one does not.
    EXPECT_NE(cell->get_attribute("border", ""), nullptr);
    EXPECT_EQ(cell->get_attribute("border", "fo"), cell->get_attribute("border", ""));
    EXPECT_EQ(cell->get_attribute("border", "otd"), nullptr);
    // Prefixed attribute: found by its own prefix and by "", never by the element's.
    EXPECT_EQ(cell->get_attribute("note", "")->get_value(), "n");
    EXPECT_NE(cell->get_attribute("note", "otd"), nullptr);
    EXPECT_EQ(cell->get_attribute("note", "fo"), nullptr);
    EXPECT_EQ(cell->get_attribute("lang", "xml")->get_value(), "en");
    EXPECT_EQ(cell->get_attribute("absent", ""), nullptr);

    EXPECT_FALSE(cell->remove_attribute("border", "otd"));
    EXPECT_TRUE(cell->remove_attribute("border", "fo"));
    EXPECT_FALSE(cell->remove_attribute("border", ""));

    // Replacing keeps the attribute's form and place; a new one takes the prefix given.
    cell->set_attribute("note", "m", "");
    cell->set_attribute("id", "x", "fo");
    cell->set_attribute("plain", "a&b<\"", "");
    EXPECT_EQ(written(document), String("<fo:table-cell xmlns:fo=\"") + kFo +
                                     "\" xmlns:otd=\"urn:t\" otd:note=\"m\" xml:lang=\"en\" fo:id=\"x\" "
                                     "plain=\"a&amp;b&lt;&quot;\"/>");
    EXPECT_EQ(cell->get_attribute("plain")->get_value(), "a&b<\"");
}

TEST(XmlParseTest, PlaceholderAndDeclaredEntitiesReadAsTheirCharacters)
{
    auto document =
        parse(String("<!DOCTYPE fo:root [<!ENTITY nbsp \"&#160;\"><!ENTITY two \"&nbsp;<fo:inline/>\">]>"
                     "<fo:root xmlns:fo=\"") +
              kFo +
              "\" a=\"&#x00A0;\"><fo:block>&#x00A0;</fo:block>"
              "<fo:block>Type&nbsp;1&nbsp;fonts</fo:block><fo:block>x&two;y</fo:block></fo:root>");
    Xml::Element *root = document->getRootNode();
    auto blocks = root->get_children("block");
    ASSERT_EQ(blocks.size(), 3u);
    EXPECT_EQ(element(blocks.front())->get_child_text()->get_content(), u"\u00A0");
    EXPECT_EQ(root->get_attribute("a")->get_value(), u"\u00A0");
    // A declared entity becomes part of one text, nested references included.
    Xml::Element *second = element(*std::next(blocks.begin()));
    EXPECT_EQ(second->get_children().size(), 1u);
    EXPECT_EQ(second->get_child_text()->get_content(), u"Type\u00A01\u00A0fonts");
    Xml::Element *third = element(blocks.back());
    EXPECT_EQ(third->get_child_text()->get_content(), u"x\u00A0");
    EXPECT_NE(firstChild(third, "inline"), nullptr);
}

TEST(XmlParseTest, BadMarkupRaisesTheParsersWordsWithThePlaceAndLogsFirst)
{
    std::vector<String> logged;
    Core::setLogSink([&logged](const String &line) { logged.push_back(line); });
    struct Case {
        const char *markup;
        const char *words;
        int line;
    };
    const Case cases[] = {
        {"<fo:block xmlns:fo=\"f\">\n<fo:inline></fo:block>", "mismatch", 2},
        {"<fo:block xmlns:fo=\"f\">a&nbsp;b</fo:block>", "nbsp", 1},
        {"<fo:block>undeclared prefix</fo:block>", "fo", 1},
        {"<a x='1' x='2'/>", "x", 1},
        {"", "empty", 1},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.markup);
        Xml::DomParser parser;
        parser.parseString("<kept/>");
        try {
            parser.parseString(c.markup);
            ADD_FAILURE() << "no exception";
        } catch (const Xml::XmlParseException &e) {
            EXPECT_TRUE(e.getParserMessage().contains(c.words)) << e.getParserMessage();
            EXPECT_EQ(e.getDocumentLine(), c.line);
            EXPECT_GT(e.getDocumentColumn(), 0);
            ASSERT_FALSE(logged.empty());
            EXPECT_TRUE(logged.back().contains("Xml::XmlParseException"));
            EXPECT_TRUE(logged.back().contains(e.getParserMessage()));
        }
        // The previous document is still the parser's.
        ASSERT_TRUE(parser.getDocument());
        EXPECT_EQ(parser.getDocument()->getRootNode()->get_name(), "kept");
    }
    Core::setLogSink(nullptr);
}

TEST(XmlParseTest, NeverReadsAFileTheMarkupPointsTo)
{
    const std::string path = testing::TempDir() + "foedit_xml_secret.txt";
    std::ofstream(path) << "SECRET";
    const String uri = String("file://") + String(path);
    auto document = parse("<!DOCTYPE a SYSTEM \"" + uri + "\" [<!ENTITY e SYSTEM \"" + uri +
                          "\"><!ENTITY % p SYSTEM \"" + uri + "\">]><a>&e;</a>");
    EXPECT_FALSE(written(document).contains("SECRET"));
    EXPECT_TRUE(written(document).contains("<a>&e;</a>"));
    std::remove(path.c_str());
}

TEST(XmlTreeTest, NodesKeepOneIdentityAndSnapshotsSurviveRemoval)
{
    auto document = parse(kTable);
    Xml::Element *table = document->getRootNode();
    Xml::Element *body = firstChild(table, "table-body");
    auto rows = body->get_children("table-row");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows.front(), body->get_children().front());
    EXPECT_EQ(rows.front()->get_parent(), body);
    Xml::Attribute *group = element(rows.front())->get_attribute("parent-group");
    group->set_value("h");
    EXPECT_EQ(element(rows.front())->get_attribute("parent-group", "otd"), group);

    // The root removes a row of a row group; the walk of the snapshot goes on.
    int seen = 0;
    for (Xml::Node *row : rows) {
        ++seen;
        if (seen == 1)
            table->remove_child(row);
    }
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(body->get_children().size(), 1u);
    EXPECT_EQ(firstChild(firstChild(body, "table-row"), "table-cell")->get_child_text()->get_content(), "");
    EXPECT_EQ(written(document).contains("<fo:block>b</fo:block>"), true);
    EXPECT_FALSE(written(document).contains("parent-group"));
}

TEST(XmlTreeTest, ChildrenByNameSkipTextAndGrandchildrenAndSiblingsCountText)
{
    auto document =
        parse(String("<fo:table xmlns:fo=\"") + kFo +
              "\"> <fo:table-column/><!--c--><fo:table-body><fo:table-body/></fo:table-body>x</fo:table>");
    Xml::Element *table = document->getRootNode();
    EXPECT_EQ(table->get_children("table-body").size(), 1u);
    EXPECT_EQ(table->get_children("fo:table-column").size(), 1u);
    EXPECT_EQ(table->get_children("otd:table-column").size(), 0u);
    EXPECT_EQ(table->get_children().size(), 5u); // text, column, comment, body, text
    Xml::Node *column = firstChild(table, "table-column");
    ASSERT_NE(column->get_previous_sibling(), nullptr);
    EXPECT_TRUE(column->get_previous_sibling()->is_text());
    EXPECT_EQ(column->get_previous_sibling()->get_previous_sibling(), nullptr);
    Xml::Node *comment = column->get_next_sibling();
    EXPECT_FALSE(comment->is_text());
    EXPECT_FALSE(comment->is_element());
    EXPECT_TRUE(comment->get_next_sibling()->is_element());
}

TEST(XmlTreeTest, RenamingAndMovingNamespacesKeepAttributesAndChildren)
{
    auto document = parse(kTable);
    Xml::Element *row = firstChild(firstChild(document->getRootNode(), "table-body"), "table-row");
    row->set_name("table-row-repeat");
    row->set_namespace("otd");
    EXPECT_TRUE(written(document).contains(
        "<otd:table-row-repeat otd:parent-group=\"g\"><fo:table-cell border=\"1pt solid black\">"));
    EXPECT_TRUE(written(document).contains("</otd:table-row-repeat>"));
    row->set_name("fo:table-row");
    EXPECT_TRUE(written(document).contains("<fo:table-row otd:parent-group=\"g\">"));

    // A prefix nothing declares is declared where it is used.
    row->set_namespace("ot");
    EXPECT_EQ(row->get_namespace_defs().count("ot"), 1u);
    row->set_attribute("x", "1", "zz");
    EXPECT_EQ(row->get_namespace_defs().count("zz"), 1u);
    EXPECT_NO_THROW(parse(written(document)));
}

TEST(XmlTreeTest, CopiesInPlaceAndBareCopiesAddNoDeclarations)
{
    auto document = parse(kTable);
    Xml::Element *table = document->getRootNode();
    Xml::Element *body = firstChild(table, "table-body");
    Xml::Element *row = firstChild(body, "table-row");
    Xml::Node *copy = row->import_node_as_sibling(row, row, true);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(row->get_next_sibling(), copy);
    Xml::Node *bare = table->import_node_as_prev_sibling(body, body, false);
    EXPECT_EQ(bare->get_name(), "table-body");
    EXPECT_EQ(bare->get_namespace_prefix(), "");
    EXPECT_TRUE(element(bare)->get_attributes().empty());
    EXPECT_TRUE(bare->get_children().empty());
    bare->set_name("table-header");
    bare->set_namespace("fo");
    element(bare)->add_child("table-row", "fo")->add_child("table-cell", "fo");

    const String text = written(document);
    EXPECT_EQ(text.find("xmlns:fo"), text.rFind("xmlns:fo")) << text;
    EXPECT_TRUE(
        text.contains("<fo:table-header><fo:table-row><fo:table-cell/></fo:table-row></fo:table-header>"
                      "<fo:table-body><fo:table-row otd:parent-group=\"g\">"));
    EXPECT_EQ(body->get_children("table-row").size(), 3u);
}

TEST(XmlTreeTest, ImportingFromAnotherDocumentDeclaresOnlyWhatIsMissing)
{
    auto source = parse(kTable);
    Xml::Element *cell =
        firstChild(firstChild(firstChild(source->getRootNode(), "table-body"), "table-row"), "table-cell");

    auto same = parse(String("<fo:table-row xmlns:fo=\"") + kFo + "\"/>");
    same->getRootNode()->import_node(cell, true);
    EXPECT_EQ(written(same), String("<fo:table-row xmlns:fo=\"") + kFo +
                                 "\"><fo:table-cell border=\"1pt solid black\"><fo:block>a</fo:block>"
                                 "</fo:table-cell></fo:table-row>");

    Xml::XmlDocument bare;
    Xml::Element *root = bare.createRootNodeByImport(cell, true);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->get_namespace_defs().at("fo"), kFo);
    auto again = parse(bare.writeToString("UTF-8"));
    EXPECT_EQ(again->getRootNode()->get_attribute("border")->get_value(), "1pt solid black");
}

TEST(XmlTreeTest, TextHelpersMergeReplaceAndNeverAnswerNull)
{
    auto document = parse(String("<fo:block xmlns:fo=\"") + kFo + "\"><fo:inline/></fo:block>");
    Xml::Element *block = document->getRootNode();
    Xml::Element *inline_ = firstChild(block, "inline");

    Xml::TextNode *none = inline_->get_child_text();
    ASSERT_NE(none, nullptr);
    EXPECT_EQ(none->get_content(), "");
    EXPECT_EQ(none->get_parent(), nullptr);
    block->remove_child(none); // the stand-in is not part of the tree
    EXPECT_EQ(inline_->get_child_text()->get_content(), "");

    inline_->set_child_text(u"\u00A0");
    Xml::TextNode *first = block->add_child_text("a");
    EXPECT_EQ(block->add_child_text("b"), first); // merged into the text before it
    EXPECT_EQ(block->get_child_text()->get_content(), "ab");
    block->set_child_text("c");
    EXPECT_EQ(written(document),
              String("<fo:block xmlns:fo=\"") + kFo + u"\"><fo:inline>\u00A0</fo:inline>c</fo:block>");
}

TEST(XmlDocumentTest, BuildsATreeFromNothingAndWritesNoDeclaration)
{
    SmartPtr<Xml::XmlDocument> document(new Xml::XmlDocument("1.0"));
    EXPECT_EQ(document->getRootNode(), nullptr);
    Xml::Element *root = document->createRootNode("fo:root", "", "");
    Xml::Element *flow = root->add_child("flow", "fo");
    Xml::Element *block = flow->add_child("block", "fo");
    flow->add_node_as_prev_sibling(block, "block-container", "fo");
    EXPECT_EQ(root->add_node_as_prev_sibling(root, "x", ""), nullptr); // no second root
    EXPECT_EQ(written(document), String("<fo:root xmlns:fo=\"") + kFo +
                                     "\"><fo:flow><fo:block-container/><fo:block/></fo:flow></fo:root>");
    EXPECT_EQ(Xml::XmlDocument::getXmlDeclaration("UTF-8"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");

    document->createRootNode("otd:document", "urn:t", "");
    EXPECT_EQ(written(document), "<otd:document xmlns:otd=\"urn:t\"/>");
}
