#include "LineEditor.h"

#include "StyledText.h"

void LineEditor::start()
{
    text.clear();
    position = 0;
    browsing = entries.size();
    unsent.clear();
}

std::string LineEditor::line() const
{
    std::string result;
    for (char32_t character : text)
        appendUtf8(result, character);
    return result;
}

void LineEditor::recall(std::size_t entry)
{
    if (browsing == entries.size())
        unsent = text;
    browsing = entry;
    text = entry == entries.size() ? unsent : entries[entry];
    position = text.size();
}

LineEditor::Outcome LineEditor::apply(const Key &key)
{
    switch (key.code) {
    case KeyCode::Character:
        text.insert(position++, 1, key.character);
        break;
    case KeyCode::Left:
        position -= position > 0 ? 1 : 0;
        break;
    case KeyCode::Right:
        position += position < text.size() ? 1 : 0;
        break;
    case KeyCode::Home:
        position = 0;
        break;
    case KeyCode::End:
        position = text.size();
        break;
    case KeyCode::Backspace:
        if (position > 0)
            text.erase(--position, 1);
        break;
    case KeyCode::Delete:
        if (position < text.size())
            text.erase(position, 1);
        break;
    case KeyCode::Up:
        if (browsing > 0)
            recall(browsing - 1);
        break;
    case KeyCode::Down:
        if (browsing < entries.size())
            recall(browsing + 1);
        break;
    case KeyCode::Enter:
        if (text.find_first_not_of(U" \t") != std::u32string::npos &&
            (entries.empty() || entries.back() != text))
            entries.push_back(text);
        return Outcome::Done;
    case KeyCode::EndOfInput:
        return Outcome::EndOfInput;
    case KeyCode::Control:
        switch (key.character) {
        case 'a':
            position = 0;
            break;
        case 'e':
            position = text.size();
            break;
        case 'u':
            text.erase(0, position);
            position = 0;
            break;
        case 'k':
            text.erase(position);
            break;
        case 'c':
            text.clear();
            position = 0;
            break;
        case 'd':
            if (text.empty())
                return Outcome::EndOfInput;
            if (position < text.size())
                text.erase(position, 1);
            break;
        }
        break;
    default:
        break;
    }
    return Outcome::Editing;
}
