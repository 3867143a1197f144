#include "dom/DOMBasedBuffer.h"

#include "editing/EditActionGroup.h"
#include "editing/EditableDocumentBuffer.h"
#include "editing/FreezeNotifications.h"
#include "support/DomParser.h"
#include "support/Encoder.h"
#include "support/MemoryStream.h"

// ---- Making the tree from the string -----------------------------------------------------

namespace {

// The index of the ">" that ends the tag whose "<" is at `tagStart`, or -1. A ">"
// inside a quoted attribute value does not end it.
int endOfTag(Core::String const &markup, int tagStart)
{
    return EditableXmlBuffer::findTagEnd(tagStart + 1, markup);
}

bool isOpeningTag(Core::String const &markup, int position)
{
    const char16_t next = markup[position + 1];
    return markup[position] == u'<' && next != u'/' && next != u'!' && next != u'?' && next != 0;
}

bool isSelfClosing(Core::String const &markup, int tagEnd)
{
    return tagEnd > 0 && markup[tagEnd - 1] == u'/';
}

} // namespace

bool DOMBasedBuffer::selectStretchOfElementAt(int openingTag)
{
    startPosition = -1;
    endPosition = -1;
    if (!documentBuffer || openingTag < 0)
        return false;
    Core::String const &content = documentBuffer->content;
    const int tagEnd = isOpeningTag(content, openingTag) ? endOfTag(content, openingTag) : -1;
    if (tagEnd < 0)
        return false;
    int last = tagEnd;
    if (!isSelfClosing(content, tagEnd)) {
        const int closingTag = documentBuffer->getClosingTagForTagAtPosition(openingTag);
        last = closingTag < 0 ? -1 : endOfTag(content, closingTag);
        if (last < 0)
            return false;
    }
    startPosition = openingTag;
    endPosition = last;
    return true;
}

Core::String DOMBasedBuffer::getStretchText() const
{
    if (!documentBuffer || startPosition < 0 || endPosition < startPosition)
        return Core::String();
    return documentBuffer->content.subString(startPosition, endPosition);
}

std::set<Core::String> DOMBasedBuffer::getNamespacesMissingFromStretch() const
{
    std::set<Core::String> missing;
    if (!documentBuffer || startPosition < 0)
        return missing;
    const auto own = documentBuffer->getNamespacesFromElementAt(startPosition);
    // The current element of the opening tag's "<" is the stretch's parent, so this is
    // what the ancestors declare, the nearest declaration of a prefix winning.
    for (Core::String const &declaration : documentBuffer->getNamespacesFromAllContainers(startPosition)) {
        if (!EditableDocumentBuffer::namespaceIsDefined(declaration, own))
            missing.insert(declaration);
    }
    return missing;
}

namespace {

// Where the first tag of `markup` takes its attributes' end: before its "/>" or ">".
int endOfAttributes(Core::String const &markup, int &tagStart)
{
    tagStart = markup.find(u'<');
    while (tagStart >= 0 && (markup[tagStart + 1] == u'?' || markup[tagStart + 1] == u'!'))
        tagStart = markup.find(u'<', tagStart + 1);
    if (tagStart < 0)
        return -1;
    const int tagEnd = endOfTag(markup, tagStart);
    if (tagEnd < 0)
        return -1;
    return isSelfClosing(markup, tagEnd) ? tagEnd - 1 : tagEnd;
}

} // namespace

Core::String DOMBasedBuffer::addNamespacesToOpeningTag(Core::String const &markup,
                                                       std::set<Core::String> const &declarations)
{
    int tagStart = -1;
    const int insertAt = endOfAttributes(markup, tagStart);
    if (insertAt < 0 || declarations.empty())
        return markup;
    Core::String wrapped = markup;
    wrapped.insert(insertAt, EditableDocumentBuffer::namespaceSetToString(declarations));
    return wrapped;
}

Core::String DOMBasedBuffer::removeNamespacesFromOpeningTag(Core::String const &markup,
                                                            std::set<Core::String> const &declarations)
{
    int tagStart = -1;
    int tagEnd = endOfAttributes(markup, tagStart);
    if (tagEnd < 0)
        return markup;
    Core::String unwrapped = markup;
    for (Core::String const &declaration : declarations) {
        const Core::String withBlank = " " + declaration;
        const int at = unwrapped.find(withBlank, tagStart);
        if (at < 0 || at + withBlank.length() > tagEnd)
            continue;
        unwrapped.erase(at, withBlank.length());
        tagEnd -= withBlank.length();
    }
    return unwrapped;
}

void DOMBasedBuffer::parseStretch(Core::String const &markup)
{
    SmartPtr<Core::IO::Stream> stream(new Core::IO::MemoryStream(Core::Encoder::convertStringToUTF8(markup)));
    stream->seek(0);
    Xml::DomParser parser;
    parser.parseStream(stream);
    dom = parser.getDocument();
}

void DOMBasedBuffer::loadStretch()
{
    parseStretch(addNamespacesToOpeningTag(getStretchText(), getNamespacesMissingFromStretch()));
}

// ---- Writing the tree back -------------------------------------------------------------------

Core::String DOMBasedBuffer::getTreeTextForStretch() const
{
    const Core::String text = dom->writeToString("UTF-8").trim();
    return removeNamespacesFromOpeningTag(text, getNamespacesMissingFromStretch());
}

void DOMBasedBuffer::replaceStretch(Core::String const &text, std::function<void()> const &placeCaret)
{
    if (!documentBuffer || startPosition < 0 || endPosition < startPosition)
        return;
    EditableDocumentBuffer &document = *documentBuffer;
    document.endKeyTypingSequence();
    FreezeNotifications freeze(&document);
    EditActionGroup group(&document);
    document.addCaretMark();
    const Core::String old = document.deleteXmlText(startPosition, endPosition);
    document.addAction(EditAction(EditAction::DeleteText, startPosition, document.getCaretPos(),
                                  document.getSelectionPivotPos(), old));
    document.insertXmlTextAtPosition(startPosition, text);
    document.addAction(EditAction(EditAction::InsertText, startPosition, document.getCaretPos(),
                                  document.getSelectionPivotPos(), text));
    if (placeCaret)
        placeCaret();
    document.addCaretMark();
}

void DOMBasedBuffer::writeTreeToStretch(std::function<void()> const &placeCaret)
{
    replaceStretch(getTreeTextForStretch(), placeCaret);
}

// ---- The document's protected members ----------------------------------------------------

void DOMBasedBuffer::setDocumentCaret(bool extendSelection, int position)
{
    if (documentBuffer)
        documentBuffer->setCaret(extendSelection, position);
}

void DOMBasedBuffer::insertIntoDocument(int position, Core::String const &text)
{
    if (documentBuffer)
        documentBuffer->insertXmlTextAtPosition(position, text);
}

Core::String DOMBasedBuffer::deleteFromDocument(int first, int last)
{
    return documentBuffer ? documentBuffer->deleteXmlText(first, last) : Core::String();
}

void DOMBasedBuffer::recordAction(EditAction const &action)
{
    if (documentBuffer)
        documentBuffer->addAction(action);
}

void DOMBasedBuffer::notifyDocumentSelectionChanged()
{
    if (documentBuffer)
        documentBuffer->notifySelectionChanged();
}
