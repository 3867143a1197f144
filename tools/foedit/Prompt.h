#pragma once

#include "ExitCode.h"

#include <iosfwd>

class EditorSession;
class ScriptRunner;

// The interactive prompt: commands typed one per line and run at once, until `quit`
// or the end of the input. On a terminal the line can be edited and Up and Down
// recall earlier lines; from a pipe the lines are read as they come. A failing
// command is reported and the prompt goes on.
ExitCode runPrompt(EditorSession &session, ScriptRunner &runner, int inFd, std::ostream &out);
