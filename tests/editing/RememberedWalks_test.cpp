// The walks up that the markup layer remembers follow every splice of real edits:
// typing, Enter, Delete and Backspace, a selection deleted, and undo and redo of all
// of it. After each step every remembered answer is the one a fresh walk gives.

#include "common/MarkedDocument.h"
#include "common/TestPaths.h"

#include "editing/BreakType.h"
#include "editing/EditableDocumentBuffer.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

class WalkCheckedBuffer : public EditableDocumentBuffer {
public:
    bool walksAgreeAtCaret() const { return rememberedWalksAgreeWithString(std::max(caret, 0)); }
    // Fills the memo the way a host does: asking about the caret's flow and table.
    void askAboutCaret() const
    {
        isInFoFlow(caret);
        searchParent("fo:table", caret);
        getNamespacesFromAllContainers(caret);
    }
};

struct Step {
    const char *name;
    std::function<void(WalkCheckedBuffer &)> run;
};

} // namespace

TEST(RememberedWalks, FollowEditsUndoAndRedoOfACorpusDocument)
{
    for (const char *file : {"basic__readme.fo", "basic__table.fo"}) {
        SmartPtr<WalkCheckedBuffer> buffer(new WalkCheckedBuffer());
        foedit::test::configureStandardHost(*buffer);
        buffer->setContentFromFile(Core::String(foedit::test::corpusDir() + "/" + file));
        const Core::String original = buffer->getContent();
        const std::vector<Step> steps{
            {"type", [](WalkCheckedBuffer &b) { b.insertText("ab c", false, false); }},
            {"right", [](WalkCheckedBuffer &b) { b.moveCaretRight(false, false, true); }},
            {"enter", [](WalkCheckedBuffer &b) { b.insertBreak(ParagraphBreak, false); }},
            {"line break", [](WalkCheckedBuffer &b) { b.insertBreak(LineBreak, false); }},
            {"backspace", [](WalkCheckedBuffer &b) { b.erase(false, false); }},
            {"delete", [](WalkCheckedBuffer &b) { b.erase(true, false); }},
            {"select and delete",
             [](WalkCheckedBuffer &b) {
                 for (int i = 0; i < 40; ++i)
                     b.moveCaretRight(true, false, true);
                 b.erase(true, false);
             }},
            {"word jump", [](WalkCheckedBuffer &b) { b.jumpToNextWord(false); }},
        };
        int undoable = 0;
        for (int round = 0; round < 12; ++round) {
            for (Step const &step : steps) {
                buffer->askAboutCaret();
                step.run(*buffer);
                ASSERT_TRUE(buffer->walksAgreeAtCaret()) << file << ", round " << round << ": " << step.name;
            }
        }
        while (buffer->canUndo()) {
            buffer->undo();
            buffer->askAboutCaret();
            ASSERT_TRUE(buffer->walksAgreeAtCaret()) << file << ": undo " << undoable;
            ++undoable;
        }
        EXPECT_EQ(buffer->getContent(), original) << file;
        for (int i = 0; i < undoable && buffer->canRedo(); ++i) {
            buffer->redo();
            buffer->askAboutCaret();
            ASSERT_TRUE(buffer->walksAgreeAtCaret()) << file << ": redo " << i;
        }
    }
}
