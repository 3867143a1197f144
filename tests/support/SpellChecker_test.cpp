#include "support/SpellChecker.h"

#include <gtest/gtest.h>

#include <algorithm>

using Drawing::SpellChecker;

TEST(SpellCheckerTest, ChecksWordsAgainstLoadedDictionariesOnly)
{
    SmartPtr<SpellChecker> checker(new SpellChecker());
    EXPECT_EQ(checker->checkWord("teh", "en_US", 4, 7), nullptr); // nothing loaded yet

    checker->syncSpellerMap({"en_US", "xx_NONE"});
    ASSERT_TRUE(checker->hasDictionary("en_US"));
    EXPECT_FALSE(checker->hasDictionary("xx_NONE"));

    EXPECT_EQ(checker->checkWord("house", "en_US", 0, 5), nullptr);
    EXPECT_EQ(checker->checkWord("don't", "en_US", 0, 5), nullptr);
    SmartPtr<Drawing::SpellingError> error = checker->checkWord("teh", "en_US", 4, 7);
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->start, 4);
    EXPECT_EQ(error->end, 7);
    const auto &suggestions = error->suggestions;
    EXPECT_NE(std::find(suggestions.begin(), suggestions.end(), Core::String("the")), suggestions.end());

    checker->syncSpellerMap({});
    EXPECT_FALSE(checker->hasDictionary("en_US"));
    EXPECT_EQ(checker->checkWord("teh", "en_US", 4, 7), nullptr);
}

TEST(SpellCheckerTest, WordCharsHoldLettersAndApostropheButNoPunctuation)
{
    SmartPtr<SpellChecker> checker(new SpellChecker());
    checker->syncSpellerMap({"en_US"});
    const Core::String chars = checker->getWordChars("en_US");
    for (const char *c : {"a", "Z", "\xC3\xA9", "'", "7"})
        EXPECT_TRUE(chars.contains(c)) << c;
    for (const char *c : {" ", ".", "-", "<", "&", ";"})
        EXPECT_FALSE(chars.contains(c)) << c;
    EXPECT_EQ(checker->getWordChars("de_DE"), "");
}
