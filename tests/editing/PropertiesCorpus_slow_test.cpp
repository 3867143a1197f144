#include "common/MarkedDocument.h"
#include "common/TestPaths.h"

#include "support/DomParser.h"
#include "support/Exception.h"

#include <gtest/gtest.h>

using foedit::test::makeStandardBuffer;

namespace {

PropertyCollection one(Core::String const &name, Core::String const &value)
{
    PropertyCollection properties;
    properties.addProperty(EditableProperty(name, value), true);
    return properties;
}

} // namespace

// Real documents: formatting a stretch of the flow keeps the markup well formed, and
// undo and redo give back exactly the strings before and after.
TEST(PropertiesFormatInline, CorpusStretchesStayWellFormedThroughUndoAndRedo)
{
    int formatted = 0;
    for (const std::string &file : foedit::test::corpusFiles()) {
        SCOPED_TRACE(file);
        auto buffer = makeStandardBuffer();
        buffer->setContentFromFile(Core::String(file));
        Core::String const original = buffer->getContent();
        Xml::DomParser parser;
        try {
            parser.parseString(original);
        } catch (const Core::Exception &) {
            continue; // the parser refuses it before any edit
        }
        buffer->moveCaretToFirstFoFlow();
        for (int i = 0; i < 150; ++i)
            buffer->moveCaretRight(true, false, false);
        if (!buffer->hasSelectedText())
            continue;
        buffer->setProperties(one("fo:font-weight", "bold"), "");
        Core::String const after = buffer->getContent();
        EXPECT_NO_THROW(parser.parseString(after));
        buffer->undo();
        EXPECT_EQ(buffer->getContent(), original);
        buffer->redo();
        EXPECT_EQ(buffer->getContent(), after);
        ++formatted;
    }
    EXPECT_GT(formatted, 20);
}
