// Home and End: the first and the last place with content, in the flows or in the
// static content the caret is in.

#include "editing/EditableDocumentBuffer.h"

#include "editing/FreezeNotifications.h"
#include "support/WhiteSpace.h"

namespace {

const Core::String staticContentName = "fo:static-content";

} // namespace

// The first stop of the first flow whose element holds more than white space. From
// static content the search stays in that static content. Static contents met on the
// way are skipped whole, and so are flows when the search is for static content.
void EditableDocumentBuffer::moveCaretHome(bool extendSelection)
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int caretStatic =
        isOnInvalidPosition(caret) ? -1 : ancestorNamed(currentElementOf(caret), staticContentName, false);
    int result = -1;
    for (int t = getFirstEditablePositionInXml(); t != -1;) {
        int element = currentElementOf(t);
        if (element != -1 && isEditableElementAtPosition(element)) {
            int skipTo = -1;
            bool inFlow = isInFlowAt(t);
            int around = ancestorNamed(element, staticContentName, false);
            bool candidate = caretStatic == -1 ? inFlow : around == caretStatic;
            if (candidate) {
                if (!elementContainsJustWhitespacesOrVoid(element)) {
                    result = t;
                    break;
                }
            } else if (caretStatic == -1) {
                skipTo = getClosingTagForTagAtPosition(around);
            } else if (inFlow) {
                skipTo = getClosingTagForTagAtPosition(ancestorNamed(element, "fo:flow", false));
            }
            if (skipTo > t)
                t = skipTo;
        }
        int next = getNextEditablePositionInFo(t, false, false);
        t = next > t ? next : -1;
    }
    setCaret(extendSelection, result);
}

// The last stop with content, walking back from the end of the document, or of the
// static content the caret is in.
void EditableDocumentBuffer::moveCaretToEnd(bool extendSelection)
{
    FreezeNotifications freeze(this);
    WalkScope scope(*this);
    int caretStatic =
        isOnInvalidPosition(caret) ? -1 : ancestorNamed(currentElementOf(caret), staticContentName, false);
    bool staticCase = caretStatic != -1 || pageMasterEditing;
    int start = caretStatic != -1 ? getClosingTagForTagAtPosition(caretStatic) : getRootClosingTag();
    int result = caret;
    for (int t = start; t != -1;) {
        int previous = getPreviousValidCaretPos(t);
        t = (previous != -1 && previous < t) ? previous : -1;
        if (t == -1)
            break;
        int element = currentElementOf(t);
        if (element == -1 || !isEditableElementAtPosition(element) ||
            elementContainsJustWhitespacesOrVoid(element))
            continue;
        bool inPlace = staticCase ? sameElementNamed(staticContentName, caret, t) : isInFlowAt(t);
        if (inPlace) {
            result = t;
            break;
        }
    }
    setCaret(extendSelection, result);
}

// The closing tag of the root, found from the end of the string: the root closes last,
// and only a comment or white space may follow it.
int EditableDocumentBuffer::getRootClosingTag() const
{
    if (rootElement.empty())
        return -1;
    Core::String closing = Core::String("</") + rootElement;
    for (int t = content.rFind(closing, content.length() - 1); t != -1; t = content.rFind(closing, t - 1)) {
        char16_t after = content[t + closing.length()];
        if (after == u'>' || Core::iswspace(after))
            return t;
    }
    return -1;
}
