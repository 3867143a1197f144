#include "robustness/WellFormedness.h"

#include <libxml/parser.h>

#include <string>

namespace foedit::test {

bool isWellFormedXml(Core::String const &markup)
{
    const std::string utf8 = markup.toUtf8();
    xmlParserCtxtPtr context = xmlNewParserCtxt();
    if (!context)
        return false;
    const int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE;
    xmlDocPtr document = xmlCtxtReadMemory(context, utf8.data(), static_cast<int>(utf8.size()), "session.fo",
                                           "UTF-8", options);
    const bool wellFormed = document && context->wellFormed && context->nsWellFormed;
    xmlFreeDoc(document);
    xmlFreeParserCtxt(context);
    return wellFormed;
}

} // namespace foedit::test
