#pragma once

// A document buffer that opens the protected caret walks to the tests, and small
// helpers that state caret tests as marked markup:
//
//     EXPECT_EQ(afterPresses("<fo:block>|ab</fo:block>", 1, right), "<fo:block>a|b</fo:block>");

#include "common/MarkedDocument.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"

#include <functional>
#include <vector>

namespace foedit::test {

class CaretProbe : public EditableDocumentBuffer {
public:
    using EditableDocumentBuffer::canHoldCaret;
    using EditableDocumentBuffer::content;
    using EditableDocumentBuffer::getCurrentElementPosition;
    using EditableDocumentBuffer::getFirstEditPosInStaticContent;
    using EditableDocumentBuffer::getNextEditablePositionInFo;
    using EditableDocumentBuffer::getNextValidCaretPos;
    using EditableDocumentBuffer::getPreviousEditablePositionInFo;
    using EditableDocumentBuffer::getPreviousValidCaretPos;
    using EditableDocumentBuffer::inEditableElement;
    using EditableDocumentBuffer::inListItemLabel;
    using EditableDocumentBuffer::isBlockEditableElementName;
    using EditableDocumentBuffer::isEditableElementAtPosition;
    using EditableDocumentBuffer::isElementSelected;
    using EditableDocumentBuffer::isInlineEditableElementClosingTagName;
    using EditableDocumentBuffer::isInlineEditableElementName;
    using EditableDocumentBuffer::isWordSeparator;
    using EditableDocumentBuffer::selectionIsEntireElementContent;
};

using CaretAction = std::function<void(CaretProbe &)>;

// A standard-host probe loaded with `wrapInFlow(markedBody)`.
inline SmartPtr<CaretProbe> loadProbe(Core::String const &markedBody)
{
    return makeMarkedBuffer<CaretProbe>(markedBody);
}

// The same for a whole marked document.
inline SmartPtr<CaretProbe> loadProbeDocument(Core::String const &markedDocument)
{
    return makeMarkedDocumentBuffer<CaretProbe>(markedDocument);
}

// The marked flow after each of `presses` runs of `action` from `markedBody`.
inline std::vector<Core::String> pressTrail(Core::String const &markedBody, int presses,
                                            CaretAction const &action)
{
    SmartPtr<CaretProbe> probe = loadProbe(markedBody);
    std::vector<Core::String> trail;
    for (int i = 0; i < presses; ++i) {
        action(*probe);
        trail.push_back(markedFlow(*probe));
    }
    return trail;
}

// The marked flow after `presses` runs of `action`.
inline Core::String afterPresses(Core::String const &markedBody, int presses, CaretAction const &action)
{
    std::vector<Core::String> trail = pressTrail(markedBody, presses, action);
    return trail.empty() ? markedFlow(*loadProbe(markedBody)) : trail.back();
}

// The keys, as the host presses them.
inline void right(CaretProbe &b)
{
    b.moveCaretRight(false, false, false);
}
inline void left(CaretProbe &b)
{
    b.moveCaretLeft(false, false, false);
}
inline void mergedRight(CaretProbe &b)
{
    b.moveCaretRight(false, false, true);
}
inline void mergedLeft(CaretProbe &b)
{
    b.moveCaretLeft(false, false, true);
}
inline void shiftRight(CaretProbe &b)
{
    b.moveCaretRight(true, false, false);
}
inline void shiftLeft(CaretProbe &b)
{
    b.moveCaretLeft(true, false, false);
}

} // namespace foedit::test
