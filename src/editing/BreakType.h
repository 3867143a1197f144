#pragma once

// What `insertBreak` makes. The numbers are part of the host interface; a host may
// pass any int, and values of 7 and above do nothing.
enum BreakType : int {
    PageBreak = 0,      // paragraph break, new block gets break-before/after "page"
    ColumnBreak = 1,    // ... "column"
    LineBreak = 2,      // a line break inside the block: <fo:block />
    OddPageBreak = 3,   // ... "odd-page"
    EvenPageBreak = 4,  // ... "even-page"
    ParagraphBreak = 5, // the block (and every inline around the caret) splits in two
    ListBreak = 6,      // Enter in a list, handed to the list operations
};
