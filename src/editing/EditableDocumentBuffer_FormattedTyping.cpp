// Typing with formatting: the host has formatting pending (bold switched on, say) and
// the next text carries it.
//
// In an element that shows nothing but its placeholder the formatting goes on the
// element itself. Elsewhere the text goes in wrapped in a new "fo:inline" that carries
// the formatting, and the caret goes back inside that inline, so that the following
// key presses land in it:
//   <fo:block>ab|</fo:block>  + "x" bold  ->  <fo:block>ab<fo:inline
//   font-weight="bold">x|</fo:inline></fo:block>

#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/FreezeNotifications.h"

#include <algorithm>

void EditableDocumentBuffer::insertText(Core::String text, PropertyCollection properties, bool isXml,
                                        bool selectInserted)
{
    if (properties.isEmpty()) {
        insertText(text, isXml, selectInserted);
        return;
    }
    // Formatted text never joins a run of plain typing; closing the run first also
    // keeps the group of this call properly nested in the history.
    endKeyTypingSequence();
    FreezeNotifications freeze(this);
    EditActionGroup group(this);
    bool loneSpace = text == " ";
    int element = getCurrentElementPosition(caret);
    if (!hasSelectedText() && element != -1 && isEditableElementAtPosition(element) &&
        elementContainsJustNonBreakingSpace(element)) {
        PropertyCollection merged = getPropertiesFromElementAt(element);
        merged.addProperties(properties);
        setPropertiesForElementAt(element, merged);
        // A lone space behaves as a typed space does here; as the entity it would be
        // escaped into text.
        insertText(text, isXml, selectInserted);
        return;
    }
    if (loneSpace)
        text = Core::String(NbspEntity);
    Core::String attributes = properties.getPropertiesString();
    attributes.replaceAll("fo:", "");
    // The text goes into the inline unescaped, also when `isXml` is false: the caller
    // is trusted with it.
    insertText(Core::String::format("<fo:inline {0}>{1}</fo:inline>", {attributes, text}), true,
               selectInserted);
    bringCaretIntoNewInline();
}

// The caret stands behind "</fo:inline>" after the insertion; one stop back puts it
// inside the inline, behind its text.
void EditableDocumentBuffer::bringCaretIntoNewInline()
{
    FreezeNotifications freeze(this);
    int behindInline = caret;
    bool inFlow = isInFoFlow(behindInline);
    // The next key press starts a new undo step, inside the new inline.
    endKeyTypingSequence();
    if (!content.isValidIndex(caret))
        return;
    if (hasSelectedText()) {
        setCaret(false, std::min(caret, selectionPivot));
        return;
    }
    if (stepBackAcrossTableParts(behindInline))
        return;
    int back = getPreviousEditablePositionInFo(behindInline, false, false);
    if (!inFlow) {
        if (content.isValidIndex(back) && positionsAreInTheSameStaticContent(caret, back))
            setCaret(false, back);
        return;
    }
    if (!isInFoFlow(back)) {
        back = getPreviousPositionAdjustedToFoFlow(back, true);
        if (content.isValidIndex(back))
            setCaret(false, back);
        return;
    }
    // Stepping back into a table from behind lands at the end of its footer, which
    // is the last part in reading order.
    int table = searchParent("fo:table", back, false, true, "");
    int ownTable = searchParent("fo:table", behindInline, false, true, "");
    if (table != -1 && (ownTable == -1 || ownTable < table)) {
        int footer = getNextChildByName("fo:table-footer", table);
        int footerEnd = getPreviousEditablePositionInFo(getClosingTagForTagAtPosition(footer), false, false);
        if (footer != -1 && content.isValidIndex(footerEnd)) {
            setCaret(false, footerEnd);
            return;
        }
    }
    if (content.isValidIndex(back))
        setCaret(false, back);
}

// Table parts stand in the string as header, footer, body, but the caret visits them
// as header, body, footer. A step back from the first position of a part therefore
// goes to the end of the part that comes before it in reading order. True when the
// caret was placed.
bool EditableDocumentBuffer::stepBackAcrossTableParts(int position)
{
    int table = searchParent("fo:table", position, false, true, "");
    if (table == -1)
        return false;
    int back = getPreviousEditablePositionInFo(position, false, false);
    int footer = searchParent("fo:table-footer", position, false, true, "");
    int target = -1;
    if (footer > table) {
        if (back != getPreviousEditablePositionInFo(footer, false, false))
            return false;
        // The first position of the footer: back to the end of the body.
        target = getPreviousEditablePositionInFo(getClosingTagForTagAtPosition(table), false, false);
    } else {
        int body = searchParent("fo:table-body", position, false, true, "");
        int header = getNextChildByName("fo:table-header", table);
        if (body <= table || back != getPreviousEditablePositionInFo(body, false, false) || header == -1)
            return false;
        // The first position of the body: back to the end of the header.
        target = getPreviousEditablePositionInFo(getClosingTagForTagAtPosition(header), false, false);
    }
    if (!content.isValidIndex(target))
        return false;
    setCaret(false, target);
    return true;
}
