#pragma once

#include "Key.h"

#include <iosfwd>
#include <string>

class EditorSession;

// Keys mode: each key press drives the engine directly, as in the designer, and the
// flow is drawn again around the caret after every key.
//
//   arrows, Home, End          move (Shift: extend the selection; Ctrl: by word)
//   printable keys             type
//   Delete, Backspace          delete (Ctrl+Delete: a word)
//   Enter                      split the paragraph; Ctrl+L a line break
//   Ctrl+P                     select the element around (again: one level up)
//   Ctrl+Z, Ctrl+Y             undo, redo
//   Ctrl+S                     save to the output file (-o FILE)
//   Esc, Ctrl+Q                leave
class KeysMode {
public:
    enum class Result { Stay, Leave };

    explicit KeysMode(EditorSession &driven) : session(driven) {}

    // Acts on one key. What happened, if it needs saying, is in `status()`.
    Result handle(const Key &key);
    const std::string &status() const { return message; }

    // Reads keys from `inFd` (raw mode) and draws on `out` until a key leaves.
    void run(int inFd, int outFd, std::ostream &out, bool colour);

private:
    void moveCaret(const Key &key);
    void saveDocument();
    void draw(std::ostream &out, int outFd, bool colour);

    EditorSession &session;
    std::string message;
};
