#pragma once

// One user action of a random editing session, as a host sends it to the engine.
//
// A step is chosen without looking at the document, so that the same list of steps can
// be replayed on a fresh buffer, shortened by the shrinker, or decoded from a fuzzer's
// bytes. What a step needs from the document (the caret stop nearest to a click, the
// paragraph under the caret, whether Enter is a list's Enter) is settled when it plays.

#include <cstdint>
#include <string>

namespace foedit::test {

enum class StepKind {
    Arrow,           // moveCaretRight / moveCaretLeft, by atom or by word
    Home,            // moveCaretHome
    End,             // moveCaretToEnd
    Click,           // setCaretPos at the caret stop at or after a drawn position
    Type,            // insertText, plain text
    PasteMarkup,     // insertText with isXml
    TypeFormatted,   // insertText with properties (a toolbar button pressed, then a key)
    Erase,           // erase: Delete or Backspace, by character or by word
    Break,           // insertBreak with any BreakType, 7 and above included
    FormatSelection, // setProperties on the selection; nothing without one
    FormatBlock,     // setProperties on the paragraph around the caret
    MakeList,        // ListBuffer::makeList: make, relabel or remove
    RemoveList,      // ListBuffer::removeList, offered only inside a list
    SelectParent,    // selectParent
    ResetSelection,  // resetSelection
    Undo,            // undo, `count` times
    Redo,            // redo, `count` times
};

struct Step {
    StepKind kind = StepKind::Arrow;
    bool extend = false;  // Shift held: the selection follows the caret
    bool forward = true;  // right arrow, Delete
    bool byWord = false;  // Ctrl held
    bool merge = false;   // an arrow passes inline boundaries in one press
    bool after = false;   // a page or column break goes behind the new block
    int count = 1;        // undo and redo presses, break type, list type, property choice
    std::uint32_t at = 0; // a click's drawn position, taken modulo the document's length
    std::u16string text;  // typed text or pasted markup
};

} // namespace foedit::test
