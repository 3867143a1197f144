#include "KeyDecoder.h"

#include <string>
#include <vector>

namespace KeyDecoder {

namespace {

Key key(KeyCode code, bool shift = false, bool ctrl = false)
{
    Key result;
    result.code = code;
    result.shift = shift;
    result.ctrl = ctrl;
    return result;
}

// The numbers of a CSI sequence ("1;5" gives 1 and 5); an empty one counts as 1.
std::vector<int> parameters(const std::string &text)
{
    std::vector<int> numbers(1, 0);
    bool any = false;
    for (char c : text) {
        if (c == ';') {
            numbers.push_back(0);
        } else if (c >= '0' && c <= '9' && numbers.back() < 1000) {
            numbers.back() = numbers.back() * 10 + (c - '0');
            any = true;
        }
    }
    if (!any)
        numbers[0] = 1;
    return numbers;
}

// After ESC "[" or ESC "O": parameters, then one final byte.
Key readSequence(const ByteSource &next)
{
    std::string text;
    int byte = next(sequenceTimeoutMs);
    while (byte >= 0x20 && byte < 0x40 && text.size() < 16) {
        text += static_cast<char>(byte);
        byte = next(sequenceTimeoutMs);
    }
    if (byte < 0x40 || byte > 0x7e)
        return key(KeyCode::None);
    const std::vector<int> numbers = parameters(text);
    // xterm's modifier parameter is 1 plus a mask: 1 Shift, 2 Alt, 4 Ctrl.
    const int modifiers = numbers.size() > 1 && numbers[1] > 0 ? numbers[1] - 1 : 0;
    const bool shift = (modifiers & 1) != 0;
    const bool ctrl = (modifiers & 4) != 0;
    switch (byte) {
    case 'A':
        return key(KeyCode::Up, shift, ctrl);
    case 'B':
        return key(KeyCode::Down, shift, ctrl);
    case 'C':
        return key(KeyCode::Right, shift, ctrl);
    case 'D':
        return key(KeyCode::Left, shift, ctrl);
    case 'H':
        return key(KeyCode::Home, shift, ctrl);
    case 'F':
        return key(KeyCode::End, shift, ctrl);
    case '~':
        switch (numbers[0]) {
        case 1:
        case 7:
            return key(KeyCode::Home, shift, ctrl);
        case 4:
        case 8:
            return key(KeyCode::End, shift, ctrl);
        case 3:
            return key(KeyCode::Delete, shift, ctrl);
        }
        break;
    }
    return key(KeyCode::None);
}

// The rest of a UTF-8 character whose first byte is `lead`.
Key readUtf8(int lead, const ByteSource &next)
{
    int count = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : -1;
    if (count < 0 || lead >= 0xF8)
        return key(KeyCode::None);
    char32_t character = static_cast<char32_t>(lead & (0x3F >> count));
    for (; count > 0; --count) {
        const int byte = next(sequenceTimeoutMs);
        if (byte < 0x80 || byte > 0xBF)
            return key(KeyCode::None);
        character = (character << 6) | static_cast<char32_t>(byte & 0x3F);
    }
    Key result = key(KeyCode::Character);
    result.character = character;
    return result;
}

} // namespace

Key readKey(const ByteSource &next)
{
    const int byte = next(-1);
    if (byte == -2)
        return key(KeyCode::EndOfInput);
    if (byte < 0)
        return key(KeyCode::None);
    if (byte == 0x1b) {
        const int second = next(sequenceTimeoutMs);
        if (second == '[' || second == 'O')
            return readSequence(next);
        return key(second < 0 ? KeyCode::Escape : KeyCode::None);
    }
    if (byte == 0x7f || byte == 0x08)
        return key(KeyCode::Backspace);
    if (byte == '\r' || byte == '\n')
        return key(KeyCode::Enter);
    if (byte == '\t')
        return key(KeyCode::Tab);
    if (byte >= 1 && byte <= 26) {
        Key result = key(KeyCode::Control, false, true);
        result.character = static_cast<char32_t>('a' + byte - 1);
        return result;
    }
    if (byte >= 0x80)
        return readUtf8(byte, next);
    if (byte < 0x20)
        return key(KeyCode::None);
    Key result = key(KeyCode::Character);
    result.character = static_cast<char32_t>(byte);
    return result;
}

} // namespace KeyDecoder
