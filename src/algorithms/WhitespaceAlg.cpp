#include "algorithms/WhitespaceAlg.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/Exception.h"
#include "support/WhiteSpace.h"

#include <array>

namespace BufferAlgorithms {

namespace {

const std::array<Core::String, 5> whitespacePropertyNames{"fo:white-space", "fo:white-space-treatment",
                                                          "fo:linefeed-treatment", "fo:white-space-collapse",
                                                          "fo:wrap-option"};

bool isLinefeed(char16_t c) noexcept
{
    return c == u'\n' || c == u'\r';
}

} // namespace

WhitespaceAlg::WhitespaceAlg(SmartPtr<EditableDocumentBuffer> buffer) : BufferAlg(buffer), asked(buffer.get())
{
}

WhitespaceAlg::WhitespaceAlg(EditableDocumentBuffer &borrowed) : BufferAlg(nullptr), asked(&borrowed) {}

EditableDocumentBuffer &WhitespaceAlg::doc() const
{
    if (!asked)
        FOEDIT_THROW(Core::NullPointerException());
    return *asked;
}

// ---- Settings ----

PropertyCollection WhitespaceAlg::getWhitespaceProperties(int elementPosition)
{
    EditableDocumentBuffer &d = doc();
    PropertyCollection gathered;
    if (!d.onTagStartPosition(elementPosition))
        return gathered;
    for (int t = elementPosition; t != -1;) {
        if (d.isEditableElementAtPosition(t)) {
            for (Core::String const &name : whitespacePropertyNames) {
                Core::String value = d.getTagPropertyValue(t, name);
                if (!value.empty())
                    gathered.addProperty(EditableProperty(name, value), false); // a nearer definition stays
            }
        }
        int parent = d.getCurrentElementPosition(t); // a remembered hop per ancestor
        t = parent < t ? parent : -1;
    }
    return gathered;
}

void WhitespaceAlg::loadFromElement(int elementPosition)
{
    if (!doc().onTagStartPosition(elementPosition))
        return;
    for (EditableProperty const &property : getWhitespaceProperties(elementPosition).getPropertyList())
        applyProperty(property.getName(), property.getValue().toLower());
}

void WhitespaceAlg::applyProperty(Core::String const &name, Core::String const &value)
{
    if (name == "fo:white-space") {
        if (value == "pre") {
            whiteSpaceCollapse = false;
            whiteSpaceTreatment = Preserve;
            linefeedTreatment = LinefeedPreserve;
        } else if (value == "normal" || value == "nowrap") {
            whiteSpaceCollapse = true;
            whiteSpaceTreatment = IgnoreIfSurroundingLinefeed;
            linefeedTreatment = LinefeedTreatAsSpace;
        }
    } else if (name == "fo:white-space-treatment") {
        static const std::array<char const *, 5> values{"ignore", "preserve", "ignore-if-before-linefeed",
                                                        "ignore-if-after-linefeed",
                                                        "ignore-if-surrounding-linefeed"};
        for (int i = 0; i < static_cast<int>(values.size()); ++i) {
            if (value == values[static_cast<std::size_t>(i)])
                whiteSpaceTreatment = i;
        }
    } else if (name == "fo:linefeed-treatment") {
        static const std::array<char const *, 4> values{"ignore", "preserve", "treat-as-space",
                                                        "treat-as-zero-width-space"};
        for (int i = 0; i < static_cast<int>(values.size()); ++i) {
            if (value == values[static_cast<std::size_t>(i)])
                linefeedTreatment = i;
        }
    } else if (name == "fo:white-space-collapse") {
        whiteSpaceCollapse = value != "false";
    }
}

// ---- Questions ----

bool WhitespaceAlg::isPositionSkipped(int position)
{
    EditableDocumentBuffer &d = doc();
    if (d.isOnInvalidPosition(position))
        return false;
    return d.onTagStartPosition(position) ? isTagPositionSkipped(position) : isTextPositionSkipped(position);
}

bool WhitespaceAlg::allPositionsSkipped(int from, int to)
{
    if (from == -1)
        return true;
    for (int i = from;; ++i) {
        if (i == to)
            return true;
        if (!isTextPositionSkipped(i))
            return false; // also past the end, where no white space stands
    }
}

// A blank, tab or line feed draws nothing when the white-space rules swallow it:
//
//     <fo:block>|  two  |words  </fo:block>
//
// the leading run, all but the first blank of an inner run, and the trailing run are
// skipped (marked |...| above: the first blank of "  words" is a stop). U+00A0, the
// placeholder, is never skipped.
bool WhitespaceAlg::isTextPositionSkipped(int position)
{
    char16_t c = doc().content[position];
    if (!Core::iswspace(c) || c == Core::kNoBreakSpace)
        return false;
    if (whiteSpaceTreatment == Ignore &&
        (linefeedTreatment == LinefeedIgnore || linefeedTreatment == LinefeedTreatAsSpace))
        return true;
    if (isLinefeed(c)) {
        if (linefeedTreatment == LinefeedPreserve)
            return false;
        if (linefeedTreatment == LinefeedIgnore || linefeedTreatment == LinefeedTreatAsZeroWidthSpace)
            return true;
    }
    if (std::optional<bool> atEdge = isSkippedAtEdges(position, measureSpan(position)))
        return *atEdge;
    return isSkippedInsideRun(position);
}

// The stretch of the element's own text around `position`: after a block child the run
// is measured from that child's end.
WhitespaceAlg::TextSpan WhitespaceAlg::measureSpan(int position)
{
    EditableDocumentBuffer &d = doc();
    TextSpan span;
    span.element = d.currentElementOf(position);
    if (span.element == -1)
        return span;
    span.isInline = d.isInlineEditableElementAt(span.element);
    span.start = d.getNextEditablePositionInXml(span.element);
    int before = d.getPreviousTagPosition(position);
    if (before > span.element && d.content[before + 1] == u'/' && !d.isInlineEditableClosingTagAt(before))
        span.start = d.getNextEditablePositionInXml(before);
    // The text ends at the element's closing tag or at a block-level child. Either is the
    // next tag when only white space lies between; any other next tag (an inline child)
    // means the position is not in the trailing run. So the element's end, which may lie
    // far away, is never looked for.
    int nextTag = d.getNextTagPosition(position);
    if (nextTag != -1 && (d.content[nextTag + 1] == u'/' || !d.isInlineEditableElementAt(nextTag)))
        span.close = nextTag;
    return span;
}

std::optional<bool> WhitespaceAlg::isSkippedAtEdges(int position, TextSpan span)
{
    EditableDocumentBuffer &d = doc();
    Core::String const &text = d.content;
    if (span.element == -1 || span.start == -1)
        return collapsible();
    int start = span.start;
    // The first blank of an inline that follows text is a real space.
    if (span.isInline && d.currentBlockContainsRenderedDataBeforePosition(start)) {
        if (position == start)
            return whiteSpaceTreatment == Ignore;
        start = d.getNextEditablePositionInXml(start);
    }
    // Leading run. White space never runs into a tag, so it ends before the closing tag.
    for (int i = start; i >= 0 && Core::iswspace(text[i]); ++i) {
        if (i == position)
            return collapsible();
    }
    // Trailing run.
    if (span.close == -1)
        return std::nullopt;
    int k = span.close - 1;
    while (k >= 0 && Core::iswspace(text[k]))
        --k;
    ++k;
    if (k == position && span.isInline)
        return whiteSpaceTreatment == Ignore;
    for (int i = k; i >= 0 && i < span.close && Core::iswspace(text[i]); ++i) {
        if (i == position)
            return collapsible();
    }
    return std::nullopt;
}

// Inside the text only the first blank of a run survives; that one too is swallowed
// right after a nested block or a line break.
bool WhitespaceAlg::isSkippedInsideRun(int position)
{
    EditableDocumentBuffer &d = doc();
    Core::String const &text = d.content;
    int first = position;
    while (first > 0 && Core::iswspace(text[first - 1]))
        --first;
    if (!d.currentBlockContainsRenderedDataBeforePosition(first))
        return false;
    if (first != position)
        return collapsible();
    int before = d.getPreviousEditablePositionInXml(position);
    bool afterBlock = d.onTagStartPosition(before) &&
                      (d.tagNameEquals(before, "/fo:block") ||
                       (d.tagNameEquals(before, "fo:block") && d.selfClosingTagAtPosition(before)));
    if (afterBlock && whiteSpaceCollapse)
        return true;
    return whiteSpaceTreatment == Ignore;
}

// A tag adds no caret stop of its own when it stands behind white space that draws
// nothing, or directly behind another tag of an editable element:
//
//     <fo:inline>a</fo:inline><fo:inline>b</fo:inline>
//                            ^ skipped: for the eye the two tags are one place
//
// A link's edges stay stops, and so does a tag behind a placeholder inside an inline.
bool WhitespaceAlg::isTagPositionSkipped(int position)
{
    EditableDocumentBuffer &d = doc();
    Core::String const &text = d.content;
    bool isClose = text[position + 1] == u'/';
    if (isClose || d.isEditableElementAtPosition(position)) {
        int blank = -1;
        if (Core::iswspace(text[position - 1]))
            blank = position - 1;
        else if (position >= 8 && text.matchesAt(position - 8, EditableXmlBuffer::NbspEntity))
            blank = position - 8;
        if (blank == position - 1 && text[blank] != Core::kNoBreakSpace &&
            !d.currentBlockContainsRenderedDataBeforePosition(blank))
            return true;
        if (blank != -1)
            return tagBehindBlankIsSkipped(position, blank, isClose);
    }
    return tagAfterTagIsSkipped(position, isClose);
}

bool WhitespaceAlg::tagBehindBlankIsSkipped(int position, int blank, bool isClose)
{
    EditableDocumentBuffer &d = doc();
    Core::String const &text = d.content;
    bool tagIsInline =
        isClose ? d.isInlineEditableClosingTagAt(position) : d.isInlineEditableElementAt(position);
    bool placeholder =
        text[blank] == Core::kNoBreakSpace || text.matchesAt(blank, EditableXmlBuffer::NbspEntity);
    if (placeholder && tagIsInline)
        return false; // a stop behind a placeholder inside an inline is real
    int previousTag = d.getPreviousTagPosition(position);
    if (previousTag == -1)
        return false;
    int afterPrevious = d.getNextEditablePositionInXml(previousTag);
    if (text[previousTag + 1] == u'/') {
        int start = d.getStartTagForTagAtPosition(previousTag);
        bool afterBlockChild = start != -1 && d.isBlockEditableElementAt(start);
        return (afterBlockChild || d.afterFOTable(afterPrevious)) &&
               allPositionsSkipped(afterPrevious, blank);
    }
    if (d.selfClosingTagAtPosition(previousTag) && d.isBlockEditableElementAt(previousTag))
        return allPositionsSkipped(afterPrevious, blank);
    if (d.isEditableElementAtPosition(previousTag) && !tagIsInline)
        return allPositionsSkipped(afterPrevious, blank);
    return false;
}

bool WhitespaceAlg::tagAfterTagIsSkipped(int position, bool isClose)
{
    EditableDocumentBuffer &d = doc();
    if (d.content[position - 1] != u'>')
        return false;
    int self = isClose ? d.getStartTagForTagAtPosition(position) : position;
    if (self == -1 || !d.isEditableElementAtPosition(self) || d.tagNameEquals(self, "fo:basic-link"))
        return false;
    int before = d.getPreviousEditablePositionInXml(position);
    if (d.onTagStartPosition(before) && d.content[before + 1] == u'/')
        before = d.getStartTagForTagAtPosition(before);
    return before != -1 && d.isEditableElementAtPosition(before) && !d.tagNameEquals(before, "fo:basic-link");
}

} // namespace BufferAlgorithms
