// The two writes of the string. Everything that changes `content` comes through here, so
// the remembered walks (StructureMemo) can follow every change.

#include "markup/EditableXmlBuffer.h"

namespace {

// The characters markup is made of: tag brackets, entity ends, quotes, and the marks of
// comments, CDATA sections, processing instructions, closing tags and attributes.
bool isMarkupCharacter(char16_t c) noexcept
{
    switch (c) {
    case u'<':
    case u'>':
    case u'&':
    case u';':
    case u'"':
    case u'\'':
    case u'-':
    case u']':
    case u'[':
    case u'?':
    case u'!':
    case u'/':
    case u'=':
        return true;
    default:
        return false;
    }
}

bool holdsMarkupCharacter(std::u16string_view text) noexcept
{
    for (char16_t c : text)
        if (isMarkupCharacter(c))
            return true;
    return false;
}

} // namespace

bool EditableXmlBuffer::spliceContent(int position, int removeCount, Core::String const &inserted)
{
    const bool neutral = spliceIsNeutral(position, removeCount, inserted);
    content.replace(position, removeCount, inserted);
    structureMemo.adjust(position, removeCount, inserted.length(), neutral);
    return neutral;
}

void EditableXmlBuffer::replaceContent(Core::String text)
{
    content = std::move(text);
    structureMemo.clear();
}

// Plain text typed between two characters of text is neutral:
//
//   <fo:block>ab|cd</fo:block>  + "x"   any walk reads the same tags as before
//
// It is not when the splice or the text it joins holds markup characters, since two of
// them meeting can make "-->" or "]]>" out of "-x->", nor inside a tag, where letters
// change a name that the closing-tag search counts. A tag's end meeting the next tag's
// start makes nothing new: the whole text of an element may go, as when a list label
// "1)" is rewritten.
bool EditableXmlBuffer::spliceIsNeutral(int position, int removeCount, Core::String const &inserted) const
{
    if (holdsMarkupCharacter(inserted.view()) ||
        holdsMarkupCharacter(
            content.view().substr(static_cast<std::size_t>(position), static_cast<std::size_t>(removeCount))))
        return false;
    const char16_t before = content[position - 1];
    const char16_t after = content[position + removeCount];
    if (isMarkupCharacter(before) && isMarkupCharacter(after) && !(before == u'>' && after == u'<'))
        return false;
    // In text the nearest bracket before the splice is a ">".
    for (int i = position - 1; i >= 0; --i) {
        if (content[i] == u'>')
            return true;
        if (content[i] == u'<')
            return false;
    }
    return false;
}

bool EditableXmlBuffer::rememberedWalksAgreeWithString(int position) const
{
    for (StructureMemo::Entry const &entry : structureMemo.parentEntries())
        if (walkToCurrentElement(entry.key, false) != entry.value)
            return false;
    for (StructureMemo::Entry const &entry : structureMemo.closingEntries())
        if (getClosingTagForTagAtPosition(entry.key, content) != entry.value)
            return false;
    if (getCurrentElementPosition(position) != walkToCurrentElement(position, false))
        return false;
    const int element = walkToCurrentElement(position, false);
    return getClosingTagForTagAtPosition(element) == getClosingTagForTagAtPosition(element, content);
}
