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

#include <algorithm>

int EditableXmlBuffer::getCurrentElementPosition(int position) const
{
    const int known = structureMemo.parentOf(position);
    return known != StructureMemo::Unknown ? known : walkToCurrentElement(position, true);
}

bool EditableXmlBuffer::isStartTagAt(int position) const
{
    return onTagStartPosition(position) && content[position + 1] != u'/' &&
           !ignoredElementAtPosition(position);
}

// Back from `position`, counting closing tags up and start tags down. Every start tag
// met at depth 0 after its closing tag, and every self-closing tag met at depth 0, is a
// sibling of `position`: from there on the walk is the walk from that tag, so they all
// share the answer. With `remember` the walk stops at a sibling whose answer is known,
// and afterwards remembers the answer for every sibling it crossed.
//
// What a sibling's answer was read from: the string from the answer to the sibling,
// and the ends of the tags the walk tested for "/>" on the way, which on broken quotes
// can lie ahead (`reach`).
int EditableXmlBuffer::walkToCurrentElement(int position, bool remember) const
{
    std::vector<StructureMemo::Entry> crossed; // the siblings, `high` first holding the reach after them
    if (remember && isStartTagAt(position))
        crossed.push_back({position, -1, -1, -1});
    int depth = 0;
    int reach = -1;
    int answer = -1;
    for (int t = getPreviousTagPosition(position); t >= 0; t = getPreviousTagPosition(t)) {
        if (ignoredElementAtPosition(t))
            continue;
        if (content[t + 1] == u'/') {
            ++depth;
            continue;
        }
        const int end = findTagEnd(t, content);
        reach = std::max(reach, end);
        const bool selfClosing = end > 0 && content[end - 1] == u'/';
        if (!selfClosing) {
            if (depth == 0) {
                answer = t;
                break;
            }
            if (--depth > 0)
                continue;
        } else if (depth > 0) {
            continue;
        }
        if (!remember)
            continue;
        if (!crossed.empty())
            crossed.back().high = reach;
        reach = -1;
        if (StructureMemo::Entry const *known = structureMemo.findParent(t)) {
            answer = known->value;
            reach = known->high;
            break;
        }
        crossed.push_back({t, -1, -1, -1});
    }
    if (crossed.empty())
        return answer;
    crossed.back().high = std::max(crossed.back().high, reach);
    for (std::size_t i = crossed.size(); i-- > 0;) {
        reach = std::max(reach, crossed[i].high);
        crossed[i] = {crossed[i].key, answer, answer, std::max(crossed[i].key, reach)};
    }
    structureMemo.rememberParents(crossed);
    return answer;
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
// of `first`, anywhere from behind the flow's "<" up to the "<" of its closing tag, so a
// selection never leaves its flow.
bool EditableXmlBuffer::positionsAreInTheSameFlowElement(int first, int second) const
{
    int flow = searchParent("fo:flow", first);
    if (flow < 0)
        flow = searchParent("fo:static-content", first);
    if (flow < 0)
        return false;
    return flow < second && isNotPastClosingTagOf(flow, second);
}

// Searching forward for the closing tag of a flow costs the whole flow, and a deletion
// asks after every splice of it. Walking up from `position` costs the walk to its
// current element and a remembered hop per ancestor. On well-formed markup the answers
// agree: the element is an ancestor of every position inside it, and of the "<" of its
// closing tag. What the walk up does not see, a position inside the start tag or
// inside the closing tag, is told apart first.
bool EditableXmlBuffer::isNotPastClosingTagOf(int element, int position) const
{
    const int known = structureMemo.closingOf(element);
    if (known != StructureMemo::Unknown)
        return position <= known;
    const int startTagEnd = findTagEnd(element, content);
    if (startTagEnd < 0 || position <= startTagEnd)
        return position <= getClosingTagForTagAtPosition(element);
    int t = getCurrentElementPosition(position);
    if (t == element) {
        const int bracket = content.rFind(u'<', position - 1);
        const bool insideClosingTag = bracket > startTagEnd && bracket > content.rFind(u'>', position - 1) &&
                                      content[bracket + 1] == u'/';
        return !insideClosingTag || getCurrentElementPosition(bracket) != element;
    }
    while (t > element)
        t = getCurrentElementPosition(t);
    return t == element;
}
