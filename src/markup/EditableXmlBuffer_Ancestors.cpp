// The current element of a position and the walk up through its ancestors.
//
// The current element of a position is the innermost element whose start tag lies
// before it and whose closing tag has not come yet:
//
//   <fo:flow>|<fo:block>ab</fo:block>     the flow (the block is not entered yet)
//   <fo:flow><fo:block>|ab</fo:block>     the block
//   <fo:flow><fo:block>ab|</fo:block>     the block (on the "<" of its closing tag)
//
// getCurrentElementPosition is the hottest walk of the engine. It goes back tag by tag
// with rFind and stops at the current element's start tag, so its cost is the markup
// between the position and that start tag, never the document before it.

#include "markup/EditableXmlBuffer.h"

int EditableXmlBuffer::getCurrentElementPosition(int position) const
{
    int depth = 0;
    for (int t = getPreviousTagPosition(position); t >= 0; t = getPreviousTagPosition(t)) {
        if (ignoredElementAtPosition(t))
            continue;
        if (content[t + 1] == u'/') {
            ++depth;
            continue;
        }
        if (selfClosingTagAtPosition(t))
            continue;
        if (depth == 0)
            return t;
        --depth;
    }
    return -1;
}

// The walk of the static forms: their getPreviousTagPosition can stop on a comment's
// start, which is filtered here like any ignored item. `stopAtZero` makes a tag at index
// 0 end the walk, as the static name lookup does.
int EditableXmlBuffer::staticCurrentElement(int position, Core::String const &text, bool stopAtZero)
{
    int depth = 0;
    for (int t = getPreviousTagPosition(position, text); t >= 0; t = getPreviousTagPosition(t, text)) {
        if (stopAtZero && t == 0)
            return -1;
        if (ignoredElementAtPosition(t, text))
            continue;
        if (getTagNameEnd(t, text) < 0)
            return -1; // the name runs to the end of the string
        if (text[t + 1] == u'/') {
            ++depth;
            continue;
        }
        if (selfClosingTagAtPosition(t, text))
            continue;
        if (depth == 0)
            return t;
        --depth;
    }
    return -1;
}

int EditableXmlBuffer::getCurrentElementPosition(int position, Core::String const &text)
{
    return staticCurrentElement(position, text, false);
}

Core::String EditableXmlBuffer::getCurrentElementName(int position) const
{
    return getNameForTagAtPosition(getCurrentElementPosition(position));
}

Core::String EditableXmlBuffer::getCurrentElementName(int position, Core::String const &text)
{
    return getNameForTagAtPosition(staticCurrentElement(position, text, true), text);
}

int EditableXmlBuffer::getCurrentElementNameAndPos(int position, Core::String &name) const
{
    name = Core::String();
    const int element = getCurrentElementPosition(position);
    name = getNameForTagAtPosition(element);
    return element;
}

// The text between "<" and ">" of the current element's start tag, attributes included.
Core::String EditableXmlBuffer::getCurrentElementStartTagString(int position) const
{
    const int element = getCurrentElementPosition(position);
    return element < 0 ? Core::String() : startTagStringAt(element);
}

int EditableXmlBuffer::getFirstPositionInElementContaining(int position) const
{
    return getNextEditablePositionInXml(getCurrentElementPosition(position));
}

int EditableXmlBuffer::getLastPositionInElementContaining(int position) const
{
    return getClosingTagForTagAtPosition(getCurrentElementPosition(position));
}

Core::String EditableXmlBuffer::getParentElementName(int position) const
{
    const int element = getCurrentElementPosition(position);
    return element < 0 ? Core::String() : getCurrentElementName(element);
}

// Walks up from the current element itself to the first element named like the parent.
// With nested elements of one name (a block in a block) that is the current element,
// not its parent; callers that need the true parent call getCurrentElementPosition twice.
int EditableXmlBuffer::getParentElementPosition(int position) const
{
    return searchParent(getParentElementName(position), position);
}

int EditableXmlBuffer::searchParent(Core::String const &name, int position, bool outermost, bool keepPrefix,
                                    Core::String stopAt) const
{
    return searchAncestors(&name, 1, position, outermost, keepPrefix, stopAt);
}

int EditableXmlBuffer::searchFirstParent(std::vector<Core::String> names, int position, bool outermost,
                                         bool keepPrefix, Core::String stopAt) const
{
    return searchAncestors(names.data(), names.size(), position, outermost, keepPrefix, stopAt);
}

// The stop element is tested against the names before the walk ends at it, so the root
// can be found. With `keepPrefix` false, `stopAt` must be given without prefix too.
// Names are tested in list order; with `outermost` the last match on the way up wins.
int EditableXmlBuffer::searchAncestors(Core::String const *names, std::size_t count, int position,
                                       bool outermost, bool keepPrefix, Core::String const &stopAt) const
{
    Core::String const &stop = stopAt.isEmpty() ? rootElement : stopAt;
    int match = -1;
    for (int t = getCurrentElementPosition(position); t >= 0; t = getCurrentElementPosition(t)) {
        for (std::size_t i = 0; i < count; ++i) {
            if (tagNameEquals(t, names[i], keepPrefix)) {
                if (!outermost)
                    return t;
                match = t;
                break;
            }
        }
        if (tagNameEquals(t, stop, keepPrefix))
            break;
    }
    return outermost ? match : -1;
}

bool EditableXmlBuffer::inListItemLabel(int position) const
{
    return searchParent("fo:list-item-label", position) >= 0;
}

bool EditableXmlBuffer::isInElementContext(Core::String name, int position) const
{
    return searchParent(name, position) >= 0;
}

bool EditableXmlBuffer::isInFoFlow(int position) const
{
    return !isOnInvalidPosition(position) && searchParent("fo:flow", position) >= 0;
}

// The first ancestor of `position` called `name`, or -1 when the walk meets the root
// (or runs out) first.
int EditableXmlBuffer::ancestorBelowRoot(Core::String const &name, int position) const
{
    for (int t = getCurrentElementPosition(position); t >= 0; t = getCurrentElementPosition(t)) {
        if (tagNameEquals(t, rootElement))
            return -1;
        if (tagNameEquals(t, name))
            return t;
    }
    return -1;
}

bool EditableXmlBuffer::positionsAreInTheSameElement(Core::String name, int first, int second) const
{
    const int a = ancestorBelowRoot(name, first);
    return a >= 0 && ancestorBelowRoot(name, second) == a;
}

bool EditableXmlBuffer::positionsAreInTheSameStaticContent(int first, int second) const
{
    return positionsAreInTheSameElement("fo:static-content", first, second);
}

// Both or neither in a flow; not necessarily the same flow.
bool EditableXmlBuffer::positionsAreInSameFlowTypes(int first, int second) const
{
    return isInFoFlow(first) == isInFoFlow(second);
}

// The gate for extending a selection: `second` must lie in the flow (or static content)
// of `first`. `second` is tested by its number only, at the cost of one closing-tag
// search, so a selection never leaves its flow.
bool EditableXmlBuffer::positionsAreInTheSameFlowElement(int first, int second) const
{
    int flow = searchParent("fo:flow", first);
    if (flow < 0)
        flow = searchParent("fo:static-content", first);
    if (flow < 0)
        return false;
    return flow < second && second <= getClosingTagForTagAtPosition(flow);
}
