#include "support/XmlNamespaces.h"

namespace Xml::Namespaces {

Core::String uriForPrefix(const Core::String &prefix)
{
    struct Known {
        const char *prefix;
        const char *uri;
    };
    static constexpr Known known[] = {{"fo", fo}, {"xsl", xsl}, {"ot", ot},      {"otd", otd},
                                      {"oc", oc}, {"svg", svg}, {"xlink", xlink}};
    for (const Known &entry : known) {
        if (prefix == entry.prefix)
            return entry.uri;
    }
    return "urn:x-foedit:" + prefix;
}

} // namespace Xml::Namespaces
