#pragma once

#include <optional>
#include <string>
#include <vector>

// foedit's command line.
struct Options {
    std::optional<std::string> document; // none: the bundled sample letter
    std::optional<std::string> script;   // "-" is standard input
    std::vector<std::string> commands;   // -e, run before the script
    bool interactive = false;
    bool keys = false;
    bool trace = false;
    enum class Colour { Auto, Always, Never } colour = Colour::Auto;
    bool overwrite = false;
    std::string output; // where keys mode saves
    bool help = false;
    bool version = false;
};

namespace CommandLine {

// Throws a ScriptError (Usage) for an unknown option, a missing option value or too
// many arguments.
Options parse(const std::vector<std::string> &arguments);
// The --help text: usage, options, script commands, exit codes.
std::string helpText();

} // namespace CommandLine
