// foedit: the command-line host of the editing engine. See App.h, or foedit --help.
#include "App.h"
#include "ScriptError.h"

#include <iostream>

int main(int argc, char **argv)
{
    try {
        const Options options = CommandLine::parse(std::vector<std::string>(argv + 1, argv + argc));
        return runFoedit(options, std::cout, std::cerr);
    } catch (const ScriptError &error) {
        std::cerr << "foedit: " << error.what() << '\n';
        return exitStatus(error.code());
    }
}
