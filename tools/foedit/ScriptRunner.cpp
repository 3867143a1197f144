#include "ScriptRunner.h"

#include "EditorSession.h"
#include "FlowPrinter.h"
#include "ScriptError.h"

#include "support/Exception.h"

#include <ostream>

ScriptRunner::ScriptRunner(EditorSession &target, std::ostream &output, std::ostream &errors,
                           RunSettings runSettings, const CommandTable &commands)
    : session(target), out(output), err(errors), settings(runSettings), table(commands)
{
}

ExitCode ScriptRunner::run(const std::vector<ScriptLine> &lines)
{
    for (const ScriptLine &line : lines) {
        const ExitCode code = runLine(line);
        if (code != ExitCode::Ok || session.quitRequested)
            return code;
    }
    return ExitCode::Ok;
}

ExitCode ScriptRunner::runLine(const ScriptLine &line)
{
    const Command *command = table.find(line.name);
    if (!command) {
        const std::string nearest = table.nearestName(line.name);
        return report(line, ExitCode::ScriptError,
                      "unknown command '" + line.name + "'" +
                          (nearest.empty() ? " (try 'help')" : " (did you mean '" + nearest + "'?)"));
    }
    session.takeNotifications();
    try {
        CommandContext context{session, out, line, settings.colour};
        command->run(context, line.argument);
    } catch (const ScriptError &error) {
        return report(line, error.code(), error.what());
    } catch (const Core::Exception &error) {
        return report(line, ExitCode::EngineError, std::string("the engine failed: ") + error.what());
    } catch (const std::exception &error) {
        return report(line, ExitCode::EngineError, std::string("the engine failed: ") + error.what());
    }
    if (settings.trace)
        trace(line);
    return ExitCode::Ok;
}

void ScriptRunner::trace(const ScriptLine &line)
{
    const std::string heard = session.takeNotifications();
    out << "-- " << line.file << ':' << line.number << ": " << line.name;
    if (!line.argument.empty())
        out << ' ' << line.argument;
    out << "   (caret " << session.document().getCaretPos();
    if (session.document().hasSelectedText())
        out << ", pivot " << session.document().getSelectionPivotPos();
    out << (heard.empty() ? "" : "; heard " + heard) << ")\n";
    const StyledText flow = FlowPrinter::styledFlow(session.document());
    out << (settings.colour ? colouredText(flow) : plainText(flow)) << '\n';
}

ExitCode ScriptRunner::report(const ScriptLine &line, ExitCode code, const std::string &message)
{
    out.flush();
    err << line.file << ':' << line.number << ": " << message << '\n';
    return code;
}
