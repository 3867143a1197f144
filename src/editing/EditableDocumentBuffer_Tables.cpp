#include "editing/EditableDocumentBuffer.h"

#include "tables/EditableTableBuffer.h"

// The table buffer -------------------------------------------------------------------------

// Tables cannot be edited as trees yet, so there is no buffer to hand out and the
// cache stays empty. The cache methods below already follow the caret as they will
// once the buffer exists: only this method, getCachedTableStart and the two cell
// helpers need filling in.
SmartPtr<EditableTableBuffer> EditableDocumentBuffer::getEditableTableBuffer(int position)
{
    static_cast<void>(position);
    tableBufferCache.reset();
    return tableBufferCache;
}

int EditableDocumentBuffer::getCachedTableStart() const
{
    return -1;
}

void EditableDocumentBuffer::followCaretInCachedTable() {}

void EditableDocumentBuffer::placeCachedTableEndCell() {}

// The cache ---------------------------------------------------------------------------------

int EditableDocumentBuffer::getTableAroundCaret()
{
    return searchParent("fo:table", caret, false, true, Core::String());
}

bool EditableDocumentBuffer::tableBufferCacheNull() const noexcept
{
    return tableBufferCache.isNull();
}

bool EditableDocumentBuffer::caretIsInsideSameTable()
{
    return !tableBufferCache.isNull() && getCachedTableStart() == getTableAroundCaret();
}

void EditableDocumentBuffer::updateTableBufferCache()
{
    tableBufferCache = getEditableTableBuffer(getNextEditablePositionInXml(getTableAroundCaret()));
}

void EditableDocumentBuffer::refreshTableCacheAfterLoad()
{
    int const table = getTableAroundCaret();
    if (table == -1) {
        tableBufferCache.reset();
        return;
    }
    if (tableBufferCache.isNull())
        tableBufferCache = getEditableTableBuffer(-1);
    else if (getCachedTableStart() != table)
        tableBufferCache = getEditableTableBuffer(getNextEditablePositionInXml(table));
}

// The host calls these three from its monitor; the engine never does.

void EditableDocumentBuffer::updateCacheOnBufferChange()
{
    int const table = getTableAroundCaret();
    if (table == -1) {
        tableBufferCache.reset();
        return;
    }
    if (!tableBufferCache.isNull() && getCachedTableStart() == table)
        return;
    updateTableBufferCache();
}

void EditableDocumentBuffer::updateCacheOnCaretChange()
{
    int const table = getTableAroundCaret();
    if (table == -1) {
        tableBufferCache.reset();
        return;
    }
    if (tableBufferCache.isNull())
        return;
    if (getCachedTableStart() != table) {
        updateTableBufferCache();
        return;
    }
    followCaretInCachedTable();
}

void EditableDocumentBuffer::updateCacheOnSelectionChange()
{
    int const table = getTableAroundCaret();
    if (table == -1 || tableBufferCache.isNull() || getCachedTableStart() != table || !hasSelectedText())
        return;
    placeCachedTableEndCell();
}
