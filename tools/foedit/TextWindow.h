#pragma once

#include "StyledText.h"

#include <vector>

// Styled text cut into the rows of a window: a line feed ends a row, a row longer
// than the window wraps, and a tab becomes spaces to the next multiple of four.
namespace TextWindow {

struct Rows {
    std::vector<StyledText> rows;
    int caretRow = 0; // the row holding the caret marker; 0 when there is none
};
Rows wrap(const StyledText &text, int width);

// The first row to show so that the caret's row sits in a window of `height` rows,
// a third of the way down when the text is taller than the window.
int firstVisibleRow(const Rows &rows, int height);

} // namespace TextWindow
