// Enter and the break commands: the entry that picks the kind of break, the line
// break, and Enter at the first and last positions of tables and forms. The split
// itself is insertHardBreak, in EditableDocumentBuffer_HardBreak.cpp.
#include "editing/EditableDocumentBuffer.h"

#include "editing/DeletionConstants.h"
#include "editing/DeletionSteps.h"
#include "editing/EditActionGroup.h"
#include "editing/FreezeNotifications.h"

#include <algorithm>

using namespace DeletionConstants;

// Enter at the very first or very last caret position of a table or a form: the
// paragraph is made in front of the container or behind it.
class EnterAtContainerEdge : public DeletionSteps {
public:
    using DeletionSteps::DeletionSteps;

    // True when the caret stood at such an edge and the break was made.
    bool run(int element);

private:
    int firstPositionBehindFooter(int footer);
    bool crossesCell(int from);
    void markCaret()
    {
        doc.addAction(EditAction(EditAction::SetCaret, 0, doc.caret, doc.selectionPivot, Core::String()));
    }
    bool breakBefore(int first);
    bool breakBehind(int last);

    int element = -1;   // the current element at the caret
    int form = -1;      // the nearest "ot:form" when it is the container, else -1
    int container = -1; // the inner of the nearest table and form
    bool formInTable = false;
};

void EditableDocumentBuffer::insertBreak(BreakType type, bool after)
{
    // A list label never encloses a flow: the walk up stops there.
    if (searchParent(kListItemLabel, caret, false, true, kFlow) >= 0)
        return;
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    EditActionGroup group(this);
    Core::String const name = after ? "fo:break-after" : "fo:break-before";
    switch (type) {
    case LineBreak:
        insertLineBreak(false);
        break;
    case ParagraphBreak:
        insertLineBreak(true);
        break;
    case ListBreak:
        insertListBreak();
        break;
    case PageBreak:
        insertBreakProperty(name, "page");
        break;
    case ColumnBreak:
        insertBreakProperty(name, "column");
        break;
    case OddPageBreak:
        insertBreakProperty(name, "odd-page");
        break;
    case EvenPageBreak:
        insertBreakProperty(name, "even-page");
        break;
    default:
        break; // a host may pass any number; the others do nothing
    }
}

// A page or column break: a paragraph break whose new block keeps only its
// formatting properties and carries the break property.
void EditableDocumentBuffer::insertBreakProperty(Core::String const &name, Core::String const &value)
{
    if (isOnInvalidPosition(caret))
        return;
    addCaretMark();
    insertLineBreak(true);
    Core::String const path = getPathToParent(getPathForPosition(caret), kBlock);
    PropertyCollection properties = getProperties(path);
    properties.removeNonFormattingProperties();
    removeProperties(path);
    properties.addProperty(EditableProperty(name, value), true);
    setProperties(properties, path);
    addCaretMark();
}

void EditableDocumentBuffer::insertLineBreak(bool hard)
{
    if (isOnInvalidPosition(caret))
        return;
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    EditActionGroup group(this);
    addCaretMark();
    if (hard) {
        insertParagraphBreak();
    } else {
        handleElementsContainingJustWhiteSpaces(caret, true); // an empty element gets its placeholder first
        insertSoftBreak();
    }
    endKeyTypingSequence();
    addCaretMark();
}

void EditableDocumentBuffer::insertParagraphBreak()
{
    int const element = getCurrentElementPosition(caret);
    if (element < 0 || EnterAtContainerEdge(*this).run(element))
        return;
    if (elementContainsJustNonBreakingSpace(element) && getNonBreakingSpacePosition(element) == caret) {
        // <fo:block>|&#x00A0;</fo:block>: the split goes behind the placeholder, so
        // that the old block keeps it and the new one gets its own.
        setCaret(false, getNextEditablePositionInXml(caret));
    }
    insertHardBreak();
}

bool EnterAtContainerEdge::run(int currentElement)
{
    element = currentElement;
    // One walk up, which stops at the flow: tables and forms never enclose one. A form
    // outside the nearest table is never the container, so only a table outside the
    // nearest form is looked for.
    int const nearest = doc.searchFirstParent({kTable, kForm}, doc.caret, false, true, kFlow);
    if (nearest < 0)
        return false;
    int table = nearest;
    if (tagNameIs(nearest, kForm)) {
        form = nearest;
        table = doc.searchParent(kTable, nearest, false, true, kFlow);
    }
    container = std::max(table, form);
    formInTable = table >= 0 && form > table;
    int footer = -1;
    int first = doc.getNextEditablePositionInFo(container, false, false);
    if (container == table) {
        footer = doc.getNextChildByName(kTableFooter, table);
        if (footer >= 0 && doc.elementContainsPosition(footer, first))
            first = firstPositionBehindFooter(footer);
    }
    if (!doc.isOnInvalidPosition(first) && first == doc.caret && breakBefore(first))
        return true;
    int const end = doc.getClosingTagForTagAtPosition(footer >= 0 ? footer : container);
    int const last = end < 0 ? -1 : doc.getPreviousEditablePositionInFo(end, false, false);
    return !doc.isOnInvalidPosition(last) && last == doc.caret && breakBehind(last);
}

// The footer stands before the body in the markup but comes last in reading order:
// a table with a footer first shows its first row behind the footer.
int EnterAtContainerEdge::firstPositionBehindFooter(int footer)
{
    int const footerEnd = doc.getClosingTagForTagAtPosition(footer);
    int const row = footerEnd < 0 ? -1 : doc.getNextElementByName(kTableRow, footerEnd);
    return row < 0 ? -1 : doc.getNextEditablePositionInFo(row, false, false);
}

// A form in a table cell: the caret move must not have left the cell.
bool EnterAtContainerEdge::crossesCell(int from)
{
    return formInTable && doc.searchParent(kTableCell, from, false, true, Core::String()) !=
                              doc.searchParent(kTableCell, doc.caret, false, true, Core::String());
}

bool EnterAtContainerEdge::breakBefore(int first)
{
    markCaret();
    int const before = doc.caret;
    doc.moveCaretLeft(false, false, false);
    if (doc.caret != before && !crossesCell(first)) {
        bool const sameElement =
            doc.getCurrentElementPosition(doc.caret) == doc.getCurrentElementPosition(container);
        doc.insertHardBreak();
        markCaret();
        if (container != form || sameElement)
            doc.moveCaretLeft(false, false, false); // into the new paragraph
        return true;
    }
    int const block = container == form ? doc.searchParent(kBlock, element, false, true, Core::String()) : -1;
    if (block < 0)
        return false;
    markCaret();
    doc.setCaret(false, doc.getNextEditablePositionInXml(block));
    doc.insertHardBreak();
    doc.moveCaretLeft(false, false, false);
    return true;
}

bool EnterAtContainerEdge::breakBehind(int last)
{
    markCaret();
    int const before = doc.caret;
    doc.moveCaretRight(false, false, false);
    if (doc.caret != before && !crossesCell(last)) {
        bool const sameElement =
            doc.getCurrentElementPosition(doc.caret) == doc.getCurrentElementPosition(container);
        doc.insertHardBreak();
        if (container == form && !sameElement)
            doc.moveCaretLeft(false, false, false);
        return true;
    }
    int const block = container == form ? doc.searchParent(kBlock, element, false, true, Core::String()) : -1;
    if (block < 0)
        return false;
    markCaret();
    doc.setCaret(false, doc.getClosingTagForTagAtPosition(block));
    doc.insertHardBreak();
    return true;
}

// A line break is the empty nested block <fo:block />. The lines on both sides of it
// keep something that can hold the caret:
//   block|</fo:block>                      ->  block<fo:block />|&#x00A0;</fo:block>
//   block<fo:block />|&#x00A0;</fo:block>  ->  ...<fo:block />&#x00A0;<fo:block />|&#x00A0;
void EditableDocumentBuffer::insertSoftBreak()
{
    DeletionSteps const steps(*this);
    Core::String br = kLineBreak;
    bool rawPlaceholder = false;
    bool placeholderFollows = false;
    if (singleNbspBetweenLineBreakTags(caret, rawPlaceholder, placeholderFollows)) {
        // The insertion drops the placeholder standing here; each line gets its own.
        br = Core::String(kEntityPlaceholder) + kLineBreak + kEntityPlaceholder;
    } else {
        if (steps.tagNameIs(caret, kBlock) || steps.tagNameIs(caret, kBlockClosing))
            br += kEntityPlaceholder; // the new line ends at a block boundary
        int const before = getPreviousEditablePositionInXml(caret);
        if (steps.tagNameIs(before, kBlock) || steps.tagNameIs(before, kBlockClosing) ||
            steps.tagNameIs(before, kTableClosing))
            br = Core::String(kEntityPlaceholder) + br; // the line before would be empty
    }
    insertXmlTextAtEditablePosition(caret, br);
    notifySelectionChanged();
}

void EditableDocumentBuffer::insertListBreak()
{
    breakInList(); // Enter in a list belongs to the list operations
}
