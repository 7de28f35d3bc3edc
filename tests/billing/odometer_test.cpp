#include "billing/odometer.h"

#include "platform/utf.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

constexpr std::uint32_t largest = 4'294'967'295;

TEST(Odometer, readingsKeepEachOtherConsistent) {
    Odometer odometer(1000, 50);
    EXPECT_EQ(odometer.end(), 1050U);
    ASSERT_TRUE(odometer.setStart(1200));
    EXPECT_EQ(odometer, Odometer(1200, 50));
    ASSERT_TRUE(odometer.setEnd(1300));
    EXPECT_EQ(odometer, Odometer(1200, 100));
    ASSERT_TRUE(odometer.setDistance(7));
    EXPECT_EQ(odometer.end(), 1207U);
    ASSERT_TRUE(odometer.setEnd(1200));
    EXPECT_EQ(odometer, Odometer(1200, 0));
}

TEST(Odometer, refusesWhatIsNoReading) {
    Odometer odometer(1000, 50);
    EXPECT_FALSE(odometer.setEnd(999));
    EXPECT_FALSE(odometer.setStart(largest - 49));
    EXPECT_FALSE(odometer.setDistance(largest - 999));
    EXPECT_EQ(odometer, Odometer(1000, 50));
    EXPECT_TRUE(odometer.setStart(largest - 50));
    EXPECT_EQ(odometer.end(), largest);
    EXPECT_EQ(Odometer(largest, largest).end(), 8'589'934'590U);
}

TEST(Odometer, textIsAWholeNumber) {
    struct Row {
        std::u16string text;
        std::optional<std::uint32_t> number;
    };
    const Row rows[] = {
        {u"", 0},
        {u"  ", 0},
        {u" 120 ", 120},
        {u"0007", 7},
        {u"4294967295", largest},
        {u"4294967296", {}},
        {u"99999999999999999999999", {}},
        {u"-1", {}},
        {u"1.5", {}},
        {u"1 000", {}},
        {u"12a", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(odometerFromText(row.text), row.number) << platform::printableUtf8(row.text);
}

} // namespace

} // namespace hourwright::billing
