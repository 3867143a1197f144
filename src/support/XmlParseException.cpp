#include "support/XmlParseException.h"

namespace Xml {

namespace {

Core::String describe(const Core::String &parserMessage, int line, int column)
{
    if (line <= 0)
        return parserMessage;
    return Core::String::format("{0} (line {1}, column {2})",
                                {parserMessage, Core::String::number(static_cast<long long>(line)),
                                 Core::String::number(static_cast<long long>(column))});
}

} // namespace

XmlParseException::XmlParseException(const Core::String &message, int line, int column)
    : Core::Exception(describe(message, line, column)), parserMessage(message), documentLine(line),
      documentColumn(column)
{
}

} // namespace Xml
