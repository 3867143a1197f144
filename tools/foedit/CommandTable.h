#pragma once

#include "ScriptLine.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

class EditorSession;

// What a command gets when it runs: the session to act on, where to print, and the
// line it came from.
struct CommandContext {
    EditorSession &session;
    std::ostream &out;
    const ScriptLine &line;
    bool colour = false; // whether `show` may colour its output
};

// One command of the script language. `usage` is its form for help and messages,
// `summary` one line on what it does.
struct Command {
    std::string name;
    std::string usage;
    std::string summary;
    std::function<void(CommandContext &, const std::string &argument)> run;
};

// The commands by name. New areas of the engine (tables, page layout, templates)
// bring their commands as one more add...Commands function; the runner and the
// interactive prompt need no change.
class CommandTable {
public:
    void add(Command command);
    // Null when there is no such command.
    const Command *find(const std::string &name) const;
    const std::vector<Command> &all() const { return commands; }
    // The known name nearest to `name` by a few typing slips, empty when none is near.
    std::string nearestName(const std::string &name) const;

    // Every command foedit knows.
    static const CommandTable &standard();

private:
    std::vector<Command> commands;
};

// The groups of commands, each in a file of its own.
void addCaretCommands(CommandTable &table);   // find, select, home, end, caret, moves
void addEditingCommands(CommandTable &table); // type, paste, delete, breaks, undo, redo
void addFormatCommands(CommandTable &table);  // format, list
void addSessionCommands(CommandTable &table); // show, expect, save, set, help, keys, quit
