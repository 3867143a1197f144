// The tables of editable elements and the questions asked of them: which tags may hold
// text, which positions may hold the caret, and where the caret stands in its element.

#include "editing/EditableDocumentBuffer.h"

#include "support/WhiteSpace.h"

#include <algorithm>

namespace {

bool listContains(std::vector<Core::String> const &names, Core::String const &name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

} // namespace

// ---- The tables ----

void EditableDocumentBuffer::addEditableElement(Core::String const &name)
{
    if (!listContains(editableElements, name))
        editableElements.push_back(name);
}

void EditableDocumentBuffer::addInlineEditableElement(Core::String const &name)
{
    if (!listContains(inlineEditableElements, name))
        inlineEditableElements.push_back(name);
}

bool EditableDocumentBuffer::isInlineEditableElementName(Core::String const &name)
{
    return listContains(inlineEditableElements, name);
}

bool EditableDocumentBuffer::isInlineEditableElementClosingTagName(Core::String const &name)
{
    return name.startsWith(u'/') && isInlineEditableElementName(name.subString(1, name.length() - 1));
}

bool EditableDocumentBuffer::isBlockEditableElementName(Core::String const &name)
{
    return !isInlineEditableElementName(name) && listContains(editableElements, name);
}

bool EditableDocumentBuffer::elementIsEditable(Core::String name)
{
    return std::any_of(editableElements.begin(), editableElements.end(),
                       [&name](Core::String const &editable) { return editable.equalsIgnoreCase(name); });
}

bool EditableDocumentBuffer::elementIsEditable(int position)
{
    int element = getCurrentElementPosition(position);
    return element != -1 && elementIsEditable(getNameForTagAtPosition(element, true));
}

// ---- Tag tests in place, for the walks ----

bool EditableDocumentBuffer::tagNameIsOneOf(int position, std::vector<Core::String> const &names) const
{
    if (!onTagStartPosition(position))
        return false;
    return std::any_of(names.begin(), names.end(),
                       [this, position](Core::String const &name) { return tagNameEquals(position, name); });
}

bool EditableDocumentBuffer::isEditableElementAtPosition(int position)
{
    return tagNameIsOneOf(position, editableElements);
}

bool EditableDocumentBuffer::isInlineEditableElementAt(int position) const
{
    return tagNameIsOneOf(position, inlineEditableElements);
}

bool EditableDocumentBuffer::isBlockEditableElementAt(int position) const
{
    return tagNameIsOneOf(position, editableElements) && !isInlineEditableElementAt(position);
}

bool EditableDocumentBuffer::isInlineEditableClosingTagAt(int position) const
{
    if (!onTagStartPosition(position) || content[position + 1] != u'/')
        return false;
    return std::any_of(inlineEditableElements.begin(), inlineEditableElements.end(),
                       [this, position](Core::String const &name) {
                           return content.matchesAt(position + 2, name) &&
                                  isNameTerminator(content[position + 2 + name.length()]);
                       });
}

bool EditableDocumentBuffer::inEditableElement(int position)
{
    int element = getCurrentElementPosition(position);
    return element != -1 && isEditableElementAtPosition(element);
}

// ---- The context filter ----

// A position holds the caret when text may stand there: inside an editable element,
// or right before or after a table, which the host draws as a place to type. List
// labels are generated and global template logic holds no document text, so nothing
// under them qualifies.
bool EditableDocumentBuffer::canHoldCaret(int position)
{
    WalkScope scope(*this);
    return canHoldCaretIn(position, currentElementOf(position));
}

bool EditableDocumentBuffer::canHoldCaretIn(int position, int currentElement)
{
    if (isOnInvalidPosition(position))
        return false;
    bool editable = currentElement != -1 && isEditableElementAtPosition(currentElement);
    if (!editable && !afterFOTable(position) && !tagNameEquals(position, "fo:table"))
        return false;
    return ancestorNamed(currentElement, "fo:list-item-label", false) == -1 &&
           ancestorNamed(currentElement, "otd:xslt-global", false) == -1;
}

// ---- Where the caret stands ----

// Tags of editable elements, comments and processing instructions draw nothing by
// themselves; any other tag (an image, a closed child, a table) does.
bool EditableDocumentBuffer::currentBlockContainsRenderedDataBeforePosition(int position)
{
    WalkScope scope(*this);
    int block = ancestorNamed(currentElementOf(position), "fo:block", false);
    if (block == -1)
        return false;
    for (int i = getNextEditablePositionInXml(block); i != -1 && i < position;) {
        char16_t c = content[i];
        if (c == u'<') {
            bool passed = commentTagAtPosition(i) || processingInstructionTagAtPosition(i) ||
                          (content[i + 1] != u'/' && isEditableElementAtPosition(i));
            if (!passed)
                return true;
        } else if (!Core::iswspace(c)) {
            return true; // text, or an entity such as the placeholder
        }
        int next = getNextEditablePositionInXml(i);
        if (next <= i)
            break;
        i = next;
    }
    return false;
}

bool EditableDocumentBuffer::isBoudaryEditablePosition(bool forward)
{
    if (isOnInvalidPosition(caret))
        return false;
    WalkScope scope(*this);
    int element = currentElementOf(caret);
    if (element == -1)
        return false;
    if (elementContainsJustNonBreakingSpace(element))
        return true;
    int closing = getClosingTagForTagAtPosition(element);
    if (isInlineEditableElementAt(element)) {
        int first = getNextEditablePositionInXml(element);
        if (first != -1 && (first == closing || first == getPreviousEditablePositionInXml(closing)))
            return true;
    }
    if (!forward)
        return getPreviousValidCaretPos(caret) <= element;
    int next = getNextValidCaretPos(caret);
    return next != -1 && closing != -1 && next > closing;
}

int EditableDocumentBuffer::getNextBlock(int position)
{
    return getNextElementByName("fo:block", position);
}

int EditableDocumentBuffer::getPreviousBlock(int position)
{
    return getPreviousElementByName("fo:block", position);
}
