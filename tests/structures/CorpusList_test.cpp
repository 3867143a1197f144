// A real document with bulleted, numbered and nested lists (basic__list.fo), edited in
// every item: Enter at the start of the item's text (every other item) or a few
// characters into it, then Backspace at the start of the new item.
// The markup stays well formed at each step, and undo gives back the document as it
// was loaded, string and caret.
#include "common/MarkedDocument.h"
#include "common/TestPaths.h"

#include "editing/EditableDocumentBuffer.h"
#include "template/XmlValidator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// The start tags of the item bodies of the document, leaving out the list markup that
// the document quotes in CDATA sections.
std::vector<int> itemBodies(Core::String const &content)
{
    std::vector<int> bodies;
    for (int p = content.find("<fo:list-item-body"); p != -1; p = content.find("<fo:list-item-body", p + 1)) {
        if (content.rFind("<![CDATA[", p) <= content.rFind("]]>", p))
            bodies.push_back(p);
    }
    return bodies;
}

int countItems(Core::String const &content)
{
    int count = 0;
    for (int p = content.find("<fo:list-item"); p != -1; p = content.find("<fo:list-item", p + 1)) {
        char16_t after = content[p + 13];
        count += after == u'>' || after == u' ' ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(CorpusListTest, EnterAndBackspaceInEveryItemUndoToTheLoadedDocument)
{
    SmartPtr<EditableDocumentBuffer> buffer = foedit::test::makeStandardBuffer();
    buffer->setContentFromFile((foedit::test::corpusDir() + "/basic__list.fo").c_str());
    Core::String const original = buffer->getContent();
    int const items = countItems(original);
    std::vector<int> const bodies = itemBodies(original);
    ASSERT_GE(bodies.size(), 100u);

    for (std::size_t i = 0; i < bodies.size(); ++i) {
        int const body = bodies[i];
        SCOPED_TRACE("item body at " + std::to_string(body));
        buffer->setCaretPos(false, body);
        for (std::size_t step = 0; step < (i % 2 == 0 ? 1u : 4u); ++step)
            buffer->moveCaretRight(false, false, false);
        int const caret = buffer->getCaretPos();
        ASSERT_GT(caret, body);

        buffer->insertBreak(ListBreak, false);
        EXPECT_TRUE(XmlValidator(buffer->getContent()).validate()) << "after Enter";
        EXPECT_EQ(countItems(buffer->getContent()), items + 1) << "Enter splits the item";
        buffer->erase(false, false);
        EXPECT_TRUE(XmlValidator(buffer->getContent()).validate()) << "after Backspace";
        EXPECT_EQ(countItems(buffer->getContent()), items) << "Backspace joins the items again";

        buffer->undo();
        buffer->undo();
        ASSERT_EQ(buffer->getContent(), original);
        ASSERT_EQ(buffer->getCaretPos(), caret);
    }
}
