// The non-breaking-space placeholder.
//
// An editable element is never left truly empty: one that shows nothing holds a
// single non-breaking space, so that the caret has somewhere to stand. Typing drops
// the placeholder as soon as real text arrives, and every deletion that may empty an
// element ends by putting one back (or by removing an emptied inline altogether).

#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "support/WhiteSpace.h"

namespace {

const Core::String kEntityPlaceholder(EditableXmlBuffer::NbspEntity);
constexpr int kEntityPlaceholderLength = static_cast<int>(EditableXmlBuffer::NbspEntity.size());
const Core::String kBlock("fo:block");
const Core::String kBlockEnd("/fo:block");

} // namespace

// <fo:block>|&#x00A0;</fo:block>  + "a"  ->  <fo:block>|a</fo:block>
void EditableDocumentBuffer::handleElementsContainingJustNonBreakingSpaces(int position)
{
    EditActionGroup group(this);
    int element = getCurrentElementPosition(position);
    if (element == -1 || !elementContainsJustNonBreakingSpace(element))
        return;
    addCaretMark();
    int placeholder = getNonBreakingSpacePosition(element);
    // The end is the next ";" for either form of the placeholder, so a raw U+00A0
    // takes everything up to the next entity's ";" with it. Callers rely on this
    // exact range.
    int last = content.find(u';', placeholder);
    if (placeholder == -1 || last == -1)
        return;
    Core::String removed = deleteXmlText(placeholder, last);
    addAction(EditAction(EditAction::DeleteText, placeholder, -1, -1, removed));
    addCaretMark();
}

// Called at the end of every deletion that may have emptied an element:
//   <fo:block>|</fo:block>               ->  <fo:block>|&#x00A0;</fo:block>
//   <fo:block>a<fo:inline>|</fo:inline></fo:block>  ->  <fo:block>a|</fo:block>
bool EditableDocumentBuffer::handleElementsContainingJustWhiteSpaces(int position, bool deleteEmptyInline)
{
    EditActionGroup group(this);
    int element = getCurrentElementPosition(position);
    addCaretMark();
    if (element == -1 || !elementContainsJustWhitespacesOrVoid(element))
        return false;
    if (deleteEmptyInline && isRemovableEmptyInline(element))
        return removeEmptyInline(element);
    insertPlaceholderInto(element);
    return true;
}

// An empty inline is removed rather than given a placeholder, except directly inside
// the two template elements that must always hold an inline.
bool EditableDocumentBuffer::isRemovableEmptyInline(int element)
{
    if (!isInlineEditableElementName(getNameForTagAtPosition(element, true)))
        return false;
    Core::String parent = getCurrentElementName(element);
    return parent != "otd:conditional-inline" && parent != "otd:inline-repeat";
}

bool EditableDocumentBuffer::removeEmptyInline(int element)
{
    int closing = getClosingTagForTagAtPosition(element);
    int behind = getNextEditablePositionInXml(closing);
    if (closing == -1 || behind == -1)
        return false;
    Core::String removed = deleteXmlText(element, behind - 1);
    addAction(EditAction(EditAction::DeleteText, element, -1, -1, removed));
    addCaretMark();
    // The enclosing element may hold nothing now.
    handleElementsContainingJustWhiteSpaces(element, true);
    return true;
}

void EditableDocumentBuffer::insertPlaceholderInto(int element)
{
    int inside = getNextEditablePositionInXml(element);
    int caretBefore = caret;
    insertXmlTextAtPosition(inside, kEntityPlaceholder);
    // The caret stays in front of the placeholder rather than being pushed behind it.
    if (caretBefore == inside)
        setCaret(false, inside);
    addAction(EditAction(EditAction::InsertText, inside, caret, selectionPivot, kEntityPlaceholder));
    addCaretMark();
}

// Ordinary white space and nested empty editable elements only. A placeholder, in
// either form, is content: an element that holds one does not qualify.
bool EditableDocumentBuffer::elementContainsJustWhitespacesOrVoid(int elementPosition)
{
    if (content[elementPosition] != u'<')
        return false;
    int end = getClosingTagForTagAtPosition(elementPosition);
    if (end == -1)
        return false;
    int p = getNextEditablePositionInXml(elementPosition);
    if (p == -1 || p >= end)
        return true;
    while (p < end) {
        if (content[p] == u'<') {
            if (!isEditableElementAtPosition(p) || !elementContainsJustWhitespacesOrVoid(p))
                return false;
            p = getNextEditablePositionInXml(getClosingTagForTagAtPosition(p));
            if (p == -1)
                return false;
            continue;
        }
        if (!Core::isPlainWhiteSpace(content[p]))
            return false;
        ++p;
    }
    return true;
}

// True when one atom is all the element holds: the first stop inside is its closing
// tag, or the stop just before it.
bool EditableDocumentBuffer::editableElementContainsJustOneMoreChar(int elementPosition)
{
    int next = getNextEditablePositionInFo(elementPosition, false, false);
    int closing = getClosingTagForTagAtPosition(elementPosition);
    if (next == -1 || closing == -1)
        return false;
    return next == closing || next == getPreviousEditablePositionInFo(closing, false, false);
}

// A placeholder that stands between block tags holds a line open; once text arrives
// beside it, it has no purpose:
//   <fo:block>|&#x00A0;<fo:block/>          true, the placeholder follows
//   <fo:block/>&#x00A0;|</fo:block>         true, the placeholder precedes
//   <fo:block>&#x00A0;|</fo:block>          false: the block's only content
bool EditableDocumentBuffer::singleNbspBetweenLineBreakTags(int position, bool &isRawNbsp, bool &nbspFollows)
{
    bool entityBefore = position >= kEntityPlaceholderLength &&
                        content.matchesAt(position - kEntityPlaceholderLength, kEntityPlaceholder);
    bool rawBefore = content[position - 1] == Core::kNoBreakSpace;
    bool entityAfter = content.matchesAt(position, kEntityPlaceholder);
    bool rawAfter = content[position] == Core::kNoBreakSpace;
    bool before = entityBefore || rawBefore;
    bool after = entityAfter || rawAfter;
    if (before == after)
        return false;

    nbspFollows = after;
    isRawNbsp = after ? rawAfter : rawBefore;
    int length = isRawNbsp ? 1 : kEntityPlaceholderLength;
    int placeholderStart = after ? position : position - length;
    int behind = placeholderStart + length;
    int tagBefore = getPreviousEditablePositionInXml(placeholderStart);
    if (!content.isValidIndex(behind) || !content.isValidIndex(tagBefore) || content[behind] != u'<' ||
        content[tagBefore] != u'<')
        return false;
    bool startBefore = tagNameEquals(tagBefore, kBlock);
    bool startBehind = tagNameEquals(behind, kBlock);
    if (!(startBefore || tagNameEquals(tagBefore, kBlockEnd)) ||
        !(startBehind || tagNameEquals(behind, kBlockEnd)))
        return false;
    // Between the block's own start and closing tags the placeholder is all the block
    // holds, unless the tag before it is a line break.
    bool blockOwnContent = startBefore && !startBehind;
    return !blockOwnContent || selfClosingTagAtPosition(tagBefore);
}
