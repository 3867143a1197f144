// Deleting a selection that may cross any number of element boundaries.
//
// The walk goes from the start of the range one text run or one element at a time,
// recording every cut as it goes, so that what remains is well formed: elements that
// were partly selected keep their tags, elements wholly selected go entirely, and
// two blocks that the selection joins merge under the first one's start tag:
//   <fo:block>ab^c</fo:block><fo:block>de|f</fo:block>  ->  <fo:block>ab|f</fo:block>

#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"

#include <algorithm>

namespace {

const Core::String kEntityPlaceholder(EditableXmlBuffer::NbspEntity);
constexpr int kEntityPlaceholderLength = static_cast<int>(EditableXmlBuffer::NbspEntity.size());

} // namespace

Core::String EditableDocumentBuffer::deleteSelection(bool listHandled)
{
    int start = getSelectionStartIndex();
    int end = getSelectionEndIndex() + 1;
    return deleteSelectedXmlText(start, end, listHandled);
}

void EditableDocumentBuffer::deleteContentAtPosition(bool keepSelection, int start, int end)
{
    int selectionStart = getSelectionStartIndex();
    int selectionEnd = std::max(caret, selectionPivot);
    int lengthBefore = content.length();
    addCaretMark();
    setCaret(false, start);
    addCaretMark();
    int from = start;
    int to = end;
    deleteSelectedXmlText(from, to, false);
    if (!keepSelection)
        return;
    if (start < selectionStart) {
        int removed = lengthBefore - content.length();
        selectionStart -= removed;
        selectionEnd -= removed;
    }
    addCaretMark();
    setCaret(false, selectionStart);
    setCaret(true, selectionEnd);
    // Redo ends on the selection that was kept.
    addCaretMark();
}

Core::String EditableDocumentBuffer::deleteSelectedXmlText(int &start, int &end, bool listHandled)
{
    selectWholeElementIfContentSelected(start, end);
    // The indentation in front of a removed element goes with it.
    deleteSpacesBetweenTags(start);
    SelectionWalk walk{start, end, start, listHandled, rangeMayMeetList(start, end)};
    addCaretMark();
    // Each round cuts something or moves `cur` on; the bound only stops a walk over
    // markup so broken that the scanners no longer make progress.
    long limit = 4L * content.length() + 64;
    for (long round = 0; round < limit; ++round) {
        if (walkOneStep(walk) == WalkStep::Finished)
            return Core::String();
    }
    finishAtRangeEnd(walk);
    return Core::String();
}

// A block inside another block or a cell whose whole content is selected goes with its
// tags. A block directly in the flow keeps its shell, and gets a placeholder.
void EditableDocumentBuffer::selectWholeElementIfContentSelected(int &start, int end)
{
    int element = getCurrentElementPosition(start);
    if (element == -1 || !canHoldCaret(element) || start != getNextEditablePositionInXml(element))
        return;
    int behind = getNextEditablePositionInXml(getClosingTagForTagAtPosition(element));
    if (behind == -1 || end < behind || getCurrentElementName(element) == "fo:flow")
        return;
    start = element;
}

// Whether any position of the range can lie inside a list: the range starts inside
// one or a list starts within it. Asked once, so the rounds need not walk up the
// ancestors of every position they pass.
bool EditableDocumentBuffer::rangeMayMeetList(int start, int end)
{
    if (searchParent("fo:list-block", start, false, true, "") != -1)
        return true;
    int list = content.find(u"<fo:list-block", start);
    return list != -1 && list < end;
}

// Whether the tag at `tag` is the closing tag of the element whose start tag is at
// `element`: "/" and the same name, compared in place.
bool EditableDocumentBuffer::closesElementAt(int tag, int element) const
{
    if (content[tag] != u'<' || content[tag + 1] != u'/' || content[element] != u'<')
        return false;
    int tagEnd = getTagNameEnd(tag, content);
    int elementEnd = getTagNameEnd(element, content);
    if (tagEnd == -1 || elementEnd == -1 || tagEnd - tag != elementEnd - element + 1)
        return false;
    int nameLength = elementEnd - element - 1;
    return content.view().substr(static_cast<std::size_t>(tag + 2), static_cast<std::size_t>(nameLength)) ==
           content.view().substr(static_cast<std::size_t>(element + 1), static_cast<std::size_t>(nameLength));
}

// Template logic holds no text: the walk back from a list's end passes it whole.
bool EditableDocumentBuffer::closesTemplateLogic(int position) const
{
    static const Core::String names[] = {"/otd:xslt-global", "/otd:xslt", "/otd:inline-xslt"};
    return std::any_of(std::begin(names), std::end(names),
                       [&](Core::String const &name) { return tagNameEquals(position, name); });
}

EditableDocumentBuffer::WalkStep EditableDocumentBuffer::walkOneStep(SelectionWalk &walk)
{
    if (!canHoldCaret(walk.end)) {
        int next = getNextEditablePositionInFo(walk.cur, false, false);
        if (next == -1 || walk.end < next)
            return finishAtUnholdableEnd(walk);
    }
    if (walk.cur >= walk.end)
        return finishAtRangeEnd(walk);
    if (walk.mayMeetList && !walk.listHandled &&
        searchParent("fo:list-block", walk.cur, false, true, "") != -1 && deleteListInSelection(walk))
        return WalkStep::Continue;

    int tag = getNextTagPosition(walk.cur);
    if (tag == -1 || tag >= walk.end)
        return finishInsideTextRun(walk);
    int element = getCurrentElementPosition(walk.cur);
    if (element == -1) {
        setCaret(false, walk.start);
        addCaretMark();
        return WalkStep::Finished;
    }
    bool closesElement = closesElementAt(tag, element);
    cutTextBeforeTag(walk, tag);
    return closesElement ? leaveElement(walk) : enterOrCutElement(walk);
}

// The text from `cur` up to the next tag is selected.
void EditableDocumentBuffer::cutTextBeforeTag(SelectionWalk &walk, int tag)
{
    if (tag <= walk.cur)
        return;
    Core::String removed = deleteXmlText(walk.cur, tag - 1);
    walk.end -= removed.length();
    addAction(EditAction(EditAction::DeleteText, walk.cur, -1, -1, removed));
    addCaretMark();
    repairEmptiedElement(walk);
}

// An element that the last cut emptied gets its placeholder; an emptied inline goes
// altogether, except directly inside the template elements that must hold one.
void EditableDocumentBuffer::repairEmptiedElement(SelectionWalk &walk)
{
    if (!canHoldCaret(walk.cur) || !handleElementsContainingJustWhiteSpaces(walk.cur, false))
        return;
    walk.cur += kEntityPlaceholderLength;
    walk.end += kEntityPlaceholderLength;
    int element = getCurrentElementPosition(walk.cur);
    keepStartInFrontOfPlaceholder(walk, element);
    if (element == -1 || !isRemovableEmptyInline(element))
        return;
    int behind = getNextEditablePositionInXml(getClosingTagForTagAtPosition(element));
    if (behind == -1)
        return;
    addCaretMark();
    Core::String removed = deleteXmlText(element, behind - 1);
    addAction(EditAction(EditAction::DeleteText, element, -1, -1, removed));
    addCaretMark();
    walk.cur = element;
    walk.start = std::min(walk.start, element);
    walk.end = walk.end >= behind ? walk.end - removed.length() : element;
}

// `cur` stands on a tag that opens something new.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::enterOrCutElement(SelectionWalk &walk)
{
    if (content.matchesAt(walk.cur, "<?") || content.matchesAt(walk.cur, "<!--")) {
        walk.cur = getNextEditablePositionInXml(walk.cur);
        return reanchor(walk, false);
    }
    if (!canHoldCaret(walk.cur))
        return reanchor(walk, false);
    if (selfClosingTagAtPosition(walk.cur) || cdataSectionAtPosition(walk.cur)) {
        cutAtom(walk);
        return reanchor(walk, true);
    }
    int closing = getClosingTagForTagAtPosition(walk.cur);
    int behind = getNextEditablePositionInXml(closing);
    if (closing == -1 || behind == -1)
        return finishAtRangeEnd(walk);
    if (closing == walk.end)
        return cutElementEndingTheRange(walk, behind);
    if (behind > walk.end) {
        // The element reaches beyond the range: only its inside is selected.
        walk.cur = getNextEditablePositionInXml(walk.cur);
        return WalkStep::Continue;
    }
    cutWholeElement(walk, behind);
    return reanchor(walk, true);
}

// A line break, an object without content, or a CDATA section.
void EditableDocumentBuffer::cutAtom(SelectionWalk &walk)
{
    int behind = getNextEditablePositionInXml(walk.cur);
    if (behind == -1)
        return;
    Core::String removed = deleteXmlText(walk.cur, behind - 1);
    walk.end -= removed.length();
    addAction(EditAction(EditAction::DeleteText, walk.cur, -1, -1, removed));
    repairEmptiedElement(walk);
}

// The range ends exactly at the element's closing tag: its content is what was
// selected, and the element goes with it.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::cutElementEndingTheRange(SelectionWalk &walk,
                                                                                  int behind)
{
    Core::String removed = deleteXmlText(walk.cur, behind - 1);
    addAction(EditAction(EditAction::DeleteText, walk.cur, -1, -1, removed));
    setCaret(false, walk.cur);
    addCaretMark();
    handleElementsContainingJustWhiteSpaces(caret, true);
    return WalkStep::Finished;
}

// The element lies wholly inside the range. The cut is recorded before any repair
// of the element around it, so that undo replays the two in the right order.
void EditableDocumentBuffer::cutWholeElement(SelectionWalk &walk, int behind)
{
    int at = walk.cur;
    Core::String removed = deleteXmlText(at, behind - 1);
    walk.end -= removed.length();
    addAction(EditAction(EditAction::DeleteText, at, caret, selectionPivot, removed));
    int lengthBeforeRepair = content.length();
    if (!canHoldCaret(at) || !handleElementsContainingJustWhiteSpaces(at, true))
        return;
    walk.cur = getSelectionStartIndex();
    // The repair puts a placeholder in, or removes the inlines the cut emptied, start
    // and closing tags and all. All of that stands in front of the end, which moves by
    // the whole change, or lay in a removed closing tag and comes to the walk's place;
    // a start behind a removed start tag comes there too:
    //     x<fo:inline><fo:inline>^it</fo:inline></fo:inline>|ab  ->  x|ab
    walk.end = std::max(walk.end + content.length() - lengthBeforeRepair, walk.cur);
    walk.start = std::min(walk.start, walk.cur);
    if (content.matchesAt(walk.cur, kEntityPlaceholder))
        walk.cur += kEntityPlaceholderLength;
    keepStartInFrontOfPlaceholder(walk, getCurrentElementPosition(walk.cur));
}

// An emptied element gets its placeholder at its first position. When white space or a
// line break stood in front of what was cut, that is in front of the walk's start, which
// then points into the placeholder or at what stood there before it, and the caret would
// end inside the placeholder or inside a tag. The start goes in front of the placeholder:
//     <fo:block> <fo:inline>^ab</fo:inline> </fo:block>...  ->  <fo:block>|&#x00A0;  </fo:block>...
//     <fo:block><fo:block />^ab</fo:block>...               ->  <fo:block>|&#x00A0;<fo:block /></fo:block>...
void EditableDocumentBuffer::keepStartInFrontOfPlaceholder(SelectionWalk &walk, int element)
{
    if (element == -1)
        return;
    int placeholder = getNextEditablePositionInXml(element);
    int closing = getClosingTagForTagAtPosition(element);
    if (placeholder > element && placeholder < walk.start && walk.start <= closing &&
        content.matchesAt(placeholder, kEntityPlaceholder))
        walk.start = placeholder;
}

// Moves `cur` to a place that can hold the caret; the walk is over when there is
// none, or when a cut element took it past the end of the range.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::reanchor(SelectionWalk &walk, bool afterElementCut)
{
    if (!canHoldCaret(walk.cur)) {
        walk.cur = getNextEditablePositionInFo(walk.cur, false, false);
        if (walk.cur == -1) {
            setCaret(false, walk.start);
            addCaretMark();
            return WalkStep::Finished;
        }
    }
    if (afterElementCut && walk.cur > walk.end) {
        setCaret(false, walk.start);
        notifyBufferChanged();
        addCaretMark();
        return WalkStep::Finished;
    }
    return WalkStep::Continue;
}

// `cur` stands on the closing tag of its element.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::leaveElement(SelectionWalk &walk)
{
    int behind = getNextEditablePositionInXml(walk.cur);
    if (canHoldCaret(behind)) {
        walk.cur = behind;
        return WalkStep::Continue;
    }
    // The name without the "/" of the closing tag.
    Core::String closingName = getNameForTagAtPosition(walk.cur, true);
    Core::String elementName = closingName.subString(1, closingName.length() - 1);
    if (getNextNeighborName(walk.cur) == elementName)
        return joinNeighbour(walk);
    // A neighbour of another kind, or the end of the parent: go on at the next place
    // that can hold the caret.
    walk.cur = getNextEditablePositionInFo(walk.cur, false, false);
    if (walk.cur == -1) {
        setCaret(false, walk.start);
        addCaretMark();
        return WalkStep::Finished;
    }
    if (walk.cur > walk.end) {
        setCaret(false, walk.start);
        notifyBufferChanged();
        addCaretMark();
        return WalkStep::Finished;
    }
    return WalkStep::Continue;
}

// The next sibling is an element of the same kind. Wholly selected, it goes; partly
// selected, it merges into this one:
//   <fo:block>a^b|</fo:block><fo:block>c|d</fo:block>  ->  <fo:block>a|d</fo:block>
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::joinNeighbour(SelectionWalk &walk)
{
    int neighbour = getNextNeighborPosition(walk.cur);
    int neighbourEnd = getClosingTagForTagAtPosition(neighbour);
    int behind = getNextEditablePositionInXml(neighbourEnd);
    // On broken markup the neighbour found may lie behind `cur`; the walk never cuts
    // what lies in front of it.
    if (neighbour <= walk.cur || neighbourEnd == -1 || behind == -1)
        return finishAtRangeEnd(walk);
    if (neighbourEnd <= walk.end) {
        walk.end = std::max(walk.end, behind);
        Core::String removed = deleteXmlText(neighbour, behind - 1);
        addAction(EditAction(EditAction::DeleteText, neighbour, -1, -1, removed));
        walk.end -= removed.length();
        return WalkStep::Continue;
    }
    // A placeholder on either side has no purpose once the two merge. The cut then
    // begins in front of this one, and a start behind it follows, or it would point
    // past the text that moves up:
    //     <fo:block>&#x00A0;^</fo:block><fo:block>a|b</fo:block>  ->  <fo:block>|b</fo:block>
    int element = getCurrentElementPosition(walk.cur);
    if (elementContainsJustNonBreakingSpace(element)) {
        walk.cur = getNonBreakingSpacePosition(element);
        if (walk.cur != -1)
            walk.start = std::min(walk.start, walk.cur);
    }
    if (elementContainsJustNonBreakingSpace(neighbour))
        neighbour = getNonBreakingSpacePosition(neighbour);
    int last = getNextEditablePositionInXml(neighbour) - 1;
    if (walk.cur == -1 || last < walk.cur)
        return finishAtRangeEnd(walk);
    Core::String removed = deleteXmlText(walk.cur, last);
    addAction(EditAction(EditAction::DeleteText, walk.cur, -1, -1, removed));
    addCaretMark();
    walk.end -= removed.length();
    if (handleElementsContainingJustWhiteSpaces(walk.cur, true)) {
        // The merged element was left empty and holds a placeholder now. The cut put a
        // caret that stood on its last unit one unit in front of it, into the start tag;
        // the caret goes where the selection began.
        setCaret(false, walk.start);
        addCaretMark();
        return WalkStep::Finished;
    }
    return WalkStep::Continue;
}

// The range ends where the caret can't stand.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::finishAtUnholdableEnd(SelectionWalk &walk)
{
    if (content[walk.start] != u'<' || inEditableElement(walk.start)) {
        setCaret(false, walk.start);
    } else {
        int next = getNextEditablePositionInFo(walk.start, false, false);
        if (next != -1)
            setCaret(false, next);
    }
    addCaretMark();
    return WalkStep::Finished;
}

// `cur` reached the end of the range.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::finishAtRangeEnd(SelectionWalk &walk)
{
    if (walk.start > caret)
        setCaret(false, walk.start);
    resetSelection();
    addCaretMark();
    handleElementsContainingJustWhiteSpaces(caret, true);
    return WalkStep::Finished;
}

// The range ends inside the text run at `cur`.
EditableDocumentBuffer::WalkStep EditableDocumentBuffer::finishInsideTextRun(SelectionWalk &walk)
{
    Core::String removed = deleteXmlText(walk.cur, walk.end - 1);
    addAction(EditAction(EditAction::DeleteText, walk.cur, -1, -1, removed));
    setCaret(false, walk.start);
    if (canHoldCaret(walk.cur))
        handleElementsContainingJustWhiteSpaces(walk.cur, true);
    addCaretMark();
    return WalkStep::Finished;
}

// A list in the range. A list selected from its first to its last caret position goes
// whole. A selection that covers only part of a list belongs to the list editing
// (eraseListSelection), which deletes item by item and renumbers.
bool EditableDocumentBuffer::deleteListInSelection(SelectionWalk &walk)
{
    int list = searchParent("fo:list-block", walk.cur, false, true, "");
    int listEnd = getClosingTagForTagAtPosition(list);
    int behind = getNextEditablePositionInXml(listEnd);
    if (list == -1 || listEnd == -1 || behind == -1)
        return false;
    bool wholeList = walk.cur == getNextEditablePositionInFo(list, false, false) &&
                     walk.end >= lastCaretPositionInList(list, listEnd);
    if (!wholeList) {
        eraseListPartOfSelection(walk);
        return true;
    }
    walk.cur = list;
    walk.end = std::max(walk.end, behind);
    Core::String removed = deleteXmlText(list, behind - 1);
    addAction(EditAction(EditAction::DeleteText, list, -1, -1, removed));
    walk.end -= removed.length();
    // A start inside the list went with it: the walk's start moves to the first stop
    // at or behind the place of the list, or the last one in front of it when the text
    // ends there. A start in front of the list stays where it is. The place itself comes
    // first when it can hold the caret (the list stood in a block of its own): a stop
    // further on lies in the next element, which the walk may still cut or merge.
    int next = canHoldCaret(list) ? list : getNextEditablePositionInFo(list, false, false);
    if (next == -1)
        next = lastCaretPositionInList(0, list);
    if (next != -1 && walk.start >= list)
        walk.start = next;
    return true;
}

// The last position inside the list that can hold the caret and draws something.
// Template logic is passed over whole.
int EditableDocumentBuffer::lastCaretPositionInList(int list, int listEnd)
{
    BufferAlgorithms::WhitespaceAlg rules(*this);
    int rulesElement = -1;
    for (int p = listEnd; p > list; p = getPreviousEditablePositionInXml(p)) {
        if (closesTemplateLogic(p)) {
            p = getStartTagForTagAtPosition(p);
            if (p == -1)
                return -1;
            continue;
        }
        if (!canHoldCaret(p))
            continue;
        int element = getCurrentElementPosition(p);
        if (element != rulesElement) {
            rules.loadFromElement(element);
            rulesElement = element;
        }
        if (!rules.isPositionSkipped(p))
            return p;
    }
    return -1;
}
