#pragma once

#include "ExitCode.h"

#include <stdexcept>
#include <string>

// A command that cannot run, or ran and found the document other than the script
// said. The runner adds the script's file and line when it reports it.
class ScriptError : public std::runtime_error {
public:
    ScriptError(ExitCode code, const std::string &message) : std::runtime_error(message), code_(code) {}
    ExitCode code() const noexcept { return code_; }

private:
    ExitCode code_;
};

// The argument of a command is missing or does not have the form the command takes.
inline ScriptError malformed(const std::string &message)
{
    return ScriptError(ExitCode::ScriptError, message);
}
