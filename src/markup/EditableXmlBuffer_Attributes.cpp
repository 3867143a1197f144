// Attributes inside one tag, and whether a position lies in markup or in text.

#include "markup/EditableXmlBuffer.h"
#include "support/WhiteSpace.h"

namespace {

bool isQuote(char16_t c) noexcept
{
    return c == u'"' || c == u'\'';
}

} // namespace

// From a "<" or from an attribute's name the walk passes the current name and its value
// and stops on the next name. Any "/" outside quotes ends the tag, so does ">" and "?>".
int EditableXmlBuffer::getNextAttributePosition(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    const int length = content.length();
    char16_t quote = 0;
    bool gap = false; // white space or a value lies between the start and here
    for (int i = position; i < length; ++i) {
        const char16_t c = content[i];
        if (quote) {
            gap = true;
            if (c == quote)
                quote = 0;
            continue;
        }
        switch (c) {
        case u'\t':
        case u'\n':
        case u'\r':
        case u' ':
            gap = true;
            break;
        case u'"':
        case u'\'':
            quote = c;
            break;
        case u'/':
        case u'>':
            return -1;
        case u'=':
            break;
        case u'?':
            if (content.matchesAt(i, ProcessingInstructionEnd))
                return -1;
            break;
        default:
            if (gap)
                return i;
        }
    }
    return -1;
}

// Walks back over values and "=" to the last character of the previous attribute's
// name, then to the white space before that name.
int EditableXmlBuffer::getPreviousAttributePosition(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    char16_t quote = 0;
    bool equalsSeen = false;
    int i = position;
    for (;; --i) {
        if (i < 0)
            return -1;
        const char16_t c = content[i];
        if (quote) {
            if (c == quote)
                quote = 0;
        } else if (isQuote(c)) {
            quote = c;
        } else if (c == u'<') {
            return -1;
        } else if (c == u'=') {
            equalsSeen = true;
        } else if (c != u' ' && equalsSeen) {
            break;
        }
    }
    while (i >= 0 && !Core::iswspace(content[i]))
        --i;
    return i + 1;
}

// Read without a range check beyond the string's own: callers pass a name's start.
Core::String EditableXmlBuffer::getNameForAttributeAt(int position) const
{
    const int length = content.length();
    for (int i = position < 0 ? 0 : position; i < length; ++i)
        if (content[i] == u'=' || Core::iswspace(content[i]))
            return content.subString(position, i - 1);
    return Core::String();
}

// The value as stored, entities included; empty when it is empty or unterminated.
Core::String EditableXmlBuffer::getValueForAttributeAt(int position) const
{
    const int length = content.length();
    int open = position + 1 < 0 ? 0 : position + 1;
    while (open < length && !isQuote(content[open]))
        ++open;
    if (open >= length)
        return Core::String();
    const int close = content.find(content[open], open + 1);
    return close < 0 ? Core::String() : content.subString(open + 1, close - 1);
}

int EditableXmlBuffer::getNextAttributeValuePosition(int position) const
{
    const int length = content.length();
    for (int i = position < 0 ? 0 : position; i < length; ++i)
        if (isQuote(content[i]))
            return i + 1;
    return -1;
}

bool EditableXmlBuffer::containsAttribute(int position, Core::String name) const
{
    const int n = name.length();
    for (int a = getNextAttributePosition(position); a >= 0; a = getNextAttributePosition(a)) {
        const char16_t after = content[a + n];
        if (content.matchesAt(a, name) && (after == u'=' || Core::iswspace(after)))
            return true;
    }
    return false;
}

namespace {

// False when the first `end` marker after `position` closes an item whose `start`
// marker lies before `position`, or no `start` at all: the position is inside it.
bool outsideItem(Core::String const &text, int position, std::u16string_view start, std::u16string_view end)
{
    const int endAt = text.find(end, position);
    if (endAt < 0)
        return true;
    const auto between = text.view().substr(static_cast<std::size_t>(position),
                                            static_cast<std::size_t>(endAt - position + 1));
    return between.find(start) != std::u16string_view::npos;
}

} // namespace

// A closing tag counts as well, as the name does not say. A position in the last tag of
// a text has no later "<" and gives false.
bool EditableXmlBuffer::isInsideStartTag(Core::String text, int position)
{
    if (!text.isValidIndex(position))
        return false;
    // The bracket test is local and decides most positions, so it runs first; the
    // searches for comment, CDATA and instruction ends may cross the whole text.
    const int nextOpen = text.find(u'<', position);
    const int nextClose = text.find(u'>', position);
    if (!(nextClose <= nextOpen))
        return false;
    const int previousOpen = text.rFind(u'<', position);
    const int previousClose = text.rFind(u'>', position);
    if (!(previousClose <= previousOpen))
        return false;
    return outsideItem(text, position, CommentStart, CommentEnd) &&
           outsideItem(text, position, CDataStart, CDataEnd) &&
           outsideItem(text, position, ProcessingInstructionStart, ProcessingInstructionEnd);
}
