// Page masters read from the string. A master is found by name walking from the start
// of the document; masters stand in the layout master set, in front of the page
// sequences, so the walk ends at the first sequence and a name that no master has
// costs the head of the document, not all of it.

#include "editing/EditableDocumentBuffer.h"

namespace {

std::vector<Core::String> const &masterOrPageSequenceNames()
{
    static std::vector<Core::String> const names{"fo:simple-page-master", "fo:page-sequence",
                                                 "ot:insert-document", "otd:page-sequence-repeat"};
    return names;
}

// The regions around the body, whose content comes from static content.
std::vector<Core::String> const &sideRegionNames()
{
    static std::vector<Core::String> const names{"fo:region-before", "fo:region-after", "fo:region-start",
                                                 "fo:region-end"};
    return names;
}

} // namespace

int EditableDocumentBuffer::getSimplePageMasterPosition(Core::String name) const
{
    for (int t = getFirstElementByName(masterOrPageSequenceNames(), 0); t != -1;
         t = getFirstElementByName(masterOrPageSequenceNames(), t)) {
        if (!tagNameEquals(t, "fo:simple-page-master"))
            return -1; // the page sequences have begun
        if (getTagPropertyValue(t, "fo:master-name") == name)
            return t;
    }
    return -1;
}

// From the master's "<" to the ">" of its closing tag.
Core::String EditableDocumentBuffer::getSimplePageMaster(Core::String name) const
{
    int const master = getSimplePageMasterPosition(name);
    int const closing = getClosingTagForTagAtPosition(master);
    int const end = closing == -1 ? -1 : findTagEnd(closing, content);
    return end == -1 ? Core::String() : content.subString(master, end);
}

int EditableDocumentBuffer::getFirstPageRegionFromMaster(int master) const
{
    int const closing = getClosingTagForTagAtPosition(master);
    if (closing <= master)
        return -1; // no master here, or one without regions
    for (int t = getNextElementPosition(master); t != -1 && t < closing; t = getNextElementPosition(t))
        if (isNonBodyRegionAtPos(t))
            return t;
    return -1;
}

Core::String EditableDocumentBuffer::getFirstPageRegionNameFromMaster(Core::String name) const
{
    int const region = getFirstPageRegionFromMaster(getSimplePageMasterPosition(name));
    return region == -1 ? Core::String() : getTagPropertyValue(region, "fo:region-name");
}

Core::String EditableDocumentBuffer::getRegionBodyNameForPageMaster(Core::String name) const
{
    int const master = getSimplePageMasterPosition(name);
    int const body = master == -1 ? -1 : getNextChildByName("fo:region-body", master);
    return body == -1 ? Core::String() : getTagPropertyValue(body, "fo:region-name");
}

bool EditableDocumentBuffer::isNonBodyRegionAtPos(int position) const
{
    return tagNameIsOneOf(position, sideRegionNames());
}
