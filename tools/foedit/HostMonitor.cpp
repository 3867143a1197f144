#include "HostMonitor.h"

#include "editing/EditableDocumentBuffer.h"

void HostMonitor::onBufferChanged()
{
    note("buffer");
    document.updateCacheOnBufferChange();
}

void HostMonitor::onCaretChanged()
{
    note("caret");
    document.updateCacheOnCaretChange();
}

void HostMonitor::onSelectionChanged()
{
    note("selection");
    document.updateCacheOnSelectionChange();
}

void HostMonitor::note(const char *what)
{
    if (!heard.empty())
        heard += ' ';
    heard += what;
}

std::string HostMonitor::takeHeard()
{
    std::string result;
    result.swap(heard);
    return result;
}
