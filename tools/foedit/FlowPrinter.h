#pragma once

#include "StyledText.h"

#include "support/String.h"

#include <string>

class EditableDocumentBuffer;

// What foedit shows of a document: the content of the flow the caret is in, between
// the flow's start tag and its closing tag, with `|` at the caret and `^` at the other
// end of the selection. Static content counts as a flow. With the caret in no flow
// (or none at all) the first "fo:flow" is shown, without markers.
namespace FlowPrinter {

// The flow's content as [start, end) of `content`; start is -1 when there is none.
struct Range {
    int start = -1;
    int end = -1;
};
Range flowAround(const Core::String &content, int caret);

// The paragraph around the caret: the innermost "fo:block" element that holds it,
// start tag to closing tag, or the flow when the caret is in no block.
Range blockAround(const Core::String &content, int caret);

// The flow as cells: markup, entities and the selection told apart.
StyledText styledFlow(const EditableDocumentBuffer &document);
// The same as plain UTF-8 text: the form `expect` compares and `show` prints
// without colour.
std::string markedFlow(const EditableDocumentBuffer &document);
// The paragraph around the caret, marked the same way.
StyledText styledBlock(const EditableDocumentBuffer &document);
std::string markedBlock(const EditableDocumentBuffer &document);

// Marked text with the indentation between tags removed: every run of blanks, tabs
// and line feeds that holds a line feed and stands between two tags (or a tag and a
// marker, or the text's ends). An indented document and its one-line script form
// then compare equal, and a change of the text itself still shows.
std::string withoutIndentation(const std::string &marked);

} // namespace FlowPrinter
