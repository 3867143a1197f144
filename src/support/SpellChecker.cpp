#include "support/SpellChecker.h"

#include <hunspell/hunspell.hxx>

#include <fstream>
#include <set>
#include <unistd.h>

namespace Drawing {

namespace {

// Hunspell takes and gives text in the dictionary's own encoding ("SET" in the .aff
// file); the dictionaries shipped today are UTF-8, and so is everything here.
std::string toDictionary(const Core::String &text)
{
    return text.toUtf8();
}
Core::String fromDictionary(const std::string &text)
{
    return Core::String::fromUtf8(text);
}

bool isReadable(const std::string &path)
{
    return ::access(path.c_str(), R_OK) == 0;
}

// The letters of the affix file's "TRY" line, the ones suggestions are made of.
std::string triedLetters(const std::string &affixPath)
{
    std::ifstream affix(affixPath);
    for (std::string line; std::getline(affix, line);)
        if (line.rfind("TRY ", 0) == 0)
            return line.substr(4);
    return std::string();
}

Core::String wordCharsOf(Hunspell &speller, const std::string &affixPath)
{
    std::set<char16_t> characters;
    for (char16_t c = u'A'; c <= u'Z'; ++c) {
        characters.insert(c);
        characters.insert(static_cast<char16_t>(c + 32));
    }
    for (char16_t c = 0xC0; c <= 0xFF; ++c)
        if (c != 0xD7 && c != 0xF7)
            characters.insert(c);
    // TRY also lists "-" and "." for suggestions; as word characters they would glue
    // "end.Next" into one word, so of its ASCII only letters and the apostrophe count.
    const Core::String tried = fromDictionary(triedLetters(affixPath));
    for (const char16_t c : tried.units())
        if (c >= 0x80 || c == u'\'')
            characters.insert(c);
    const Core::String extra = fromDictionary(speller.get_wordchars_cpp());
    characters.insert(extra.units().begin(), extra.units().end());
    Core::String result;
    for (const char16_t c : characters)
        result += c;
    return result;
}

} // namespace

SpellChecker::SpellChecker(Core::String dictionaryFolder) : folder_(std::move(dictionaryFolder)) {}

SpellChecker::~SpellChecker() = default;

void SpellChecker::syncSpellerMap(std::vector<Core::String> const &dictionaries)
{
    const std::set<Core::String> wanted(dictionaries.begin(), dictionaries.end());
    for (auto it = dictionaries_.begin(); it != dictionaries_.end();)
        it = wanted.count(it->first) ? std::next(it) : dictionaries_.erase(it);
    for (const Core::String &name : wanted) {
        const std::string base = (folder_ + "/" + name).toUtf8();
        const std::string affixPath = base + ".aff";
        const std::string wordsPath = base + ".dic";
        // Hunspell reports a missing file on standard error and carries on empty;
        // checking first keeps an unknown language quiet and out of the map.
        if (name.empty() || dictionaries_.count(name) || !isReadable(affixPath) || !isReadable(wordsPath))
            continue;
        Dictionary &loaded = dictionaries_[name];
        loaded.speller = std::make_unique<Hunspell>(affixPath.c_str(), wordsPath.c_str());
        loaded.wordChars = wordCharsOf(*loaded.speller, affixPath);
    }
}

Core::String SpellChecker::getWordChars(Core::String const &dictionary)
{
    const auto it = dictionaries_.find(dictionary);
    return it == dictionaries_.end() ? Core::String() : it->second.wordChars;
}

SmartPtr<SpellingError> SpellChecker::checkWord(Core::String const &word, Core::String const &dictionary,
                                                int start, int end)
{
    const auto it = dictionaries_.find(dictionary);
    if (it == dictionaries_.end() || word.empty() || it->second.speller->spell(toDictionary(word)))
        return nullptr;
    SmartPtr<SpellingError> error(new SpellingError(start, end));
    error->dictionaries.push_back(dictionary);
    for (const std::string &suggestion : it->second.speller->suggest(toDictionary(word)))
        error->suggestions.push_back(fromDictionary(suggestion));
    return error;
}

} // namespace Drawing
