#include "support/DomParser.h"

#include "support/XmlBackend.h"
#include "support/XmlParseException.h"

#include <libxml/parser.h>

#include <climits>
#include <vector>

namespace Xml {

namespace {

// The first error the parser reports; the later ones are its consequences.
struct FirstError {
    Core::String message;
    int line = 0;
    int column = 0;
    bool seen = false;
};

void recordError(void * /*userData*/, xmlError *error)
{
    if (!error || error->level < XML_ERR_ERROR)
        return;
    auto *context = static_cast<xmlParserCtxt *>(error->ctxt);
    auto *first = context ? static_cast<FirstError *>(context->_private) : nullptr;
    if (!first || first->seen)
        return;
    first->seen = true;
    first->message = Core::String::fromUtf8(error->message ? error->message : "malformed markup").trimRight();
    first->line = error->line;
    first->column = error->int2;
}

// Owns a parser context for one parse, with errors routed to `errors` and none
// printed by the library.
class ParseContext {
public:
    explicit ParseContext(FirstError &errors) : context(xmlNewParserCtxt())
    {
        if (!context)
            return;
        context->_private = &errors;
        context->sax->serror = recordError;
    }
    ~ParseContext()
    {
        if (context)
            xmlFreeParserCtxt(context);
    }
    ParseContext(const ParseContext &) = delete;
    ParseContext &operator=(const ParseContext &) = delete;

    xmlParserCtxt *get() const noexcept { return context; }

private:
    xmlParserCtxt *context;
};

// No network, no DTD loading, no entity substitution (which would read external
// entities), and the bytes are UTF-8 whatever a declaration claims.
constexpr int parseOptions = XML_PARSE_NONET | XML_PARSE_IGNORE_ENC;

// References to entities that the document's own DTD subset declares stay in the
// parsed tree as reference nodes, which would split a text and hide its characters
// from get_content. They are replaced by copies of the entity's content, repeatedly,
// since a content may hold references in turn. External entities are never read, so
// references to them stay as they are. `budget` bounds the characters produced, so a
// document of nested entities cannot explode.
class EntityExpansion {
public:
    EntityExpansion(xmlDoc *parsed, std::size_t allowance) : document(parsed), budget(allowance) {}

    // False when the budget ran out.
    bool run()
    {
        for (;;) {
            std::vector<xmlNode *> references = internalReferences();
            if (references.empty())
                return true;
            for (xmlNode *reference : references) {
                if (!expand(reference))
                    return false;
            }
        }
    }

private:
    std::vector<xmlNode *> internalReferences() const
    {
        std::vector<xmlNode *> found;
        xmlNode *root = xmlDocGetRootElement(document);
        xmlNode *current = root;
        while (current) {
            if (current->type == XML_ENTITY_REF_NODE && isInternal(current))
                found.push_back(current);
            if (current->type == XML_ELEMENT_NODE && current->children) {
                current = current->children;
                continue;
            }
            while (current != root && !current->next)
                current = current->parent;
            current = current == root ? nullptr : current->next;
        }
        return found;
    }

    bool isInternal(const xmlNode *reference) const
    {
        const xmlEntity *entity = xmlGetDocEntity(document, reference->name);
        return entity && entity->etype == XML_INTERNAL_GENERAL_ENTITY;
    }

    bool expand(xmlNode *reference)
    {
        const xmlEntity *entity = xmlGetDocEntity(document, reference->name);
        const auto cost = static_cast<std::size_t>(entity->length > 0 ? entity->length : 1);
        if (cost > budget)
            return false;
        budget -= cost;
        xmlNode *parent = reference->parent;
        xmlNode *before = reference->prev;
        xmlNode *after = reference->next;
        xmlNode *copies = xmlDocCopyNodeList(document, entity->children);
        while (copies) {
            xmlNode *copy = copies;
            copies = copy->next;
            xmlAddPrevSibling(reference, copy);
        }
        xmlUnlinkNode(reference);
        xmlFreeNode(reference);
        mergeTexts(before ? before : parent->children, after);
        return true;
    }

    // Joins neighbouring texts from `first` up to `last` (null: the end), so that a
    // text and the entity's characters read as one text node.
    static void mergeTexts(xmlNode *first, const xmlNode *last)
    {
        xmlNode *node = first;
        while (node && node != last) {
            xmlNode *next = node->next;
            if (next && node->type == XML_TEXT_NODE && next->type == XML_TEXT_NODE) {
                xmlNodeAddContent(node, next->content);
                const bool reachedLast = next == last;
                xmlUnlinkNode(next);
                xmlFreeNode(next);
                if (reachedLast)
                    return;
                continue;
            }
            node = next;
        }
    }

    xmlDoc *document;
    std::size_t budget;
};

} // namespace

void DomParser::parseMemory(const std::string &utf8)
{
    if (utf8.size() > static_cast<std::size_t>(INT_MAX))
        FOEDIT_THROW(XmlParseException("markup too long to parse", 0, 0));
    FirstError error;
    ParseContext context(error);
    if (!context.get())
        FOEDIT_THROW(XmlParseException("no parser could be made", 0, 0));
    xmlDoc *parsed = xmlCtxtReadMemory(context.get(), utf8.data(), static_cast<int>(utf8.size()), nullptr,
                                       "UTF-8", parseOptions);
    const bool wellFormed = parsed && context.get()->wellFormed && context.get()->nsWellFormed;
    if (!wellFormed) {
        if (parsed)
            xmlFreeDoc(parsed);
        if (!error.seen)
            error.message = "malformed markup";
        FOEDIT_THROW(XmlParseException(error.message, error.line, error.column));
    }
    constexpr std::size_t expansionAllowance = 16u << 20;
    if (!EntityExpansion(parsed, expansionAllowance + 4 * utf8.size()).run()) {
        xmlFreeDoc(parsed);
        FOEDIT_THROW(XmlParseException("entity expansion too large", 0, 0));
    }
    document = Backend::makeDocument(parsed);
}

void DomParser::parseStream(SmartPtr<Core::IO::Stream> stream)
{
    parseMemory(stream->readToEnd());
}

void DomParser::parseString(const Core::String &markup)
{
    parseMemory(markup.toUtf8());
}

} // namespace Xml
