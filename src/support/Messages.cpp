#include "support/String.h"

namespace Core {

// The engine's numbered messages. They are few: the two help lines shown on the
// dummy page of page-master editing.
String String::loadString(int id)
{
    switch (id) {
    case 19600:
        return "This page shows the page master \"{0}\".";
    case 19601:
        return "Edit the headers, footers and side regions here; the body is written in the document.";
    default:
        return String();
    }
}

} // namespace Core
