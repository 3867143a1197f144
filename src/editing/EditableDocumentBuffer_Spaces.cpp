// Walks over white space that draws nothing, shared by typing and deletion.
//
// Indented markup holds line feeds, tabs and runs of blanks that the rendering
// swallows. The caret can't stand on them, so an edit that leaves the caret there
// moves it over them, and a deletion takes an element's indentation along with it.

#include "editing/EditableDocumentBuffer.h"

#include "algorithms/WhitespaceAlg.h"

bool EditableDocumentBuffer::skipSpacesBackwards(int &position, bool crossElements)
{
    return skipSkippedPositions(position, crossElements, false);
}

bool EditableDocumentBuffer::skipSpacesFromPos(int &position, bool crossElements)
{
    return skipSkippedPositions(position, crossElements, true);
}

// Steps `position` one atom at a time while the rendering skips it. The rules are
// those of the element the walk is in; they are loaded again only when a step leaves
// it, which a step can only do by crossing a tag.
bool EditableDocumentBuffer::skipSkippedPositions(int &position, bool crossElements, bool forward)
{
    if (!content.isValidIndex(position))
        return false;
    int element = getCurrentElementPosition(position);
    BufferAlgorithms::WhitespaceAlg rules(*this);
    rules.loadFromElement(element);
    bool leftElement = false;
    while (rules.isPositionSkipped(position)) {
        int step =
            forward ? getNextEditablePositionInXml(position) : getPreviousEditablePositionInXml(position);
        if (!content.isValidIndex(step))
            break;
        bool crossedTag = content[forward ? position : step] == u'<';
        int stepElement = crossedTag ? getCurrentElementPosition(step) : element;
        if (stepElement != element) {
            leftElement = true;
            if (!crossElements)
                break;
            element = stepElement;
            rules.loadFromElement(element);
        }
        position = step;
    }
    return leftElement;
}

// The indentation of an element: the tabs before it, then the line feed that ends
// the line before.
void EditableDocumentBuffer::deleteSpacesBetweenTags(int &position)
{
    while (position > 0 && content[position - 1] == u'\t')
        --position;
    if (position > 0 && content[position - 1] == u'\n')
        --position;
}
