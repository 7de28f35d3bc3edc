#include "app/settings_rules.h"

#include "app/export_options.h"
#include "app/list_style.h"
#include "app/settings_fixture.h"

#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using test::handheld;

TEST(SettingsRules, TimeRulesFollowFlagsAndGranularity) {
    struct Case {
        std::uint32_t flags;
        std::uint16_t minTime;
        billing::TimeRules rules;
    };
    const Case cases[] = {
        {0x000, 15, {false, false, 15}}, {0x020, 6, {true, false, 6}},    {0x080, 50, {false, true, 50}},
        {0x0A0, 0, {true, true, 0}},     {0x75F, 20, {false, false, 20}},
    };
    for (const Case& c : cases) {
        AppSettings settings(handheld);
        settings.styleFlags = StyleFlags{c.flags};
        settings.minTime = c.minTime;
        EXPECT_TRUE(timeRules(settings) == c.rules) << c.flags;
    }
}

TEST(SettingsRules, PeriodsFollowTheSettings) {
    const platform::SystemTime wednesday{.year = 2026, .month = 11, .day = 18};
    AppSettings settings(handheld);
    EXPECT_EQ(periodOf(settings, PeriodKind::week, wednesday)->currentDate().day, 15);
    settings.styleFlags.set(StyleFlag::weekStartsMonday);
    EXPECT_EQ(periodOf(settings, PeriodKind::week, wednesday)->currentDate().day, 16);

    EXPECT_FALSE(periodOf(settings, PeriodKind::custom, wednesday));
    settings.periodStart = {.year = 2026, .month = 11, .day = 2};
    settings.periodEnd = {.year = 2026, .month = 11, .day = 5};
    EXPECT_TRUE(periodOf(settings, PeriodKind::custom, wednesday) ==
                Period::custom(settings.periodStart, settings.periodEnd));
}

TEST(SettingsRules, IndexesOutsideTheirListReadAsTheDefault) {
    EXPECT_EQ(listStyle(1), ListStyle::simple);
    EXPECT_EQ(listStyle(2), ListStyle::tree);
    EXPECT_EQ(listStyle(3), ListStyle::standard);
    EXPECT_EQ(xmlEncoding(5), XmlEncoding::shiftJis);
    EXPECT_EQ(xmlEncoding(6), XmlEncoding::unnamed);
    EXPECT_EQ(lineBreakSubstitute(4), u" ");
}

TEST(ExportOptions, HaveTheirTexts) {
    const std::u16string_view names[] = {u"", u"UTF-8", u"UTF-16", u"ISO-8859-1", u"Big-5", u"Shift-JIS"};
    for (std::uint32_t i = 0; i < std::size(names); ++i)
        EXPECT_EQ(declaredName(xmlEncoding(i)), names[i]) << i;
    const std::u16string_view substitutes[] = {u" ", u"  ", u"~`", u"|"};
    for (std::uint32_t i = 0; i < std::size(substitutes); ++i)
        EXPECT_EQ(lineBreakSubstitute(i), substitutes[i]) << i;
}

TEST(Fonts, FollowSizeBoldAndClearType) {
    AppSettings settings(handheld);
    struct Case {
        std::uint16_t size;
        bool bold;
        bool clearType;
        FontDescription font;
    };
    const Case cases[] = {
        {0, true, false, {u"Tahoma", 70, 700, FontQuality::standard, 204}},
        {1, false, true, {u"Tahoma", 80, 400, FontQuality::clearTypeNatural, 204}},
        {65535, false, false, {u"Tahoma", 655420, 400, FontQuality::standard, 204}},
    };
    for (const Case& c : cases) {
        settings.fontSize = c.size;
        settings.styleFlags.set(StyleFlag::boldList, c.bold);
        EXPECT_TRUE(settings.createListFont(204, c.clearType) == c.font) << c.size;
    }
    EXPECT_TRUE(dialogFont(true) == (FontDescription{u"Tahoma", 80, 400, FontQuality::clearTypeNatural, 0}));
    EXPECT_TRUE(captionFont(true) == (FontDescription{u"Tahoma", 80, 700, FontQuality::clearType, 0}));
    EXPECT_TRUE(captionFont(false) == (FontDescription{u"Tahoma", 80, 700, FontQuality::standard, 0}));
    EXPECT_EQ(static_cast<int>(FontQuality::clearType), 5);
    EXPECT_EQ(static_cast<int>(FontQuality::clearTypeNatural), 6);
}

TEST(Fonts, ClearTypeIsOnOnlyForOne) {
    test::MemoryRegistry registry;
    EXPECT_FALSE(clearTypeOn(registry));
    const auto shell = registry.create(u"Software\\Microsoft\\Shell");
    EXPECT_FALSE(clearTypeOn(registry));
    shell->writeDword(u"ClearType", 2);
    EXPECT_FALSE(clearTypeOn(registry));
    shell->writeDword(u"ClearType", 1);
    EXPECT_TRUE(clearTypeOn(registry));
    shell->writeString(u"ClearType", u"1");
    EXPECT_FALSE(clearTypeOn(registry));
}

} // namespace
} // namespace hourwright::app
