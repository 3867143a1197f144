#include "common/TextPlaces.h"

#include <cctype>
#include <cstddef>

namespace foedit::test {

std::vector<int> placesInText(Core::String const &content, int count)
{
    int const flow = content.find("<fo:flow");
    int const flowEnd = content.find("</fo:flow>");
    std::vector<int> candidates;
    bool inTag = false;
    for (int p = flow; flow != -1 && p != -1 && p < flowEnd; ++p) {
        char16_t const c = content[p];
        // Comments and CDATA sections hold no caret positions.
        if (content.matchesAt(p, "<!--"))
            p = content.find("-->", p);
        else if (content.matchesAt(p, "<![CDATA["))
            p = content.find("]]>", p);
        else if (c == u'<' || c == u'>')
            inTag = c == u'<';
        else if (!inTag && p + 1 < flowEnd && std::isalpha(static_cast<unsigned char>(c)) && c < 128)
            candidates.push_back(p + 1);
    }
    std::vector<int> places;
    for (int i = 0; i < count && !candidates.empty(); ++i)
        places.push_back(
            candidates[candidates.size() * static_cast<std::size_t>(i) / static_cast<std::size_t>(count)]);
    return places;
}

} // namespace foedit::test
