#include "support/String.h"
#include "support/WhiteSpace.h"

#include <gtest/gtest.h>

using Core::String;

TEST(StringTest, SubStringIncludesItsEndAndIsEmptyWhenReversed)
{
    const String s = "fo:block";
    EXPECT_EQ(s.subString(0, 1), "fo");
    EXPECT_EQ(s.subString(3, 7), "block");
    EXPECT_EQ(s.subString(3, 2), "");
    EXPECT_EQ(s.subString(5, 100), "ock"); // clipped, never out of range
    EXPECT_EQ(s.subString(-4, 1), "fo");
}

TEST(StringTest, FindGivesLowestAtOrAfterAndMinusOne)
{
    const String s = "<a><b></b></a>";
    EXPECT_EQ(s.find('<', 0), 0);
    EXPECT_EQ(s.find('<', 1), 3);
    EXPECT_EQ(s.find("</", 0), 6);
    EXPECT_EQ(s.find(u"</a>", 0), 10);
    EXPECT_EQ(s.find(String("</b>"), 7), -1);
    EXPECT_EQ(s.find('x', 0), -1);
    EXPECT_EQ(s.find('<', 99), -1);
}

TEST(StringTest, RFindIncludesItsStart)
{
    const String s = "<a><b></b></a>";
    EXPECT_EQ(s.rFind('<', 3), 3);
    EXPECT_EQ(s.rFind('<', 2), 0);
    EXPECT_EQ(s.rFind("</", 6), 6);
    EXPECT_EQ(s.rFind("</", 5), -1);
    EXPECT_EQ(s.rFind(u"<b>", 13), 3);
    EXPECT_EQ(s.rFind('<', -1), -1);
    EXPECT_EQ(s.rFind('>', 1000), 13);
}

TEST(StringTest, IndexOutsideReadsZero)
{
    const String s = "ab";
    EXPECT_EQ(s[-1], u'\0');
    EXPECT_EQ(s[2], u'\0');
    EXPECT_EQ(s[1], u'b');
}

TEST(StringTest, Utf8RoundTripKeepsSurrogatePairs)
{
    const String s = "caf\xC3\xA9 \xF0\x9F\x98\x80";
    EXPECT_EQ(s.length(), 7); // the emoji takes two code units
    EXPECT_EQ(s.toUtf8(), "caf\xC3\xA9 \xF0\x9F\x98\x80");
    EXPECT_EQ(String("\xFF").units(), u"\uFFFD"); // bad UTF-8 never throws
}

TEST(StringTest, EditsInPlace)
{
    String s = "a&b&c";
    s.replaceAll("&", "&amp;");
    EXPECT_EQ(s, "a&amp;b&amp;c");
    s.erase(1, 5).insert(0, "<").replace(2, 1, "B");
    EXPECT_EQ(s, "<aB&amp;c");
    EXPECT_EQ(String("  x\u00A0").trim(), "x");
    EXPECT_EQ(String("AbC").toLower(), "abc");
    EXPECT_EQ(String("AbC").toUpper(), "ABC");
    EXPECT_EQ(String("abc").reverse(), "cba");
    EXPECT_EQ(String("key=value").substringBefore("="), "key");
    EXPECT_EQ(String("key=value").substringAfter("="), "value");
    EXPECT_TRUE(String("0123").isDigit());
    EXPECT_FALSE(String("").isDigit());
    EXPECT_FALSE(String("1a").isDigit());
}

TEST(StringTest, FormatFillsPositionalArguments)
{
    EXPECT_EQ(String::formatS("{1} of {0}", "ten", "one"), "one of ten");
    EXPECT_EQ(String::formatS("{0}{2}", "a"), "a{2}");
}

TEST(WhiteSpaceTest, CountsNoBreakSpaceWhateverTheLocale)
{
    EXPECT_TRUE(Core::iswspace(u' '));
    EXPECT_TRUE(Core::iswspace(u'\t'));
    EXPECT_TRUE(Core::iswspace(u'\n'));
    EXPECT_TRUE(Core::iswspace(0xA0));
    EXPECT_FALSE(Core::isPlainWhiteSpace(0xA0));
    EXPECT_FALSE(Core::iswspace(u'a'));
    EXPECT_FALSE(Core::iswspace(u'&'));
}
