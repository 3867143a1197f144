#include "editing/DeletionSteps.h"

#include "algorithms/WhitespaceAlg.h"
#include "editing/EditableDocumentBuffer.h"
#include "support/WhiteSpace.h"

#include <string>

BufferAlgorithms::WhitespaceAlg &PhaseRules::of(int element)
{
    auto found = loaded.find(element);
    if (found == loaded.end()) {
        found = loaded.try_emplace(element, doc).first;
        found->second.loadFromElement(element);
    }
    return found->second;
}

void DeletionSteps::recordDeletion(int position, Core::String const &removed)
{
    doc.addAction(EditAction(EditAction::DeleteText, position, -1, -1, removed));
}

void DeletionSteps::recordInsertion(int position, Core::String const &inserted)
{
    doc.addAction(EditAction(EditAction::InsertText, position, -1, -1, inserted));
}

void DeletionSteps::insertRecorded(int position, Core::String const &text)
{
    doc.insertXmlTextAtPosition(position, text);
    doc.addAction(EditAction(EditAction::InsertText, position, doc.caret, doc.selectionPivot, text));
}

bool DeletionSteps::tagNameIs(int position, char const *name) const
{
    Core::String const &content = doc.content;
    if (content[position] != u'<' || !content.matchesAt(position + 1, name))
        return false;
    char16_t const after = content[position + 1 + static_cast<int>(std::char_traits<char>::length(name))];
    return after == u'>' || after == u'/' || Core::iswspace(after);
}

Core::String DeletionSteps::tagNameAt(int position) const
{
    return doc.getNameForTagAtPosition(position, true);
}

int DeletionSteps::positionAfterElement(int elementPosition) const
{
    int const closing = doc.getClosingTagForTagAtPosition(elementPosition);
    return closing < 0 ? -1 : doc.getNextEditablePositionInXml(closing);
}

bool DeletionSteps::isRenderedPlainSpace(int position, BufferAlgorithms::WhitespaceAlg &rules) const
{
    return !doc.isOnInvalidPosition(position) && Core::isPlainWhiteSpace(doc.content[position]) &&
           !rules.isPositionSkipped(position);
}

int DeletionSteps::stepForwardOverSkippedIn(int position, int element,
                                            BufferAlgorithms::WhitespaceAlg &rules) const
{
    int p = position;
    while (!doc.isOnInvalidPosition(p) && doc.getCurrentElementPosition(p) == element &&
           rules.isPositionSkipped(p)) {
        int const next = doc.getNextEditablePositionInXml(p);
        if (next <= p)
            break;
        p = next;
    }
    return p;
}

int DeletionSteps::stepBackOverSkippedIn(int position, int element,
                                         BufferAlgorithms::WhitespaceAlg &rules) const
{
    int p = position;
    while (!doc.isOnInvalidPosition(p) && rules.isPositionSkipped(p)) {
        int const previous = doc.getPreviousEditablePositionInXml(p);
        if (doc.isOnInvalidPosition(previous) || previous >= p ||
            doc.getCurrentElementPosition(previous) != element)
            break;
        p = previous;
    }
    return p;
}
