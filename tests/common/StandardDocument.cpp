#include "common/StandardDocument.h"

namespace foedit::test {

namespace {

const char *const documentHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                                 "<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">"
                                 "<fo:layout-master-set>"
                                 "<fo:simple-page-master master-name=\"A4\">"
                                 "<fo:region-body/>"
                                 "</fo:simple-page-master>"
                                 "</fo:layout-master-set>"
                                 "<fo:page-sequence master-reference=\"A4\">"
                                 "<fo:flow flow-name=\"xsl-region-body\">";
const char *const documentTail = "</fo:flow></fo:page-sequence></fo:root>";

} // namespace

Core::String wrapInFlow(Core::String const &body)
{
    return Core::String(documentHead) + body + documentTail;
}

int flowBodyStart()
{
    return Core::String(documentHead).length();
}

void configureStandardHost(EditableDocumentBuffer &buffer)
{
    buffer.setRootElement("fo:root");
    for (const char *name :
         {"fo:block", "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override", "ot:form"})
        buffer.addEditableElement(name);
    for (const char *name : {"fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override"})
        buffer.addInlineEditableElement(name);
}

} // namespace foedit::test
