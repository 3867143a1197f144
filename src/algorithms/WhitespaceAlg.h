#pragma once

#include "algorithms/BufferAlg.h"
#include "support/PropertyCollection.h"
#include "support/SmartPtr.h"

#include <optional>

class EditableDocumentBuffer;

namespace BufferAlgorithms {

// Tells the caret walks whether a position draws nothing and must be stepped over:
// indentation between tags, collapsed runs of blanks, and tags that add no place of
// their own (the edge between two adjacent inlines). The answer follows the three
// XSL-FO white-space properties in force at the position, inherited from the editable
// elements around it.
//
// One object serves one walk. Loading reads the properties of every ancestor, so a walk
// loads again only when it enters another element. A load overwrites only the settings
// the element's properties mention; the others keep what an earlier load gave them.
class WhitespaceAlg : public BufferAlg {
public:
    // Values of "fo:white-space-treatment".
    enum WhiteSpaceTreatment : int {
        Ignore = 0,
        Preserve = 1,
        IgnoreIfBeforeLinefeed = 2,
        IgnoreIfAfterLinefeed = 3,
        IgnoreIfSurroundingLinefeed = 4,
    };
    // Values of "fo:linefeed-treatment".
    enum LinefeedTreatment : int {
        LinefeedIgnore = 0,
        LinefeedPreserve = 1,
        LinefeedTreatAsSpace = 2,
        LinefeedTreatAsZeroWidthSpace = 3,
    };

    // With the default settings. Every question asked through a null buffer throws
    // Core::NullPointerException.
    explicit WhitespaceAlg(SmartPtr<EditableDocumentBuffer> buffer);
    // Borrows `borrowed` without taking a reference, for the walks a document runs on
    // itself: the document need not be held by a SmartPtr (a host may keep it on the
    // stack), and the walk must not be the one to release it. The forwards of BufferAlg
    // are not available on such an object.
    explicit WhitespaceAlg(EditableDocumentBuffer &borrowed);

    // Takes the settings in force in the element whose start tag is at
    // `elementPosition`. Nothing for a position that holds no tag.
    void loadFromElement(int elementPosition);
    // The white-space properties of the element and its editable ancestors, the nearest
    // definition of each winning. Empty for a position that holds no tag.
    PropertyCollection getWhitespaceProperties(int elementPosition);

    bool isPositionSkipped(int position);
    bool isTextPositionSkipped(int position);
    bool isTagPositionSkipped(int position);
    // True when every position from `from` up to `to` (excluded) is skipped text.
    bool allPositionsSkipped(int from, int to);

    int getWhiteSpaceTreatment() const noexcept { return whiteSpaceTreatment; }
    bool getWhiteSpaceCollapse() const noexcept { return whiteSpaceCollapse; }
    int getLinefeedTreatment() const noexcept { return linefeedTreatment; }

private:
    EditableDocumentBuffer &doc() const;
    void applyProperty(Core::String const &name, Core::String const &value);
    // A run of blanks collapses to its first one.
    bool collapsible() const noexcept { return whiteSpaceTreatment == Ignore || whiteSpaceCollapse; }

    // The steps of isTextPositionSkipped on an ordinary blank, tab or line feed.
    struct TextSpan {
        int element = -1; // the current element
        bool isInline = false;
        int start = -1; // where the element's own text starts
        int close = -1; // where its text ends, when that is the next tag: its closing tag or a block child
    };
    TextSpan measureSpan(int position);
    // The answer when the position lies in the leading or trailing run of its element.
    std::optional<bool> isSkippedAtEdges(int position, TextSpan span);
    bool isSkippedInsideRun(int position);

    // The steps of isTagPositionSkipped.
    bool tagBehindBlankIsSkipped(int position, int blank, bool isClose);
    bool tagAfterTagIsSkipped(int position, bool isClose);

    int whiteSpaceTreatment = IgnoreIfSurroundingLinefeed;
    bool whiteSpaceCollapse = true;
    int linefeedTreatment = LinefeedTreatAsSpace;
    EditableDocumentBuffer *asked = nullptr; // the document: BufferAlg's, or the borrowed one
};

} // namespace BufferAlgorithms
