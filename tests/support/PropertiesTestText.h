#pragma once

#include "support/PropertyCollection.h"

// Collections written as they stand in a start tag: `fo:border="1pt solid" fo:padding="2pt"`.
inline PropertyCollection propertiesOf(Core::String const &text)
{
    PropertyCollection properties;
    int i = 0;
    while (i < text.length()) {
        int equals = text.find(u'=', i);
        int open = text.find(u'"', equals);
        int close = text.find(u'"', open + 1);
        if (equals < 0 || open < 0 || close < 0)
            break;
        properties.addProperty(
            EditableProperty(text.subString(i, equals - 1).trim(), text.subString(open + 1, close - 1)),
            true);
        i = close + 1;
        while (text[i] == u' ')
            ++i;
    }
    return properties;
}
