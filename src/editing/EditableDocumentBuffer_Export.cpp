#include "editing/EditableDocumentBuffer.h"

#include "editing/FreezeNotifications.h"
#include "support/DocumentFile.h"
#include "support/WhiteSpace.h"

// What the user selected, as text for the clipboard, and the document as a file.
// Nothing here changes the string.

Core::String EditableDocumentBuffer::getSelectionAs(TextFormat format)
{
    switch (format) {
    case PlainText:
        return getSelectionAsPlainText();
    case NativeText:
        return getSelectionAsNativeText();
    }
    return Core::String();
}

Core::String EditableDocumentBuffer::getSelectionAs(TextFormat format, Core::String path)
{
    int element = getElementPositionFromPath(path, caret);
    if (element == -1)
        return Core::String();
    FreezeNotifications freeze(this);
    int noted = caret;
    setCaret(false, element);
    setCaret(true, getPositionBehindElement(element));
    Core::String text = getSelectionAs(format);
    setCaret(false, noted);
    return text;
}

Core::String EditableDocumentBuffer::getSelectionAsPlainText()
{
    if (!hasSelectedText())
        return Core::String();
    return getPlainText(getSelectionStartIndex(), getSelectionEndIndex() + 1);
}

// The text between the tags as it stands, entities included, and one line feed for
// each tag that is not an inline's: a block boundary or a line break.
//
//     <fo:block>a^b</fo:block><fo:block>c<fo:inline>d</fo:inline>e|f</fo:block>
//     gives "b\ncde\n": the closing block tag, then the block boundary behind "e".
Core::String EditableDocumentBuffer::getPlainText(int start, int end)
{
    Core::String text;
    if (start >= end)
        return text;
    for (int p = start; !isOnInvalidPosition(p);) {
        int t = getNextTagPosition(p);
        int r = (t == -1 || t > end) ? end : t;
        if (r > p)
            text += content.subString(p, r - 1);
        Core::String name = getNextTagName(r);
        if (name.startsWith(u'/'))
            name = name.substr(1, name.length() - 1);
        if (!isInlineEditableElementName(name))
            text += u'\n';
        int next = getNextEditablePositionInFo(r, false, false);
        if (next >= end || next <= p)
            break;
        p = next;
    }
    return text;
}

void EditableDocumentBuffer::saveToFile(Core::String const &path, DocumentEncoding encoding)
{
    Core::IO::writeDocumentFile(path, content, encoding);
}

namespace {

// The first "<" + `name` at or after `from` that is the start of a tag of exactly
// that name, or -1. With `last`, the last such before `from` instead.
int findStartTag(Core::String const &text, Core::String const &name, int from, bool last)
{
    Core::String open = "<" + name;
    for (int p = last ? text.rFind(open, from) : text.find(open, from); p != -1;
         p = last ? text.rFind(open, p - 1) : text.find(open, p + 1)) {
        char16_t after = text[p + open.length()];
        if (after == u'>' || after == u'/' || Core::iswspace(after))
            return p;
    }
    return -1;
}

} // namespace

// The whole document reads from the start of the string to its end; what lies before
// the layout master set and behind the last page sequence is left out.
Core::String EditableDocumentBuffer::getAllPageSequencesWrappedInRoot()
{
    int root = findStartTag(content, rootElement, 0, false);
    int masters = findStartTag(content, "fo:layout-master-set", 0, false);
    int lastSequence = findStartTag(content, "fo:page-sequence", content.length() - 1, true);
    int rootEnd = getNextEditablePositionInXml(root);
    int from = getPositionBehindElement(masters);
    int to = getPositionBehindElement(lastSequence);
    if (root == -1 || rootEnd == -1 || from == -1 || to == -1 || to < from)
        return Core::String();
    Core::String open = content.subString(root, rootEnd - 1);
    Core::String close = "</" + rootElement + ">";
    return open + content.subString(from, to - 1) + close;
}

namespace {

int countTabsOfLine(Core::String const &text, int from)
{
    int tabs = 0;
    for (int i = from; i >= 1 && text[i] != u'\n'; --i)
        if (text[i] == u'\t')
            ++tabs;
    return tabs;
}

} // namespace

// Each element on a line of its own, one tab deeper per level; an element whose
// content holds no markup stays on one line. The closing tag of an element is the
// first one of its name, nested elements of the same name are not counted, and text
// between sibling elements is not kept.
//
//     indentXmlText("<a><b>x</b></a>", 1)   gives   "\n\t<a>\n\t\t<b>x</b>\n\t</a>"
Core::String EditableDocumentBuffer::indentXmlText(Core::String const &text, int level)
{
    Core::String result;
    if (text.find(u'<') == -1)
        return result;
    if (level == 0)
        level = countTabsOfLine(content, getCurrentElementPosition(caret) - 1) + 1;
    Core::String indent = Core::String("\n") + Core::String(level, u'\t');
    int i = text.find(u'<');
    while (i != -1) {
        result += indent;
        int k = text.find(u'>', i);
        if (k == -1) {
            result += text.subString(i, text.length() - 1);
            break;
        }
        int nameEnd = i + 1;
        while (nameEnd < k && text[nameEnd] != u' ')
            ++nameEnd;
        Core::String closing = "</" + text.subString(i + 1, nameEnd - 1) + ">";
        int c = text[k - 1] == u'/' ? -1 : text.find(closing, k);
        if (c == -1) {
            // Self-closing, or no closing tag to be found: the tag alone.
            result += text.subString(i, k);
            i = text.find(u'<', k + 1);
            continue;
        }
        int j = k + 1;
        while (j < c && (text[j] == u' ' || text[j] == u'\n' || text[j] == u'\t'))
            ++j;
        Core::String inner = text.subString(j, c - 1);
        result += text.subString(i, k);
        if (inner.find(u'<') == -1)
            result += inner;
        else
            result += indentXmlText(inner, level + 1) + indent;
        result += closing;
        i = text.find(u'<', c + closing.length());
    }
    return result;
}
