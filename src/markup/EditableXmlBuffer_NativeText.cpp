// Between text and markup: escaping typed text, reading character data, and cutting a
// well-formed fragment out of an arbitrary range.

#include "markup/EditableXmlBuffer.h"

// Markup characters become entities; control characters but tab become blanks, since a
// typed line feed must not end up as text (line breaks are elements).
void EditableXmlBuffer::convertToValidXMLText(Core::String &text)
{
    Core::String escaped;
    escaped.reserve(text.length());
    for (char16_t c : text.units()) {
        switch (c) {
        case u'"':
            escaped += "&quot;";
            break;
        case u'&':
            escaped += "&amp;";
            break;
        case u'\'':
            escaped += "&apos;";
            break;
        case u'<':
            escaped += "&lt;";
            break;
        case u'>':
            escaped += "&gt;";
            break;
        case u'\t':
            escaped += c;
            break;
        default:
            escaped += c < 0x20 ? u' ' : c;
        }
    }
    text = std::move(escaped);
}

// From an "&" through the next ";", or to the end of the string when none follows.
Core::String EditableXmlBuffer::getEscapeCharacterString(int position) const
{
    if (isOnInvalidPosition(position))
        return Core::String();
    const int semicolon = content.find(u';', position);
    return content.subString(position, semicolon < 0 ? content.length() - 1 : semicolon);
}

// The text directly inside the element at `element`, for short labels. An entity adds
// only its "&". After a child element, comment or self-closing tag one more atom is
// skipped, so the character right behind it is dropped: stored labels never have one
// there, and the result has always been read this way.
Core::String EditableXmlBuffer::getCharacterDataForElementAt(int element) const
{
    const int closing = getClosingTagForTagAtPosition(element);
    Core::String data;
    for (int i = stepForward(element); i >= 0 && i < closing;) {
        if (content[i] != u'<') {
            data += content[i];
            i = stepForward(i);
            continue;
        }
        if (!selfClosingTagAtPosition(i) && !ignoredElementAtPosition(i)) {
            const int childEnd = getClosingTagForTagAtPosition(i);
            i = childEnd < i ? -1 : childEnd;
        }
        i = stepForward(stepForward(i));
    }
    return data;
}

Core::String EditableXmlBuffer::startTagStringAt(int element) const
{
    const int end = findTagEnd(element, content);
    return end < 0 ? Core::String() : content.subString(element + 1, end - 1);
}

// The building of one fragment for getNativeText. `open` holds the elements the fragment
// has opened and not yet closed, innermost last. Start tags of elements that began before
// the range are put in front of the result as their closing tags are met.
class EditableXmlBuffer::NativeTextBuilder {
public:
    explicit NativeTextBuilder(EditableXmlBuffer const &source) : buffer(source), content(source.content) {}

    Core::String build(int first, int last)
    {
        if (first > last)
            return Core::String();
        int i = first;
        do {
            if (buffer.isOnInvalidPosition(i))
                break;
            const int t = nextElementTag(i);
            if (t > last) {
                result += content.subString(i, last);
                break;
            }
            if (t < 0)
                break;
            copyTextAndTag(i, t);
            if (content[t + 1] == u'/')
                closeElement(t);
            else
                open.push_back(buffer.getNameForTagAtPosition(t));
            i = buffer.stepForward(t);
        } while (i <= last);
        closeOpenElements();
        return result;
    }

private:
    // The next start or closing tag: self-closing tags, comments, CDATA sections and
    // processing instructions are copied along with the text.
    int nextElementTag(int from) const
    {
        int t = buffer.getNextTagPosition(from);
        while (t >= 0 && (buffer.selfClosingTagAtPosition(t) || buffer.ignoredElementAtPosition(t)))
            t = buffer.getNextTagPosition(buffer.stepForward(t));
        return t;
    }

    void copyTextAndTag(int from, int tag)
    {
        result += content.subString(from, tag - 1);
        result += u"<" + buffer.startTagStringAt(tag) + u">";
    }

    // A closing tag closes what the fragment opened, or an element that started before
    // the range, whose start tag then goes in front. A table cell or list body closed
    // outside its container brings the container along.
    void closeElement(int tag)
    {
        const Core::String name = buffer.getNameForTagAtPosition(tag).subString(1, content.length());
        if (!open.empty() && open.back() == name)
            open.pop_back();
        else if (open.empty())
            result = u"<" + buffer.getCurrentElementStartTagString(tag) + u">" + result;
        if (name != u"fo:list-item-body" && name != u"fo:table-cell")
            return;
        const Core::String top = open.empty() ? Core::String() : open.back();
        if (top != buffer.getParentElementName(tag))
            rebuildContainer(tag, name == u"fo:table-cell" ? "fo:table" : "fo:list-block");
    }

    // The cell (or list body) closed at `tag` began before the range, in a row (or item)
    // the fragment has not opened: put the start tags from that row up to the table in
    // front, and keep them open. A list item brings its label along.
    //
    //   range:  <fo:table-cell>a|b</fo:table-cell><fo:table-cell>c|d ...
    //   result: <fo:table><fo:table-body><fo:table-row><fo:table-cell>b</fo:table-cell>
    //           <fo:table-cell>c</fo:table-cell></fo:table-row></fo:table-body></fo:table>
    void rebuildContainer(int tag, Core::String const &container)
    {
        const int closed = buffer.getCurrentElementPosition(tag);
        const int holder = buffer.getCurrentElementPosition(closed);
        if (container == u"fo:list-block") {
            const int label = buffer.getNextChildByName("fo:list-item-label", holder);
            if (label >= 0)
                result = content.subString(label, closed - 1) + result;
        }
        if (buffer.tagNameEquals(holder, container))
            return;
        std::vector<Core::String> names;
        for (int e = holder; e >= 0; e = buffer.getCurrentElementPosition(e)) {
            Core::String startTag = u"<" + buffer.startTagStringAt(e) + u">";
            if (container == u"fo:table")
                startTag.replaceAll("table-layout=\"fixed\"", "table-layout=\"auto\"");
            result = startTag + result;
            names.push_back(buffer.getNameForTagAtPosition(e));
            if (names.back() == container)
                break;
        }
        open.insert(open.end(), names.rbegin(), names.rend());
    }

    void closeOpenElements()
    {
        result += stringArrayToReverseTagString(open);
        open.clear();
    }

    EditableXmlBuffer const &buffer;
    Core::String const &content;
    Core::String result;
    std::vector<Core::String> open;
};

// The range as a well-formed fragment: what the range closes is reopened in front, what it
// opens is closed at the end.
//
//   <fo:block>a|b</fo:block><fo:block>c|d</fo:block>
//     gives  <fo:block>b</fo:block><fo:block>c</fo:block>
Core::String EditableXmlBuffer::getNativeText(int first, int last) const
{
    return NativeTextBuilder(*this).build(first, last);
}

// The names of the elements opened in the range and still open at its end, outermost
// first. Closing tags of elements opened before the range are ignored.
std::vector<Core::String> EditableXmlBuffer::getClosingTagsBetweenPositions(int first, int last) const
{
    std::vector<Core::String> open;
    for (int t = getNextTagPosition(first); t >= 0 && t < last; t = getNextTagPosition(stepForward(t))) {
        if (ignoredElementAtPosition(t) || selfClosingTagAtPosition(t))
            continue;
        if (content[t + 1] != u'/')
            open.push_back(getNameForTagAtPosition(t));
        else if (!open.empty() && tagNameEquals(t, u"/" + open.back()))
            open.pop_back();
    }
    return open;
}

Core::String EditableXmlBuffer::stringArrayToTagString(std::vector<Core::String> names)
{
    Core::String tags;
    for (Core::String const &name : names)
        tags += u"</" + name + u">";
    return tags;
}

// Closes a stack from the inside out.
Core::String EditableXmlBuffer::stringArrayToReverseTagString(std::vector<Core::String> names)
{
    Core::String tags;
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        tags += u"</" + *name + u">";
    return tags;
}
