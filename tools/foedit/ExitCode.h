#pragma once

// What foedit's exit status means. The numbers are part of the tool's interface:
// scripts and CI jobs branch on them, and --help lists them.
enum class ExitCode : int {
    Ok = 0,
    Mismatch = 1,      // an `expect` failed, or `find`/`select` found nothing
    Usage = 2,         // bad command-line options
    ScriptError = 3,   // unknown command or malformed argument in a script line
    DocumentError = 4, // the document or the script cannot be read
    SaveError = 5,     // a save was refused (it would overwrite the input) or failed
    EngineError = 6,   // the engine threw while running a command
};

inline int exitStatus(ExitCode code)
{
    return static_cast<int>(code);
}
