#pragma once

#include "ScriptLine.h"

#include <optional>
#include <string>
#include <vector>

// The script language's lines and argument forms. One host action per line; a line
// whose first non-blank character is `#` is a comment, and blank lines are skipped.
namespace ScriptParser {

// Every command line of `text`, numbered from 1 as the file counts them.
std::vector<ScriptLine> parse(const std::string &text, const std::string &file);
// One line; nothing for a comment or a blank line. A carriage return at the end (a
// script saved with CR LF) is dropped.
std::optional<ScriptLine> parseLine(std::string line, const std::string &file, int number);

// Typed text with its escapes resolved: \t tab, \n line feed, \s blank (for a blank
// at the end of a line, which editors drop), \\ backslash. Throws a ScriptError for
// any other escape.
std::string unescape(const std::string &text);
// Words separated by blanks; double quotes keep blanks inside a word and are dropped
// (`font-family="Times New Roman"` is one word). Throws for an unclosed quote.
std::vector<std::string> splitWords(const std::string &text);
// The repeat count of a move: 1 when absent, otherwise a whole number from 1 to
// 100000. Throws for anything else.
int parseCount(const std::string &argument);
// A whole number from 0 up; throws for anything else (and for a number past int).
int parseIndex(const std::string &argument);

// Throws unless `argument` is blank: for commands that take none.
void expectNoArgument(const std::string &command, const std::string &argument);

} // namespace ScriptParser
