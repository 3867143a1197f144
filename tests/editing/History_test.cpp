#include "common/MarkedDocument.h"

#include "editing/EditActionGroup.h"
#include "editing/EditActionStack.h"
#include "editing/FreezeNotifications.h"

#include <gtest/gtest.h>

#include <string>

namespace {

EditAction insert(int position, Core::String text)
{
    return EditAction(EditAction::InsertText, position, -1, -1, std::move(text));
}

EditAction erase(int position, Core::String text)
{
    return EditAction(EditAction::DeleteText, position, -1, -1, std::move(text));
}

EditAction caretMark(int caret, int pivot)
{
    return EditAction(EditAction::SetCaret, -1, caret, pivot, Core::String());
}

// A list as text, front first: "I3:ab" insert, "D3:ab" delete, "C5/5" caret mark,
// "S" whole content, "(" and ")" group markers.
std::string describe(std::list<EditAction> const &actions)
{
    std::string out;
    for (EditAction const &action : actions) {
        out += out.empty() ? "" : " ";
        out += "IDSC()"[action.getType()];
        if (action.getType() <= EditAction::DeleteText)
            out += std::to_string(action.getActionPosition()) + ":" + action.getString().toUtf8();
        if (action.getType() == EditAction::SetCaret)
            out += std::to_string(action.getCaretPosition()) + "/" +
                   std::to_string(action.getSelPivotPosition());
    }
    return out;
}

std::string undoList(EditActionStack const &stack)
{
    return describe(stack.getUndoActions());
}

std::string redoList(EditActionStack const &stack)
{
    return describe(stack.getRedoActions());
}

} // namespace

TEST(EditActionStackTest, StoresInversesAndMovesMirrorsBetweenTheLists)
{
    EditActionStack stack;
    {
        EditActionGroup group(&stack);
        stack.addAction(caretMark(3, 3));
        stack.addAction(insert(3, "ab"));
        stack.addAction(erase(7, "x"));
    }
    EXPECT_EQ(undoList(stack), "( C3/3 D3:ab I7:x )");

    // Taken from the back, as stored; the redo list gets the mirror.
    EXPECT_EQ(stack.getUndoAction().getType(), EditAction::GroupEnd);
    EditAction const taken = stack.getUndoAction();
    EXPECT_EQ(taken.getType(), EditAction::InsertText);
    EXPECT_EQ(taken.getString(), "x");
    EXPECT_EQ(undoList(stack), "( C3/3 D3:ab");
    EXPECT_EQ(redoList(stack), "( D7:x");

    EXPECT_EQ(stack.getRedoAction().getType(), EditAction::DeleteText);
    EXPECT_EQ(undoList(stack), "( C3/3 D3:ab I7:x");
    EXPECT_EQ(redoList(stack), "(");
}

TEST(EditActionStackTest, EmptySplicesLeaveNoTraceButCaretMarksKillTheRedoBranch)
{
    EditActionStack stack;
    stack.addAction(insert(0, "a"));
    stack.getUndoAction();
    ASSERT_TRUE(stack.hasMoreRedoActions());

    stack.addAction(erase(4, ""));
    stack.addAction(insert(4, ""));
    EXPECT_EQ(undoList(stack), "");
    EXPECT_EQ(redoList(stack), "I0:a");

    stack.addAction(caretMark(1, 1));
    EXPECT_EQ(undoList(stack), "C1/1");
    EXPECT_FALSE(stack.hasMoreRedoActions());
}

TEST(EditActionStackTest, LimitDropsTheOldestOneAtATimeCountingMarkers)
{
    EditActionStack stack(3);
    stack.addAction(insert(0, "a"));
    stack.addAction(insert(1, "b"));
    stack.addAction(insert(2, "c"));
    stack.addAction(insert(3, "d"));
    EXPECT_EQ(undoList(stack), "D1:b D2:c D3:d");

    // Markers are not trimmed for when they go in, but they are counted, so the list
    // can stand over the limit; each later addition still trims one action only.
    stack.startActionGroup();
    EXPECT_EQ(stack.undoActionCount(), 4);
    stack.addAction(insert(4, "e"));
    EXPECT_EQ(undoList(stack), "D2:c D3:d ( D4:e");
    stack.endActionGroup();
    stack.addAction(insert(5, "f"));
    EXPECT_EQ(undoList(stack), "D3:d ( D4:e ) D5:f");
}

TEST(EditActionStackTest, TrackingPositionFollowsSplicesAndIsNotClamped)
{
    EditActionStack stack;
    stack.startTrackingPos(10);
    stack.addAction(insert(10, "abc")); // at the position: moves
    stack.addAction(insert(20, "x"));   // after it: stays
    stack.addAction(erase(2, "12345")); // spans nothing after it, still subtracts
    EXPECT_EQ(stack.retrieveTrackingPos(), 8);
    EXPECT_EQ(stack.retrieveTrackingPos(), -1);

    stack.startTrackingPos(4);
    stack.addAction(erase(3, "0123456789")); // the position was inside: no clamping
    EXPECT_EQ(stack.retrieveTrackingPos(), -6);

    // Undo of an insertion takes its length back off; redo adds it again.
    stack.clearStack();
    stack.addAction(insert(0, "ab"));
    stack.startTrackingPos(5);
    stack.getUndoAction();
    stack.startTrackingPos(stack.retrieveTrackingPos());
    EXPECT_EQ(stack.retrieveTrackingPos(), 3);
    stack.startTrackingPos(3);
    stack.getRedoAction();
    stack.clearStack(); // empties both lists, leaves the tracking alone
    EXPECT_FALSE(stack.hasMoreUndoActions() || stack.hasMoreRedoActions());
    EXPECT_EQ(stack.retrieveTrackingPos(), 5);
}

// A transaction rolled back gives back exactly the history it started from, whatever
// it did to the lists: trims at the limit, a killed redo branch, undo, a cleared stack.
TEST(EditActionStackTest, RollingBackACheckpointRestoresListsLimitAndTracking)
{
    EditActionStack stack(4);
    stack.addAction(insert(0, "a"));
    stack.addAction(insert(1, "b"));
    stack.addAction(insert(2, "c"));
    stack.addAction(insert(3, "d"));
    stack.getUndoAction();
    stack.startTrackingPos(9);
    EditActionStack const before(stack);

    EditActionStack::Checkpoint const checkpoint = stack.openCheckpoint();
    stack.addAction(insert(5, "e"));
    stack.addAction(insert(6, "f"));
    stack.getUndoAction();
    stack.getUndoAction();
    stack.getUndoAction();
    stack.getRedoAction();
    stack.startTrackingPos(1);
    stack.clearStack();
    stack.addAction(insert(7, "g"));
    stack = EditActionStack(2);

    stack.rollBackTo(checkpoint);
    EXPECT_EQ(undoList(stack), undoList(before));
    EXPECT_EQ(redoList(stack), redoList(before));
    EXPECT_EQ(stack.getLimit(), 4);
    EXPECT_EQ(stack.retrieveTrackingPos(), 9);

    // The checkpoint stays usable after a roll-back.
    stack.addAction(insert(8, "h"));
    stack.rollBackTo(checkpoint);
    EXPECT_EQ(undoList(stack), undoList(before));
    stack.releaseCheckpoint();
    EXPECT_EQ(stack.openCheckpointCount(), 0);
}

TEST(EditActionStackTest, NestedCheckpointsRollBackToTheirOwnPoint)
{
    EditActionStack stack;
    stack.addAction(insert(0, "a"));
    EditActionStack::Checkpoint const outer = stack.openCheckpoint();
    stack.addAction(insert(1, "b"));
    EditActionStack::Checkpoint const inner = stack.openCheckpoint();
    stack.getUndoAction();
    stack.getUndoAction();

    stack.rollBackTo(inner);
    EXPECT_EQ(undoList(stack), "D0:a D1:b");
    EXPECT_EQ(redoList(stack), "");
    stack.releaseCheckpoint();

    stack.rollBackTo(outer);
    EXPECT_EQ(undoList(stack), "D0:a");

    // Released without a roll-back, the changes stay.
    stack.addAction(insert(2, "c"));
    stack.releaseCheckpoint();
    EXPECT_EQ(undoList(stack), "D0:a D2:c");
}

// The buffer's history ------------------------------------------------------------------

using foedit::test::EditCheck;
using foedit::test::expectEdit;
using foedit::test::markedFlow;

namespace {

class HistoryProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::addAction;
    using EditableDocumentBuffer::addCaretMark;
    using EditableDocumentBuffer::deleteXmlText;
    using EditableDocumentBuffer::insertXmlTextAtPosition;
    using EditableDocumentBuffer::replaceXmlText;
};

SmartPtr<HistoryProbe> loadProbe(Core::String const &markedBody)
{
    return foedit::test::makeMarkedBuffer<HistoryProbe>(markedBody);
}

// Positions in the flow body, counted from the body's first unit.
int at(int bodyOffset)
{
    return foedit::test::flowBodyStart() + bodyOffset;
}

// A recorded edit the way every editing operation makes one.
void recordedInsert(HistoryProbe &buffer, int position, Core::String const &text)
{
    EditActionGroup group(&buffer);
    buffer.addCaretMark();
    buffer.insertXmlTextAtPosition(position, text);
    buffer.addAction(EditAction(EditAction::InsertText, position, -1, -1, text));
    buffer.addCaretMark();
}

} // namespace

//  <fo:block>ab|cd</fo:block>
//  0123456789^
TEST(HistoryTest, InsertionsCarryCaretAndPivotAtOrAfterTheirPosition)
{
    auto buffer = loadProbe("<fo:block>a^b|cd</fo:block>");
    buffer->insertXmlTextAtPosition(at(12), "X");
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>a^bX|cd</fo:block>");
    buffer->insertXmlTextAtPosition(at(11), "Y");
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>aY^bX|cd</fo:block>");
    buffer->insertXmlTextAtPosition(at(15), "Z");
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>aY^bX|cZd</fo:block>");
    buffer->insertXmlTextAtPosition(-1, "never");
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>aY^bX|cZd</fo:block>");
}

// A value on `last` ends one before `first`, not on it.
TEST(HistoryTest, DeletionsMoveCaretAndPivotByTheirOwnRule)
{
    struct Case {
        const char *before;
        int first, last;
        const char *after;
    };
    for (Case const &c : {
             Case{"<fo:block>a|bcdef</fo:block>", 11, 13, "<fo:block>a|ef</fo:block>"}, // at first: stays
             Case{"<fo:block>ab|cdef</fo:block>", 11, 13, "<fo:block>a|ef</fo:block>"}, // inside: first
             Case{"<fo:block>abc|def</fo:block>", 11, 13, "<fo:block>|aef</fo:block>"}, // on last: first - 1
             Case{"<fo:block>abcd|ef</fo:block>", 11, 13, "<fo:block>a|ef</fo:block>"}, // just after
             Case{"<fo:block>abcde|f</fo:block>", 11, 13, "<fo:block>ae|f</fo:block>"}, // later: shifts
             Case{"<fo:block>a^bcde|f</fo:block>", 11, 13, "<fo:block>a^e|f</fo:block>"}, // both ends
         }) {
        SCOPED_TRACE(c.before);
        auto buffer = loadProbe(c.before);
        EXPECT_EQ(buffer->deleteXmlText(at(c.first), at(c.last)), "bcd");
        EXPECT_EQ(markedFlow(*buffer), c.after);
    }
    auto buffer = loadProbe("<fo:block>ab|c</fo:block>");
    EXPECT_EQ(buffer->deleteXmlText(at(12), at(100000)), "");
    EXPECT_EQ(buffer->deleteXmlText(-1, at(11)), "");
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>ab|c</fo:block>");
}

TEST(HistoryTest, AReplacementIsOneUndoStepWithTheSelectionRestored)
{
    EditCheck("<fo:block>a^bc|d</fo:block>")
        .expectOn<HistoryProbe>([](HistoryProbe &b) { b.replaceXmlText(at(11), at(12), "XYZ"); },
                                "<fo:block>aXYZ|d</fo:block>");
}

TEST(HistoryTest, NestedGroupsAreUndoneAndRedoneAsOneStep)
{
    EditCheck("<fo:block>ab|</fo:block>")
        .expectOn<HistoryProbe>(
            [](HistoryProbe &b) {
                EditActionGroup outer(&b);
                recordedInsert(b, at(12), "1");
                {
                    EditActionGroup inner(&b);
                    recordedInsert(b, at(13), "2");
                }
                b.replaceXmlText(at(10), at(10), "A");
            },
            "<fo:block>Ab12|</fo:block>");
}

TEST(HistoryTest, AnEmptyGroupIsAnUndoStepThatChangesNothing)
{
    auto buffer = loadProbe("<fo:block>a|b</fo:block>");
    recordedInsert(*buffer, at(12), "c");
    {
        EditActionGroup empty(buffer.get());
    }
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>a|bc</fo:block>");
    EXPECT_TRUE(buffer->canRedo());
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>a|b</fo:block>");
}

TEST(HistoryTest, ACaretLeftOutOfRangeByAReplayGoesHome)
{
    auto buffer = loadProbe("<fo:block>a|b</fo:block><fo:block>c</fo:block>");
    buffer->addAction(EditAction(EditAction::SetCaret, -1, 100000, 100000, Core::String()));
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>|ab</fo:block><fo:block>c</fo:block>");
}

// With the oldest actions trimmed away, the first step's group has lost its start:
// undo runs to the end of the list and stops there.
TEST(HistoryTest, UndoPastATrimmedHistoryJustStops)
{
    auto buffer = loadProbe("<fo:block>|</fo:block>");
    buffer->getActionStack() = EditActionStack(7);
    for (int i = 0; i < 3; ++i)
        recordedInsert(*buffer, at(10 + i), Core::String::number(static_cast<long long>(i)));
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>012|</fo:block>");
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>01|</fo:block>");
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>0|</fo:block>");
    EXPECT_FALSE(buffer->canUndo());
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>0|</fo:block>");
    buffer->redo();
    buffer->redo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>012|</fo:block>");
}

// A typing run is one undo step; moving the caret ends it.
TEST(HistoryTest, TypingIsOneUndoStepUntilTheCaretIsMoved)
{
    EditCheck("<fo:block>a|</fo:block>")
        .expect(
            [](EditableDocumentBuffer &b) {
                for (const char *key : {"b", "c", "d"})
                    b.insertText(key, false, false);
            },
            "<fo:block>abcd|</fo:block>");

    auto buffer = loadProbe("<fo:block>a|</fo:block>");
    buffer->insertText("b", false, false);
    buffer->setCaretPos(false, buffer->getCaretPos());
    buffer->insertText("c", false, false);
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>ab|</fo:block>");
}

// Markup that would break the document is rolled back, and the history with it:
// undo and redo go on exactly as if the call had not happened.
TEST(HistoryTest, ARolledBackInsertionLeavesTheHistoryAsItWas)
{
    auto buffer = loadProbe("<fo:block>a|</fo:block>");
    buffer->insertText("b", false, false);
    buffer->insertText("c", false, false);
    buffer->undo();
    buffer->insertText("x", false, false);
    buffer->undo();
    std::string const undoBefore = undoList(buffer->getActionStack());
    std::string const redoBefore = redoList(buffer->getActionStack());

    EXPECT_TRUE(buffer->insertText("<fo:block", true, false));
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>a|</fo:block>");
    buffer->endKeyTypingSequence();
    EXPECT_EQ(undoList(buffer->getActionStack()), undoBefore);
    EXPECT_EQ(redoList(buffer->getActionStack()), redoBefore);
    buffer->redo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>ax|</fo:block>");
}
