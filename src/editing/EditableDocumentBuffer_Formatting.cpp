#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "support/XslPropertyTable.h"

// Formatting a selection. Existing inlines are never split or merged: each run of
// text between tags gets a wrapper of its own, and a run that fills its element puts
// the properties on that element. Bold over "bcde":
//
//     a^b<fo:inline font-size="9pt">cd</fo:inline>e|f
//     a<fo:inline font-weight="bold">^b</fo:inline><fo:inline font-size="9pt"
//     font-weight="bold">cd</fo:inline>
//         <fo:inline font-weight="bold">e|</fo:inline>f
//
// Properties that cannot stand on an inline (text-align) go to the enclosing block.

bool EditableDocumentBuffer::isNonInlineProperty(EditableProperty property)
{
    for (const char *name : XslPropertyTable::nonInlineNames())
        if (property.getName() == name)
            return true;
    return false;
}

PropertyCollection EditableDocumentBuffer::getAndRemoveNonInlineProperties(PropertyCollection &properties)
{
    PropertyCollection nonInline;
    for (const EditableProperty &property : properties.getPropertyList()) {
        if (isNonInlineProperty(property)) {
            nonInline.addProperty(property, true);
            properties.removePropertyByName(property.getName());
        }
    }
    return nonInline;
}

// A run goes on over line breaks and other empty elements that sit in the text, and
// ends at the first tag that opens or closes an element. An item that cannot hold the
// caret ends the run before the tag in front of it.
int EditableDocumentBuffer::findFormattingRunEnd(int position, int end)
{
    int t = getNextTagPosition(position);
    while (t != -1 && selfClosingTagAtPosition(t)) {
        if (!canHoldCaret(t)) {
            t = getPreviousTagPosition(t);
            break;
        }
        t = getNextTagPosition(getNextEditablePositionInXml(t));
    }
    return (t == -1 || t > end) ? end : t;
}

// Whether [position, runEnd) is the whole content of `element`: from the first
// position in it to its closing tag.
bool EditableDocumentBuffer::runFillsElement(int position, int runEnd, int element)
{
    if (isOnInvalidPosition(position) || isOnInvalidPosition(runEnd))
        return false;
    return position == getNextEditablePositionInXml(element) &&
           runEnd == getClosingTagForTagAtPosition(element);
}

void EditableDocumentBuffer::wrapRunInInline(int &position, int &runEnd, int &end,
                                             PropertyCollection const &properties)
{
    static const Core::String open = "<fo:inline>";
    static const Core::String close = "</fo:inline>";
    addCaretMark();
    addAction(EditAction(EditAction::InsertText, position, caret, selectionPivot, open));
    insertXmlTextAtPosition(position, open);
    addCaretMark();
    position += open.length();
    runEnd += open.length();
    end += open.length();

    addCaretMark();
    addAction(EditAction(EditAction::InsertText, runEnd, caret, selectionPivot, close));
    insertXmlTextAtPosition(runEnd, close);
    addCaretMark();
    // A run that ends where the range ends leaves the range end inside the new inline.
    if (runEnd < end)
        end += close.length();

    int growth = setPropertiesForElementAt(getCurrentElementPosition(position), properties);
    position += growth;
    runEnd += growth + close.length();
    end += growth;
}

void EditableDocumentBuffer::formatInline(int start, int end, PropertyCollection properties)
{
    EditActionGroup group(this);
    addCaretMark();
    if (start >= end)
        return;
    int p = start;
    while (!isOnInvalidPosition(p) && p < end) {
        if (onTagStartPosition(p)) {
            int next = getNextEditablePositionInFo(p, false, false);
            if (next <= p)
                break; // no stop ahead: the walk must advance or end
            p = next;
            continue;
        }
        int element = getCurrentElementPosition(p);
        int runEnd = findFormattingRunEnd(p, end);
        if (element == -1 || !isEditableElementAtPosition(element) || runEnd <= p) {
            // Not text that may be formatted, or an empty run: go on behind it.
            int next = getNextEditablePositionInFo(runEnd > p ? runEnd : p, false, false);
            if (next <= p || next >= end)
                break;
            p = next;
            continue;
        }
        PropertyCollection nonInline;
        if (runFillsElement(p, runEnd, element)) {
            int growth = setPropertiesForElementAt(element, properties);
            p += growth;
            runEnd += growth;
            end += growth;
        } else {
            nonInline = getAndRemoveNonInlineProperties(properties);
            if (!properties.isEmpty())
                wrapRunInInline(p, runEnd, end, properties);
        }
        // The block's tag is written even when nothing moves to it.
        int block = searchParent("fo:block", p, false, true, Core::String());
        if (block != -1) {
            PropertyCollection blockProperties = getPropertiesFromElementAt(block);
            blockProperties.addProperties(nonInline);
            int growth = setPropertiesForElementAt(block, blockProperties);
            runEnd += growth;
            end += growth;
        }
        properties.addProperties(nonInline);
        int next = getNextEditablePositionInFo(runEnd, false, false);
        if (next != -1 && next <= p)
            break; // the walk must advance
        p = next;
    }
    // The far end of the selection follows the growth, so the same text stays selected.
    if (selectionPivot <= caret)
        caret = end;
    else
        selectionPivot = end;
    notifySelectionChanged();
    addCaretMark();
}
