#include "common/MarkedDocument.h"
#include "common/TestPaths.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBufferState.h"
#include "editing/FreezeNotifications.h"
#include "support/Exception.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

using foedit::test::loadMarked;
using foedit::test::loadMarkedDocument;
using foedit::test::makeStandardBuffer;
using foedit::test::markedContent;
using foedit::test::markedFlow;
using foedit::test::RecordingMonitor;
using foedit::test::wrapInFlow;
using Events = std::vector<std::string>;

namespace {

// Reaches the protected members the session's rules are about.
class SessionProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::replaceXmlText;
    using EditableDocumentBuffer::setCaret;
    bool isProtected() const { return documentProtected; }
    void openTypingGroup() { keyTypingGroup = new EditActionGroup(this); }
};

SmartPtr<SessionProbe> makeProbe()
{
    return makeStandardBuffer<SessionProbe>();
}

// A page sequence with a header region and the flow; `head` and `body` may be marked.
Core::String withStaticContent(Core::String const &head, Core::String const &body)
{
    return Core::String(
               "<?xml version=\"1.0\"?><fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
               "<fo:layout-master-set><fo:simple-page-master master-name=\"A4\"><fo:region-body/>"
               "</fo:simple-page-master></fo:layout-master-set><fo:page-sequence master-reference=\"A4\">"
               "<fo:static-content flow-name=\"xsl-region-before\">") +
           head + "</fo:static-content><fo:flow flow-name=\"xsl-region-body\">" + body +
           "</fo:flow></fo:page-sequence></fo:root>";
}

} // namespace

// Loading ----------------------------------------------------------------------------------

TEST(SessionTest, LoadingNormalisesLineEndsClearsTheHistoryAndPutsTheCaretHome)
{
    auto buffer = makeProbe();
    buffer->setContent(wrapInFlow("<fo:block>x</fo:block>"), true);
    buffer->setContent(wrapInFlow("<fo:block>y</fo:block>"), false);
    buffer->undo();
    ASSERT_TRUE(buffer->canUndo() && buffer->canRedo());
    buffer->setContent(wrapInFlow("<fo:block>a\r\nb\rc</fo:block>"), true);
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>|a\nb\rc</fo:block>");
    EXPECT_FALSE(buffer->canUndo());
    EXPECT_FALSE(buffer->canRedo());
}

// The pair of SetContent actions makes two undo steps; replay keeps the text as it was
// given, line-end pairs included.
TEST(SessionTest, ReplacingContentWithHistoryTakesTwoUndoStepsEachWay)
{
    auto buffer = makeProbe();
    Core::String const oldText = wrapInFlow("<fo:block>old</fo:block>");
    Core::String const newText = wrapInFlow("<fo:block>new\r\n</fo:block>");
    buffer->setContent(oldText, true);
    buffer->setContent(newText, false);
    EXPECT_EQ(buffer->getContent(), wrapInFlow("<fo:block>new\n</fo:block>"));

    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>|new\r\n</fo:block>");
    buffer->undo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>|old</fo:block>");
    EXPECT_FALSE(buffer->canUndo());

    buffer->redo();
    EXPECT_EQ(buffer->getContent(), oldText);
    buffer->redo();
    EXPECT_EQ(buffer->getContent(), newText);
    EXPECT_FALSE(buffer->canRedo());
}

TEST(SessionTest, LoadingAFileDecodesItByItsDeclarationAndClearsTheHistory)
{
    std::string const path = testing::TempDir() + "session_latin1.fo";
    std::string bytes = wrapInFlow("<fo:block>caf#</fo:block>").toUtf8();
    bytes.replace(bytes.find('#'), 1, "\xE9");
    bytes.replace(bytes.find("UTF-8\"?>"), 8, "ISO-8859-1\"?>\r\n");
    std::ofstream(path, std::ios::binary) << bytes;
    auto buffer = makeProbe();
    buffer->setContent(wrapInFlow("<fo:block>x</fo:block>"), false);
    buffer->setContentFromFile(Core::String(path));
    EXPECT_EQ(markedFlow(*buffer), Core::String(u"<fo:block>|caf\u00E9</fo:block>"));
    EXPECT_EQ(buffer->getContent().find("\r\n"), -1);
    EXPECT_FALSE(buffer->canUndo());
    std::remove(path.c_str());
}

TEST(SessionTest, AFileThatCannotBeOpenedThrowsAndLeavesTheContent)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>ab|c</fo:block>");
    RecordingMonitor monitor;
    buffer->setMonitor(&monitor);
    EXPECT_THROW(buffer->setContentFromFile(Core::String(testing::TempDir() + "no/such/file.fo")),
                 Core::Exception);
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>ab|c</fo:block>");
    EXPECT_EQ(buffer->getMonitor(), &monitor);
    EXPECT_TRUE(monitor.events.empty());
}

TEST(SessionTest, EveryCorpusDocumentLoadsWithACaretInAFlowOrNone)
{
    for (std::string const &file : foedit::test::corpusFiles()) {
        SCOPED_TRACE(file);
        auto buffer = makeProbe();
        buffer->setContentFromFile(Core::String(file));
        int const caret = buffer->getCaretPos();
        EXPECT_TRUE(caret == -1 || (caret > 0 && caret < buffer->getContent().length()));
        EXPECT_EQ(buffer->getSelectionPivotPos(), caret);
        EXPECT_FALSE(buffer->canUndo());
    }
}

// Nothing validates a loaded document; every query still answers, at every position.
TEST(SessionTest, MalformedDocumentsLoadAndQueriesStillAnswer)
{
    for (Core::String const &text :
         {Core::String(), Core::String("<fo:root><fo:flow><fo:block>ab"),
          Core::String("<<<>>>&;\"'</fo:root>"), Core::String("<fo:root a=\"></fo:root>"),
          Core::String("<fo:table><fo:static-content flow-name='x'><fo:block>")}) {
        SCOPED_TRACE(text.toUtf8());
        auto buffer = makeProbe();
        buffer->setContent(text, true);
        for (int p = -1; p <= text.length() + 1; ++p) {
            buffer->setCaretPos(false, p);
            buffer->isInFoStaticContent(p, "x");
            buffer->caretIsInsideTable();
            buffer->caretIsInsideList();
            buffer->caretIsInsideListItemLabel();
            buffer->updateCacheOnCaretChange();
        }
        EXPECT_FALSE(buffer->documentIsProtectedFromEditing());
        buffer->undo();
        buffer->redo();
    }
}

TEST(SessionTest, ProtectionComesFromTheSecurityRecordUnderTheRoot)
{
    struct Case {
        const char *security;
        bool isProtected;
    };
    for (Case const &c : {
             Case{"<ot:security object=\"document\"/>", true},
             Case{"<ot:security object=\"DOCUMENT\" enforce-protection=\"yes\" allow-editing=\"no\"/>", true},
             Case{"<ot:security object=\"document\" enforce-protection=\"False\"/>", false},
             Case{"<ot:security object=\"document\" allow-editing=\"TRUE\"/>", false},
             Case{"<ot:security object=\"region\"/>", false},
             Case{"<ot:info/><ot:security object=\"region\"/><ot:security object=\"document\"/>", true},
         }) {
        SCOPED_TRACE(c.security);
        auto buffer = makeProbe();
        Core::String text = wrapInFlow("<fo:block>a</fo:block>");
        text.insert(text.find("<fo:layout-master-set>"), c.security);
        buffer->setContent(text, true);
        EXPECT_EQ(buffer->isProtected(), c.isProtected);
    }
}

// The caret gate ----------------------------------------------------------------------------

TEST(SessionTest, CaretMovesNotifyCaretThenSelectionOnlyWhenASelectionIsInvolved)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>a|bcd</fo:block>");
    int const b = buffer->getCaretPos();
    RecordingMonitor monitor;
    buffer->setMonitor(&monitor);

    buffer->setCaret(false, b + 1);
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>ab|cd</fo:block>");
    EXPECT_EQ(monitor.events, (Events{"caret"}));

    monitor.clear();
    buffer->setCaret(true, b + 2);
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>ab^c|d</fo:block>");
    EXPECT_EQ(monitor.events, (Events{"caret", "selection"}));

    // Collapsing onto the caret changes only the selection.
    monitor.clear();
    buffer->setCaret(false, b + 2);
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>abc|d</fo:block>");
    EXPECT_EQ(monitor.events, (Events{"selection"}));

    // Extending to where the caret already is, with nothing selected, is no change.
    monitor.clear();
    buffer->setCaret(true, b + 2);
    EXPECT_TRUE(monitor.events.empty());

    // -1 clears both ends and always notifies both.
    buffer->setCaret(false, -1);
    buffer->setCaret(false, -1);
    EXPECT_EQ(buffer->getSelectionPivotPos(), -1);
    EXPECT_EQ(monitor.events, (Events{"caret", "selection", "caret", "selection"}));
}

// Header and flow: a selection never leaves its flow, page-master mode keeps the caret
// in static content, and the dummy page has no caret at all.
TEST(SessionTest, TheGateKeepsTheCaretWhereTheModesAllowIt)
{
    auto buffer = makeProbe();
    loadMarkedDocument(*buffer,
                       withStaticContent("<fo:block>h^ead</fo:block>", "<fo:block>b|ody</fo:block>"));
    int const inHead = buffer->getSelectionPivotPos();
    int const inBody = buffer->getCaretPos();
    EXPECT_TRUE(buffer->isInFoStaticContent(inHead, "xsl-region-before"));
    EXPECT_FALSE(buffer->isInFoStaticContent(inHead, "xsl-region-after"));
    EXPECT_FALSE(buffer->isInFoStaticContent(inBody, ""));
    buffer->resetSelection();
    RecordingMonitor monitor;
    buffer->setMonitor(&monitor);

    buffer->setCaret(true, inHead);
    EXPECT_EQ(buffer->getCaretPos(), inBody);
    EXPECT_EQ(buffer->getSelectionPivotPos(), inBody);
    EXPECT_TRUE(monitor.events.empty());

    buffer->setPageMasterEditingMode(true);
    buffer->setCaret(false, inBody + 1);
    EXPECT_EQ(buffer->getCaretPos(), inBody);
    EXPECT_TRUE(monitor.events.empty());
    buffer->setCaret(false, inHead);
    EXPECT_EQ(buffer->getCaretPos(), inHead);

    monitor.clear();
    buffer->setEditingDummyPage(true);
    buffer->setCaret(false, inHead);
    buffer->setCaret(true, inBody);
    EXPECT_EQ(buffer->getCaretPos(), -1);
    EXPECT_EQ(buffer->getSelectionPivotPos(), -1);
    EXPECT_EQ(monitor.events, (Events{"caret", "selection", "caret", "selection"}));
}

// Notifications and snapshots ---------------------------------------------------------------

TEST(SessionTest, FrozenScopesNestAndReportEachKindOnceInFixedOrder)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>a|bc</fo:block>");
    RecordingMonitor monitor;
    buffer->setMonitor(&monitor);
    {
        FreezeNotifications outer(buffer.get());
        {
            FreezeNotifications inner(buffer.get());
            buffer->setCaret(true, buffer->getCaretPos() + 1);                         // caret, selection
            buffer->replaceXmlText(buffer->getCaretPos(), buffer->getCaretPos(), "X"); // buffer
            buffer->setCaret(false, buffer->getCaretPos());
            EXPECT_TRUE(inner.isChanged());
        }
        EXPECT_TRUE(monitor.events.empty());
        EXPECT_TRUE(outer.isChanged());
    }
    EXPECT_EQ(monitor.events, (Events{"buffer", "caret", "selection"}));
    EXPECT_EQ(buffer->getMonitor(), &monitor);
}

// A rolled-back transaction gives back string, caret, pivot and the history exactly,
// and the host hears only what the frozen scope noted.
TEST(SessionTest, RestoringASnapshotGivesBackTheDocumentAndTheHistory)
{
    auto buffer = makeProbe();
    loadMarked(*buffer, "<fo:block>ab|c</fo:block>");
    int const c = buffer->getCaretPos();
    buffer->replaceXmlText(c, c - 1, "X"); // an insertion, recorded
    buffer->undo();
    buffer->setCaretPos(true, c - 1);
    ASSERT_EQ(markedFlow(*buffer), "<fo:block>a|b^c</fo:block>");
    std::string const before = markedContent(*buffer).toUtf8();
    EditActionStack const history(buffer->getActionStack());
    RecordingMonitor monitor;
    buffer->setMonitor(&monitor);
    {
        EditableDocumentBufferState const state(buffer.get());
        FreezeNotifications freeze(buffer.get());
        buffer->replaceXmlText(buffer->getCaretPos(), buffer->getCaretPos() + 1, "YZ");
        buffer->undo();
        buffer->setContent(wrapInFlow("<fo:block>new</fo:block>"), false);
        buffer->openTypingGroup(); // as the first key of a typing run does
        EditableDocumentBufferState copy(state);
        copy.restorePreviousState();
    }
    buffer->endKeyTypingSequence(); // the rolled-back group leaves no end marker
    EXPECT_EQ(markedContent(*buffer).toUtf8(), before);
    EXPECT_EQ(buffer->getActionStack().undoActionCount(), history.undoActionCount());
    EXPECT_EQ(buffer->getActionStack().redoActionCount(), history.redoActionCount());
    EXPECT_EQ(monitor.events, (Events{"buffer", "caret", "selection"}));

    // The history works on from where it was: redo puts the "X" back.
    buffer->redo();
    EXPECT_EQ(markedFlow(*buffer), "<fo:block>abX|c</fo:block>");
}
