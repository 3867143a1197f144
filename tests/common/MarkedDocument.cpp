#include "common/MarkedDocument.h"

#include <gtest/gtest.h>

#include <utility>

namespace foedit::test {

namespace {

// Reaches the protected caret fields without a cast: a pointer to a member named
// through a derived class is a pointer to the base's member, usable on any buffer.
struct CaretFields : EditableDocumentBuffer {
    static void place(EditableDocumentBuffer &buffer, int caretPosition, int pivotPosition)
    {
        buffer.*(&CaretFields::caret) = caretPosition;
        buffer.*(&CaretFields::selectionPivot) = pivotPosition;
    }
};

void placeMarkers(EditableDocumentBuffer &buffer, MarkedText const &marked)
{
    if (marked.caret == -1 && marked.pivot == -1)
        return;
    buffer.setCaretPos(false, marked.pivot);
    buffer.setCaretPos(true, marked.caret);
    if (buffer.getCaretPos() != marked.caret || buffer.getSelectionPivotPos() != marked.pivot)
        placeCaretExactly(buffer, marked.caret, marked.pivot);
}

} // namespace

MarkedText parseMarked(Core::String const &marked)
{
    MarkedText result;
    std::u16string text;
    text.reserve(marked.units().size());
    for (char16_t unit : marked.units()) {
        int &marker = unit == u'|' ? result.caret : result.pivot;
        if (unit != u'|' && unit != u'^') {
            text.push_back(unit);
            continue;
        }
        if (marker != -1)
            ADD_FAILURE() << "marked text holds a second '" << static_cast<char>(unit) << "': " << marked;
        marker = static_cast<int>(text.size());
    }
    if (result.caret == -1 && result.pivot != -1)
        ADD_FAILURE() << "marked text has a pivot '^' but no caret '|': " << marked;
    if (result.pivot == -1 || result.caret == -1)
        result.pivot = result.caret;
    result.text = Core::String(std::move(text));
    return result;
}

Core::String insertMarkers(Core::String const &text, int caret, int pivot)
{
    Core::String result = text;
    bool const caretInside = caret >= 0 && caret <= text.length();
    bool const pivotInside = pivot >= 0 && pivot <= text.length() && pivot != caret;
    // The later position first, so the earlier one keeps its index; at one position
    // the pivot stands before the caret.
    if (caretInside && pivotInside && pivot > caret) {
        result.insert(pivot, "^");
        result.insert(caret, "|");
        return result;
    }
    if (caretInside)
        result.insert(caret, "|");
    if (pivotInside)
        result.insert(pivot, "^");
    return result;
}

void loadMarkedDocument(EditableDocumentBuffer &buffer, Core::String const &markedDocument)
{
    MarkedText const marked = parseMarked(markedDocument);
    buffer.setContent(marked.text, true);
    placeMarkers(buffer, marked);
}

void loadMarked(EditableDocumentBuffer &buffer, Core::String const &markedBody)
{
    loadMarkedDocument(buffer, wrapInFlow(markedBody));
}

void placeCaretExactly(EditableDocumentBuffer &buffer, int caret, int pivot)
{
    CaretFields::place(buffer, caret, pivot);
}

Core::String markedFlow(EditableDocumentBuffer const &buffer)
{
    Core::String const content = buffer.getContent();
    int const flowTag = content.find("<fo:flow");
    if (flowTag == -1)
        return Core::String();
    int const bodyStart = content.find('>', flowTag) + 1;
    int const bodyEnd = content.find("</fo:flow>", bodyStart);
    if (bodyStart == 0 || bodyEnd == -1)
        return Core::String();
    auto inFlow = [&](int position) { return position >= bodyStart && position <= bodyEnd; };
    int const caret = inFlow(buffer.getCaretPos()) ? buffer.getCaretPos() - bodyStart : -1;
    int const pivot = inFlow(buffer.getSelectionPivotPos()) ? buffer.getSelectionPivotPos() - bodyStart : -1;
    return insertMarkers(content.subString(bodyStart, bodyEnd - 1), caret, pivot);
}

Core::String markedContent(EditableDocumentBuffer const &buffer)
{
    return insertMarkers(buffer.getContent(), buffer.getCaretPos(), buffer.getSelectionPivotPos());
}

} // namespace foedit::test
