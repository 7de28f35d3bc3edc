#include "app/setting_values.h"

#include "app/settings_fixture.h"
#include "platform/utf.h"

#include <gtest/gtest.h>

#include <string>

namespace hourwright::app {
namespace {

using test::handheld;

struct Taken {
    std::u16string_view name;
    std::u16string text;
    SettingValue value;
};

TEST(SettingValues, TakesWhatASettingAllows) {
    const Taken cases[] = {
        {u"View", u"4", 4U},
        {u"view", u"1", 1U},
        {u"FSIZE", u"65", 65U},
        {u"MinTime", u"6", 6U},
        {u"MinTime", u"50", 50U},
        {u"TimeInterval", u"0", 0U},
        {u"DefNewStyles", u"0x7FF", 0x7FFU},
        {u"TreeOptions", u"0", 0U},
        {u"AskClose", u"1", 1U},
        {u"HourSymbol", u"65535", 65535U},
        {u"Sort", u"0008", 8U},
        {u"hwVersion", u"310", 310U},
        {u"Custom2", std::u16string(31, u'ü'), std::u16string(31, u'ü')},
        {u"ExpenseCustom1", u"", std::u16string()},
        {u"DefReport4", std::u16string(63, u'r'), std::u16string(63, u'r')},
        {u"ViewCust", u"1,0x2,3,4,5,4294967295", std::u16string(u"1,2,3,4,5,4294967295")},
        {u"PeriodStart", u"2024-02-29", std::u16string(u"2024-02-29")},
        {u"PeriodEnd", u"2026-1-5", std::u16string(u"2026-01-05")},
    };
    for (const Taken& c : cases) {
        SCOPED_TRACE(platform::toUtf8(c.name) + " = " + platform::toUtf8(c.text));
        AppSettings settings(handheld);
        EXPECT_EQ(setSetting(settings, c.name, c.text), SettingRefusal::none);
        const auto value = settingValue(settings, c.name);
        ASSERT_TRUE(value);
        EXPECT_EQ(*value, c.value);
        EXPECT_EQ(setSetting(settings, c.name, settingText(*value)), SettingRefusal::none);
        EXPECT_EQ(settingValue(settings, c.name), c.value);
    }
}

TEST(SettingValues, ADayIsSetWhole) {
    AppSettings settings(handheld);
    settings.periodStart = {.year = 2000, .month = 1, .day = 1, .hour = 5, .milliseconds = 7};
    EXPECT_EQ(setSetting(settings, u"PeriodStart", u"2026-11-16"), SettingRefusal::none);
    EXPECT_TRUE(settings.periodStart == (platform::SystemTime{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16}));
    EXPECT_EQ(setSetting(settings, u"PeriodStart", u""), SettingRefusal::none);
    EXPECT_TRUE(settings.periodStart == platform::SystemTime{});
}

struct RefusedText {
    std::u16string_view name;
    std::u16string text;
    SettingRefusal refusal;
};

TEST(SettingValues, RefusesTheRestAndChangesNothing) {
    using enum SettingRefusal;
    const RefusedText cases[] = {
        {u"NextClient", u"1", unknownName},
        {u"", u"1", unknownName},
        {u"hwVersion", u"309", fixed},
        {u"hwVersion", u"new", wrongKind},
        {u"View", u"0", outOfRange},
        {u"View", u"5", outOfRange},
        {u"ExpListStyle", u"3", outOfRange},
        {u"FSize", u"66", outOfRange},
        {u"HourSymbol", u"70000", outOfRange},
        {u"HourSymbol", u"-1", outOfRange},
        {u"HourSymbol", u"99999999999", outOfRange},
        {u"MinTime", u"0", outOfRange},
        {u"MinTime", u"25", outOfRange},
        {u"TimeInterval", u"5", outOfRange},
        {u"DefNewStyles", u"2048", outOfRange},
        {u"TreeOptions", u"0x20", outOfRange},
        {u"AskClose", u"2", outOfRange},
        {u"Encoding", u"6", outOfRange},
        {u"BreakSub", u"4", outOfRange},
        {u"Sort", u"9", outOfRange},
        {u"BreakOption", u"2", outOfRange},
        {u"MinTime", u"", wrongKind},
        {u"MinTime", u" 15", wrongKind},
        {u"MinTime", u"15min", wrongKind},
        {u"MinTime", u"１５", wrongKind}, // full-width digits
        {u"AskClose", u"yes", wrongKind},
        {u"DefNewStyles", u"0x", wrongKind},
        {u"Custom1", std::u16string(32, u'x'), tooLong},
        {u"DefCurr", std::u16string(16, u'x'), tooLong},
        {u"DefReport0", std::u16string(64, u'x'), tooLong},
        {u"DbPath", std::u16string(260, u'x'), tooLong},
        {u"DbPath", std::u16string(u"/a\0b", 4), wrongKind},
        {u"ViewCust", u"1,2,3,4,5", wrongKind},
        {u"ViewCust", u"1,2,3,4,5,6,7", wrongKind},
        {u"ViewCust", u"1,2,,4,5,6", wrongKind},
        {u"ViewCust", u"1,2,3,4,5,4294967296", outOfRange},
        {u"PeriodStart", u"today", wrongKind},
        {u"PeriodStart", u"2026-11", wrongKind},
        {u"PeriodStart", u"2026-11-16-1", wrongKind},
        {u"PeriodStart", u"2026-02-29", outOfRange},
        {u"PeriodEnd", u"1600-12-31", outOfRange},
        {u"PeriodEnd", u"67562-11-16", outOfRange}, // 2026 in sixteen bits
    };
    for (const RefusedText& c : cases) {
        AppSettings settings(handheld);
        EXPECT_EQ(setSetting(settings, c.name, c.text), c.refusal)
            << platform::toUtf8(c.name) << " = " << platform::toUtf8(c.text);
        EXPECT_TRUE(settings == AppSettings(handheld)) << platform::toUtf8(c.name);
    }
    EXPECT_FALSE(settingValue(AppSettings(handheld), u"NextClient"));
}

} // namespace
} // namespace hourwright::app
