// Delete, Backspace and Enter pressed at a hundred seeded random caret stops of every
// document of the corpus, then all undone: the original string must come back
// exactly. The stops are reached with the engine's own caret moves, as a user would.
#include "common/MarkedDocument.h"
#include "common/TestPaths.h"

#include "editing/BreakType.h"
#include "editing/EditableDocumentBuffer.h"
#include "support/DomParser.h"
#include "support/Exception.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <random>
#include <string>

using foedit::test::corpusFiles;
using foedit::test::corpusParamName;
using foedit::test::makeStandardBuffer;
using foedit::test::placeCaretExactly;

namespace {

enum class Key { Delete, Backspace, Enter };

constexpr int kPresses = 100;

void press(EditableDocumentBuffer &buffer, Key key)
{
    switch (key) {
    case Key::Delete:
        buffer.erase(true, false);
        break;
    case Key::Backspace:
        buffer.erase(false, false);
        break;
    case Key::Enter:
        buffer.insertBreak(ParagraphBreak, false);
        break;
    }
}

// A few presses of the right arrow; at the end of the flow the walk starts over at the
// top. (Left presses are left out: near the top of a flow each one walks back over all
// that stands before the flow, which makes the test slow without reaching other stops.)
void wander(EditableDocumentBuffer &buffer, std::mt19937 &random)
{
    int const steps = std::uniform_int_distribution<int>(1, 12)(random);
    for (int i = 0; i < steps; ++i) {
        int const before = buffer.getCaretPos();
        buffer.moveCaretRight(false, false, false);
        if (buffer.getCaretPos() == before || buffer.getCaretPos() < 0) {
            buffer.moveCaretHome(false);
            return;
        }
    }
}

// Whether the markup parses: every press must leave a well-formed document behind.
bool parses(Core::String const &markup)
{
    try {
        Xml::DomParser().parseString(markup);
        return true;
    } catch (Core::Exception const &) {
        return false;
    }
}

class DeletionCorpusTest : public ::testing::TestWithParam<std::string> {
protected:
    void pressAtRandomStopsThenUndoAll(Key key)
    {
        SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
        buffer->setContentFromFile(GetParam().c_str());
        Core::String const original = buffer->getContent();
        bool const wellFormed = parses(original);
        if (buffer->getCaretPos() < 0)
            GTEST_SKIP() << "no caret stop in this document";
        // Seeded by the file's name, not its path, so every checkout plays the same presses.
        std::string const name = std::filesystem::path(GetParam()).filename().string();
        std::mt19937 random(static_cast<unsigned>(std::hash<std::string>{}(name)) +
                            static_cast<unsigned>(key));
        for (int i = 0; i < kPresses; ++i) {
            wander(*buffer, random);
            int const caret = buffer->getCaretPos();
            press(*buffer, key);
            ASSERT_LT(buffer->getCaretPos(), buffer->getContent().length())
                << "press " << i << " from " << caret << " left the caret outside the document";
            if (wellFormed) {
                ASSERT_TRUE(parses(buffer->getContent()))
                    << "press " << i << " at " << caret << " broke the markup";
            }
        }
        while (buffer->canUndo())
            buffer->undo();
        EXPECT_EQ(buffer->getContent(), original);
    }
};

TEST_P(DeletionCorpusTest, BackspaceAtRandomStopsIsUndoneExactly)
{
    pressAtRandomStopsThenUndoAll(Key::Backspace);
}

TEST_P(DeletionCorpusTest, DeleteAtRandomStopsIsUndoneExactly)
{
    pressAtRandomStopsThenUndoAll(Key::Delete);
}

TEST_P(DeletionCorpusTest, EnterAtRandomStopsIsUndoneExactly)
{
    pressAtRandomStopsThenUndoAll(Key::Enter);
}

INSTANTIATE_TEST_SUITE_P(Corpus, DeletionCorpusTest, ::testing::ValuesIn(corpusFiles()), corpusParamName);

// Broken markup gives wrong answers, never a crash, an out-of-range read or a hang:
// every key at every position of a few broken documents.
TEST(DeletionMalformedTest, EveryKeyAtEveryPositionOfBrokenMarkupEnds)
{
    char const *const documents[] = {
        "<fo:root><fo:flow><fo:block>ab<fo:inline>cd</fo:block></fo:flow>",
        "<fo:root><fo:flow><fo:block>ab</fo:inline>cd<fo:block/></fo:flow></fo:root>",
        "<fo:root><fo:flow><fo:block>a&amp b&#x00A0<!-- x <fo:block>c</fo:block></fo:flow></fo:root>",
        "<fo:root><fo:flow><fo:block x=\"1>2\">a</fo:block><![CDATA[ ]]</fo:flow></fo:root>",
        "<?xml version=\"1.0\"?><fo:root><fo:flow><fo:block><fo:block><fo:block>&#x00A0;</fo:block></fo:flow>",
        "<fo:root><fo:flow><fo:block>a<fo:table><fo:block>b</fo:table></fo:block><fo:block>c</fo:bl",
        "<fo:root><fo:flow></fo:block>\u00A0</fo:block><fo:block>\u00A0 \u00A0</fo:flow></fo:root>",
    };
    for (char const *document : documents) {
        SCOPED_TRACE(document);
        for (Key key : {Key::Delete, Key::Backspace, Key::Enter}) {
            SmartPtr<EditableDocumentBuffer> buffer = makeStandardBuffer();
            Core::String const text = document;
            for (int position = 0; position < text.length(); ++position) {
                buffer->setContent(text, true);
                placeCaretExactly(*buffer, position, position);
                press(*buffer, key);
                ASSERT_LT(buffer->getCaretPos(), buffer->getContent().length()) << "at " << position;
            }
        }
    }
}

} // namespace
