// Next and previous elements in document order, neighbours, and children.

#include "markup/EditableXmlBuffer.h"
#include "support/WhiteSpace.h"

// The next start tag or self-closing tag. getNextTagPosition never stops on a comment,
// CDATA section or processing instruction, so only closing tags are passed here.
int EditableXmlBuffer::getNextElementPosition(int position) const
{
    int t = getNextTagPosition(onTagStartPosition(position) ? stepForward(position) : position);
    while (t >= 0 && content[t + 1] == u'/') {
        if (content.matchesAt(t + 2, rootElement) && isNameTerminator(content[t + 2 + rootElement.length()]))
            return -1; // the root closes: nothing follows
        t = getNextTagPosition(stepForward(t));
    }
    return t;
}

// The empty name on a text position.
Core::String EditableXmlBuffer::getNextElementName(int position) const
{
    if (!onTagStartPosition(position))
        return Core::String();
    if (ignoredElementAtPosition(position))
        return getNameForTagAtPosition(getNextElementPosition(position));
    return getNameForTagAtPosition(position);
}

// The nearest start tag or self-closing tag before the current element's start tag, in
// document order, whatever its depth.
int EditableXmlBuffer::getPreviousElementPosition(int position) const
{
    const int element = getCurrentElementPosition(position);
    if (element < 0)
        return -1;
    for (int t = getPreviousTagPosition(element); t >= 0; t = getPreviousTagPosition(t))
        if (!ignoredElementAtPosition(t) && content[t + 1] != u'/')
            return t;
    return -1;
}

int EditableXmlBuffer::getNextElementByName(Core::String const &name, int position) const
{
    return firstElementNamedAnyOf(&name, 1, position);
}

int EditableXmlBuffer::getFirstElementByName(std::vector<Core::String> names, int position) const
{
    return firstElementNamedAnyOf(names.data(), names.size(), position);
}

// The search starts with a step, so from an element of the name it finds the next one.
int EditableXmlBuffer::firstElementNamedAnyOf(Core::String const *names, std::size_t count,
                                              int position) const
{
    if (position == -1)
        return -1;
    int t = position;
    for (;;) {
        const int next = getNextElementPosition(t);
        if (next <= t)
            return -1; // not found, or a walk that would not advance
        t = next;
        for (std::size_t i = 0; i < count; ++i)
            if (tagNameEquals(t, names[i]))
                return t;
    }
}

// Any tag counts here, so asking for "/fo:block" finds closing tags.
int EditableXmlBuffer::getPreviousElementByName(Core::String const &name, int position) const
{
    if (position == -1)
        return -1;
    for (int t = getPreviousTagPosition(position); t >= 0; t = getPreviousTagPosition(t))
        if (tagNameEquals(t, name))
            return t;
    return -1;
}

// The previous sibling of the element around `position` (or of the self-closing tag at
// it); -1 when the element is its parent's first child.
int EditableXmlBuffer::getPreviousNeighborPosition(int position) const
{
    const int element = selfClosingTagAtPosition(position) ? position : getCurrentElementPosition(position);
    int t = getPreviousTagPosition(element);
    while (t >= 0) {
        if (content[t + 1] == u'/')
            return getCurrentElementPosition(t);
        if (selfClosingTagAtPosition(t))
            return t;
        if (!commentTagAtPosition(t))
            return -1; // the parent's start tag
        t = getPreviousTagPosition(t);
    }
    return t;
}

Core::String EditableXmlBuffer::getPreviousNeighborName(int position) const
{
    return getNameForTagAtPosition(getPreviousNeighborPosition(position));
}

// The first position after the element around `position` (or after the self-closing tag
// at it) that is not white space; -1 when there is none.
int EditableXmlBuffer::skipPastElementAndSpaces(int position) const
{
    const int end =
        selfClosingTagAtPosition(position) ? position : getLastPositionInElementContaining(position);
    if (end < 0)
        return -1;
    int t = stepForward(end);
    while (t >= 0 && Core::iswspace(content[t]))
        ++t;
    return t;
}

// The next sibling's tag. When the parent ends here it is the parent's closing tag,
// which callers tell by closingElementTagAtPosition; -1 when text follows.
int EditableXmlBuffer::getNextNeighborPosition(int position) const
{
    const int t = skipPastElementAndSpaces(position);
    if (content[t] != u'<')
        return -1;
    return getNextTagPosition(t);
}

// Like getNextNeighborPosition, but comments are stepped over too, and a closing tag's
// name keeps its "/".
Core::String EditableXmlBuffer::getNextNeighborName(int position) const
{
    int t = skipPastElementAndSpaces(position);
    while (commentTagAtPosition(t)) {
        t = stepForward(t);
        while (t >= 0 && Core::iswspace(content[t]))
            ++t;
    }
    if (isOnInvalidPosition(t) || content[t] != u'<')
        return Core::String();
    return getNextTagName(t);
}

// May leave the parent.
int EditableXmlBuffer::getNextSiblingElementPos(int element) const
{
    return getNextElementPosition(getClosingTagForTagAtPosition(element));
}

// The next sibling only if it lies inside the parent.
int EditableXmlBuffer::getSiblingElement(int element) const
{
    const int sibling = getNextSiblingElementPos(element);
    if (sibling < 0)
        return -1;
    return sibling < getLastPositionInElementContaining(element) ? sibling : -1;
}

// The closing tag of a start tag that can have children; -1 otherwise.
int EditableXmlBuffer::closingTagOfContainer(int element) const
{
    if (!onTagStartPosition(element) || selfClosingTagAtPosition(element))
        return -1;
    return getClosingTagForTagAtPosition(element);
}

// For an element without child elements this is its own closing tag.
int EditableXmlBuffer::getFirstChildPosition(int element) const
{
    const int closing = closingTagOfContainer(element);
    if (closing < 0)
        return -1;
    const int first = getNextTagPosition(stepForward(element));
    return first >= 0 && first <= closing ? first : -1;
}

int EditableXmlBuffer::getNextChildByName(Core::String const &name, int element) const
{
    const int closing = closingTagOfContainer(element);
    if (closing < 0)
        return -1;
    for (int t = getNextTagPosition(stepForward(element)); t >= 0 && t <= closing;) {
        if (tagNameEquals(t, name))
            return t;
        const int childEnd = getClosingTagForTagAtPosition(t);
        if (childEnd < t)
            return -1;
        t = getNextTagPosition(stepForward(childEnd));
    }
    return -1;
}

// Strictly between the start tag and the closing tag; never for a self-closing tag.
bool EditableXmlBuffer::elementContainsPosition(int element, int position) const
{
    if (!onTagStartPosition(element))
        return false;
    const int closing = getClosingTagForTagAtPosition(element);
    return closing >= 0 && element < position && position < closing;
}
