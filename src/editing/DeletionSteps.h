#pragma once

#include "algorithms/WhitespaceAlg.h"
#include "support/String.h"

#include <map>

class EditableDocumentBuffer;

// The white-space rules of the elements one phase asks about. Loading rules walks every
// ancestor of the element, so each is loaded once. Positions change with every splice:
// an object serves the questions asked before the phase's first splice.
class PhaseRules {
public:
    explicit PhaseRules(EditableDocumentBuffer &document) : doc(document) {}
    BufferAlgorithms::WhitespaceAlg &of(int element);

private:
    EditableDocumentBuffer &doc;
    std::map<int, BufferAlgorithms::WhitespaceAlg> loaded; // element -> its rules
};

// Base of the step objects behind Delete, Backspace and Enter. Each key press builds
// one on the stack around the document; its methods are the named phases of one
// algorithm. This base holds the document and the pieces the phases share: recorded
// splices, tag tests and the walks over positions that the rendering swallows.
class DeletionSteps {
public:
    explicit DeletionSteps(EditableDocumentBuffer &document) : doc(document) {}

public:
    // Records a splice the caller has made (the history stores its inverse).
    void recordDeletion(int position, Core::String const &removed);
    void recordInsertion(int position, Core::String const &inserted);
    // Splices `text` in and records it with the caret and pivot of the moment.
    void insertRecorded(int position, Core::String const &text);

    // The tag at `position` is exactly `name` (prefix kept), compared in place.
    bool tagNameIs(int position, char const *name) const;
    Core::String tagNameAt(int position) const;
    // The index behind the element's closing tag, -1 when there is none.
    int positionAfterElement(int elementPosition) const;

    // White space other than U+00A0 that the rendering keeps.
    bool isRenderedPlainSpace(int position, BufferAlgorithms::WhitespaceAlg &rules) const;
    // `position` moved forward (back) over skipped atoms that belong to `element`.
    int stepForwardOverSkippedIn(int position, int element, BufferAlgorithms::WhitespaceAlg &rules) const;
    int stepBackOverSkippedIn(int position, int element, BufferAlgorithms::WhitespaceAlg &rules) const;

    EditableDocumentBuffer &doc;
};
