#include "common/TestPaths.h"
#include "support/DomParser.h"
#include "support/XmlAttribute.h"
#include "support/XmlElement.h"
#include "support/XmlTextNode.h"

#include <gtest/gtest.h>

#include <regex>

using Core::String;

namespace {

// The meaning of a subtree: element names and prefixes, attributes with their
// prefixes and values, and texts, in order.
String meaning(const Xml::Node *node)
{
    if (const auto *text = dynamic_cast<const Xml::TextNode *>(node))
        return "\"" + text->get_content() + "\"";
    const auto *element = dynamic_cast<const Xml::Element *>(node);
    if (!element)
        return String();
    String out = "<" + element->get_namespace_prefix() + ":" + element->get_name();
    for (const Xml::Attribute *attribute : element->get_attributes())
        out += " " + attribute->get_namespace_prefix() + ":" + attribute->get_name() + "=" +
               attribute->get_value();
    out += ">";
    for (const Xml::Node *child : element->get_children())
        out += meaning(child);
    return out + "</>";
}

// The file as UTF-8, decoded as its declaration says (the corpus uses UTF-8 and
// ISO-8859-1 only).
std::string asUtf8(const std::string &bytes)
{
    if (bytes.substr(0, 100).find("ISO-8859-1") == std::string::npos)
        return bytes;
    std::string utf8;
    for (const char c : bytes) {
        const auto unit = static_cast<unsigned char>(c);
        if (unit < 0x80) {
            utf8.push_back(c);
        } else {
            utf8.push_back(static_cast<char>(0xC0 | (unit >> 6)));
            utf8.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
        }
    }
    return utf8;
}

void collectTables(Xml::Element *element, std::vector<Xml::Element *> &tables)
{
    if (element->get_name() == "table" && element->getNSPrefix() == "fo")
        tables.push_back(element);
    for (Xml::Node *child : element->get_children()) {
        if (child->is_element())
            collectTables(static_cast<Xml::Element *>(child), tables);
    }
}

} // namespace

// Every table of the corpus, written out on its own and read back, says the same.
TEST(XmlCorpusTest, EveryTableSurvivesWritingAndReadingBack)
{
    const std::regex tableTag("<fo:table[\\s>]");
    int tableCount = 0;
    for (const std::string &path : foedit::test::corpusFiles()) {
        SCOPED_TRACE(path);
        const std::string bytes = asUtf8(foedit::test::readFileBytes(path));
        Xml::DomParser parser;
        parser.parseMemory(bytes);
        std::vector<Xml::Element *> tables;
        collectTables(parser.getDocument()->getRootNode(), tables);
        const auto tagCount =
            std::distance(std::sregex_iterator(bytes.begin(), bytes.end(), tableTag), std::sregex_iterator());
        EXPECT_EQ(static_cast<long>(tables.size()), static_cast<long>(tagCount));

        for (Xml::Element *table : tables) {
            Xml::XmlDocument alone;
            alone.createRootNodeByImport(table, true);
            const String text = alone.writeToString("UTF-8");
            EXPECT_FALSE(text.startsWith("<?xml"));
            Xml::DomParser reader;
            reader.parseString(text);
            EXPECT_EQ(meaning(reader.getDocument()->getRootNode()), meaning(table));
            ++tableCount;
        }
    }
    EXPECT_GT(tableCount, 90);
}
