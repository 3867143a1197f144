// What stands at a position: the kinds of tag, tag names, tag ends.

#include "markup/EditableXmlBuffer.h"
#include "support/WhiteSpace.h"

bool EditableXmlBuffer::isNameTerminator(char16_t c) noexcept
{
    return c == u'>' || c == u'/' || Core::iswspace(c);
}

// The quote tracker of every forward tag scan: outside quotes a double or a single
// quote enters quotes, inside only the same quote leaves. So a ">" in an attribute
// value (legal in XML) does not end the tag.
int EditableXmlBuffer::findTagEnd(int from, Core::String const &text) noexcept
{
    const int length = text.length();
    char16_t quote = 0;
    for (int i = from < 0 ? 0 : from; i < length; ++i) {
        const char16_t c = text[i];
        if (quote) {
            if (c == quote)
                quote = 0;
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'>') {
            return i;
        }
    }
    return -1;
}

// The scan starts at position + 2, so the first character after "<" always belongs to
// the name: that is how "/fo:block" keeps its "/".
int EditableXmlBuffer::getTagNameEnd(int position, Core::String const &text) noexcept
{
    const int length = text.length();
    for (int i = position + 2; i < length; ++i)
        if (isNameTerminator(text[i]))
            return i;
    return -1;
}

bool EditableXmlBuffer::tagNameEquals(int position, Core::String const &name,
                                      Core::String const &text) noexcept
{
    if (!onTagStartPosition(position, text))
        return false;
    const int n = name.length();
    if (n == 0)
        return getTagNameEnd(position, text) < 0;
    if (!text.matchesAt(position + 1, name))
        return false;
    for (int k = 1; k < n; ++k) // a name read from the text never holds a terminator past its first unit
        if (isNameTerminator(name[k]))
            return false;
    return isNameTerminator(text[position + 1 + n]);
}

bool EditableXmlBuffer::tagNameEquals(int position, Core::String const &name, bool keepPrefix) const noexcept
{
    if (keepPrefix)
        return tagNameEquals(position, name, content);
    if (!onTagStartPosition(position))
        return false;
    const int end = getTagNameEnd(position, content);
    if (end < 0)
        return name.isEmpty();
    int start = position + 1;
    for (int i = start; i < end; ++i) {
        if (content[i] == u':') {
            start = i + 1;
            break;
        }
    }
    return end - start == name.length() && content.matchesAt(start, name);
}

bool EditableXmlBuffer::selfClosingTagAtPosition(int position, Core::String const &text)
{
    if (!onTagStartPosition(position, text))
        return false;
    const int end = findTagEnd(position, text);
    return end > 0 && text[end - 1] == u'/';
}

bool EditableXmlBuffer::commentTagAtPosition(int position, Core::String const &text)
{
    return text.matchesAt(position, CommentStart);
}

bool EditableXmlBuffer::cdataSectionAtPosition(int position, Core::String const &text)
{
    return text.matchesAt(position, CDataStart);
}

bool EditableXmlBuffer::processingInstructionTagAtPosition(int position, Core::String const &text)
{
    return text.matchesAt(position, ProcessingInstructionStart);
}

bool EditableXmlBuffer::ignoredElementAtPosition(int position, Core::String const &text)
{
    return text[position] == u'<' &&
           (commentTagAtPosition(position, text) || cdataSectionAtPosition(position, text) ||
            processingInstructionTagAtPosition(position, text));
}

Core::String EditableXmlBuffer::getNameForTagAtPosition(int position, bool keepPrefix) const
{
    Core::String name = getNameForTagAtPosition(position, content);
    if (!keepPrefix) {
        // Cutting through the first ":" also takes the "/" of a prefixed closing tag.
        const int colon = name.find(u':');
        if (colon >= 0)
            name = name.subString(colon + 1, name.length() - 1);
    }
    return name;
}

Core::String EditableXmlBuffer::getNameForTagAtPosition(int position, Core::String const &text)
{
    if (!onTagStartPosition(position, text))
        return Core::String();
    const int end = getTagNameEnd(position, text);
    if (end < 0)
        return Core::String();
    return text.subString(position + 1, end - 1);
}

bool EditableXmlBuffer::nextContentEquals(Core::String const &what, int position) const
{
    return nextContentEquals(what, position, content);
}

// This form checks only that `what` fits before the end, not the position itself; a
// negative position still reads nothing out of range.
bool EditableXmlBuffer::nextContentEquals(Core::String const &what, Core::String const &text, int position)
{
    if (what.isEmpty())
        return true;
    return text.matchesAt(position, what);
}

bool EditableXmlBuffer::nextContentEquals(Core::String const &what, int position, Core::String const &text)
{
    if (!text.isValidIndex(position))
        return false;
    return what.isEmpty() || text.matchesAt(position, what);
}

XmlElementType EditableXmlBuffer::getElementTypeOnStartTagPosition(int position) const
{
    if (!onTagStartPosition(position))
        return XmlNone;
    if (processingInstructionTagAtPosition(position))
        return XmlProcessingInstruction;
    if (commentTagAtPosition(position))
        return XmlComment;
    if (cdataSectionAtPosition(position))
        return XmlCData;
    return XmlElement;
}

namespace {

// Whether the marker `end` standing at `endAt` closes an item opened by `start`: the
// last `start` before it must come after any earlier `end`. Searching forward from the
// opener keeps the cost to the item itself instead of a walk back to the last `end`.
bool closesItemOpenedBy(Core::String const &text, int endAt, std::u16string_view start,
                        std::u16string_view end)
{
    const int opener = text.rFind(start, endAt - 1);
    if (opener < 0)
        return false;
    return text.find(end, opener + 1) == endAt;
}

} // namespace

XmlElementType EditableXmlBuffer::getElementTypeOnEndTagPosition(int position) const
{
    if (content[position] != u'>' || isOnInvalidPosition(position))
        return XmlNone;
    if (position - 1 >= 1 && content.matchesAt(position - 1, ProcessingInstructionEnd))
        return closesItemOpenedBy(content, position - 1, ProcessingInstructionStart, ProcessingInstructionEnd)
                   ? XmlProcessingInstruction
                   : XmlNone;
    if (position - 2 > 0 && content.matchesAt(position - 2, CommentEnd))
        return closesItemOpenedBy(content, position - 2, CommentStart, CommentEnd) ? XmlComment : XmlNone;
    if (content.matchesAt(position - 2, CDataEnd))
        return closesItemOpenedBy(content, position - 2, CDataStart, CDataEnd) ? XmlCData : XmlNone;
    return XmlElement;
}

// Also answers for a text position: is the next tag a closing tag.
bool EditableXmlBuffer::closingElementTagAtPosition(int position) const
{
    if (isOnInvalidPosition(position))
        return false;
    const int tag = content[position] == u'<' ? position : getNextTagPosition(position);
    return tag >= 0 && content[tag + 1] == u'/' && getTagNameEnd(tag, content) >= 0;
}

bool EditableXmlBuffer::beforeFOTable(int position) const
{
    return onTagStartPosition(position) && tagNameEquals(position, "fo:table");
}

bool EditableXmlBuffer::afterFOTable(int position) const
{
    if (isOnInvalidPosition(position) || position == 0 || content[position - 1] != u'>')
        return false;
    return tagNameEquals(getPreviousTagPosition(position), "/fo:table");
}
