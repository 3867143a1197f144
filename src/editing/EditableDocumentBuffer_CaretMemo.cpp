// Ancestry remembered for the length of one caret operation.
//
// Finding the element around a position walks the string back tag by tag; finding its
// parent walks back over all the siblings before it, which for a paragraph of a long
// flow is most of the flow. A caret press asks about the same few elements again and
// again (is this in a flow, in a table, in a list label, which white-space properties
// hold), so the answers are kept while the operation runs. The string cannot change
// meanwhile: caret operations only move the caret. A walk that steps atom by atom also
// knows the current element of each position it reaches from the atom it crossed, and
// tells the memo, so stepping needs no walk back at all.

#include "editing/EditableDocumentBuffer.h"

#include <unordered_map>

class EditableDocumentBuffer::WalkMemo {
public:
    std::unordered_map<int, int> currentElements; // position -> its current element
    std::unordered_map<int, int> parents;         // start tag -> the element around it
};

EditableDocumentBuffer::WalkScope::WalkScope(EditableDocumentBuffer &owner) : buffer(owner)
{
    if (buffer.walkMemo == nullptr) {
        opened = new WalkMemo();
        buffer.walkMemo = opened;
    }
}

EditableDocumentBuffer::WalkScope::~WalkScope()
{
    if (opened != nullptr) {
        buffer.walkMemo = nullptr;
        delete opened;
    }
}

int EditableDocumentBuffer::currentElementOf(int position)
{
    if (walkMemo == nullptr)
        return getCurrentElementPosition(position);
    auto known = walkMemo->currentElements.find(position);
    if (known != walkMemo->currentElements.end())
        return known->second;
    int element = getCurrentElementPosition(position);
    walkMemo->currentElements.emplace(position, element);
    return element;
}

void EditableDocumentBuffer::noteCurrentElement(int position, int element)
{
    if (walkMemo != nullptr)
        walkMemo->currentElements.emplace(position, element);
}

void EditableDocumentBuffer::noteParent(int element, int parent)
{
    if (walkMemo != nullptr && element >= 0)
        walkMemo->parents.emplace(element, parent);
}

int EditableDocumentBuffer::parentElementOf(int element)
{
    if (element < 0)
        return -1;
    if (walkMemo == nullptr)
        return getCurrentElementPosition(element);
    auto known = walkMemo->parents.find(element);
    if (known != walkMemo->parents.end())
        return known->second;
    int parent = getCurrentElementPosition(element);
    walkMemo->parents.emplace(element, parent);
    return parent;
}

// Flows and static contents hold the text of the pages, and none of the elements the
// caret asks about (a table, a row group, a list label, template logic, a block) ever
// encloses one. So a walk up stops at a flow or a static content: above it lie only
// the page sequences, whose walk back would cross all the sequences before.
bool EditableDocumentBuffer::isPageTextContainer(int element) const
{
    return tagNameEquals(element, "fo:flow") || tagNameEquals(element, "fo:static-content");
}

int EditableDocumentBuffer::ancestorNamed(int element, Core::String const &name, bool belowRoot)
{
    for (int t = element; t >= 0;) {
        bool isRoot = tagNameEquals(t, rootElement);
        if (belowRoot && isRoot)
            return -1;
        if (tagNameEquals(t, name))
            return t;
        if (isRoot || isPageTextContainer(t))
            return -1;
        int parent = parentElementOf(t);
        t = parent < t ? parent : -1;
    }
    return -1;
}

bool EditableDocumentBuffer::isInFlowAt(int position)
{
    return !isOnInvalidPosition(position) &&
           ancestorNamed(currentElementOf(position), "fo:flow", false) != -1;
}

int EditableDocumentBuffer::tableAround(int position)
{
    return isOnInvalidPosition(position) ? -1 : ancestorNamed(currentElementOf(position), "fo:table", false);
}

bool EditableDocumentBuffer::hasAncestor(int element, int ancestor)
{
    for (int t = element; t >= ancestor && ancestor >= 0;) {
        if (t == ancestor)
            return true;
        int parent = parentElementOf(t);
        t = parent < t ? parent : -1;
    }
    return false;
}

bool EditableDocumentBuffer::sameElementNamed(Core::String const &name, int first, int second)
{
    int a = ancestorNamed(currentElementOf(first), name, true);
    return a != -1 && ancestorNamed(currentElementOf(second), name, true) == a;
}

// Crossing a start tag enters its element, crossing a closing tag leaves the element
// for its parent, and text, entities, comments and self-closing tags change nothing:
// the same depth counting getCurrentElementPosition does backward.
int EditableDocumentBuffer::currentElementAfterStep(int from, int fromElement, int to)
{
    int element = fromElement;
    if (onTagStartPosition(from) && !ignoredElementAtPosition(from)) {
        if (content[from + 1] == u'/')
            element = parentElementOf(fromElement);
        else if (!selfClosingTagAtPosition(from)) {
            element = from;
            noteParent(from, fromElement);
        }
    }
    noteCurrentElement(to, element);
    return element;
}

// Stepping back onto a tag: onto a closing tag is entering its element, onto a start
// tag is leaving the element to its parent.
int EditableDocumentBuffer::currentElementBeforeStep(int fromElement, int to)
{
    int element = fromElement;
    if (onTagStartPosition(to) && !ignoredElementAtPosition(to)) {
        if (content[to + 1] == u'/') {
            element = currentElementOf(to);
            noteParent(element, fromElement);
        } else if (!selfClosingTagAtPosition(to)) {
            element = parentElementOf(fromElement);
        }
    }
    noteCurrentElement(to, element);
    return element;
}
