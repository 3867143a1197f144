#include "TextWindow.h"

#include <algorithm>

namespace TextWindow {

Rows wrap(const StyledText &text, int width)
{
    width = std::max(width, 8);
    Rows result;
    result.rows.emplace_back();
    for (const StyledCell &cell : text) {
        StyledText *row = &result.rows.back();
        if (cell.character == U'\n') {
            result.rows.emplace_back();
            continue;
        }
        if (cell.style & CellCaret)
            result.caretRow = static_cast<int>(result.rows.size()) - 1;
        const int cells = cell.character == U'\t' ? 4 - static_cast<int>(row->size() % 4) : 1;
        for (int i = 0; i < cells; ++i) {
            if (static_cast<int>(row->size()) == width) {
                result.rows.emplace_back();
                row = &result.rows.back();
                if (cell.style & CellCaret)
                    result.caretRow = static_cast<int>(result.rows.size()) - 1;
            }
            row->push_back({cell.character == U'\t' ? U' ' : cell.character, cell.style});
        }
    }
    return result;
}

int firstVisibleRow(const Rows &rows, int height)
{
    const int count = static_cast<int>(rows.rows.size());
    if (count <= height)
        return 0;
    const int first = rows.caretRow - height / 3;
    return std::clamp(first, 0, count - height);
}

} // namespace TextWindow
