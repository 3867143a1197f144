#include "CommandLine.h"

#include "CommandTable.h"
#include "ExitCode.h"
#include "ScriptError.h"

#include <sstream>

namespace CommandLine {

namespace {

ScriptError usage(const std::string &message)
{
    return ScriptError(ExitCode::Usage, message + " (see foedit --help)");
}

Options::Colour colourNamed(const std::string &value)
{
    if (value == "auto")
        return Options::Colour::Auto;
    if (value == "always")
        return Options::Colour::Always;
    if (value == "never")
        return Options::Colour::Never;
    throw usage("--color takes never, always or auto, not '" + value + "'");
}

// Places the positional arguments: DOCUMENT then SCRIPT, or only SCRIPT after --sample.
void placePositionals(Options &options, const std::vector<std::string> &positionals, bool sample)
{
    std::size_t next = 0;
    if (!sample && next < positionals.size())
        options.document = positionals[next++];
    if (next < positionals.size())
        options.script = positionals[next++];
    if (next < positionals.size())
        throw usage("too many arguments: '" + positionals[next] + "'");
}

} // namespace

Options parse(const std::vector<std::string> &arguments)
{
    Options options;
    std::vector<std::string> positionals;
    bool sample = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string &argument = arguments[i];
        auto value = [&](const std::string &option) -> std::string {
            if (i + 1 == arguments.size())
                throw usage(option + " needs a value");
            return arguments[++i];
        };
        if (argument == "-h" || argument == "--help")
            options.help = true;
        else if (argument == "--version")
            options.version = true;
        else if (argument == "-i" || argument == "--interactive")
            options.interactive = true;
        else if (argument == "-k" || argument == "--keys")
            options.keys = true;
        else if (argument == "--trace")
            options.trace = true;
        else if (argument == "--overwrite")
            options.overwrite = true;
        else if (argument == "--sample")
            sample = true;
        else if (argument == "-e" || argument == "--command")
            options.commands.push_back(value(argument));
        else if (argument == "-o" || argument == "--output")
            options.output = value(argument);
        else if (argument.rfind("--color=", 0) == 0 || argument.rfind("--colour=", 0) == 0)
            options.colour = colourNamed(argument.substr(argument.find('=') + 1));
        else if (argument == "--") {
            positionals.insert(positionals.end(), arguments.begin() + static_cast<long>(i) + 1,
                               arguments.end());
            break;
        } else if (argument.size() > 1 && argument[0] == '-')
            throw usage("unknown option '" + argument + "'");
        else
            positionals.push_back(argument);
    }
    placePositionals(options, positionals, sample);
    return options;
}

std::string helpText()
{
    std::ostringstream text;
    text << "Usage: foedit [OPTIONS] [DOCUMENT [SCRIPT]]\n"
            "       foedit [OPTIONS] --sample [SCRIPT]\n"
            "\n"
            "Opens an XSL-FO DOCUMENT in the foedit engine and plays host actions on it:\n"
            "the commands of SCRIPT (one per line, '#' starts a comment; '-' reads standard\n"
            "input), then those typed at a prompt (-i) or keys pressed (-k). Without a\n"
            "DOCUMENT the bundled sample letter opens. Without SCRIPT, -e, -i or -k the\n"
            "commands come from standard input, or from a prompt when that is a terminal.\n"
            "\n"
            "Options:\n"
            "  -e, --command CMD   run CMD before the script (may be repeated)\n"
            "  -i, --interactive   then read commands at a prompt, with line editing and history\n"
            "  -k, --keys          then drive the engine with the keyboard (keys mode)\n"
            "  -o, --output FILE   where keys mode saves on Ctrl+S\n"
            "      --trace         print each command and the flow after it\n"
            "      --color=WHEN    colour the flow: auto (on a terminal), always, never\n"
            "      --overwrite     let 'save' write over the input document\n"
            "      --sample        open the bundled sample letter; the one argument is SCRIPT\n"
            "  -h, --help          this text\n"
            "      --version       the version\n"
            "\n"
            "The flow is shown with | at the caret and ^ at the other end of the selection.\n"
            "Typed text takes the escapes \\t (tab), \\n (line feed), \\s (blank), \\\\.\n"
            "\n"
            "Commands:\n";
    for (const Command &command : CommandTable::standard().all())
        text << "  " << command.usage
             << std::string(command.usage.size() < 30 ? 30 - command.usage.size() : 1, ' ') << command.summary
             << '\n';
    text << "\n"
            "Keys mode: arrows, Home, End move (Shift selects, Ctrl by word); printable keys\n"
            "type; Delete, Backspace (Ctrl: a word); Enter; Ctrl+L line break; Ctrl+P select\n"
            "up; Ctrl+Z undo; Ctrl+Y redo; Ctrl+S save to -o FILE; Esc or Ctrl+Q leaves.\n"
            "\n"
            "Exit status:\n"
            "  0  every command ran\n"
            "  1  an 'expect' failed, or 'find'/'select' found nothing\n"
            "  2  bad command-line options\n"
            "  3  unknown command or malformed argument in the script (FILE:LINE on stderr)\n"
            "  4  the document or the script cannot be read\n"
            "  5  a save was refused (it would write over the input document) or failed\n"
            "  6  the engine threw while running a command\n";
    return text.str();
}

} // namespace CommandLine
