#include "FlowPrinter.h"

#include "editing/EditableDocumentBuffer.h"

#include <algorithm>

namespace FlowPrinter {

namespace {

bool isNameCharacter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'-' ||
           c == u'_' || c == u'.' || c == u':';
}

// The content of the element whose start tag is at `tag`, if it holds `caret` (or
// whatever the caret, for -1). An empty element written "<x/>" holds nothing.
Range contentOf(const Core::String &content, int tag, const char *closing, int caret)
{
    const int tagEnd = content.find(u'>', tag);
    if (tagEnd < 0 || content[tagEnd - 1] == u'/')
        return {};
    const int close = content.find(closing, tagEnd + 1);
    if (close < 0 || (caret >= 0 && (caret <= tagEnd || caret > close)))
        return {};
    return {tagEnd + 1, close};
}

// The nearest start tag `name` at or before `from` (the name as a whole word).
int startTagBefore(const Core::String &content, const char *name, int from)
{
    const int length = Core::String(name).length();
    for (int p = content.rFind(name, from); p >= 0; p = content.rFind(name, p - 1)) {
        if (!isNameCharacter(content[p + length]))
            return p;
    }
    return -1;
}

int firstFlowTag(const Core::String &content)
{
    for (int p = content.find("<fo:flow"); p >= 0; p = content.find("<fo:flow", p + 1)) {
        if (!isNameCharacter(content[p + 8]))
            return p;
    }
    return -1;
}

// The index behind the closing tag of the block whose start tag is at `start`,
// counting the blocks nested in it; -1 when the markup ends first. Self-closing
// blocks (line breaks) open nothing.
int blockEnd(const Core::String &content, int start)
{
    int depth = 0;
    for (int p = start; p >= 0; p = content.find(u'<', p + 1)) {
        if (content.matchesAt(p, "</fo:block>")) {
            if (--depth == 0)
                return p + 11;
        } else if (content.matchesAt(p, "<fo:block") && !isNameCharacter(content[p + 9])) {
            const int tagEnd = content.find(u'>', p);
            if (tagEnd < 0)
                return -1;
            if (content[tagEnd - 1] != u'/')
                ++depth;
            p = tagEnd;
        }
    }
    return -1;
}

std::uint8_t styleAt(char16_t unit, bool &inTag, bool &inEntity)
{
    if (unit == u'<')
        inTag = true;
    else if (unit == u'&' && !inTag)
        inEntity = true;
    std::uint8_t style = inTag ? CellTag : inEntity ? CellEntity : CellText;
    if (unit == u'>')
        inTag = false;
    else if (unit == u';')
        inEntity = false;
    return style;
}

void addMarkers(StyledText &cells, int position, int caret, int pivot)
{
    if (position == pivot && pivot != caret)
        cells.push_back({U'^', CellPivot});
    if (position == caret)
        cells.push_back({U'|', CellCaret});
}

} // namespace

Range flowAround(const Core::String &content, int caret)
{
    if (caret >= 0) {
        const int flow = startTagBefore(content, "<fo:flow", caret);
        const int staticContent = startTagBefore(content, "<fo:static-content", caret);
        if (flow > staticContent) {
            if (Range range = contentOf(content, flow, "</fo:flow>", caret); range.start >= 0)
                return range;
        } else if (staticContent >= 0) {
            if (Range range = contentOf(content, staticContent, "</fo:static-content>", caret);
                range.start >= 0)
                return range;
        }
    }
    const int first = firstFlowTag(content);
    return first < 0 ? Range{} : contentOf(content, first, "</fo:flow>", -1);
}

Range blockAround(const Core::String &content, int caret)
{
    if (caret < 0)
        return flowAround(content, caret);
    // Back from the caret, stepping over the blocks that close before it.
    int closed = 0;
    for (int p = content.rFind(u'<', caret - 1); p >= 0; p = content.rFind(u'<', p - 1)) {
        if (content.matchesAt(p, "</fo:block>")) {
            ++closed;
        } else if (content.matchesAt(p, "<fo:block") && !isNameCharacter(content[p + 9])) {
            const int tagEnd = content.find(u'>', p);
            if (tagEnd < 0 || content[tagEnd - 1] == u'/')
                continue;
            if (closed == 0) {
                const int end = blockEnd(content, p);
                return end > caret ? Range{p, end} : flowAround(content, caret);
            }
            --closed;
        } else if (content.matchesAt(p, "<fo:flow") || content.matchesAt(p, "<fo:static-content")) {
            break;
        }
    }
    return flowAround(content, caret);
}

namespace {

StyledText styledRange(const Core::String &content, Range range, int caret, int pivot)
{
    StyledText cells;
    if (range.start < 0)
        return cells;
    cells.reserve(static_cast<std::size_t>(range.end - range.start) + 2);
    const int selectionStart = std::min(caret, pivot);
    const int selectionEnd = std::max(caret, pivot);
    bool inTag = false;
    bool inEntity = false;
    for (int p = range.start; p < range.end; ++p) {
        addMarkers(cells, p, caret, pivot);
        char32_t character = content[p];
        const char16_t next = content[p + 1];
        if (character >= 0xD800 && character < 0xDC00 && next >= 0xDC00 && next < 0xE000 &&
            p + 1 < range.end) {
            character = 0x10000 + ((character - 0xD800) << 10) + (next - 0xDC00);
            ++p;
        }
        std::uint8_t style = styleAt(content[p], inTag, inEntity);
        if (p >= selectionStart && p < selectionEnd)
            style |= CellSelected;
        cells.push_back({character, style});
    }
    addMarkers(cells, range.end, caret, pivot);
    return cells;
}

} // namespace

StyledText styledFlow(const EditableDocumentBuffer &document)
{
    const Core::String content = document.getContent();
    const int caret = document.getCaretPos();
    return styledRange(content, flowAround(content, caret), caret, document.getSelectionPivotPos());
}

StyledText styledBlock(const EditableDocumentBuffer &document)
{
    const Core::String content = document.getContent();
    const int caret = document.getCaretPos();
    return styledRange(content, blockAround(content, caret), caret, document.getSelectionPivotPos());
}

std::string markedBlock(const EditableDocumentBuffer &document)
{
    return plainText(styledBlock(document));
}

std::string markedFlow(const EditableDocumentBuffer &document)
{
    return plainText(styledFlow(document));
}

std::string withoutIndentation(const std::string &marked)
{
    auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    auto bordersTag = [](char c) { return c == '>' || c == '<' || c == '|' || c == '^'; };
    std::string result;
    result.reserve(marked.size());
    std::size_t i = 0;
    while (i < marked.size()) {
        if (!isSpace(marked[i])) {
            result += marked[i++];
            continue;
        }
        std::size_t runEnd = i;
        bool holdsLineFeed = false;
        while (runEnd < marked.size() && isSpace(marked[runEnd]))
            holdsLineFeed |= marked[runEnd++] == '\n';
        const bool afterTag = i == 0 || bordersTag(marked[i - 1]);
        const bool beforeTag = runEnd == marked.size() || bordersTag(marked[runEnd]);
        if (!(holdsLineFeed && afterTag && beforeTag))
            result.append(marked, i, runEnd - i);
        i = runEnd;
    }
    return result;
}

} // namespace FlowPrinter
