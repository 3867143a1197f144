#pragma once

#include "CommandLine.h"

#include <iosfwd>

// foedit as a whole, behind main(): opens the document, runs the commands of -e and
// the script, then the prompt or keys mode, and gives the exit status.
int runFoedit(const Options &options, std::ostream &out, std::ostream &err);
