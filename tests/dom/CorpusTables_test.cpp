#include "common/MarkedDocument.h"
#include "common/TableStretch.h"
#include "common/TestPaths.h"
#include "dom/DOMBasedBuffer.h"
#include "support/DomParser.h"
#include "support/XmlAttribute.h"
#include "support/XmlElement.h"
#include "support/XmlTextNode.h"

#include <gtest/gtest.h>

using Core::String;
using foedit::test::TableStretch;

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

void collectTables(Xml::Element *element, std::vector<Xml::Element *> &tables)
{
    if (element->get_name() == "table" && element->getNSPrefix() == "fo")
        tables.push_back(element);
    for (Xml::Node *child : element->get_children()) {
        if (child->is_element())
            collectTables(static_cast<Xml::Element *>(child), tables);
    }
}

// Start tags of fo:table in document order (the corpus has none inside comments).
std::vector<int> tablePositions(const String &content)
{
    std::vector<int> positions;
    for (int at = content.find("<fo:table"); at >= 0; at = content.find("<fo:table", at + 1)) {
        const char16_t next = content[at + 9];
        if (next == u' ' || next == u'>' || next == u'\n' || next == u'\t' || next == u'\r')
            positions.push_back(at);
    }
    return positions;
}

} // namespace

// Every table of the corpus, cut out of its document, parsed and written back (or
// written out on its own and read again), keeps its elements, attributes and texts;
// and the write-back is undone exactly.
TEST(CorpusTablesTest, EveryTableKeepsItsMeaningThroughTheFrame)
{
    int tableCount = 0;
    for (const std::string &path : foedit::test::corpusFiles()) {
        SCOPED_TRACE(path);
        SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
        buffer->setContentFromFile(String(path));
        const String original = buffer->getContent();
        Xml::DomParser whole;
        whole.parseString(original);
        std::vector<Xml::Element *> tables;
        collectTables(whole.getDocument()->getRootNode(), tables);
        const std::vector<int> positions = tablePositions(original);
        ASSERT_EQ(tables.size(), positions.size());

        for (std::size_t i = 0; i < tables.size(); ++i) {
            SCOPED_TRACE(positions[i]);
            const String expected = meaning(tables[i]);

            Xml::XmlDocument alone;
            alone.createRootNodeByImport(tables[i], true);
            Xml::DomParser reader;
            reader.parseString(alone.writeToString("UTF-8"));
            EXPECT_EQ(meaning(reader.getDocument()->getRootNode()), expected);

            SmartPtr<TableStretch> stretch(new TableStretch(buffer.get(), positions[i]));
            EXPECT_EQ(meaning(stretch->root()), expected);
            const int undoSteps = buffer->getActionStack().undoActionCount();
            stretch->commitChangesToEditableBuffer();
            SmartPtr<TableStretch> again(new TableStretch(buffer.get(), positions[i]));
            EXPECT_EQ(meaning(again->root()), expected);
            EXPECT_FALSE(again->text().contains("xmlns:fo"));
            buffer->undo();
            EXPECT_EQ(buffer->getActionStack().undoActionCount(), undoSteps);
            EXPECT_TRUE(buffer->getContent() == original);
            ++tableCount;
        }
    }
    EXPECT_GT(tableCount, 90);
}
