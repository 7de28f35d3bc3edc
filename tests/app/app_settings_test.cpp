#include "app/app_settings.h"

#include "app/setting_values.h"
#include "app/settings_fixture.h"
#include "platform/utf.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace hourwright::app {
namespace {

using platform::RegistryType;
using test::handheld;
using test::SettingsRegistry;

template<typename Text>
Text textOf(std::u16string_view text) {
    Text result;
    EXPECT_TRUE(result.assign(text));
    return result;
}

/// Settings that differ from the defaults in every member.
AppSettings everythingChanged() {
    AppSettings s(handheld);
    s.view = 1;
    s.expView = 4;
    s.fontSize = 3;
    s.minTime = 45;
    s.listStyle = 2;
    s.expListStyle = 1;
    s.viewCustom = {1, 0x80000002, 3, 4, 5, 0xFFFFFFFF};
    s.custom1Label = textOf<Caption>(u"Kostenträger mit 31 Zeichen ...");
    s.custom2Label = textOf<Caption>(u"");
    s.custom3Label = textOf<Caption>(u"C3");
    s.expenseCustom1Label = textOf<Caption>(u"E1");
    s.expenseCustom2Label = textOf<Caption>(u"E2");
    s.defaultCurrency = textOf<CurrencyCode>(u"EUR");
    s.encoding = 2;
    s.breakSubstitute = 3;
    s.timeInterval = 4;
    s.sort = 8;
    for (std::size_t i = 0; i < s.defaultReports.size(); ++i)
        s.defaultReports[i] = textOf<ReportName>(u"Report " + std::u16string(1, static_cast<char16_t>(u'0' + i)));
    s.periodStart = {2026, 11, 0, 1, 2, 3, 4, 5};
    s.periodEnd = {2026, 12, 4, 31, 23, 59, 58, 999};
    s.hourSymbol = 0;
    s.expSort = 7;
    s.askClose = true;
    s.dataPath = textOf<FolderPath>(u"/srv/data");
    s.styleFlags = StyleFlags{0x2EF}; // every bit other than by default
    s.treeOptions = TreeOptions{0x0A};
    s.breakOption = 1;
    return s;
}

TEST(AppSettings, EveryMemberSurvivesSaveAndLoad) {
    const AppSettings changed = everythingChanged();
    const AppSettings defaults(handheld);
    for (const std::u16string_view name : settingNames())
        if (name != u"hwVersion") {
            EXPECT_NE(settingValue(changed, name), settingValue(defaults, name)) << platform::toUtf8(name);
        }

    SettingsRegistry registry;
    EXPECT_TRUE(changed.save(registry));
    EXPECT_EQ(registry.batches, 1);
    const AppSettings loaded = registry.load();
    for (const std::u16string_view name : settingNames())
        EXPECT_EQ(settingValue(loaded, name), settingValue(changed, name)) << platform::toUtf8(name);
    EXPECT_TRUE(loaded == changed);
}

TEST(AppSettings, IsStoredByteForByte) {
    struct Stored {
        std::u16string_view name;
        RegistryType type;
        std::size_t size;
    };
    const Stored expected[] = {
        {u"hwVersion", RegistryType::dword, 4},        {u"View", RegistryType::dword, 4},
        {u"ListStyle", RegistryType::dword, 4},        {u"ExpView", RegistryType::dword, 4},
        {u"ExpListStyle", RegistryType::dword, 4},     {u"FSize", RegistryType::dword, 4},
        {u"DefNewStyles", RegistryType::dword, 4},     {u"AskClose", RegistryType::dword, 4},
        {u"Custom1", RegistryType::string, 64},        {u"Custom2", RegistryType::string, 64},
        {u"Custom3", RegistryType::string, 64},        {u"ExpenseCustom1", RegistryType::string, 64},
        {u"ExpenseCustom2", RegistryType::string, 64}, {u"DefCurr", RegistryType::string, 32},
        {u"Encoding", RegistryType::dword, 4},         {u"BreakSub", RegistryType::dword, 4},
        {u"MinTime", RegistryType::dword, 4},          {u"TimeInterval", RegistryType::dword, 4},
        {u"ViewCust", RegistryType::binary, 24},       {u"Sort", RegistryType::dword, 4},
        {u"ExpSort", RegistryType::dword, 4},          {u"HourSymbol", RegistryType::dword, 4},
        {u"DefReport0", RegistryType::string, 18},     {u"DefReport2", RegistryType::string, 18},
        {u"DefReport3", RegistryType::string, 18},     {u"DefReport4", RegistryType::string, 18},
        {u"PeriodStart", RegistryType::binary, 16},    {u"PeriodEnd", RegistryType::binary, 16},
        {u"DbPath", RegistryType::string, 520},        {u"TreeOptions", RegistryType::dword, 4},
        {u"BreakOption", RegistryType::dword, 4},
    };
    AppSettings settings = everythingChanged();
    settings.version = 260;
    settings.defaultReports[1] = {};
    SettingsRegistry registry;
    settings.save(registry);

    const auto values = registry.key()->values();
    ASSERT_EQ(values.size(), std::size(expected));
    for (std::size_t i = 0; i < values.size(); ++i) {
        SCOPED_TRACE(platform::toUtf8(expected[i].name));
        EXPECT_EQ(values[i].name, expected[i].name);
        EXPECT_EQ(values[i].type, expected[i].type);
        EXPECT_EQ(values[i].data.size(), expected[i].size);
    }
    EXPECT_EQ(registry.dword(u"hwVersion"), 310U);
    EXPECT_EQ(registry.dword(u"DefNewStyles"), 0x2EFU);

    const auto bytes = [&](std::u16string_view name) {
        std::vector<int> numbers;
        const auto value = registry.value(name).value();
        for (const std::byte byte : value.data)
            numbers.push_back(std::to_integer<int>(byte));
        return numbers;
    };
    std::vector<int> euro(32);
    euro[0] = 'E';
    euro[2] = 'U';
    euro[4] = 'R';
    EXPECT_EQ(bytes(u"DefCurr"), euro);
    EXPECT_EQ(bytes(u"PeriodEnd"), (std::vector<int>{0xEA, 7, 12, 0, 4, 0, 31, 0, 23, 0, 59, 0, 58, 0, 0xE7, 3}));
    EXPECT_EQ(bytes(u"ViewCust"), (std::vector<int>{1, 0, 0, 0, 2, 0, 0, 0x80, 3,    0,    0,    0,
                                                    4, 0, 0, 0, 5, 0, 0, 0,    0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(AppSettings, FirstRun) {
    struct Device {
        std::uint32_t osMajor;
        std::uint32_t flags;
    };
    for (const Device& device : {Device{4, 0x410}, Device{5, 0x510}, Device{6, 0x510}}) {
        SCOPED_TRACE(device.osMajor);
        SettingsRegistry registry;
        const AppSettings s = registry.load({.osMajorVersion = device.osMajor, .personalFolder = u"/home/ann"});
        EXPECT_NE(registry.open(platform::settingsKey), nullptr);
        EXPECT_EQ(s.styleFlags.bits(), device.flags);
        EXPECT_EQ(s.treeOptions.bits(), 0x1FU);
        EXPECT_EQ(s.view, 2U);
        EXPECT_EQ(s.expView, 3U);
        EXPECT_EQ(s.fontSize, 1);
        EXPECT_EQ(s.minTime, 15);
        EXPECT_EQ(s.timeInterval, 3);
        EXPECT_EQ(s.hourSymbol, 1);
        EXPECT_EQ(s.listStyle + s.expListStyle + s.encoding + s.breakSubstitute + s.sort + s.expSort, 0U);
        EXPECT_EQ(s.breakOption, 0U);
        EXPECT_FALSE(s.askClose);
        EXPECT_EQ(s.viewCustom, ViewCustom{});
        EXPECT_EQ(s.defaultCurrency.text(), u"USD");
        EXPECT_EQ(s.custom3Label.text(), u"Custom 3");
        EXPECT_EQ(s.expenseCustom2Label.text(), u"Custom 2");
        EXPECT_EQ(s.dataPath.text(), u"/home/ann");
        EXPECT_EQ(s.version, 310U);
        EXPECT_TRUE(s == AppSettings({.osMajorVersion = device.osMajor, .personalFolder = u"/home/ann"}));
        s.save(registry);
        EXPECT_EQ(registry.dword(u"hwVersion"), 310U);
    }
}

struct StoredFlags {
    const char* name;
    std::optional<std::uint32_t> version;
    std::optional<std::uint32_t> styles;
    std::optional<std::uint32_t> tree;
    std::uint32_t osMajor;
    std::uint32_t expectedStyles;
    std::uint32_t expectedTree;
};

TEST(AppSettings, TranslatesFlagsOfEarlierVersions) {
    constexpr std::uint32_t all = 0x1F;
    const StoredFlags cases[] = {
        {"260 with several flags", 260, 0x8011, 3, 5, 0x551, all},
        {"the same on an older device", 260, 0x8011, 3, 4, 0x451, all},
        {"every old flag", 269, 0xFFFFFFFF, 0, 5, 0x5F3, all},
        {"old granularity and precision", 250, 0x6000, 0, 4, 0x4A0, all},
        {"old flags all clear", 250, 0, 0, 4, 0x400, all},
        {"no version and no flags: old defaults", std::nullopt, std::nullopt, std::nullopt, 5, 0x510, all},
        {"270 has today's flags", 270, 0x8011, 0, 5, 0x011, all},
        {"275 keeps flags, resets tree options", 275, 0x28B, 2, 5, 0x28B, all},
        {"the last to reset them", 279, 0x10, 2, 5, 0x10, all},
        {"280 keeps both", 280, 0x4, 2, 5, 0x4, 2},
        {"today's, nothing stored", 310, std::nullopt, std::nullopt, 5, 0, 0},
        {"bits beyond the last flag", 310, 0xFFFFFFFF, 0xFFFFFFFF, 4, 0x7FF, all},
        {"a later version", 400, 0x10, 1, 5, 0x10, 1},
    };
    for (const StoredFlags& c : cases) {
        SCOPED_TRACE(c.name);
        SettingsRegistry registry;
        registry.key();
        if (c.version)
            registry.put(u"hwVersion", *c.version);
        if (c.styles)
            registry.put(u"DefNewStyles", *c.styles);
        if (c.tree)
            registry.put(u"TreeOptions", *c.tree);
        const AppSettings s = registry.load({.osMajorVersion = c.osMajor, .personalFolder = {}});
        EXPECT_EQ(s.styleFlags.bits(), c.expectedStyles);
        EXPECT_EQ(s.treeOptions.bits(), c.expectedTree);
        EXPECT_EQ(s.version, c.version.value_or(250));
        s.save(registry);
        EXPECT_EQ(registry.dword(u"hwVersion"), 310U);
    }
}

TEST(AppSettings, NamedFlagsHaveTheirBits) {
    const std::pair<StyleFlag, std::uint32_t> cases[] = {
        {StyleFlag::billable, 0x1},     {StyleFlag::secondTapCommand, 0x2}, {StyleFlag::weekStartsMonday, 0x8},
        {StyleFlag::boldList, 0x10},    {StyleFlag::preciseMinutes, 0x20},  {StyleFlag::weekNumber, 0x40},
        {StyleFlag::granularity, 0x80}, {StyleFlag::softKeyMenus, 0x100},   {StyleFlag::vibrate, 0x400}};
    for (const auto& [flag, bit] : cases) {
        StyleFlags flags;
        flags.set(flag);
        EXPECT_EQ(flags.bits(), bit);
        StyleFlags rest{0x7FF};
        rest.set(flag, false);
        EXPECT_EQ(rest.bits(), 0x7FF - bit);
        EXPECT_TRUE(flags.has(flag));
        EXPECT_FALSE(rest.has(flag));
    }
}

std::u16string longText(std::size_t length) {
    return std::u16string(length, u'x');
}

TEST(AppSettings, TextsLongerThanTheirRoomCountAsMissing) {
    struct Room {
        std::u16string_view name;
        std::size_t longest;
        std::u16string_view otherwise;
    };
    const Room cases[] = {
        {u"Custom1", 31, u"Custom 1"},
        {u"Custom2", 31, u"Custom 2"},
        {u"Custom3", 31, u"Custom 3"},
        {u"ExpenseCustom1", 31, u"Custom 1"},
        {u"ExpenseCustom2", 31, u"Custom 2"},
        {u"DefCurr", 15, u"USD"},
        {u"DefReport4", 63, u""},
        {u"DbPath", 259, u"/home/ann/Documents"},
    };
    for (const Room& c : cases) {
        SCOPED_TRACE(platform::toUtf8(c.name));
        SettingsRegistry registry;
        registry.put(c.name, longText(c.longest));
        EXPECT_EQ(settingValue(registry.load(), c.name), SettingValue(longText(c.longest)));
        registry.put(c.name, longText(c.longest + 1));
        EXPECT_EQ(settingValue(registry.load(), c.name), SettingValue(std::u16string(c.otherwise)));
        // As many units as fit, but no terminator among them.
        std::vector<std::byte> unended((c.longest + 1) * 2, std::byte{'x'});
        registry.key()->set({std::u16string(c.name), RegistryType::string, unended});
        EXPECT_EQ(settingValue(registry.load(), c.name), SettingValue(std::u16string(c.otherwise)));
    }
}

TEST(AppSettings, ValuesOfTheWrongTypeCountAsMissing) {
    SettingsRegistry right;
    everythingChanged().save(right);
    SettingsRegistry wrong;
    for (platform::RegistryValue value : right.key()->values()) {
        if (value.name == u"hwVersion")
            wrong.key()->set(value);
        value.type = value.type == RegistryType::binary ? RegistryType::string : RegistryType::binary;
        if (value.name != u"hwVersion")
            wrong.key()->set(value);
    }
    AppSettings expected(handheld);
    expected.styleFlags = StyleFlags{};
    expected.treeOptions = TreeOptions{};
    const AppSettings loaded = wrong.load();
    for (const std::u16string_view name : settingNames())
        EXPECT_EQ(settingValue(loaded, name), settingValue(expected, name)) << platform::toUtf8(name);
}

TEST(AppSettings, NumbersAreKeptAsStored) {
    struct Number {
        std::u16string_view name;
        std::uint32_t stored;
        std::uint32_t loaded;
    };
    const Number cases[] = {
        {u"AskClose", 0, 0},      {u"AskClose", 1, 1},     {u"AskClose", 2, 0},
        {u"MinTime", 0, 0},       {u"MinTime", 7, 7},      {u"TimeInterval", 99, 99},
        {u"FSize", 65535, 65535}, {u"FSize", 70000, 4464}, {u"View", 0, 0},
        {u"View", 70000, 70000},  {u"ListStyle", 9, 9},    {u"BreakOption", 0xFFFFFFFF, 0xFFFFFFFF},
        {u"Encoding", 77, 77},    {u"BreakSub", 4, 4},
    };
    for (const Number& c : cases) {
        SettingsRegistry registry;
        registry.put(c.name, c.stored);
        EXPECT_EQ(settingValue(registry.load(), c.name), SettingValue(c.loaded))
            << platform::toUtf8(c.name) << c.stored;
    }
}

TEST(AppSettings, BinaryValuesNeedTheirSize) {
    std::vector<std::uint8_t> bytes(28);
    for (std::uint8_t i = 0; i < 7; ++i)
        bytes[std::size_t{4} * i] = static_cast<std::uint8_t>(i + 1);
    struct Size {
        std::size_t size;
        ViewCustom expected;
    };
    const Size cases[] = {
        {20, {1, 2, 3, 4, 0, 5}}, {24, {1, 2, 3, 4, 5, 6}}, {0, {}}, {16, {}}, {21, {}}, {28, {}},
    };
    for (const Size& c : cases) {
        SettingsRegistry registry;
        registry.putBytes(u"ViewCust", {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(c.size)});
        EXPECT_EQ(registry.load().viewCustom, c.expected) << c.size;
    }
    for (const std::size_t size : {std::size_t{15}, std::size_t{17}, std::size_t{20}}) {
        SettingsRegistry registry;
        registry.putBytes(u"PeriodStart", {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)});
        EXPECT_TRUE(registry.load().periodStart == platform::SystemTime{}) << size;
    }
}

TEST(AppSettings, RemovesObsoleteAndEmptyReports) {
    SettingsRegistry registry;
    registry.put(u"DefReport", u"old");
    registry.put(u"DefReport3", u"Monthly");
    AppSettings s = registry.load();
    EXPECT_FALSE(registry.value(u"DefReport"));
    EXPECT_EQ(s.defaultReports[3].text(), u"Monthly");
    s.defaultReports[3] = {};
    s.save(registry);
    EXPECT_FALSE(registry.value(u"DefReport3"));
}

TEST(AppSettings, FailuresAreSilent) {
    SettingsRegistry locked;
    locked.failCreate = true;
    const AppSettings s = locked.load();
    EXPECT_TRUE(s == AppSettings(handheld));
    EXPECT_FALSE(s.save(locked));
    EXPECT_EQ(locked.writes, 0);

    SettingsRegistry full;
    full.put(u"MinTime", 30);
    full.failWrites = true;
    EXPECT_EQ(full.load().minTime, 30);
    EXPECT_FALSE(everythingChanged().save(full));
    full.failWrites = false;
    full.failCommit = true; // the disk fills up at the very end
    EXPECT_FALSE(everythingChanged().save(full));
    EXPECT_EQ(full.dword(u"MinTime"), 30U);
}

TEST(AppSettings, APersonalFolderTooLongToStoreIsLeftOut) {
    EXPECT_EQ(AppSettings({.personalFolder = longText(259)}).dataPath.text(), longText(259));
    EXPECT_EQ(AppSettings({.personalFolder = longText(260)}).dataPath.text(), u"");
}

TEST(FixedText, TakesOnlyWhatFits) {
    CurrencyCode code(u"EUR");
    EXPECT_FALSE(code.assign(longText(16)));
    EXPECT_FALSE(code.assign(std::u16string_view(u"A\0B", 3)));
    EXPECT_EQ(code.text(), u"EUR");
    EXPECT_TRUE(code.assign(longText(15)));
    EXPECT_EQ(code.text(), longText(15));
}

} // namespace
} // namespace hourwright::app
