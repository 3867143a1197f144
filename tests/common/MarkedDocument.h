#pragma once

// Documents as markup with the caret marked, for tests:
//
//     <fo:block>ab|cd</fo:block>       caret between "b" and "c", nothing selected
//     <fo:block>a^bc|d</fo:block>      "bc" selected, pivot before "b", caret after "c"
//
// `|` is the caret and `^` the other end of the selection (the pivot). Both characters
// are reserved in marked text; write "&#124;" and "&#94;" for literal ones.
//
// Most tests state only the flow's content ("the body"): `wrapInFlow` puts it into a
// standard one-flow document, and `markedFlow` reads it back. Documents of another
// shape (templates, static content, several flows) go through `loadMarkedDocument` and
// `markedContent`, which work on the whole string.

#include "common/EditCheck.h"
#include "common/RecordingMonitor.h"
#include "common/StandardDocument.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

namespace foedit::test {

// Marked text taken apart: the text without markers, and where they stood (-1 when
// absent; a lone `|` gives pivot == caret).
struct MarkedText {
    Core::String text;
    int caret = -1;
    int pivot = -1;
};
MarkedText parseMarked(Core::String const &marked);
// `text` with `|` at `caret` and `^` at `pivot` (no `^` when pivot == caret; nothing
// for a marker outside 0..length).
Core::String insertMarkers(Core::String const &text, int caret, int pivot);

// Loads `wrapInFlow(markedBody)` without its markers by setContent(..., true), then
// puts pivot and caret exactly where the markers stood. Positions go through the
// caret gate when it accepts them, and are written directly when it does not (a test
// may state a selection the gate would refuse). Without markers the caret stays where
// setContent put it.
void loadMarked(EditableDocumentBuffer &buffer, Core::String const &markedBody);
// The same for a whole document.
void loadMarkedDocument(EditableDocumentBuffer &buffer, Core::String const &markedDocument);

// Sets caret and pivot exactly, bypassing every rule of the caret gate.
void placeCaretExactly(EditableDocumentBuffer &buffer, int caret, int pivot);

// The content of the first flow (between the ">" of `<fo:flow ...>` and its
// `</fo:flow>`) with the markers at caret and pivot; a marker outside the flow is
// left out. Empty when the document has no flow.
Core::String markedFlow(EditableDocumentBuffer const &buffer);
// The whole string with the markers.
Core::String markedContent(EditableDocumentBuffer const &buffer);

// A new standard-host buffer of class `Buffer` (see makeStandardBuffer) holding
// `loadMarked(markedBody)`.
template <typename Buffer = EditableDocumentBuffer>
SmartPtr<Buffer> makeMarkedBuffer(Core::String const &markedBody)
{
    SmartPtr<Buffer> buffer = makeStandardBuffer<Buffer>();
    loadMarked(*buffer, markedBody);
    return buffer;
}
// The same for a whole document.
template <typename Buffer = EditableDocumentBuffer>
SmartPtr<Buffer> makeMarkedDocumentBuffer(Core::String const &markedDocument)
{
    SmartPtr<Buffer> buffer = makeStandardBuffer<Buffer>();
    loadMarkedDocument(*buffer, markedDocument);
    return buffer;
}

} // namespace foedit::test
