// The frame of the Delete and Backspace keys: the transaction around one key press,
// the step that picks the direction, and the repairs every step ends with. The
// deletions themselves are in EditableDocumentBuffer_DeleteForward.cpp and
// EditableDocumentBuffer_DeleteBackwards.cpp.
#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"
#include "editing/DeletionConstants.h"
#include "editing/DeletionSteps.h"
#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBufferState.h"
#include "editing/FreezeNotifications.h"
#include "template/XmlValidator.h"

using namespace DeletionConstants;

// The phases of one erase step around the deletion proper.
class EraseSteps : public DeletionSteps {
public:
    using DeletionSteps::DeletionSteps;

    // What the caret stands in, found in one walk up its ancestors.
    struct CaretContext {
        bool inListItemLabel = false;
        bool inList = false;
        bool inTable = false;
    };
    CaretContext caretContext();
    bool wordEraseStaysInCell(bool forward);
    void eraseForward(bool wholeWord);
    void eraseBackward(bool wholeWord);
    void keepInlineInTemplateInline();
    void repairCollapsedSpaces();

private:
    void moveCaretOffSkippedPosition();
};

void EditableDocumentBuffer::erase(bool forward, bool wholeWord)
{
    if (isOnInvalidPosition(caret))
        return;
    EraseSteps::CaretContext const context = EraseSteps(*this).caretContext();
    if (context.inListItemLabel)
        return;
    endKeyTypingSequence();
    EditableDocumentBufferState snapshot(this);
    FreezeNotifications freeze(this);
    {
        // The group closes before a roll-back, so that the restored history does
        // not receive the end marker of a group it never saw start.
        EditActionGroup group(this);
        if (context.inList && !hasSelectedText()) {
            eraseInList(forward, wholeWord); // list items have their own Delete and Backspace
        } else if (wholeWord && context.inTable && !hasSelectedText()) {
            if (EraseSteps(*this).wordEraseStaysInCell(forward))
                eraseTextFromBuffer(forward, wholeWord, true);
        } else {
            eraseTextFromBuffer(forward, wholeWord, true);
        }
        addCaretMark(); // the caret where the steps left it, for redo
    }
    if (!XmlValidator(content).validate())
        snapshot.restorePreviousState();
    notifyCaretChanged();
}

void EditableDocumentBuffer::eraseTextFromBuffer(bool forward, bool wholeWord, bool /*ignored*/)
{
    endKeyTypingSequence();
    EraseSteps steps(*this);
    if (hasSelectedText()) {
        deleteSelection(false);
        if (wholeWord)
            eraseTextFromBuffer(forward, true, true); // Control with a selection takes a word more
    } else if (forward) {
        steps.eraseForward(wholeWord);
    } else {
        steps.eraseBackward(wholeWord);
    }
    steps.keepInlineInTemplateInline();
    steps.repairCollapsedSpaces();
}

// The three questions erase asks of the caret's ancestors, in one walk. A list, a list
// label or a table never encloses a flow or a static content, so the walk stops there
// instead of walking back over everything before it.
EraseSteps::CaretContext EraseSteps::caretContext()
{
    CaretContext context;
    int element = doc.getCurrentElementPosition(doc.caret);
    while (element >= 0 && !tagNameIs(element, kFlow) && !tagNameIs(element, kStaticContent)) {
        context.inListItemLabel = context.inListItemLabel || tagNameIs(element, kListItemLabel);
        context.inList = context.inList || tagNameIs(element, kListBlock);
        context.inTable = context.inTable || tagNameIs(element, kTable);
        int const parent = doc.getCurrentElementPosition(element);
        if (parent >= element)
            break;
        element = parent;
    }
    return context;
}

// A word deletion never leaves its table cell.
bool EraseSteps::wordEraseStaysInCell(bool forward)
{
    int const target = forward ? doc.getNextEditablePositionInFo(doc.caret, false, false)
                               : doc.getPreviousEditablePositionInFo(doc.caret, false, false);
    int const cell = doc.searchParent(kTableCell, doc.caret, false, true, Core::String());
    int const targetCell =
        target < 0 ? -1 : doc.searchParent(kTableCell, target, false, true, Core::String());
    return cell == targetCell;
}

void EraseSteps::eraseForward(bool wholeWord)
{
    int const element = doc.getCurrentElementPosition(doc.caret);
    if (element >= 0 && doc.elementContainsJustNonBreakingSpace(element) &&
        doc.elementIsLastBlockInFlow(element)) {
        // Nothing follows the last empty block of a flow: Delete removes the block
        // itself, as Backspace does.
        doc.eraseTextFromBuffer(false, false, false);
        return;
    }
    if (wholeWord) {
        doc.addCaretMark();
        if (doc.beforeFOTable(doc.caret))
            doc.eraseTextFromBuffer(true, false, false);
        doc.jumpToNextWord(true);
        doc.eraseTextFromBuffer(true, false, false); // removes what the jump selected
        return;
    }
    int position = doc.caret;
    doc.addCaretMark();
    doc.deleteForward(position);
    if (doc.canHoldCaret(position))
        doc.setCaret(false, position);
    doc.addCaretMark();
    doc.handleElementsContainingJustWhiteSpaces(doc.caret, true);
    moveCaretOffSkippedPosition();
}

void EraseSteps::eraseBackward(bool wholeWord)
{
    if (wholeWord) {
        doc.addCaretMark();
        if (doc.afterFOTable(doc.caret))
            doc.eraseTextFromBuffer(false, false, false);
        doc.jumpToPreviousWord(true);
        doc.eraseTextFromBuffer(false, false, false);
        return;
    }
    int position = doc.caret;
    doc.addCaretMark();
    doc.deleteBackwards(position);
    doc.setCaret(false, position); // unlike Delete, with no canHoldCaret test
    doc.addCaretMark();
    doc.handleElementsContainingJustWhiteSpaces(doc.caret, true);
    doc.addCaretMark();
    moveCaretOffSkippedPosition();
    int const element = doc.getCurrentElementPosition(doc.caret);
    if (element >= 0 && doc.elementContainsJustNonBreakingSpace(element)) {
        // The caret always ends in front of the placeholder: <fo:block>|&#x00A0;</fo:block>
        doc.endKeyTypingSequence();
        doc.setCaret(false, doc.getNonBreakingSpacePosition(element));
        doc.addCaretMark();
    }
}

// The rendering swallows a skipped position, so the caret can't stay on one.
void EraseSteps::moveCaretOffSkippedPosition()
{
    if (doc.isOnInvalidPosition(doc.caret))
        return;
    BufferAlgorithms::WhitespaceAlg rules(doc);
    rules.loadFromElement(doc.getCurrentElementPosition(doc.caret));
    if (!rules.isPositionSkipped(doc.caret))
        return;
    int const before = doc.caret;
    doc.moveCaretRight(false, false, false);
    if (doc.caret == before || doc.isOnInvalidPosition(doc.caret))
        doc.moveCaretLeft(false, false, false);
}

// "otd:conditional-inline" and "otd:inline-repeat" must hold an inline: with the caret
// directly in one, <fo:inline>&#x00A0;</fo:inline> goes in and the caret inside it.
void EraseSteps::keepInlineInTemplateInline()
{
    if (doc.isOnInvalidPosition(doc.caret))
        return;
    Core::String const name = doc.getCurrentElementName(doc.caret);
    if (name != kConditionalInline && name != kInlineRepeat)
        return;
    int const at = doc.caret;
    Core::String const inlineMarkup = kEmptyInline;
    doc.insertXmlTextAtPosition(at, inlineMarkup);
    doc.endKeyTypingSequence();
    doc.setCaret(false, doc.getNextEditablePositionInFo(at, false, false));
    doc.addAction(EditAction(EditAction::InsertText, at, doc.caret, doc.selectionPivot, inlineMarkup));
    doc.addCaretMark();
}

// Two plain spaces that a deletion brought together would render as one:
//   "ab |cd ef" with "cd" deleted  ->  "ab | ef"  ->  "ab |&#x00A0;ef"
// so the last space of the run becomes a non-breaking space.
void EraseSteps::repairCollapsedSpaces()
{
    int const caret = doc.caret;
    if (doc.isOnInvalidPosition(caret) || caret < 1)
        return;
    if (doc.content[caret] != u' ' || doc.content[caret - 1] != u' ')
        return;
    BufferAlgorithms::WhitespaceAlg rules(doc);
    rules.loadFromElement(doc.getCurrentElementPosition(caret));
    if (!rules.isPositionSkipped(caret) && !rules.isPositionSkipped(caret - 1))
        return;
    int last = caret;
    while (doc.content[last + 1] == u' ')
        ++last;
    doc.replaceXmlText(last, last, kEntityPlaceholder);
    doc.setCaret(false, last);
    doc.addAction(EditAction(EditAction::SetCaret, -1, last, last, Core::String()));
}

Core::String EditableDocumentBuffer::deleteContentAndAdjustCaret(int from, int end)
{
    if (isOnInvalidPosition(end) || isOnInvalidPosition(from) || from > end)
        return Core::String();
    Core::String removed;
    if (from < end)
        removed = deleteXmlText(from, end - 1);
    if (!canHoldCaret(caret)) {
        int const before = caret;
        moveCaretRight(false, false, false);
        if (caret == before)
            moveCaretLeft(false, false, false);
    }
    setCaret(false, from);
    notifyBufferChanged();
    return removed;
}

void EditableDocumentBuffer::deleteParent(Core::String const &name)
{
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    EditActionGroup group(this);
    addCaretMark();
    int const start = searchParent(name, caret, false, true, Core::String());
    int const closing = start < 0 ? -1 : getClosingTagForTagAtPosition(start);
    int const end = closing < 0 ? -1 : getNextEditablePositionInXml(closing);
    if (end > start) {
        addAction(EditAction(EditAction::SetCaret, 0, caret, selectionPivot, Core::String()));
        Core::String const removed = deleteXmlText(start, end - 1);
        addAction(EditAction(EditAction::DeleteText, start, -1, -1, removed));
        addAction(EditAction(EditAction::SetCaret, 0, caret, selectionPivot, Core::String()));
    }
    int const element = getCurrentElementPosition(caret);
    if (element < 0 || !elementContainsJustWhitespacesOrVoid(element))
        return;
    int const elementEnd = getClosingTagForTagAtPosition(element);
    if (elementEnd < 0)
        return;
    // The placeholder goes just in front of the closing tag.
    addAction(EditAction(EditAction::SetCaret, 0, caret, selectionPivot, Core::String()));
    addAction(EditAction(EditAction::InsertText, elementEnd, -1, -1, kEntityPlaceholder));
    insertXmlTextAtPosition(elementEnd, kEntityPlaceholder);
    addAction(EditAction(EditAction::SetCaret, 0, caret, selectionPivot, Core::String()));
}

// True when no "</fo:block" stands between the end of the element and the end of its
// flow. Searching forward from the element keeps this local: the common answer,
// false, is found at the next closing block tag.
bool EditableDocumentBuffer::elementIsLastBlockInFlow(int elementPosition)
{
    int const closing = getClosingTagForTagAtPosition(elementPosition);
    if (closing < 0 || !content.matchesAt(closing, kBlockClosingPrefix))
        return false;
    int const flowEnd = content.find(kFlowClosingPrefix, closing + 1);
    if (flowEnd < 0)
        return false;
    int const nextBlockEnd = content.find(kBlockClosingPrefix, closing + 1);
    if (nextBlockEnd >= 0 && nextBlockEnd < flowEnd)
        return false;
    return searchParent(kFlow, elementPosition, false, true, Core::String()) >= 0;
}

bool EditableDocumentBuffer::imbricatedBlocksContext(int position)
{
    if (!onTagStartPosition(position) || !DeletionSteps(*this).tagNameIs(position, kBlock))
        return false;
    return getCurrentElementName(position) == kBlock;
}
