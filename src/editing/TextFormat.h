#pragma once

// The forms in which a selection is handed out (EditableDocumentBuffer::getSelectionAs).
// A host may pass any number; the others give an empty string.
enum TextFormat : int {
    PlainText = 0,  // the text, entities as they stand, a line feed at each block boundary
    NativeText = 2, // a well-formed markup fragment
};
