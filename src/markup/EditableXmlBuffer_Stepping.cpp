// Atom steps, tag walks, and matching a start tag with its closing tag.
//
// An atom is the unit of stepping: one character, one entity "&...;", one tag, one
// comment, one CDATA section. Forward steps can return a position that is not ahead
// of the start on malformed input (an unterminated comment steps to 2), so every loop
// here that walks forward checks that it advanced.

#include "markup/EditableXmlBuffer.h"

namespace {

// `next` if it is a valid position of `text`, else -1.
int validOrNone(int next, Core::String const &text) noexcept
{
    return text.isValidIndex(next) ? next : -1;
}

// "&...;" is one atom; the step lands after the ";" or fails.
int stepOverEntity(int position, Core::String const &text) noexcept
{
    const int semicolon = text.find(u';', position + 1);
    return semicolon < 0 ? -1 : validOrNone(semicolon + 1, text);
}

// The first "<" or "&" at or after `from`, or the length: the plain characters between
// are single atoms, so skipping them in one go is the same as stepping them one by one.
int skipPlainText(int from, Core::String const &text) noexcept
{
    const int length = text.length();
    int i = from;
    while (i < length && text[i] != u'<' && text[i] != u'&')
        ++i;
    return i;
}

} // namespace

// The step over a tag, comment or CDATA section at `position`, shared by both forms.
// "</fo:root>" ends every forward walk, whatever the root element is called. A comment or
// CDATA section without its end marker gives find(...) == -1 and so the sum 2; the editing
// code has always stepped that way, and the walks guard against the backward jump.
int EditableXmlBuffer::stepOverMarkup(int position, Core::String const &text)
{
    if (text.matchesAt(position, u"</fo:root>"))
        return -1;
    if (text.matchesAt(position, CDataStart))
        return validOrNone(text.find(CDataEnd, position + 9) + 3, text);
    if (text.matchesAt(position, CommentStart))
        return validOrNone(text.find(CommentEnd, position + 4) + 3, text);
    const int end = findTagEnd(position + 1, text);
    return end < 0 ? -1 : validOrNone(end + 1, text);
}

// A plain character steps by one, unchecked: the last character of the string gives
// the length.
int EditableXmlBuffer::getNextEditablePositionInXml(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    const char16_t c = content[position];
    if (c == u'&')
        return stepOverEntity(position, content);
    if (c != u'<')
        return position + 1;
    return stepOverMarkup(position, content);
}

// Unlike the member, this form tests for a comment first and refuses an unterminated one.
int EditableXmlBuffer::getNextEditablePositionInXml(int position, Core::String const &text)
{
    if (isOnInvalidPosition(position, text))
        return -1;
    if (text.matchesAt(position, CommentStart)) {
        const int end = text.find(CommentEnd, position + 4);
        return end < 0 ? -1 : validOrNone(end + 3, text);
    }
    const char16_t c = text[position];
    if (c == u'&')
        return stepOverEntity(position, text);
    if (c != u'<')
        return position + 1;
    return stepOverMarkup(position, text);
}

int EditableXmlBuffer::stepForward(int position) const
{
    const int next = getNextEditablePositionInXml(position);
    return next > position ? next : -1;
}

// One step back. A comment or CDATA section directly before `position` is crossed
// together with the tag in front of it: the step lands on that tag's "<", not on the
// comment's own start.
//
//   <fo:block/><!-- x -->|ab    one step back gives    |<fo:block/><!-- x -->ab
int EditableXmlBuffer::getPreviousEditablePositionInXml(int position) const
{
    if (isOnInvalidPosition(position - 1))
        return -1;
    if (content[position] == u'<' && tagNameEquals(position, rootElement))
        return -1; // nothing before the root's start tag is reachable
    const char16_t c = content[position - 1];
    if (c == u';') {
        // An entity ends here only if an "&" comes before any ">" or other ";".
        for (int i = position - 2; i >= 0; --i) {
            const char16_t back = content[i];
            if (back == u'>' || back == u';')
                return position - 1;
            if (back == u'&')
                return i;
        }
        return -1;
    }
    if (c == u'>')
        return getPreviousTagPosition(position - 1);
    return position - 1;
}

// The position right after the root's start tag: the first start tag that is not a
// declaration, comment or processing instruction. Quotes and CDATA sections before it
// are passed as a whole.
int EditableXmlBuffer::getFirstEditablePositionInXml() const
{
    enum State { Text, Tag, Quoted, CData };
    State state = Text;
    bool rootSeen = false;
    char16_t quote = 0;
    const int length = content.length();
    for (int i = 0; i < length; ++i) {
        const char16_t c = content[i];
        switch (state) {
        case Text:
            if (rootSeen)
                return i;
            if (c == u'<') {
                const char16_t following = content[i + 1];
                if (i + 1 < length && following != u'?' && following != u'!') {
                    rootSeen = true;
                    ++i;
                }
                state = Tag;
            }
            break;
        case Tag:
            if (c == u'!' && content.matchesAt(i, u"![CDATA[")) {
                state = CData;
                i += 7;
            } else if (c == u'"' || c == u'\'') {
                quote = c;
                state = Quoted;
            } else if (c == u'>') {
                state = Text;
            }
            break;
        case Quoted:
            if (c == quote)
                state = Tag;
            break;
        case CData:
            if (c == u']' && content.matchesAt(i, CDataEnd)) {
                state = Text;
                i += 2;
            }
            break;
        }
    }
    return -1;
}

int EditableXmlBuffer::getRootElementPos() const
{
    return getPreviousEditablePositionInXml(getFirstEditablePositionInXml());
}

// A position on a tag gives that tag: to move on, step first
// (getNextTagPosition(getNextEditablePositionInXml(p))).
int EditableXmlBuffer::getNextTagPosition(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    int t = position;
    for (;;) {
        if (isOnInvalidPosition(t))
            return -1;
        const char16_t c = content[t];
        if (c != u'<' && c != u'&') {
            t = skipPlainText(t + 1, content);
            continue;
        }
        if (c == u'<' && !ignoredElementAtPosition(t))
            break;
        const int next = getNextEditablePositionInXml(t);
        if (next <= t)
            return -1;
        t = next;
    }
    // The tag must have a name that ends before the string does.
    int i = t + 1;
    if (content[i] == u'/')
        ++i;
    const int length = content.length();
    while (i < length && !isNameTerminator(content[i]))
        ++i;
    return i < length ? t : -1;
}

// The character at `position` is read unchecked (an invalid position reads as no "<").
Core::String EditableXmlBuffer::getNextTagName(int position) const
{
    const int tag = content[position] == u'<' ? position : getNextTagPosition(position);
    return getNameForTagAtPosition(tag);
}

// The tag at or before `position` (inclusive: on a ">" it is the tag that ">" ends, on a
// "<" the tag before). Comments and CDATA sections are passed over whole, found from
// their end markers; processing instructions are not.
int EditableXmlBuffer::getPreviousTagPosition(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    int q = position;
    int end = -1;
    for (;;) {
        while (content.matchesAt(q - 2, CDataEnd)) {
            q = content.rFind(CDataStart, q - 2);
            if (q < 0)
                return -1;
        }
        end = content.rFind(u'>', q);
        if (end < 0)
            return -1;
        if (content.matchesAt(end - 2, CommentEnd))
            q = content.rFind(CommentStart, end - 2);
        else if (content.matchesAt(end - 2, CDataEnd))
            q = content.rFind(CDataStart, end);
        else
            break;
        if (q < 0)
            return -1;
    }
    // The "<" before that ">" is the tag; its name always ends at the latest on that ">".
    return content.rFind(u'<', end);
}

// The static form passes CDATA sections ending at `position` only, and can return the
// start of a comment; its callers filter comments.
int EditableXmlBuffer::getPreviousTagPosition(int position, Core::String const &text)
{
    if (isOnInvalidPosition(position, text))
        return -1;
    int q = position;
    while (text.matchesAt(q - 2, CDataEnd)) {
        q = text.rFind(CDataStart, q - 2);
        if (q < 0)
            return -1;
    }
    const int end = text.rFind(u'>', q);
    return end < 0 ? -1 : text.rFind(u'<', end);
}

Core::String EditableXmlBuffer::getPreviousTagName(int position) const
{
    return getNameForTagAtPosition(getPreviousTagPosition(position));
}

Core::String EditableXmlBuffer::getPreviousTagName(int position, Core::String const &text)
{
    return getNameForTagAtPosition(getPreviousTagPosition(position, text), text);
}

int EditableXmlBuffer::getPreviousTagNameAndPos(int position, Core::String &name) const
{
    const int tag = getPreviousTagPosition(position);
    name = getNameForTagAtPosition(tag);
    return tag;
}

int EditableXmlBuffer::getPreviousTagNameAndPosition(int position, Core::String const &text,
                                                     Core::String &name)
{
    const int tag = getPreviousTagPosition(position, text);
    name = getNameForTagAtPosition(tag, text);
    return tag;
}

int EditableXmlBuffer::getClosingTagForTagAtPosition(int position) const
{
    const int known = structureMemo.closingOf(position);
    if (known != StructureMemo::Unknown)
        return known;
    const int closing = getClosingTagForTagAtPosition(position, content);
    if (closing > position)
        rememberClosingTag(position, closing);
    return closing;
}

// The search read the string from the start tag to the end of the closing tag, and the
// name from the start tag, unless broken quotes made the name come from elsewhere; such
// an answer is not kept.
void EditableXmlBuffer::rememberClosingTag(int start, int closing) const
{
    const int end = findTagEnd(closing, content);
    const int inside = getNextEditablePositionInXml(start, content);
    if (end < 0 || staticCurrentElement(inside, content, true) != start)
        return;
    structureMemo.rememberClosing({start, closing, start, end});
}

// Only tags of the element's own name are counted. The name is taken as the current
// element after the start tag, which the static walk leaves empty for an element at
// index 0: such an element has no closing tag here (documents begin with a prolog).
int EditableXmlBuffer::getClosingTagForTagAtPosition(int position, Core::String const &text)
{
    if (!onTagStartPosition(position, text))
        return -1;
    if (selfClosingTagAtPosition(position, text))
        return position;
    if (ignoredElementAtPosition(position, text) || !text.isValidIndex(position + 1) ||
        text[position + 1] == u'/')
        return -1;
    const int inside = getNextEditablePositionInXml(position, text);
    if (inside < 0)
        return -1;
    const Core::String name = getCurrentElementName(inside, text);
    if (name.isEmpty())
        return -1;
    const Core::String closingName = u"/" + name;
    int depth = 0;
    for (int t = inside; text.isValidIndex(t);) {
        const char16_t c = text[t];
        if (c != u'<' && c != u'&') {
            t = skipPlainText(t + 1, text);
            continue;
        }
        if (c == u'<' && !ignoredElementAtPosition(t, text)) {
            if (tagNameEquals(t, name, text)) {
                if (!selfClosingTagAtPosition(t, text))
                    ++depth;
            } else if (tagNameEquals(t, closingName, text) && !selfClosingTagAtPosition(t, text)) {
                if (depth == 0)
                    return t;
                --depth;
            }
        }
        const int next = getNextEditablePositionInXml(t, text);
        if (next <= t)
            return -1;
        t = next;
    }
    return -1;
}

// The reverse walk is deliberately not the mirror of getClosingTagForTagAtPosition: a
// nested self-closing tag of the same name counts as a start tag, and a start tag at
// index 0 is never found.
int EditableXmlBuffer::getStartTagForTagAtPosition(int position) const
{
    if (!onTagStartPosition(position))
        return -1;
    if (selfClosingTagAtPosition(position))
        return position;
    if (ignoredElementAtPosition(position) || isOnInvalidPosition(position + 1) ||
        content[position + 1] != u'/')
        return -1;
    const int after = getNextEditablePositionInXml(position);
    if (after < 0)
        return -1;
    const int closing = getPreviousTagPosition(after);
    const Core::String closeName = getNameForTagAtPosition(closing);
    if (closeName.isEmpty())
        return -1;
    const Core::String openName = closeName.subString(1, closeName.length() - 1);
    int counter = -1;
    for (int t = closing; t >= 1; t = getPreviousTagPosition(t)) {
        if (tagNameEquals(t, closeName)) {
            ++counter;
        } else if (tagNameEquals(t, openName)) {
            if (counter < 1)
                return t;
            --counter;
        }
    }
    return -1;
}

// For an element, `position` is the one after the ">" of its closing tag.
int EditableXmlBuffer::getElementStartPosition(XmlElementType type, int position) const
{
    switch (type) {
    case XmlComment:
        return content.rFind(CommentStart, position);
    case XmlCData:
        return content.rFind(CDataStart, position);
    case XmlProcessingInstruction:
        return content.rFind(ProcessingInstructionStart, position);
    case XmlElement:
        return getStartTagForTagAtPosition(getPreviousEditablePositionInXml(position - 1));
    default:
        return position;
    }
}

// The index after the item; -1 when an ignored item has no end marker.
int EditableXmlBuffer::getElementEndPosition(XmlElementType type, int position) const
{
    auto after = [&](std::u16string_view marker) {
        const int at = position < 0 ? -1 : content.find(marker, position);
        return at < 0 ? -1 : at + static_cast<int>(marker.size());
    };
    switch (type) {
    case XmlComment:
        return after(CommentEnd);
    case XmlCData:
        return after(CDataEnd);
    case XmlProcessingInstruction:
        return after(ProcessingInstructionEnd);
    case XmlElement:
        return getNextEditablePositionInXml(getClosingTagForTagAtPosition(position));
    default:
        return position;
    }
}
