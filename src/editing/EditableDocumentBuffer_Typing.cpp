// Typing and pasting: the single door through which text and markup enter the
// document.
//
// A key press is `insertText("a", false, false)`. It replaces a selection, applies the
// placeholder rules, escapes the text and splices it in, all inside the open typing
// group, so that a run of key presses is one undo step. The whole call is a
// transaction: a snapshot is taken first and given back if the markup no longer
// validates afterwards.

#include "editing/EditableDocumentBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBufferState.h"
#include "editing/FreezeNotifications.h"
#include "support/WhiteSpace.h"
#include "template/XmlValidator.h"

#include <algorithm>
#include <optional>

namespace {

const Core::String kEntityPlaceholder(EditableXmlBuffer::NbspEntity);
constexpr int kEntityPlaceholderLength = static_cast<int>(EditableXmlBuffer::NbspEntity.size());

bool isPlaceholderText(Core::String const &text)
{
    return text == kEntityPlaceholder || (text.length() == 1 && text[0] == Core::kNoBreakSpace);
}

// The test before a trailing placeholder turns back into a space classifies the
// number `value` itself, not the character stored at that index. Only a handful of
// small numbers are white space, so in a real document the test passes; the stored
// documents were written under exactly this rule, so it is kept.
bool classifierCountsAsSpace(int value)
{
    return value >= 0 && value <= 0xFFFF && Core::iswspace(static_cast<char16_t>(value));
}

} // namespace

bool EditableDocumentBuffer::insertText(Core::String const &text, bool isXml, bool selectInserted)
{
    // Nothing to insert: leave everything as it is, the typing run included.
    if (text.isEmpty())
        return false;
    // List labels are written by the numbering; nothing can be typed into them.
    if (searchParent("fo:list-item-label", caret, false, true, "") != -1)
        return false;
    Core::String typed = text;
    typed.replaceAll("\r\n", "\n");
    // Markup never joins a run of typing.
    if (isXml)
        endKeyTypingSequence();

    bool typingRunWasOpen = keyTypingGroup != nullptr;
    EditableDocumentBufferState snapshot(this);
    FreezeNotifications freeze(this);
    if (!content.isValidIndex(caret))
        return false;
    // Left open on return: the next key press joins the same undo step.
    if (!keyTypingGroup)
        keyTypingGroup = new EditActionGroup(this);
    if (!insertAtCaret(typed, isXml, selectInserted))
        return false;
    rollBackIfMalformed(snapshot, typingRunWasOpen);
    return true;
}

// The edit itself: replace the selection, insert, select what went in.
bool EditableDocumentBuffer::insertAtCaret(Core::String &text, bool isXml, bool selectInserted)
{
    std::optional<EditActionGroup> replacement;
    if (hasSelectedText()) {
        replacement.emplace(this);
        deleteSelectionBeforeTyping();
    }
    if (!content.isValidIndex(caret))
        return false;
    int start = caret;
    if (isXml)
        insertMarkupAtCaret(text);
    else
        insertPlainTextAtCaret(text);
    if (selectInserted) {
        // The length of the text as it went in, escaped; a lone typed space counts
        // one even where it was stored as the placeholder entity.
        setCaret(false, start);
        setCaret(true, start + text.length());
    }
    addCaretMark();
    return true;
}

void EditableDocumentBuffer::deleteSelectionBeforeTyping()
{
    int lower = std::min(caret, selectionPivot);
    int upper = std::max(caret, selectionPivot);
    // The deletion wants the caret at the upper end. The first mark keeps the user's
    // orientation of the selection for undo.
    if (caret != upper) {
        addCaretMark();
        caret = upper;
        selectionPivot = lower;
    }
    addCaretMark();
    deleteSelection(false);
    setCaret(false, selectionPivot);
    addCaretMark();
}

// A snapshot costs one copy of the document; validation reads the string in place.
void EditableDocumentBuffer::rollBackIfMalformed(EditableDocumentBufferState &snapshot, bool typingRunWasOpen)
{
    if (XmlValidator(content).validate())
        return;
    // A typing run that was open before the call and got closed during it (replacing
    // a selection resets it) must be open again with the history that comes back. Its
    // new start marker is recorded now and rolled back with the rest, since the
    // restored history already holds the old one.
    if (typingRunWasOpen && keyTypingGroup == nullptr)
        keyTypingGroup = new EditActionGroup(this);
    snapshot.restorePreviousState();
}

// Markup goes in as it stands.
//   <fo:block>|&#x00A0;</fo:block> + <fo:external-graphic/>  ->  <fo:block><fo:external-graphic/>|</fo:block>
// An object without an editable position of its own now holds the line open, so a
// placeholder that closes the element behind it has lost its purpose.
void EditableDocumentBuffer::insertMarkupAtCaret(Core::String &text)
{
    if (text == " ")
        text = kEntityPlaceholder;
    int before = caret;
    insertXmlTextAtEditablePosition(caret, text);
    if (caret <= before)
        return;
    int after = getNextEditablePositionInXml(getClosingTagForTagAtPosition(before));
    int next = getNextEditablePositionInFo(before, false, false);
    if (next >= after && nbspFollowedByWspaceAndElementCloseTagAt(caret))
        dropPlaceholderAtCaret();
}

// Plain text is escaped; the placeholder rules decide what happens to the
// non-breaking spaces around the caret.
void EditableDocumentBuffer::insertPlainTextAtCaret(Core::String &text)
{
    if (!Core::iswspace(text[0]) && !text.startsWith(kEntityPlaceholder)) {
        turnTrailingPlaceholderIntoSpace();
        if (nbspFollowedByWspaceAndElementCloseTagAt(caret))
            dropPlaceholderAtCaret();
    }
    if (text == " ") {
        handleInsertedSpace(text);
        return;
    }
    handleElementsContainingJustNonBreakingSpaces(caret);
    insertTextAtEditablePosition(caret, text);
}

// A space typed at the end of a line went in as a non-breaking space, since the
// rendering would swallow an ordinary one there. Text now follows it, so it becomes
// an ordinary space:   foo&#x00A0;|  + "b"  ->  foo |b
void EditableDocumentBuffer::turnTrailingPlaceholderIntoSpace()
{
    int p = caret - kEntityPlaceholderLength;
    if (p <= 0 || !content.matchesAt(p, kEntityPlaceholder) || classifierCountsAsSpace(p - 1))
        return;
    EditActionGroup group(this);
    addCaretMark();
    Core::String removed = deleteXmlText(p, p + kEntityPlaceholderLength - 1);
    addAction(EditAction(EditAction::DeleteText, p, -1, -1, removed));
    insertXmlTextAtEditablePosition(p, " ");
    addCaretMark();
}

// Removes the placeholder at the caret together with the white space up to the
// closing tag behind it.
void EditableDocumentBuffer::dropPlaceholderAtCaret()
{
    int tag = getNextTagPosition(caret);
    if (tag <= caret)
        return;
    int at = caret;
    addCaretMark();
    Core::String removed = deleteXmlText(at, tag - 1);
    addAction(EditAction(EditAction::DeleteText, at, -1, -1, removed));
    addCaretMark();
}

bool EditableDocumentBuffer::insertTextAtPosition(int position, Core::String const &text, bool isXml,
                                                  bool selectInserted)
{
    if (!canHoldCaret(position))
        return false;
    FreezeNotifications freeze(this);
    addCaretMark();
    // setCaret, not setCaretPos: the running typing sequence stays open.
    setCaret(false, position);
    return insertText(text, isXml, selectInserted);
}

void EditableDocumentBuffer::insertTextAtEditablePosition(int position, Core::String &text)
{
    convertToValidXMLText(text);
    // A lone space, tab or line feed would be swallowed by the rendering.
    if (text == " " || text == "\t")
        text = kEntityPlaceholder;
    insertXmlTextAtEditablePosition(position, text);
}

// Repeated spaces at the end of a line alternate between the placeholder and an
// ordinary space, which is how such runs stand in saved documents:
//   foo|  ->  foo&#x00A0;|  ->  foo &#x00A0;|  ->  foo &#x00A0;&#x00A0;|  ->  foo &#x00A0; &#x00A0;|
void EditableDocumentBuffer::handleInsertedSpace(Core::String text)
{
    if (text != " ")
        return;
    char16_t before = content[caret - 1];
    char16_t at = content[caret];
    int element = getCurrentElementPosition(caret);
    if (element == -1 || !isEditableElementAtPosition(element)) {
        insertXmlTextAtEditablePosition(caret, kEntityPlaceholder);
        return;
    }
    // Between two characters of one text run a space renders as it is.
    if (!Core::iswspace(before) && !Core::iswspace(at) && at != u'<' && before != u'>') {
        insertXmlTextAtEditablePosition(caret, " ");
        return;
    }
    int blank = Core::iswspace(before) ? 1 : 0;
    int p = caret - blank - kEntityPlaceholderLength;
    char16_t beforePlaceholder = content[p - 1];
    if (content.matchesAt(p, kEntityPlaceholder) && !Core::iswspace(beforePlaceholder) &&
        beforePlaceholder != u'>') {
        insertXmlTextAtEditablePosition(p, " ");
        return;
    }
    insertXmlTextAtEditablePosition(caret - blank, kEntityPlaceholder);
}

// Every insertion of ready markup ends here: one undo step with the placeholder rules.
void EditableDocumentBuffer::insertXmlTextAtEditablePosition(int position, Core::String text)
{
    EditActionGroup group(this);
    addCaretMark();
    if (!content.isValidIndex(position))
        return;
    if (makeBlockBesideTable(position, text))
        return;
    if (!isPlaceholderText(text))
        dropPlaceholderBesideLineBreak(position);
    insertXmlTextAtPosition(position, text);
    addAction(EditAction(EditAction::InsertText, position, -1, -1, text));
    putCaretInFrontOfLonePlaceholder();
    stepCaretBackOverSwallowedSpace();
    addCaretMark();
}

// Text can't stand beside a table directly in a flow; it goes into a new block:
//   </fo:table>|  + "x"  ->  </fo:table><fo:block>x|</fo:block>
// True when the empty block is the whole result (a lone line feed).
bool EditableDocumentBuffer::makeBlockBesideTable(int &position, Core::String const &text)
{
    int element = getCurrentElementPosition(position);
    bool editable = element != -1 && isEditableElementAtPosition(element);
    if (editable || !(afterFOTable(caret) || beforeFOTable(caret)))
        return false;
    static const Core::String block = "<fo:block></fo:block>";
    constexpr int insideBlock = 10; // behind "<fo:block>"
    int oldCaret = caret;
    int oldPivot = selectionPivot;
    spliceContent(position, 0, block);
    addAction(EditAction(EditAction::InsertText, position, oldCaret, oldPivot, block));
    if (caret == position) {
        caret = position + insideBlock;
        selectionPivot = caret;
    }
    position += insideBlock;
    addCaretMark();
    notifyBufferChanged();
    if (text != "\n")
        return false;
    addCaretMark();
    return true;
}

// A placeholder between block tags holds a line open; text arriving beside it takes
// over that job. A placeholder that is itself being inserted leaves its neighbour
// alone, which is how repeated spaces build up.
//   <fo:block>|&#x00A0;<fo:block/>  + "t"  ->  <fo:block>t|<fo:block/>
void EditableDocumentBuffer::dropPlaceholderBesideLineBreak(int &position)
{
    bool isRaw = false;
    bool follows = false;
    if (!singleNbspBetweenLineBreakTags(position, isRaw, follows))
        return;
    int length = isRaw ? 1 : kEntityPlaceholderLength;
    int at = follows ? position : position - length;
    Core::String removed = content.substr(at, length);
    // Erased directly: the caret field keeps its old value, which is what the mark
    // below must record for undo.
    spliceContent(at, length, Core::String());
    addCaretMark();
    addAction(EditAction(EditAction::DeleteText, at, caret, selectionPivot, removed));
    if (!follows) {
        position -= length;
        setCaret(false, position);
    }
}

// An element that holds only a placeholder always shows the caret in front of it.
void EditableDocumentBuffer::putCaretInFrontOfLonePlaceholder()
{
    int element = getCurrentElementPosition(caret);
    if (element == -1 || !elementContainsJustNonBreakingSpace(element))
        return;
    int placeholder = getNonBreakingSpacePosition(element);
    if (placeholder == -1)
        return;
    addAction(EditAction(EditAction::SetCaret, -1, placeholder, placeholder, Core::String()));
    setCaret(false, placeholder);
}

// White space that the rendering swallows can't hold the caret.
void EditableDocumentBuffer::stepCaretBackOverSwallowedSpace()
{
    int position = caret;
    skipSpacesBackwards(position, false);
    if (position != caret && content.isValidIndex(position))
        setCaret(false, position);
}
