#include "ScriptParser.h"

#include "ScriptError.h"

#include <charconv>

namespace ScriptParser {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string trimmed(const std::string &text)
{
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && isBlank(text[first]))
        ++first;
    while (last > first && isBlank(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

// A whole decimal number in [low, high], or nothing.
std::optional<int> wholeNumber(const std::string &text, int low, int high)
{
    const std::string word = trimmed(text);
    long long value = 0;
    const char *end = word.data() + word.size();
    auto [stop, error] = std::from_chars(word.data(), end, value);
    if (word.empty() || error != std::errc() || stop != end || value < low || value > high)
        return std::nullopt;
    return static_cast<int>(value);
}

} // namespace

std::optional<ScriptLine> parseLine(std::string line, const std::string &file, int number)
{
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    std::size_t start = 0;
    while (start < line.size() && isBlank(line[start]))
        ++start;
    if (start == line.size() || line[start] == '#')
        return std::nullopt;
    std::size_t nameEnd = start;
    while (nameEnd < line.size() && !isBlank(line[nameEnd]))
        ++nameEnd;
    ScriptLine result;
    result.file = file;
    result.number = number;
    result.name = line.substr(start, nameEnd - start);
    // One blank separates the name; whatever follows, blanks included, is the argument.
    if (nameEnd < line.size())
        result.argument = line.substr(nameEnd + 1);
    return result;
}

std::vector<ScriptLine> parse(const std::string &text, const std::string &file)
{
    std::vector<ScriptLine> lines;
    std::size_t lineStart = 0;
    for (int number = 1; lineStart <= text.size(); ++number) {
        std::size_t lineEnd = text.find('\n', lineStart);
        if (lineEnd == std::string::npos)
            lineEnd = text.size();
        if (auto line = parseLine(text.substr(lineStart, lineEnd - lineStart), file, number))
            lines.push_back(std::move(*line));
        lineStart = lineEnd + 1;
    }
    return lines;
}

std::string unescape(const std::string &text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        if (++i == text.size())
            throw malformed("a backslash ends the text; write \\\\ for a backslash");
        switch (text[i]) {
        case 't':
            result += '\t';
            break;
        case 'n':
            result += '\n';
            break;
        case 's':
            result += ' ';
            break;
        case '\\':
            result += '\\';
            break;
        default:
            throw malformed(std::string("unknown escape \\") + text[i] + " (known: \\t \\n \\s \\\\)");
        }
    }
    return result;
}

std::vector<std::string> splitWords(const std::string &text)
{
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    bool quoted = false;
    for (char c : text) {
        if (c == '"') {
            quoted = !quoted;
            inWord = true;
        } else if (isBlank(c) && !quoted) {
            if (inWord)
                words.push_back(word);
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (quoted)
        throw malformed("a double quote is not closed");
    if (inWord)
        words.push_back(word);
    return words;
}

int parseCount(const std::string &argument)
{
    if (trimmed(argument).empty())
        return 1;
    if (auto count = wholeNumber(argument, 1, 100000))
        return *count;
    throw malformed("'" + trimmed(argument) + "' is no count (a whole number from 1 to 100000)");
}

int parseIndex(const std::string &argument)
{
    if (auto index = wholeNumber(argument, 0, 0x7fffffff))
        return *index;
    throw malformed("'" + trimmed(argument) + "' is no position (a whole number from 0 up)");
}

void expectNoArgument(const std::string &command, const std::string &argument)
{
    if (!trimmed(argument).empty())
        throw malformed(command + " takes no argument");
}

} // namespace ScriptParser
