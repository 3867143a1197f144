#pragma once

// The host and the document most tests and benchmarks start from. Nothing here needs
// the test framework, so the benchmarks link it too.

#include "editing/EditableDocumentBuffer.h"
#include "support/SmartPtr.h"
#include "support/String.h"

namespace foedit::test {

// The standard document around `body`: XML declaration, "fo:root" with the fo
// namespace, a layout-master-set with one simple-page-master "A4" holding a
// region-body, and one page-sequence whose one flow "xsl-region-body" holds `body`.
// No line breaks or indentation, so positions are predictable.
Core::String wrapInFlow(Core::String const &body);

// The position of the first unit of `body` inside `wrapInFlow(body)`.
int flowBodyStart();

// Root "fo:root"; editable "fo:block", "fo:inline", "fo:wrapper", "fo:basic-link",
// "fo:bidi-override", "ot:form"; inline "fo:inline", "fo:wrapper", "fo:basic-link",
// "fo:bidi-override". Call before loading.
void configureStandardHost(EditableDocumentBuffer &buffer);
// A new buffer of class `Buffer`, configured as the standard host. `Buffer` is the
// document buffer or a class that only adds methods to it (a test probe, ListBuffer).
template <typename Buffer = EditableDocumentBuffer> SmartPtr<Buffer> makeStandardBuffer()
{
    SmartPtr<Buffer> buffer(new Buffer());
    configureStandardHost(*buffer);
    return buffer;
}

} // namespace foedit::test
