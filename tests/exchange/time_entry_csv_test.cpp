#include "exchange/time_entry_csv.h"

#include "exchange/note_bytes.h"
#include "exchange/note_document.h"
#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

using store::EntryStatus;
using store::RateType;

CsvOptions someOptions() {
    return {.captions = {u"Car", u"C2", u""}, .expenseCaptions = {u"E1", u"E2"}, .lineBreak = u" ", .rules = {}};
}

platform::FileTime instant(std::uint16_t year, std::uint16_t month, std::uint16_t day, std::uint16_t hour = 0,
                           std::uint16_t minute = 0, std::uint16_t second = 0) {
    return *platform::toFileTime(
        {.year = year, .month = month, .day = day, .hour = hour, .minute = minute, .second = second});
}

store::TimeEntry fullEntry() {
    store::TimeEntry entry;
    entry.date = instant(2026, 11, 16, 9, 5, 1);
    entry.client = u"Acme";
    entry.project = u"Tower";
    entry.phase = u"Design";
    entry.task = u"Talk";
    entry.duration = 183;
    entry.breakTime = 17;
    entry.status = EntryStatus::paid;
    entry.currency = u"USD";
    entry.rate = 4550;
    entry.rateType = RateType::discount;
    entry.billTo = u"Ann";
    entry.custom1 = u"x";
    entry.custom2 = u"y";
    entry.custom3 = u"z";
    entry.note = writeNote(fromPlainText(u"one\ntwo"));
    entry.paidDate = instant(2027, 1, 2, 23, 59, 59);
    return entry;
}

std::u16string lineOf(const store::TimeEntry& entry, std::string_view locale = "en_US",
                      const CsvOptions& options = someOptions()) {
    const auto system = platform::makeIcuLocale(locale);
    return std::u16string(TimeEntryCsv(options, *system).line(entry));
}

TEST(TimeEntryCsv, Header) {
    const auto system = platform::makeIcuLocale("de_DE");
    EXPECT_EQ(TimeEntryCsv(someOptions(), *system).header(),
              u"\"Date\",\"Client\",\"Project\",\"Phase\",\"Task\",\"Start\",\"Duration(h)\",\"Status\",\"Currency\","
              u"\"Rate\",\"Rate Type\",\"Amount\",\"Bill To\",\"Car\",\"C2\",\"\",\"Note\",\"End Time\","
              u"\"Paid Date\",\"Break Time\"\r\n");
}

TEST(TimeEntryCsv, FullLineInThreeLocales) {
    struct Case {
        std::string_view locale;
        std::u16string_view line;
    };
    const Case cases[] = {
        {"en_US", u"\"11/16/26\",\"Acme\",\"Tower\",\"Design\",\"Talk\",\"9:05 AM\",\"1.83\",\"3\",\"USD\",\"45.50\","
                  u"\"4\",\"83.27\",\"Ann\",\"x\",\"y\",\"z\",\"one two\",\"11:04 AM\",\"1/2/27\",\"0.17\"\r\n"},
        {"de_DE", u"\"16.11.26\",\"Acme\",\"Tower\",\"Design\",\"Talk\",\"09:05\",\"1.83\",\"3\",\"USD\",\"45.50\","
                  u"\"4\",\"83.27\",\"Ann\",\"x\",\"y\",\"z\",\"one two\",\"11:04\",\"02.01.27\",\"0.17\"\r\n"},
        {"ja_JP", u"\"2026/11/16\",\"Acme\",\"Tower\",\"Design\",\"Talk\",\"9:05\",\"1.83\",\"3\",\"USD\",\"45.50\","
                  u"\"4\",\"83.27\",\"Ann\",\"x\",\"y\",\"z\",\"one two\",\"11:04\",\"2027/01/02\",\"0.17\"\r\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(lineOf(fullEntry(), c.locale), c.line) << c.locale;
}

TEST(TimeEntryCsv, EmptyEntry) {
    store::TimeEntry entry;
    entry.date = instant(2026, 11, 16, 9, 5, 2); // a time of day, but no start time
    entry.duration = 100;
    EXPECT_EQ(lineOf(entry), u"\"11/16/26\",\"\",\"\",\"\",\"\",\"\",\"1.00\",\"0\",\"\",\"\",\"\",\"\",\"\",\"\",\"\","
                             u"\"\",\"\",\"\",\"\",\"0.00\"\r\n");
}

// Rate, rate type and amount: the rate stands by itself, the others depend on the status.
TEST(TimeEntryCsv, StatusDecidesOnTheAmount) {
    struct Case {
        EntryStatus status;
        std::int32_t rate;
        RateType type;
        std::int32_t duration;
        bool precise;
        std::u16string_view cells;
    };
    const Case cases[] = {
        {EntryStatus::nonBillable, 5000, RateType::normal, 150, false, u",\"1.50\",\"0\",\"\",\"50.00\",\"\",\"\","},
        {EntryStatus::billable, 5000, RateType::normal, 150, false, u",\"1.50\",\"1\",\"\",\"50.00\",\"0\",\"75.00\","},
        {EntryStatus::billed, 0, RateType::normal, 150, false, u",\"1.50\",\"2\",\"\",\"\",\"0\",\"0.00\","},
        {EntryStatus::paid, 25000, RateType::fixed, 0, false, u",\"0.00\",\"3\",\"\",\"250.00\",\"3\",\"250.00\","},
        {EntryStatus::billable, 3000, RateType::overtime, 33, true, u",\"0.33\",\"1\",\"\",\"30.00\",\"1\",\"10.00\","},
        {EntryStatus::billable, 3000, RateType::overtime, 33, false, u",\"0.33\",\"1\",\"\",\"30.00\",\"1\",\"9.90\","},
        {EntryStatus{65535}, 5, RateType{7}, 65535, false, u",\"655.35\",\"65535\",\"\",\"0.05\",\"7\",\"32.77\","},
    };
    for (const Case& c : cases) {
        store::TimeEntry entry;
        entry.status = c.status;
        entry.rate = c.rate;
        entry.rateType = c.type;
        entry.duration = c.duration;
        CsvOptions options = someOptions();
        options.rules.preciseMinutes = c.precise;
        const std::u16string line = lineOf(entry, "en_US", options);
        EXPECT_NE(line.find(c.cells), std::u16string::npos) << testing::PrintToString(line);
    }
}

// The end is the start and the minutes of duration and break, 0.83 hours being 50 minutes and 1.83 hours 109.
TEST(TimeEntryCsv, EndTime) {
    struct Case {
        platform::FileTime start;
        std::int32_t duration;
        std::int32_t breakTime;
        std::u16string_view end;
    };
    const Case cases[] = {
        {instant(2026, 1, 5, 9, 0, 1), 83, 17, u"10:00"},    {instant(2026, 1, 5, 9, 0, 1), 183, 0, u"10:49"},
        {instant(2026, 1, 5, 9, 0, 1), 0, 0, u"09:00"},      {instant(2026, 1, 5, 0, 0, 1), 50, 0, u"00:30"},
        {instant(2026, 1, 5, 23, 30, 1), 100, 25, u"00:45"}, {instant(2026, 1, 5, 9, 0, 0), 100, 0, u""},
    };
    for (const Case& c : cases) {
        store::TimeEntry entry;
        entry.date = c.start;
        entry.duration = c.duration;
        entry.breakTime = c.breakTime;
        const std::u16string expected = u",\"\",\"" + std::u16string(c.end) + u"\",\"\",\"";
        const std::u16string line = lineOf(entry, "de_DE");
        EXPECT_NE(line.find(expected), std::u16string::npos) << testing::PrintToString(line);
    }
}

TEST(TimeEntryCsv, NoteCell) {
    struct Case {
        std::string_view note;
        std::u16string_view lineBreak;
        std::u16string_view cell;
    };
    const Case cases[] = {
        {"{\\rtf1 a\\par b\\par}", u" ", u"a b"},
        {"{\\rtf1 a\\par b\\par}", u"  ", u"a  b"},
        {"{\\rtf1 a\\par b\\par}", u"~`", u"a~`b"},
        {"{\\rtf1 a\\par b\\par}", u"|", u"a|b"},
        {"{\\rtf1 \\par a\\par\\par b\\line c\\par\\par}", u"|", u"|a||b|c|"},
        {"{\\rtf1 {\\*\\hwink1 00}\\par}", u"|", u""},
        {"{\\rtf1 say \"hi\", \\u8364?}", u"|", u"say \"hi\", €"},
        {"", u"|", u""},
        {"\x01", u"|", u""},
    };
    for (const Case& c : cases) {
        store::TimeEntry entry;
        entry.note = bytesOf(c.note);
        CsvOptions options = someOptions();
        options.lineBreak = c.lineBreak;
        const std::u16string expected = u",\"\",\"\",\"\",\"" + std::u16string(c.cell) + u"\",\"\",\"\",\"0.00\"\r\n";
        EXPECT_TRUE(lineOf(entry, "en_US", options).ends_with(expected)) << c.note;
    }
}

TEST(TimeEntryCsv, TextsGoInAsTheyAre) {
    store::TimeEntry entry = fullEntry();
    entry.client = u"The \"Best\", Ltd.\r\nLondon";
    EXPECT_TRUE(lineOf(entry).starts_with(u"\"11/16/26\",\"The \"Best\", Ltd.\r\nLondon\",\"Tower\","));
}

TEST(TimeEntryCsv, DateBeyondTheCalendar) {
    store::TimeEntry entry;
    entry.date = {platform::lastFileTime.ticks + 1};
    EXPECT_TRUE(lineOf(entry).starts_with(u"\"\",\"\","));
}

/// Writes everything very long.
class LongLocale final : public platform::Locale {
public:
    [[nodiscard]] std::string name() const override { return "long"; }
    [[nodiscard]] std::u16string shortDate(const platform::SystemTime&) const override {
        return u"Monday the 16th of November 2026";
    }
    [[nodiscard]] std::u16string timeWithoutSeconds(const platform::SystemTime& time) const override {
        return std::u16string(30, u'x') + (time.minute == 0 ? u"ab" : u"");
    }
    [[nodiscard]] std::u16string number(std::u16string_view plain) const override { return std::u16string(plain); }
    [[nodiscard]] std::weak_ordering compare(std::u16string_view a, std::u16string_view b) const override {
        return a <=> b;
    }
    [[nodiscard]] std::strong_ordering compareStrictly(std::u16string_view a, std::u16string_view b) const override {
        return a <=> b;
    }
    [[nodiscard]] std::string collationKey(std::u16string_view) const override { return {}; }
    [[nodiscard]] const platform::CodePage& ansiCodePage() const override { std::abort(); }
};

TEST(TimeEntryCsv, DatesAndTimesHaveAtMost31Characters) {
    store::TimeEntry entry;
    entry.date = instant(2026, 11, 16, 9, 0, 1);
    entry.duration = 50;
    const LongLocale system;
    const std::u16string line(TimeEntryCsv(someOptions(), system).line(entry));
    EXPECT_TRUE(line.starts_with(u"\"Monday the 16th of November 202\",\"\","));
    EXPECT_NE(line.find(u",\"" + std::u16string(30, u'x') + u"a\",\"0.50\""), std::u16string::npos);
    EXPECT_NE(line.find(u",\"" + std::u16string(30, u'x') + u"\",\"\",\"0.00\""), std::u16string::npos);
}

} // namespace
} // namespace hourwright::exchange
