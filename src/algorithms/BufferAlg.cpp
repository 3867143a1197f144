#include "algorithms/BufferAlg.h"

#include "editing/EditableDocumentBuffer.h"

namespace BufferAlgorithms {

BufferAlg::BufferAlg(SmartPtr<EditableDocumentBuffer> buffer) : document(std::move(buffer)) {}

BufferAlg::~BufferAlg() = default;

// The walks are protected members of the markup buffer, which counts this class among
// its friends; they are reached through that base.
int BufferAlg::searchParent(const Core::String &name, int position) const
{
    EditableXmlBuffer const &markup = *document;
    return markup.searchParent(name, position, false, true, Core::String());
}

int BufferAlg::getNextElementByName(const Core::String &name, int position) const
{
    EditableXmlBuffer const &markup = *document;
    return markup.getNextElementByName(name, position);
}

Core::String BufferAlg::getRootElement() const
{
    EditableXmlBuffer const &markup = *document;
    return markup.rootElement;
}

int BufferAlg::getCaretPos() const
{
    return document->getCaretPos();
}

int BufferAlg::getClosingTagForTagAtPosition(int position) const
{
    EditableXmlBuffer const &markup = *document;
    return markup.getClosingTagForTagAtPosition(position);
}

} // namespace BufferAlgorithms
