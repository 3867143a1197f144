#pragma once

// One key press as the terminal reports it, decoded (KeyDecoder).
enum class KeyCode {
    None,      // a sequence foedit does not know; ignored
    Character, // a printable character: `character`
    Control,   // Ctrl with a letter: `character` is the letter, 'a' to 'z'
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    Delete,
    Backspace,
    Enter,
    Tab,
    Escape,
    EndOfInput, // the input closed
};

struct Key {
    KeyCode code = KeyCode::None;
    char32_t character = 0;
    bool shift = false;
    bool ctrl = false;

    friend bool operator==(const Key &, const Key &) = default;
};
