// Where the document's own Delete, Backspace, Enter and selection deletion hand over to
// the list algorithms (src/structures/ListEditing*), and the one list question the
// document answers without the list class.
#include "editing/EditableDocumentBuffer.h"

#include "structures/ListEditing.h"

namespace {

constexpr int kMaxListHandOverDepth = 16;

} // namespace

bool EditableDocumentBuffer::canDeleteListItem(Core::String const &path)
{
    return ListEditing(*this).canDeleteListItem(path);
}

// Delete and Backspace beside a list reach into it, and the list keys fall back on the
// ordinary deletion, which may stand beside a list again. On sound lists this ends
// after a step or two; the bound guarantees it ends on any markup.
void EditableDocumentBuffer::eraseInList(bool forward, bool wholeWord)
{
    static thread_local int depth = 0;
    if (depth >= kMaxListHandOverDepth)
        return;
    ++depth;
    struct Leave {
        ~Leave() { --depth; }
    } leave;
    ListEditing(*this).eraseTextFromListBuffer(forward, wholeWord);
}

void EditableDocumentBuffer::breakInList()
{
    ListEditing(*this).breakList();
}

// The list deletes its part of [cur, end) and answers the position behind itself. The
// walk goes on at the first caret stop behind the list, or at the last one in front of
// that when the document ends there:
//     <fo:list-block>...^...</fo:list-block><fo:block>..|..</fo:block>
//
// The list's deletion leaves the caret where the selection now begins. A start inside
// the list was counted before that deletion, and points too far, into markup, when an
// emptied inline or other tags in front of it went:
//     <fo:block><fo:inline>^x|</fo:inline>Ta</fo:block>  ->  <fo:block>Ta</fo:b|lock>
// so such a start follows the caret back.
void EditableDocumentBuffer::eraseListPartOfSelection(SelectionWalk &walk)
{
    int list = searchParent("fo:list-block", walk.cur, false, true, "");
    bool startInList = list != -1 && walk.start >= list;
    int behind = ListEditing(*this).eraseListSelection(walk.cur, walk.end);
    int next = getNextEditablePositionInFo(behind, false, false);
    if (next == -1)
        next = behind < 0 ? -1 : lastCaretPositionInList(0, behind);
    walk.cur = next;
    if (walk.end >= next)
        walk.start = next;
    else
        walk.end = next;
    walk.listHandled = false;
    if (startInList && caret >= 0 && caret < walk.start)
        walk.start = caret;
}
