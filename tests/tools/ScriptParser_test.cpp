#include "ScriptError.h"
#include "ScriptParser.h"

#include <gtest/gtest.h>

using namespace ScriptParser;

TEST(ScriptParser, CommentsAndBlankLinesAreSkippedButCounted)
{
    const auto lines = parse("# a tour\n\n  home\r\n\t# indented comment\ntype  two blanks\n", "t.fes");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].name, "home");
    EXPECT_EQ(lines[0].number, 3);
    EXPECT_EQ(lines[0].argument, "");
    EXPECT_EQ(lines[1].number, 5);
    // One blank separates the name; the typed text keeps the second.
    EXPECT_EQ(lines[1].argument, " two blanks");
    EXPECT_EQ(lines[1].file, "t.fes");
}

TEST(ScriptParser, AHashInsideTypedTextIsText)
{
    const auto line = parseLine("type #1 of 3", "t.fes", 1);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->argument, "#1 of 3");
}

TEST(ScriptParser, EscapesAndTheirErrors)
{
    EXPECT_EQ(unescape(R"(a\tb\nc\sd\\e)"), "a\tb\nc d\\e");
    EXPECT_EQ(unescape("&#x00A0;<fo:block/>"), "&#x00A0;<fo:block/>");
    EXPECT_THROW(unescape(R"(a\q)"), ScriptError);
    EXPECT_THROW(unescape("ends in \\"), ScriptError);
}

TEST(ScriptParser, WordsKeepQuotedBlanks)
{
    EXPECT_EQ(splitWords(R"(  font-family="Times New Roman"   color=red )"),
              (std::vector<std::string>{"font-family=Times New Roman", "color=red"}));
    EXPECT_EQ(splitWords(R"(out.fo "")"), (std::vector<std::string>{"out.fo", ""}));
    EXPECT_THROW(splitWords(R"(font-family="Times)"), ScriptError);
}

TEST(ScriptParser, CountsAndPositions)
{
    EXPECT_EQ(parseCount(""), 1);
    EXPECT_EQ(parseCount(" 12 "), 12);
    for (const char *bad : {"0", "-1", "3x", "100001", "99999999999999999999"})
        EXPECT_THROW(parseCount(bad), ScriptError) << bad;
    EXPECT_EQ(parseIndex("0"), 0);
    EXPECT_THROW(parseIndex(""), ScriptError);
    EXPECT_THROW(parseIndex("4294967296"), ScriptError);
}
