// The placeholder: an element with no visible content holds one non-breaking space,
// as the entity "&#x00A0;" or as the raw character U+00A0. Every test accepts both.
// The white-space classifier counts U+00A0, so tests that mean ordinary white space
// use isPlainWhiteSpace.

#include "markup/EditableXmlBuffer.h"
#include "support/WhiteSpace.h"

int EditableXmlBuffer::placeholderLengthAt(int position) const noexcept
{
    if (content[position] == Core::kNoBreakSpace)
        return 1;
    return content.matchesAt(position, NbspEntity) ? static_cast<int>(NbspEntity.size()) : 0;
}

// The first "&" or U+00A0 after the atom at `position`, whatever lies between, tags included.
int EditableXmlBuffer::getNonBreakingSpacePosition(int position) const
{
    const int length = content.length();
    for (int i = getNextEditablePositionInXml(position); i >= 0 && i < length; ++i)
        if (content[i] == u'&' || content[i] == Core::kNoBreakSpace)
            return i;
    return -1;
}

//   <fo:block> &#x00A0;\n</fo:block>   holds just a placeholder
//   <fo:block>&#x00A0;&#x00A0;</fo:block>   does not
bool EditableXmlBuffer::elementContainsJustNonBreakingSpace(int element) const
{
    const int closing = getClosingTagForTagAtPosition(element);
    if (closing <= element)
        return false; // no closing tag, or a self-closing tag
    int i = stepForward(element);
    if (i < 0)
        return false;
    while (i < closing && Core::isPlainWhiteSpace(content[i]))
        ++i;
    const int placeholder = placeholderLengthAt(i);
    if (placeholder == 0)
        return false;
    for (i += placeholder; i < closing; ++i)
        if (!Core::isPlainWhiteSpace(content[i]))
            return false;
    return i == closing;
}

// Whether the closing tag of the current element comes first after the run of white
// space (of any kind, `plainSpaceOnly` false) that starts at `from`.
bool EditableXmlBuffer::closingTagFollowsSpaceAt(int from, bool plainSpaceOnly) const
{
    int i = from;
    while (plainSpaceOnly ? Core::isPlainWhiteSpace(content[i]) : Core::iswspace(content[i]))
        ++i;
    if (content[i] != u'<' || content[i + 1] != u'/')
        return false; // cheap refusal before the closing-tag search
    return getLastPositionInElementContaining(i) == i;
}

//   <fo:block>&#x00A0;| \n</fo:block>
bool EditableXmlBuffer::isNbspFollowedByCloseElement(int position) const
{
    const int placeholder = placeholderLengthAt(position);
    return placeholder > 0 && closingTagFollowsSpaceAt(position + placeholder, false);
}

// Like isNbspFollowedByCloseElement, but a second raw U+00A0 after the placeholder is
// content, not white space.
bool EditableXmlBuffer::nbspFollowedByWspaceAndElementCloseTagAt(int position) const
{
    const int placeholder = placeholderLengthAt(position);
    return placeholder > 0 && closingTagFollowsSpaceAt(position + placeholder, true);
}

// True on the first of the white-space characters that end the current element:
//   <fo:block>ab|  </fo:block>
bool EditableXmlBuffer::isLastValidWhiteSpaceBeforeElementClosed(int position) const
{
    if (isOnInvalidPosition(position) || !Core::iswspace(content[position]) ||
        Core::iswspace(content[position - 1]))
        return false;
    return closingTagFollowsSpaceAt(position, false);
}
