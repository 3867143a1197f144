#pragma once

#include "support/String.h"

#include <exception>
#include <functional>
#include <string>

namespace Core {

// Root of the exceptions the engine lets out. Each carries a message and the source
// location it was raised at, and is written to the engine's log before it is thrown
// (see `FOEDIT_THROW`).
class Exception : public std::exception {
public:
    explicit Exception(String message = String());

    // Records where the exception is raised.
    Exception &initCodeLocation(const char *file, int line);
    // Writes "<kind>: <message> (<file>:<line>)" to the engine's log.
    void logError() const;

    const String &getMessage() const noexcept { return message_; }
    const std::string &getFile() const noexcept { return file_; }
    int getLine() const noexcept { return line_; }
    virtual const char *kind() const noexcept { return "Core::Exception"; }
    const char *what() const noexcept override { return utf8_.c_str(); }

private:
    String message_;
    std::string utf8_;
    std::string file_;
    int line_ = 0;
};

// Dereferencing a null SmartPtr.
class NullPointerException : public Exception {
public:
    explicit NullPointerException(String message = "null pointer dereferenced") : Exception(std::move(message)) {}
    const char *kind() const noexcept override { return "Core::NullPointerException"; }
};

// A stream that cannot be opened, read or written.
class IOException : public Exception {
public:
    using Exception::Exception;
    const char *kind() const noexcept override { return "Core::IOException"; }
};

// A standard container grew past its limit; carries the container's text.
class LengthException : public Exception {
public:
    using Exception::Exception;
    const char *kind() const noexcept override { return "Core::LengthException"; }
};

// An argument outside the range an operation accepts (parsing numbers and the like).
class ArgumentException : public Exception {
public:
    using Exception::Exception;
    const char *kind() const noexcept override { return "Core::ArgumentException"; }
};

// The engine's log. The default sink writes one line per entry to standard error; a
// host installs its own with `setLogSink` (an empty function restores the default).
using LogSink = std::function<void(const String &line)>;
void setLogSink(LogSink sink);
void log(const String &line);

// Logs and throws `exception` with the location filled in.
template <typename E>
[[noreturn]] void raise(E exception, const char *file, int line)
{
    exception.initCodeLocation(file, line);
    exception.logError();
    throw exception;
}

} // namespace Core

#define FOEDIT_THROW(exception) ::Core::raise((exception), __FILE__, __LINE__)
