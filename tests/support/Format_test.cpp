#include "support/Format.h"

#include <gtest/gtest.h>

using Core::Format;
using Core::String;

TEST(FormatTest, LenientParseIntReadsTheLeadingNumber)
{
    EXPECT_EQ(Format::parseInt("12"), 12);
    EXPECT_EQ(Format::parseInt("  -7"), -7);
    EXPECT_EQ(Format::parseInt("3)"), 3); // a list label
    EXPECT_EQ(Format::parseInt("x"), 0);
    EXPECT_EQ(Format::parseInt(""), 0);
    EXPECT_EQ(Format::parseInt("99999999999999999999"), 2147483647);
    EXPECT_EQ(Format::parseInt("-99999999999999999999"), -2147483648LL);
}

TEST(FormatTest, StrictParseIntRefusesOtherCharactersAndKeepsTheTarget)
{
    int value = 42;
    EXPECT_TRUE(Format::parseInt(" 17 ", value));
    EXPECT_EQ(value, 17);
    EXPECT_TRUE(Format::parseInt("+5", value));
    EXPECT_EQ(value, 5);
    EXPECT_TRUE(Format::parseInt("-0", value));
    EXPECT_EQ(value, 0);

    value = 42;
    for (const char *text : {"", " ", "1)", "1 2", "&#x2022;", "1.5", "+-1", "2147483648", "\xD9\xA3"})
        EXPECT_FALSE(Format::parseInt(text, value)) << text;
    EXPECT_EQ(value, 42);
    EXPECT_FALSE(Format::parseInt(String(u"1\u00A0"), value)); // a placeholder is not a blank here
}

TEST(FormatTest, ParseFloatTakesDecimalNumbersOnly)
{
    float value = -1;
    EXPECT_TRUE(Format::parseFloat("33.5", value));
    EXPECT_FLOAT_EQ(value, 33.5f);
    EXPECT_TRUE(Format::parseFloat(" +.25 ", value));
    EXPECT_FLOAT_EQ(value, 0.25f);
    EXPECT_TRUE(Format::parseFloat("1e2", value));
    EXPECT_FLOAT_EQ(value, 100.0f);

    value = -1;
    for (const char *text : {"", "inf", "nan", "-infinity", "12pt", "1e", "50%", "1e99"})
        EXPECT_FALSE(Format::parseFloat(text, value)) << text;
    EXPECT_FLOAT_EQ(value, -1.0f);
}

TEST(FormatTest, FormatValueReadsBackAndHasNoNegativeZero)
{
    EXPECT_EQ(Format::formatValue(25.0f, ""), "25");
    EXPECT_EQ(Format::formatValue(-0.0f, ""), "0");
    EXPECT_EQ(Format::formatValue(-0.001f, "F2"), "0.00");
    EXPECT_EQ(Format::formatValue(2.5f, "f1"), "2.5");
    EXPECT_EQ(Format::formatValue(1.0f / 0.0f, ""), "0");

    // Widths that share out 100% must read back exactly as they were printed.
    const float third = 100.0f / 3.0f;
    float back = 0;
    ASSERT_TRUE(Format::parseFloat(Format::formatValue(third, ""), back));
    EXPECT_EQ(back, third);
}

TEST(FormatTest, FormatTakesStringsAndNumbers)
{
    EXPECT_EQ(Format::format("ComplexMaster{0}", 3), "ComplexMaster3");
    EXPECT_EQ(Format::format("{0}</{1}>", String("<a>x"), "a"), "<a>x</a>");
    EXPECT_EQ(Format::format("{0})", 10), "10)");
}

TEST(FormatTest, StringHelpersOfListNumbering)
{
    EXPECT_TRUE(String::isDigit(L'7'));
    EXPECT_FALSE(String::isDigit(L'\x0663')); // an Arabic-Indic digit is no decimal digit here
    EXPECT_EQ(String("ab123)").reverse(2, 4), "ab321)");
    EXPECT_EQ(String("abc").reverse(-5, 99), "cba");
    EXPECT_EQ(String("abc").reverse(2, 1), "abc");
    EXPECT_EQ(String::format(String::loadString(19600), {"Letter Page"}),
              "This page shows the page master \"Letter Page\".");
    EXPECT_EQ(String::loadString(1), "");
}
