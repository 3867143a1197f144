#pragma once

#include <string>

// One command of a script: `name argument`, where the argument is the rest of the
// line after the one blank behind the name, kept exactly as written (typed text may
// begin with blanks). `file` and `number` say where it stood, for messages.
struct ScriptLine {
    std::string file;
    int number = 0;
    std::string name;
    std::string argument;
};
