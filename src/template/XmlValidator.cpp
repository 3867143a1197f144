#include "template/XmlValidator.h"

#include <cstddef>

namespace {

enum State : int {
    Text = 0,           // outside any tag
    InTag = 1,          // inside a tag, outside any attribute value
    AfterEquals = 2,    // behind a "="
    InDoubleQuotes = 3, // inside a value in double quotes
    InSingleQuotes = 4, // inside a value in single quotes
    InComment = 5,      // inside "<!--"
    InCData = 6,        // inside "<![CDATA["
};

constexpr int TagStartCapacity = 9; // enough for "<![CDATA["

bool startEquals(const char16_t *buffer, const char16_t *marker, int count) noexcept
{
    for (int i = 0; i < count; ++i)
        if (buffer[i] != marker[i])
            return false;
    return true;
}

} // namespace

bool XmlValidator::validate() const noexcept
{
    // The start of the current tag, so that "<!--" and "<![CDATA[" are recognised as
    // they are typed; inside a comment or CDATA section, its last three characters.
    char16_t buffer[TagStartCapacity] = {};
    int count = 0;
    State state = Text;
    const char16_t *units = text.c_str();
    const std::size_t length = static_cast<std::size_t>(text.length());
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t c = units[i];
        switch (state) {
        case Text:
            if (c == u'<') {
                buffer[0] = c;
                count = 1;
                state = InTag;
            }
            break; // a ">" alone is allowed in text
        case InTag:
            if (count < TagStartCapacity) {
                buffer[count++] = c;
                if (count == 4 && startEquals(buffer, u"<!--", 4)) {
                    count = 0;
                    state = InComment;
                    break;
                }
                if (count == 9 && startEquals(buffer, u"<![CDATA[", 9)) {
                    count = 0;
                    state = InCData;
                    break;
                }
            }
            if (c == u'>')
                state = Text;
            else if (c == u'=')
                state = AfterEquals;
            else if (c == u'<' || c == u'"' || c == u'\'')
                return false;
            break;
        case AfterEquals:
            // Anything but a quote is passed over, ">" included: "<a b=c>" stays here.
            if (c == u'"')
                state = InDoubleQuotes;
            else if (c == u'\'')
                state = InSingleQuotes;
            break;
        case InDoubleQuotes:
        case InSingleQuotes:
            if (c == (state == InDoubleQuotes ? u'"' : u'\''))
                state = InTag;
            else if (c == u'<' || c == u'>')
                return false;
            break;
        case InComment:
        case InCData: {
            buffer[0] = buffer[1];
            buffer[1] = buffer[2];
            buffer[2] = c;
            count = count < 3 ? count + 1 : 3;
            const char16_t *end = state == InComment ? u"-->" : u"]]>";
            if (count == 3 && startEquals(buffer, end, 3))
                state = Text;
            break;
        }
        }
    }
    return state == Text;
}
