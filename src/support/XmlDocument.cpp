#include "support/XmlDocument.h"

#include "support/XmlBackend.h"

#include <libxml/parser.h>
#include <libxml/xmlsave.h>

#include <string_view>

namespace Xml {

XmlDocument::XmlDocument(const Core::String &version) : handle_(nullptr), emptyText_(nullptr)
{
    xmlInitParser();
    xmlDoc *document = xmlNewDoc(XmlText(version));
    document->_private = this;
    handle_ = document;
}

XmlDocument::XmlDocument(void *parsedDocument) noexcept : handle_(parsedDocument), emptyText_(nullptr)
{
    static_cast<xmlDoc *>(handle_)->_private = this;
}

XmlDocument::~XmlDocument()
{
    Backend::freeDocument(*this);
}

Element *XmlDocument::getRootNode() const
{
    return Backend::wrapElement(xmlDocGetRootElement(Backend::documentOf(this)));
}

namespace {

// Makes `root` the document's root; the old root and its subtree are destroyed.
void replaceRoot(xmlDoc *document, xmlNode *root)
{
    if (xmlNode *old = xmlDocSetRootElement(document, root))
        Backend::freeNode(old);
}

} // namespace

Element *XmlDocument::createRootNode(const Core::String &name, const Core::String &namespaceUri,
                                     const Core::String &namespacePrefix)
{
    xmlDoc *document = Backend::documentOf(this);
    Core::String prefix;
    Core::String local;
    Backend::splitQualifiedName(name, prefix, local);
    if (!namespacePrefix.empty())
        prefix = namespacePrefix;
    xmlNode *root = xmlNewDocNode(document, nullptr, XmlText(local), nullptr);
    replaceRoot(document, root);
    if (!namespaceUri.empty()) {
        const XmlText prefixText(prefix);
        const xmlChar *declared = prefix.empty() ? nullptr : static_cast<const xmlChar *>(prefixText);
        xmlSetNs(root, xmlNewNs(root, XmlText(namespaceUri), declared));
    } else if (!prefix.empty())
        xmlSetNs(root, Backend::namespaceFor(root, prefix));
    return Backend::wrapElement(root);
}

Element *XmlDocument::createRootNodeByImport(const Node *source, bool deep)
{
    const xmlNode *from = Backend::nodeOf(source);
    if (!from || from->type != XML_ELEMENT_NODE)
        return nullptr;
    xmlDoc *document = Backend::documentOf(this);
    xmlNode *root = Backend::copyForImport(from, document, deep);
    if (!root)
        return nullptr;
    replaceRoot(document, root);
    return Backend::wrapElement(root);
}

Core::String XmlDocument::writeToString(const Core::String & /*encoding*/) const
{
    xmlBuffer *buffer = xmlBufferCreate();
    if (!buffer)
        return Core::String();
    if (xmlSaveCtxt *save = xmlSaveToBuffer(buffer, "UTF-8", XML_SAVE_NO_DECL)) {
        xmlSaveDoc(save, Backend::documentOf(this));
        xmlSaveClose(save);
    }
    const auto *bytes = reinterpret_cast<const char *>(xmlBufferContent(buffer));
    Core::String text =
        Core::String::fromUtf8(std::string_view(bytes, static_cast<std::size_t>(xmlBufferLength(buffer))));
    xmlBufferFree(buffer);
    return text;
}

Core::String XmlDocument::getXmlDeclaration(const Core::String &encoding)
{
    if (encoding.empty())
        return "<?xml version=\"1.0\"?>\n";
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\n";
}

} // namespace Xml
