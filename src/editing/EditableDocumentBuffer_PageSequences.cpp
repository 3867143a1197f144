// Page sequences found in the string. The host addresses a sequence by its index, and
// an index means counting from the start of the document: these walks start there by
// nature. Each goes once over the stretch it needs, from sequence to sequence.

#include "editing/EditableDocumentBuffer.h"

namespace {

// "ot:insert-document" stands for the pages of an external document, so it takes an
// index like the sequences around it.
std::vector<Core::String> const &pageSequenceNames()
{
    static std::vector<Core::String> const names{"fo:page-sequence", "ot:insert-document",
                                                 "otd:page-sequence-repeat"};
    return names;
}

// The names that end a search for a sequence's first flow: a flow found behind the
// next sequence's start belongs to that one.
std::vector<Core::String> const &flowOrPageSequenceNames()
{
    static std::vector<Core::String> const names{"fo:flow", "fo:page-sequence", "ot:insert-document",
                                                 "otd:page-sequence-repeat"};
    return names;
}

} // namespace

int EditableDocumentBuffer::getNextPageSeq(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    return getFirstElementByName(pageSequenceNames(), position);
}

// From the start of the document, past every sequence in front of the one asked for.
// Each search for the next one starts from the closing tag of the last, which is found
// by a plain scan, instead of visiting every element inside the sequence on the way.
int EditableDocumentBuffer::getPageSequencePosition(int index) const
{
    if (index < 0)
        return -1;
    int sequence = getNextPageSeq(0);
    for (int i = 0; i < index && sequence != -1; ++i) {
        int const closing = getClosingTagForTagAtPosition(sequence);
        sequence = getNextPageSeq(closing > sequence ? closing : sequence);
    }
    return sequence;
}

int EditableDocumentBuffer::getPageSeqPosFrom(int position) const
{
    if (isOnInvalidPosition(position))
        return -1;
    int const sequence = searchParent("fo:page-sequence", position);
    return sequence != -1 ? sequence : searchParent("otd:page-sequence-repeat", position);
}

// Counts, from the start of the document, the sequences that start at or before
// `position`, stepping from each one's closing tag to the next. The count stops at the
// sequence that holds `position`, so nothing behind it is read. "ot:insert-document"
// counts as well, so a position on one gets its index. Only a position inside the root
// has an index; one in front of the root lies before every sequence anyway.
int EditableDocumentBuffer::getPageSequenceIdxFromPos(int position) const
{
    if (isOnInvalidPosition(position) || position > getRootClosingTag())
        return -1;
    int index = -1;
    for (int sequence = getNextPageSeq(0); sequence != -1 && sequence <= position;) {
        ++index;
        int const closing = getClosingTagForTagAtPosition(sequence);
        if (closing == -1 || closing >= position)
            break; // `position` lies in this one, or it never closes
        sequence = getNextPageSeq(closing);
    }
    return index;
}

int EditableDocumentBuffer::getCurrentPageSequenceIdx() const
{
    return getPageSequenceIdxFromPos(caret);
}

// Counts from the start of the document to the sequence, then looks through the
// sequence's head only: the search ends at the first flow or at the next sequence,
// and never reads the flow itself.
int EditableDocumentBuffer::getFirstFlowPositionInPageSequence(int index)
{
    int const sequence = getPageSequencePosition(index);
    if (sequence == -1)
        return -1;
    int const found = getFirstElementByName(flowOrPageSequenceNames(), sequence);
    if (!tagNameEquals(found, "fo:flow"))
        return -1;
    // A flow between this sequence's end and the next sequence is no flow of it.
    return hasAncestor(parentElementOf(found), sequence) ? found : -1;
}
