#include "App.h"

#include "EditorSession.h"
#include "KeysMode.h"
#include "Prompt.h"
#include "SampleDocument.h"
#include "ScriptError.h"
#include "ScriptParser.h"
#include "ScriptRunner.h"
#include "Terminal.h"

#include "support/Exception.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <unistd.h>

namespace {

std::string readScript(const std::string &path)
{
    std::ostringstream text;
    if (path == "-") {
        text << std::cin.rdbuf();
        return text.str();
    }
    std::ifstream file(path, std::ios::binary);
    if (!file || !(text << file.rdbuf()) || file.bad())
        throw ScriptError(ExitCode::DocumentError, "cannot read the script " + path);
    return text.str();
}

// The -e commands, then the script's.
std::vector<ScriptLine> collectLines(const Options &options)
{
    std::vector<ScriptLine> lines;
    for (std::size_t i = 0; i < options.commands.size(); ++i) {
        if (auto line = ScriptParser::parseLine(options.commands[i], "-e", static_cast<int>(i) + 1))
            lines.push_back(std::move(*line));
    }
    if (options.script) {
        const std::string name = *options.script == "-" ? "stdin" : *options.script;
        for (ScriptLine &line : ScriptParser::parse(readScript(*options.script), name))
            lines.push_back(std::move(line));
    }
    return lines;
}

bool useColour(const Options &options)
{
    switch (options.colour) {
    case Options::Colour::Always:
        return true;
    case Options::Colour::Never:
        return false;
    case Options::Colour::Auto:
        break;
    }
    return Terminal::isTerminal(STDOUT_FILENO) && getenv("NO_COLOR") == nullptr;
}

// With nothing to run, a person at a terminal gets the prompt, and a pipe is a script.
Options withDefaultSource(Options options)
{
    if (!options.script && options.commands.empty() && !options.interactive && !options.keys) {
        if (Terminal::isTerminal(STDIN_FILENO))
            options.interactive = true;
        else
            options.script = "-";
    }
    return options;
}

void openDocument(EditorSession &session, const Options &options)
{
    if (options.document)
        session.open(*options.document);
    else
        session.openText(SampleDocument::letter(), SampleDocument::letterName());
}

// The engine logs each exception it throws. foedit reports those failures itself, in
// the script's terms, so the log shows only under --trace.
class EngineLog {
public:
    EngineLog(bool shown, std::ostream &err)
    {
        Core::setLogSink([shown, &err](const Core::String &line) {
            if (shown)
                err << "engine log: " << line << '\n';
        });
    }
    ~EngineLog() { Core::setLogSink({}); }
    EngineLog(const EngineLog &) = delete;
    EngineLog &operator=(const EngineLog &) = delete;
};

ExitCode runSession(const Options &options, std::ostream &out, std::ostream &err)
{
    EngineLog log(options.trace, err);
    EditorSession session;
    session.overwriteInput = options.overwrite;
    session.outputPath = options.output;
    openDocument(session, options);
    const bool colour = useColour(options);
    const bool terminal = Terminal::isTerminal(STDIN_FILENO) && Terminal::isTerminal(STDOUT_FILENO);
    if (terminal)
        session.enterKeysMode = [&session, &out, colour] {
            KeysMode(session).run(STDIN_FILENO, STDOUT_FILENO, out, colour);
        };
    if (options.keys && !terminal)
        throw ScriptError(ExitCode::Usage, "keys mode (-k) needs a terminal on standard input and output");

    ScriptRunner runner(session, out, err, RunSettings{options.trace, colour});
    const ExitCode scripted = runner.run(collectLines(options));
    if (scripted != ExitCode::Ok || session.quitRequested)
        return scripted;
    if (options.keys)
        session.enterKeysMode();
    if (options.interactive)
        return runPrompt(session, runner, STDIN_FILENO, out);
    return ExitCode::Ok;
}

} // namespace

int runFoedit(const Options &options, std::ostream &out, std::ostream &err)
{
    if (options.help) {
        out << CommandLine::helpText();
        return exitStatus(ExitCode::Ok);
    }
    if (options.version) {
        out << "foedit " FOEDIT_VERSION "\n";
        return exitStatus(ExitCode::Ok);
    }
    try {
        return exitStatus(runSession(withDefaultSource(options), out, err));
    } catch (const ScriptError &error) {
        out.flush();
        err << "foedit: " << error.what() << '\n';
        return exitStatus(error.code());
    }
}
