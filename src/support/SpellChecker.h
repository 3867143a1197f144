#pragma once

#include "support/Object.h"
#include "support/SmartPtr.h"
#include "support/SpellingError.h"
#include "support/String.h"

#include <map>
#include <memory>
#include <vector>

class Hunspell;

namespace Drawing {

// The document's spelling service, over Hunspell. Dictionaries are named by language
// code ("en_US") and loaded from `<folder>/<code>.aff` and `<folder>/<code>.dic`.
// A dictionary that is not loaded, or cannot be, accepts every word.
class SpellChecker : public Core::Object {
public:
    explicit SpellChecker(Core::String dictionaryFolder = "/usr/share/hunspell");
    ~SpellChecker() override;
    SpellChecker(const SpellChecker &) = delete;
    SpellChecker &operator=(const SpellChecker &) = delete;

    // Loads the dictionaries named and drops every other one.
    void syncSpellerMap(std::vector<Core::String> const &dictionaries);

    // The characters that can be part of a word in `dictionary`: the letters of
    // Latin-1, the letters the dictionary tries in suggestions and its extra word
    // characters (such as digits and the apostrophe). Empty for a dictionary that is not loaded.
    Core::String getWordChars(Core::String const &dictionary);

    // Null when `word` is right in `dictionary` (or that dictionary is not loaded);
    // otherwise an error spanning `start`..`end` with the dictionary's suggestions.
    SmartPtr<SpellingError> checkWord(Core::String const &word, Core::String const &dictionary, int start,
                                      int end);

    bool hasDictionary(Core::String const &dictionary) const { return dictionaries_.count(dictionary) != 0; }

private:
    struct Dictionary {
        std::unique_ptr<Hunspell> speller;
        Core::String wordChars;
    };

    Core::String folder_;
    std::map<Core::String, Dictionary> dictionaries_;
};

} // namespace Drawing
