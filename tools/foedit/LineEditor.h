#pragma once

#include "Key.h"

#include <string>
#include <vector>

// The prompt's line editing: a line of characters with a cursor, edited key by key,
// and a history that Up and Down walk. It knows nothing of terminals: the prompt
// loop reads keys, hands them here and draws `line()` with the cursor at `cursor()`.
class LineEditor {
public:
    enum class Outcome {
        Editing,    // the line goes on
        Done,       // Enter: the line is finished (and in the history unless blank)
        EndOfInput, // Ctrl+D on an empty line, or the input closed
    };

    // Starts a new, empty line.
    void start();
    Outcome apply(const Key &key);

    // The line as UTF-8, and the cursor as a count of characters from its start.
    std::string line() const;
    std::size_t cursor() const { return position; }
    const std::vector<std::u32string> &history() const { return entries; }

private:
    void recall(std::size_t entry);

    std::u32string text;
    std::size_t position = 0;
    std::vector<std::u32string> entries;
    std::size_t browsing = 0; // which history entry Up/Down stand at; entries.size() is the new line
    std::u32string unsent;    // the line being typed while the history is browsed
};
