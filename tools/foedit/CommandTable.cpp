#include "CommandTable.h"

#include <algorithm>

namespace {

// Levenshtein distance, for suggesting a command after a typing slip.
std::size_t editDistance(const std::string &a, const std::string &b)
{
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

} // namespace

void CommandTable::add(Command command)
{
    commands.push_back(std::move(command));
}

const Command *CommandTable::find(const std::string &name) const
{
    for (const Command &command : commands) {
        if (command.name == name)
            return &command;
    }
    return nullptr;
}

std::string CommandTable::nearestName(const std::string &name) const
{
    std::string nearest;
    std::size_t best = 3; // more slips than two is another word
    for (const Command &command : commands) {
        const std::size_t distance = editDistance(name, command.name);
        if (distance < best) {
            best = distance;
            nearest = command.name;
        }
    }
    return nearest;
}

const CommandTable &CommandTable::standard()
{
    static const CommandTable table = [] {
        CommandTable made;
        addCaretCommands(made);
        addEditingCommands(made);
        addFormatCommands(made);
        addSessionCommands(made);
        return made;
    }();
    return table;
}
