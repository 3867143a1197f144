#include "common/MarkedDocument.h"
#include "dom/DOMBasedBuffer.h"
#include "support/DomParser.h"
#include "support/XmlAttribute.h"
#include "support/XmlElement.h"
#include "support/XmlParseException.h"

#include <gtest/gtest.h>

using Core::String;
using foedit::test::EditCheck;

namespace {

// The nearest start tag of `name` before the caret.
int openingTagBeforeCaret(const EditableDocumentBuffer &buffer, const String &name)
{
    const String content = buffer.getContent();
    const int caret = buffer.getCaretPos();
    return std::max(content.rFind("<" + name + ">", caret), content.rFind("<" + name + " ", caret));
}

// A sub-buffer over the element of `name` around the caret; its commit writes the tree
// back and puts the caret where the test says.
class ProbeBuffer : public DOMBasedBuffer {
public:
    ProbeBuffer(EditableDocumentBuffer *buffer, const String &name) : DOMBasedBuffer(buffer)
    {
        selectStretchOfElementAt(openingTagBeforeCaret(*buffer, name));
        loadStretch();
    }
    void commitChangesToEditableBuffer() override
    {
        writeTreeToStretch([this] {
            if (caretAfterCommit >= 0)
                setDocumentCaret(false, caretAfterCommit);
        });
    }
    Xml::Element *root() const { return dom->getRootNode(); }

    int caretAfterCommit = -1;
    using DOMBasedBuffer::collapseElementAttributes;
    using DOMBasedBuffer::collapseShorthands;
    using DOMBasedBuffer::dom;
    using DOMBasedBuffer::endPosition;
    using DOMBasedBuffer::expandShorthands;
    using DOMBasedBuffer::getTreeTextForStretch;
    using DOMBasedBuffer::startPosition;
};

SmartPtr<Xml::XmlDocument> parse(const String &markup)
{
    Xml::DomParser parser;
    parser.parseString(markup);
    return parser.getDocument();
}

const String kCell = "<fo:table-cell xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:otd=\"urn:t\" "
                     "border=\"1pt solid black\" otd:note=\"x\"><fo:block>a</fo:block></fo:table-cell>";

std::vector<String> names(const PropertyCollection &properties)
{
    std::vector<String> out;
    for (const EditableProperty &property : properties.getPropertyList())
        out.push_back(property.getName() + "=" + property.getValue());
    return out;
}

Xml::Element *child(Xml::Node *parent, const String &name)
{
    if (!parent)
        return nullptr;
    auto children = parent->get_children(name);
    return children.empty() ? nullptr : static_cast<Xml::Element *>(children.front());
}

const String kTable = "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>a|b</fo:block>"
                      "</fo:table-cell></fo:table-row></fo:table-body></fo:table>";

} // namespace

TEST(DOMBasedBufferTest, PropertiesAreQualifiedOnReadingAndPlainInTheOwnNamespaceOnWriting)
{
    auto document = parse(kCell);
    Xml::Element *cell = document->getRootNode();
    PropertyCollection properties = DOMBasedBuffer::getElementProperties(cell);
    EXPECT_EQ(names(properties), (std::vector<String>{"fo:border=1pt solid black", "otd:note=x"}));

    auto target = parse("<fo:table-cell xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:otd=\"urn:t\" "
                        "padding=\"2pt\"/>");
    properties.addProperty(EditableProperty("fo:id", "c1"), true);
    DOMBasedBuffer::setElementProperties(target->getRootNode(), properties);
    EXPECT_EQ(target->writeToString("UTF-8").trim(),
              "<fo:table-cell xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:otd=\"urn:t\" "
              "border=\"1pt solid black\" otd:note=\"x\" id=\"c1\"/>");
    EXPECT_EQ(names(DOMBasedBuffer::getElementProperties(target->getRootNode())), names(properties));

    // Lookups: absent and empty read alike; only direct element children are found.
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "note", ""), "x");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "border", "fo"), "1pt solid black");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "border", "otd"), "");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(nullptr, "border", ""), "");
    auto table =
        parse("<fo:table xmlns:fo=\"f\">text<fo:table-body><fo:table-row/></fo:table-body></fo:table>");
    EXPECT_NE(DOMBasedBuffer::getElementByName(table->getRootNode(), "table-body"), nullptr);
    EXPECT_EQ(DOMBasedBuffer::getElementByName(table->getRootNode(), "table-row"), nullptr);
    EXPECT_EQ(DOMBasedBuffer::getElementByName(table->getRootNode(), "Table-body"), nullptr);
}

TEST(DOMBasedBufferTest, ShorthandsExpandAndCollapseOverTheWholeTree)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    foedit::test::loadMarked(*buffer,
                             "<fo:table border=\"1pt solid black\"><fo:table-body><fo:table-row>"
                             "<fo:table-cell number-columns-spanned=\"1\" padding=\"2pt\"><fo:block>a|b"
                             "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>");
    SmartPtr<ProbeBuffer> table(new ProbeBuffer(buffer.get(), "fo:table"));
    table->expandShorthands();
    Xml::Element *cell = child(child(child(table->root(), "table-body"), "table-row"), "table-cell");
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "border-left-style", "fo"), "solid");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "border", ""), "");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "padding-top", ""), "2pt");

    table->collapseElementAttributes(nullptr, true); // accepted, no effect
    table->collapseElementAttributes(cell, false);
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "number-columns-spanned", ""), "1");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "padding", ""), "2pt");
    table->collapseShorthands(true);
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(cell, "number-columns-spanned", ""), "");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "border", ""), "1pt solid black");

    // One side changed: whatever shorthands stand for it, the four sides read back.
    table->expandShorthands();
    table->root()->set_attribute("border-left-style", "dashed");
    table->collapseShorthands(false);
    EXPECT_NE(DOMBasedBuffer::getAttributeValue(table->root(), "border", ""), "1pt solid black");
    table->expandShorthands();
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "border-left-style", ""), "dashed");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "border-top-style", ""), "solid");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "border-left-width", ""), "1pt");
}

TEST(DOMBasedBufferTest, CopiesShareTheTree)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    foedit::test::loadMarked(*buffer, kTable);
    SmartPtr<ProbeBuffer> source(new ProbeBuffer(buffer.get(), "fo:table"));
    SmartPtr<ProbeBuffer> copy(new ProbeBuffer(*source));
    copy->root()->set_attribute("width", "10cm");
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(source->root(), "width", ""), "10cm");
    EXPECT_EQ(copy->startPosition, source->startPosition);
    EXPECT_EQ(copy->endPosition, source->endPosition);

    SmartPtr<ProbeBuffer> other(new ProbeBuffer(buffer.get(), "fo:table-row"));
    *other = *source;
    EXPECT_EQ(other->dom, source->dom);
    *other = *other; // must not drop the last reference on the way
    EXPECT_EQ(other->root()->get_name(), "table");
    source.reset();
    copy.reset();
    EXPECT_EQ(DOMBasedBuffer::getAttributeValue(other->root(), "width", ""), "10cm");
}

TEST(DOMBasedBufferTest, CommitIsOneUndoStepWithTheCaretRestored)
{
    foedit::test::RecordingMonitor monitor;
    EditCheck(kTable).expect(
        [&monitor](EditableDocumentBuffer &b) {
            SmartPtr<ProbeBuffer> table(new ProbeBuffer(&b, "fo:table"));
            Xml::Element *row = child(child(table->root(), "table-body"), "table-row");
            row->import_node_as_sibling(row, row, true);
            table->caretAfterCommit = b.getCaretPos();
            b.setMonitor(&monitor);
            table->commitChangesToEditableBuffer();
            b.setMonitor(nullptr);
        },
        "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>a|b</fo:block></fo:table-cell>"
        "</fo:table-row><fo:table-row><fo:table-cell><fo:block>ab</fo:block></fo:table-cell></fo:table-row>"
        "</fo:table-body></fo:table>");
    EXPECT_EQ(std::count(monitor.events.begin(), monitor.events.end(), "buffer"), 1);
}

TEST(DOMBasedBufferTest, StretchUsesPrefixesDeclaredAboveItAndGivesNoneBack)
{
    const String document =
        "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\" xmlns:otd=\"urn:t\">"
        "<fo:page-sequence master-reference=\"A4\"><fo:flow flow-name=\"xsl-region-body\">"
        "<fo:block-container xmlns:ot=\"urn:o\"><fo:table xmlns:x=\"urn:x\" ot:mark=\"1\"><fo:table-body>"
        "<otd:table-row-repeat x:y=\"2\"><fo:table-cell><fo:block>a|b</fo:block></fo:table-cell>"
        "</otd:table-row-repeat></fo:table-body></fo:table></fo:block-container></fo:flow></fo:page-sequence>"
        "</fo:root>";
    EditCheck::document(document).expect(
        [](EditableDocumentBuffer &b) {
            SmartPtr<ProbeBuffer> table(new ProbeBuffer(&b, "fo:table"));
            Xml::Node *row = child(table->root(), "table-body")->get_children().front();
            EXPECT_EQ(row->get_name(), "table-row-repeat");
            EXPECT_EQ(row->get_namespace_prefix(), "otd");
            EXPECT_EQ(DOMBasedBuffer::getAttributeValue(table->root(), "mark", "ot"), "1");
            table->caretAfterCommit = b.getCaretPos();
            table->commitChangesToEditableBuffer(); // nothing changed: the same text comes back
        },
        document);
}

TEST(DOMBasedBufferTest, StretchThatDoesNotParseRaisesAndLeavesTheDocument)
{
    Core::setLogSink([](const String &) {});
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    foedit::test::loadMarked(*buffer,
                             "<fo:table><fo:table-body><fo:table-row><fo:table-cell><fo:block>a|&nbsp;"
                             "</fo:block></fo:table-cell></fo:table-row></fo:table-body></fo:table>");
    const String before = buffer->getContent();
    EXPECT_THROW({ ProbeBuffer probe(buffer.get(), "fo:table"); }, Xml::XmlParseException);
    EXPECT_EQ(buffer->getContent(), before);
    EXPECT_FALSE(buffer->canUndo());
    Core::setLogSink(nullptr);
}
