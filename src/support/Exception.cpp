#include "support/Exception.h"

#include <iostream>

namespace Core {

namespace {

LogSink &currentSink()
{
    static LogSink sink;
    return sink;
}

} // namespace

Exception::Exception(String message) : message_(std::move(message)), utf8_(message_.toUtf8()) {}

Exception &Exception::initCodeLocation(const char *file, int line)
{
    file_ = file ? file : "";
    line_ = line;
    return *this;
}

void Exception::logError() const
{
    String entry = String(kind()) + ": " + message_;
    if (!file_.empty())
        entry += String(" (" + file_ + ":" + std::to_string(line_) + ")");
    log(entry);
}

void setLogSink(LogSink sink) { currentSink() = std::move(sink); }

void log(const String &line)
{
    if (currentSink())
        currentSink()(line);
    else
        std::cerr << "foedit: " << line << '\n';
}

} // namespace Core
