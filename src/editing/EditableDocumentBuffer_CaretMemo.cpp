// Current elements remembered for the length of one caret operation.
//
// A caret walk that steps atom by atom knows the current element of each position it
// reaches from the atom it crossed (entering a start tag, leaving at a closing tag), and
// tells the memo, so stepping needs no walk back at all. The string cannot change while
// the operation runs: caret operations only move the caret. Walks up through ancestors
// need no memo of their own here: getCurrentElementPosition remembers parents across
// operations and edits (StructureMemo).

#include "editing/EditableDocumentBuffer.h"

#include <unordered_map>

class EditableDocumentBuffer::WalkMemo {
public:
    std::unordered_map<int, int> currentElements; // position -> its current element
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

int EditableDocumentBuffer::parentElementOf(int element)
{
    return element < 0 ? -1 : getCurrentElementPosition(element);
}

// The walk goes on above a flow: a remembered parent is one hop, so there is no need to
// stop early, and the answers are those of searchParent.
int EditableDocumentBuffer::ancestorNamed(int element, Core::String const &name, bool belowRoot)
{
    for (int t = element; t >= 0;) {
        bool isRoot = tagNameEquals(t, rootElement);
        if (belowRoot && isRoot)
            return -1;
        if (tagNameEquals(t, name))
            return t;
        if (isRoot)
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
        else if (!selfClosingTagAtPosition(from))
            element = from;
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
        if (content[to + 1] == u'/')
            element = currentElementOf(to);
        else if (!selfClosingTagAtPosition(to))
            element = parentElementOf(fromElement);
    }
    noteCurrentElement(to, element);
    return element;
}
