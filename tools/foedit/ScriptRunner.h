#pragma once

#include "CommandTable.h"
#include "ExitCode.h"
#include "ScriptLine.h"

#include <iosfwd>
#include <vector>

class EditorSession;

struct RunSettings {
    bool trace = false;  // print each command and the flow after it
    bool colour = false; // colour what `show` and the trace print
};

// Runs script lines against a session. Output of the commands goes to `out`; a
// failing line is reported on `err` as "FILE:LINE: message".
class ScriptRunner {
public:
    ScriptRunner(EditorSession &target, std::ostream &output, std::ostream &errors,
                 RunSettings runSettings = {}, const CommandTable &commands = CommandTable::standard());

    // Runs the lines in order and stops at the first that fails, or at `quit`. Gives
    // that line's exit code, or Ok.
    ExitCode run(const std::vector<ScriptLine> &lines);
    // One line; the failure is reported before its code is returned.
    ExitCode runLine(const ScriptLine &line);

private:
    void trace(const ScriptLine &line);
    ExitCode report(const ScriptLine &line, ExitCode code, const std::string &message);

    EditorSession &session;
    std::ostream &out;
    std::ostream &err;
    RunSettings settings;
    const CommandTable &table;
};
