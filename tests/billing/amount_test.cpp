#include "billing/amount.h"
#include "platform/utf.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

using namespace hourwright;
using namespace hourwright::billing;
using store::RateType;

namespace {

constexpr TimeRules precise{.preciseMinutes = true};

struct AmountCase {
    std::int32_t duration;
    std::int32_t rate;
    RateType type;
    TimeRules rules;
    double amount;
};

TEST(Amount, IsHoursTimesRateUnlessTheRateIsFixed) {
    const AmountCase cases[] = {
        {350, 25000, RateType::fixed, {}, 250.0},
        {0, 25000, RateType::fixed, precise, 250.0},
        {17, 6000, RateType::fixed, precise, 60.0},
        {150, 4550, RateType::normal, {}, 68.25},
        {150, 4550, RateType::overtime, {}, 68.25},
        {150, 4550, RateType::weekend, {}, 68.25},
        {150, 4550, RateType::discount, precise, 68.25},
        {150, 4550, RateType{9}, {}, 68.25},
        {0, 4550, RateType::normal, {}, 0.0},
        {17, 6000, RateType::normal, precise, 10.0},
        {33, 3000, RateType::normal, precise, 10.0},
        {67, 6000, RateType::normal, precise, 40.0},
        {83, 6000, RateType::normal, precise, 50.0},
        {34, 6000, RateType::normal, precise, 20.400000000000002},
        {17, 6000, RateType::normal, {}, 10.200000000000001},
        {33, 3000, RateType::normal, {}, 9.9},
        {233, 3000, RateType::normal, precise, 69.9},
        {117, 6000, RateType::normal, precise, 70.199999999999989},
    };
    for (const auto& c : cases) {
        store::TimeEntry entry;
        entry.duration = c.duration;
        entry.rate = c.rate;
        entry.rateType = c.type;
        EXPECT_DOUBLE_EQ(amountOf(entry, c.rules), c.amount)
            << c.duration << " at " << c.rate << ", type " << static_cast<int>(c.type)
            << (c.rules.preciseMinutes ? ", precise" : "");
        EXPECT_EQ(rateOf(entry), c.rate / 100.0);
    }
}

struct RateCase {
    std::u16string text;
    std::optional<std::int32_t> stored;
};

TEST(TypedRate, IsCutOffAtHundredths) {
    const RateCase cases[] = {
        {u"12.5", 1250},
        {u"45.559", 4555},
        {u"0.009", 0},
        {u"", 0},
        {u"12,50", 1200},
        {u"$12", 0},
        {u"19.99", 1999},
        {u"21474836.47", 2147483647},
        {u"21474836.48", std::nullopt},
        {u"-0.001", 0},
        {u"-0.01", std::nullopt},
        {u"99999999999999999999", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(rateFromText(c.text), c.stored) << platform::toUtf8(c.text);
}

} // namespace
