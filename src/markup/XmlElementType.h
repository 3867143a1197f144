#pragma once

// What stands at a position of the markup string.
enum XmlElementType : int {
    XmlComment = 0,               // "<!--" ... "-->"
    XmlCData = 1,                 // "<![CDATA[" ... "]]>"
    XmlProcessingInstruction = 2, // "<?" ... "?>"
    XmlElement = 3,               // an ordinary tag
    XmlNone = 4,                  // invalid position, or no bracket of the kind asked for
};
