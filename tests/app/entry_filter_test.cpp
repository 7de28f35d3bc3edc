#include "app/entry_filter.h"

#include "app/recording_registry.h"
#include "app/settings_fixture.h"
#include "platform/icu/icu_locale.h"

#include <functional>
#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using platform::FileTime;
using platform::SystemTime;
using store::EntryStatus;
using store::RateType;
using store::TimeEntry;

FileTime at(SystemTime time) {
    return platform::toFileTime(time).value();
}

FileTime at(std::uint16_t day, std::uint16_t hour = 0, std::uint16_t minute = 0, std::uint16_t second = 0) {
    return at({.year = 2026, .month = 11, .day = day, .hour = hour, .minute = minute, .second = second});
}

SystemTime november(std::uint16_t day) {
    return {.year = 2026, .month = 11, .day = day};
}

class EntryFilterTest : public testing::Test {
protected:
    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
    test::SettingsRegistry registry_;
};

TEST_F(EntryFilterTest, NewAndShowAllPassEverything) {
    EntryFilter filter{{.rangeStart = november(1), .rangeEnd = november(2), .showBilled = false},
                       u"a",
                       u"b",
                       u"c",
                       u"d",
                       u"e",
                       u"f",
                       u"g",
                       u"h",
                       u"i",
                       3};
    filter.showAll();
    EXPECT_TRUE(filter == EntryFilter{});
    for (std::uint16_t number = 0; number < 6; ++number) {
        const TimeEntry entry{.date = FileTime{number},
                              .client = u"Acme",
                              .status = static_cast<EntryStatus>(number),
                              .rateType = static_cast<RateType>(number)};
        EXPECT_TRUE(filter.matches(entry, *locale_)) << number;
    }
}

TEST_F(EntryFilterTest, TextsAreComparedAsTheLocaleDoes) {
    struct Field {
        const char* name;
        std::u16string EntryFilter::*wanted;
        std::u16string TimeEntry::*text;
    };
    const Field fields[] = {
        {"client", &EntryFilter::client, &TimeEntry::client},
        {"project", &EntryFilter::project, &TimeEntry::project},
        {"phase", &EntryFilter::phase, &TimeEntry::phase},
        {"task", &EntryFilter::task, &TimeEntry::task},
        {"billTo", &EntryFilter::billTo, &TimeEntry::billTo},
        {"currency", &EntryFilter::currency, &TimeEntry::currency},
        {"custom1", &EntryFilter::custom1, &TimeEntry::custom1},
        {"custom2", &EntryFilter::custom2, &TimeEntry::custom2},
        {"custom3", &EntryFilter::custom3, &TimeEntry::custom3},
    };
    struct Case {
        const char* name;
        std::u16string wanted;
        std::u16string text;
        bool passes;
    };
    const Case cases[] = {
        {"identical", u"Acme", u"Acme", true},
        {"case differs", u"Acme", u"acme", false},
        {"accent differs", u"Caf\u00E9", u"Cafe", false},
        {"accent composed and combining", u"Caf\u00E9", u"Cafe\u0301", true},
        {"trailing blank", u"Acme", u"Acme ", false},
        {"beginning only", u"Acme", u"Acme Ltd", false},
        {"empty text", u"Acme", u"", false},
        {"any", u"", u"Acme", true},
    };
    for (const Field& field : fields) {
        for (const Case& c : cases) {
            EntryFilter filter;
            filter.*field.wanted = c.wanted;
            TimeEntry entry;
            entry.*field.text = c.text;
            EXPECT_EQ(filter.matches(entry, *locale_), c.passes) << field.name << ", " << c.name;
        }
    }
}

TEST_F(EntryFilterTest, EachStatusIsHiddenByItsOwnFlag) {
    struct Case {
        EntryStatus status;
        bool ViewFilter::*shown;
        std::uint32_t flags; // when only this one is hidden
    };
    const Case cases[] = {
        {EntryStatus::nonBillable, &ViewFilter::showNonBillable, 0x25},
        {EntryStatus::billable, &ViewFilter::showBillable, 0x34},
        {EntryStatus::billed, &ViewFilter::showBilled, 0x15},
        {EntryStatus::paid, &ViewFilter::showPaid, 0x31},
    };
    for (const Case& hidden : cases) {
        EntryFilter filter;
        filter.show(hidden.status, false);
        EXPECT_FALSE(filter.*hidden.shown) << hidden.flags;
        EXPECT_EQ(filter.statusFlags(), hidden.flags);
        EntryFilter loaded;
        loaded.setStatusFlags(hidden.flags | 0xFFFFFFCA); // bits of no status
        EXPECT_TRUE(loaded == filter) << hidden.flags;
        for (const Case& c : cases)
            EXPECT_EQ(filter.matches({.status = c.status}, *locale_), c.status != hidden.status) << hidden.flags;
    }
}

TEST_F(EntryFilterTest, ShowUnpaidOnlyHidesThePaidAndKeepsTheOtherConditions) {
    EntryFilter filter;
    filter.client = u"Acme";
    filter.showBilled = false;
    filter.showUnpaidOnly();
    EXPECT_EQ(filter.statusFlags(), 0x31U);
    EXPECT_EQ(filter.client, u"Acme");
}

TEST_F(EntryFilterTest, RateTypeMustBeTheWantedOne) {
    EntryFilter filter;
    filter.rateType = 0;
    EXPECT_TRUE(filter.matches({.rateType = RateType::normal}, *locale_));
    EXPECT_FALSE(filter.matches({.rateType = RateType::overtime}, *locale_));
    filter.rateType = 4;
    EXPECT_TRUE(filter.matches({.rateType = RateType::discount}, *locale_));
    filter.rateType = 0x10004;
    EXPECT_FALSE(filter.matches({.rateType = RateType::discount}, *locale_));
}

TEST_F(EntryFilterTest, RangeCoversItsLastDayToTheLastTick) {
    EntryFilter filter;
    filter.rangeStart = november(16);
    filter.rangeEnd = november(18);
    filter.rangeStart.hour = 12; // days count, not times
    filter.rangeEnd.hour = 12;
    struct Case {
        FileTime date;
        bool passes;
    };
    const Case cases[] = {
        {FileTime{at(16).ticks - 1}, false}, {at(16), true},  {at(18, 23, 59), true},
        {FileTime{at(19).ticks - 1}, true},  {at(19), false}, {at(25), false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(filter.matches({.date = c.date}, *locale_), c.passes) << c.date.ticks;

    filter.rangeStart.month = 0;
    EXPECT_TRUE(filter.matches({.date = at(25)}, *locale_)) << "no range";
}

TEST_F(EntryFilterTest, DayThatDoesNotExistBoundsNothing) {
    EntryFilter filter;
    filter.rangeStart = november(31);
    filter.rangeEnd = november(18);
    EXPECT_TRUE(filter.matches({.date = FileTime{1}}, *locale_));
    EXPECT_FALSE(filter.matches({.date = at(19)}, *locale_));
    filter.rangeStart = november(16);
    filter.rangeEnd = {};
    EXPECT_FALSE(filter.matches({.date = at(15)}, *locale_));
    EXPECT_TRUE(filter.matches({.date = platform::lastFileTime}, *locale_));
    filter.rangeEnd = {.year = 30827, .month = 12, .day = 31};
    EXPECT_TRUE(filter.matches({.date = platform::lastFileTime}, *locale_));
}

TEST_F(EntryFilterTest, SavesInItsOrderAndWithoutWhatHoldsOnlyForNow) {
    test::RecordingRegistry registry;
    const EntryFilter filter{{.rangeStart = november(1), .rangeEnd = november(2), .showPaid = false},
                             u"a",
                             u"",
                             u"c",
                             u"d",
                             u"e",
                             u"f",
                             u"g",
                             u"h",
                             u"i",
                             3};
    EXPECT_TRUE(filter.save(registry));
    const std::vector<std::string> expected{
        "-fClient",  "-fProject", "-fPhase",      "-fCustom1",  "-fCustom2", "-fCustom3",
        "-fFlags",   "-fBillTo",  "-fCurrency",   "-fRateType", "-fTask",    "fClient=a|",
        "fPhase=c|", "fTask=d|",  "fCurrency=f|", "fBillTo=e|", "fFlags=49", "fRateType=3",
    };
    EXPECT_EQ(registry.changes, expected);
}

TEST_F(EntryFilterTest, LoadsWhatWasSaved) {
    EXPECT_TRUE(EntryFilter::load(registry_) == EntryFilter{});
    const EntryFilter filter{{.rangeStart = november(1), .rangeEnd = november(2), .showNonBillable = false},
                             u"a",
                             u"b",
                             u"c",
                             u"d",
                             std::u16string(5000, u'e'),
                             u"f",
                             u"g",
                             u"h",
                             u"i",
                             4};
    const int batches = registry_.batches;
    EXPECT_TRUE(filter.save(registry_));
    EXPECT_EQ(registry_.batches, batches + 1);
    EntryFilter kept = filter;
    kept.rangeStart = kept.rangeEnd = {};
    kept.custom1 = kept.custom2 = kept.custom3 = u"";
    EXPECT_TRUE(EntryFilter::load(registry_) == kept);
}

TEST_F(EntryFilterTest, LoadsDefaultsForWhatIsMissingDamagedOrOfNoUse) {
    registry_.put(u"fClient", 7);
    registry_.put(u"fFlags", u"53");
    registry_.put(u"fCustom1", u"left over");
    EXPECT_TRUE(EntryFilter::load(registry_) == EntryFilter{});
    registry_.put(u"fFlags", 0x31);
    EXPECT_FALSE(EntryFilter::load(registry_).showPaid);
    EXPECT_TRUE(EntryFilter::load(registry_).showBilled);
}

TEST_F(EntryFilterTest, FailuresAreSilent) {
    EntryFilter filter;
    filter.client = u"Acme";
    EXPECT_TRUE(filter.save(registry_));
    registry_.failWrites = true;
    EXPECT_FALSE(EntryFilter{}.save(registry_));
    EXPECT_EQ(EntryFilter::load(registry_).client, u"Acme");
    registry_.failCreate = true;
    EXPECT_FALSE(filter.save(registry_));
    EXPECT_TRUE(EntryFilter::load(registry_) == EntryFilter{});
}

} // namespace
} // namespace hourwright::app
