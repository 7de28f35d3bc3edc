#include "platform/number_text.h"
#include "platform/utf.h"

#include <clocale>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace hourwright::platform;

namespace {

struct FixedCase {
    double value;
    int decimals;
    std::string text;
};

TEST(FixedDecimals, WriteWhatPrintfWritesInTheCLocale) {
    const FixedCase cases[] = {
        {0.0, 2, "0.00"},
        {-0.0, 2, "-0.00"},
        {-0.001, 2, "-0.00"},
        {1.5, 2, "1.50"},
        {0.125, 2, "0.12"},
        {0.375, 2, "0.38"},
        {1.005, 2, "1.00"},
        {2.5, 0, "2"},
        {1234567.895, 2, "1234567.90"},
        {0.1, 20, "0.10000000000000000555"},
        {68.25, 2, "68.25"},
        {1e22, 1, "10000000000000000000000.0"},
        {-12.345, 1, "-12.3"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fixedDecimals(c.value, c.decimals), c.text) << c.value << " with " << c.decimals;
        std::u16string wide = u"=";
        appendFixedDecimals(wide, c.value, c.decimals);
        EXPECT_EQ(toUtf8(wide), "=" + c.text) << c.value;
    }
}

TEST(FixedDecimals, HoldTheLargestNumberAndWhatIsNone) {
    EXPECT_EQ(fixedDecimals(-std::numeric_limits<double>::max(), maxDecimals + 1).size(), 1U + 309U + 1U + 64U);
    EXPECT_EQ(fixedDecimals(std::numeric_limits<double>::infinity(), 2), "inf");
    EXPECT_EQ(fixedDecimals(std::numeric_limits<double>::quiet_NaN(), 2), "nan");
}

TEST(FixedDecimals, AgreeWithPrintfOverMixedValues) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "C");
    char expected[64];
    double value = 0.005;
    for (int i = 0; i < 20000; ++i, value = std::fmod(value * 1.6180339887 + 0.37, 1e7)) {
        std::snprintf(expected, sizeof expected, "%.2f", value);
        ASSERT_EQ(fixedDecimals(value, 2), expected) << std::hexfloat << value;
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

struct HundredthsCase {
    std::int64_t value;
    std::string text;
};

TEST(Hundredths, AreWrittenFromTheInteger) {
    const HundredthsCase cases[] = {
        {0, "0.00"},
        {7, "0.07"},
        {-7, "-0.07"},
        {150, "1.50"},
        {-12345, "-123.45"},
        {2147483647, "21474836.47"},
        {std::numeric_limits<std::int64_t>::min(), "-92233720368547758.08"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(hundredths(c.value), c.text);
        std::u16string wide = u"x";
        appendHundredths(wide, c.value);
        EXPECT_EQ(toUtf8(wide), "x" + c.text);
    }
}

TEST(Hundredths, EqualTheDividedDouble) {
    for (std::int64_t value = -70000; value <= 70000; ++value)
        ASSERT_EQ(hundredths(value), fixedDecimals(static_cast<double>(value) / 100.0, 2)) << value;
}

TEST(Integers, AreAppended) {
    std::string text = "a";
    appendInteger(text, -9223372036854775807 - 1);
    EXPECT_EQ(text, "a-9223372036854775808");
    std::u16string wide;
    appendInteger(wide, 4294967295);
    EXPECT_EQ(wide, u"4294967295");
}

struct ParseCase {
    std::u16string text;
    double value;
};

TEST(ParseDecimal, ReadsTheNumberAtTheBeginning) {
    const ParseCase cases[] = {
        {u"1.5", 1.5},   {u" \t\n\v\f\r2", 2.0}, {u"+.5", 0.5},
        {u"-3.", -3.0},  {u"1e2", 100.0},        {u"1E-2x", 0.01},
        {u"5e", 5.0},    {u"5e+", 5.0},          {u"12,50", 12.0},
        {u"1 000", 1.0}, {u"1:30", 1.0},         {u"0x10", 0.0},
        {u"1.5.5", 1.5}, {u"1.5\u00BD", 1.5},    {std::u16string(u"1\0002", 3), 1.0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseDecimal(c.text), c.value) << toUtf8(c.text);
}

TEST(ParseDecimal, IsZeroWithoutANumberAtTheBeginning) {
    for (const std::u16string text : {u"", u" ", u"-", u"+-1", u"--1", u".", u"-.", u".e1", u"e1", u"inf", u"-nan",
                                      u"infinity", u",5", u"$5", u"\u00A05", u"\u0665", u"\uFF11", u"\xD835\xDFCF"})
        EXPECT_EQ(parseDecimal(text), 0.0) << toUtf8(text);
}

TEST(ParseDecimal, ReadsNoFurtherThan64Units) {
    EXPECT_EQ(parseDecimal(std::u16string(63, u' ') + u"12"), 1.0);
    EXPECT_EQ(parseDecimal(std::u16string(64, u' ') + u"12"), 0.0);
    EXPECT_EQ(parseDecimal(u"0." + std::u16string(61, u'0') + u"19"), 1e-62);
}

TEST(ParseDecimal, TellsTooLargeFromTooSmall) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(parseDecimal(u"1e400"), infinity);
    EXPECT_EQ(parseDecimal(u"-1e+400"), -infinity);
    EXPECT_EQ(parseDecimal(u"1e-400"), 0.0);
    EXPECT_EQ(parseDecimal(u"-1.5E-99999999999999999999"), 0.0);
}

} // namespace
