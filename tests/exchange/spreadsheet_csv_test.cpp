#include "exchange/spreadsheet_csv.h"

#include "exchange/note_document.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {

namespace {

// The line of an entry of 16 November 2026 without its CR LF.
std::string lineOf(const store::TimeEntry& entry, const SpreadsheetOptions& options = {}) {
    SpreadsheetCsv csv(options);
    std::string line(csv.line(entry));
    EXPECT_TRUE(line.ends_with("\r\n"));
    return line.substr(0, line.size() - 2);
}

store::TimeEntry plainEntry() {
    store::TimeEntry entry;
    store::setDateWithoutStart(entry, {.year = 2026, .month = 11, .day = 16});
    entry.duration = 150;
    return entry;
}

TEST(SpreadsheetCsv, QuotesWhatNeedsItAndDisarmsFormulas) {
    struct Row {
        const char16_t* task;
        const char* cell;
    };
    const Row rows[] = {
        {u"plain", "plain"},
        {u"a, b", "\"a, b\""},
        {u"say \"hi\"", "\"say \"\"hi\"\"\""},
        {u"two\r\nlines", "\"two\r\nlines\""},
        {u"a;b", "a;b"},
        {u"=1+1", "'=1+1"},
        {u"+49 30", "'+49 30"},
        {u"-5", "'-5"},
        {u"@SUM(A1)", "'@SUM(A1)"},
        {u"\t=1", "'\t=1"},
        {u"=\"a\",1", "\"'=\"\"a\"\",1\""},
        {u"a=b", "a=b"},
        {u"大阪", "\xE5\xA4\xA7\xE9\x98\xAA"},
    };
    for (const Row& row : rows) {
        store::TimeEntry entry = plainEntry();
        entry.task = row.task;
        const std::string expected = std::string("2026-11-16,,,1.50,0.00,,,,") + row.cell + ",Non Billable,,0.00,";
        EXPECT_EQ(lineOf(entry).substr(0, expected.size()), expected);
    }
}

TEST(SpreadsheetCsv, WritesNumbersForSpreadsheetsOfOtherCountries) {
    store::TimeEntry entry = plainEntry();
    store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = 16, .hour = 9});
    entry.breakTime = 25;
    entry.status = store::EntryStatus::billable;
    entry.currency = u"EUR";
    entry.rate = 123456;
    entry.task = u"a;b";
    entry.note = writeNote(fromPlainText(u"one\r\ntwo"));
    EXPECT_EQ(lineOf(entry, {.delimiter = ';', .decimalMark = ','}),
              "2026-11-16;09:00;10:45;1,50;0,25;;;;\"a;b\";Billable;EUR;1234,56;Normal Rate;1851,84;;;;;;\"one\ntwo\"");
}

TEST(SpreadsheetCsv, BeginsWithAByteOrderMarkIfWanted) {
    SpreadsheetOptions options;
    options.csv.captions = {u"Order", u"=x", u"Custom 3"};
    SpreadsheetCsv csv(options);
    EXPECT_TRUE(csv.entryHeader().starts_with("\xEF\xBB\xBF"
                                              "Date,Start,"));
    EXPECT_TRUE(csv.entryHeader().ends_with(",Paid Date,Order,'=x,Custom 3,Note\r\n"));
    options.byteOrderMark = false;
    EXPECT_TRUE(SpreadsheetCsv(options).expenseHeader().starts_with("Date,Type,"));
}

TEST(SpreadsheetCsv, NeedsADelimiterThatIsNotTheDecimalMark) {
    EXPECT_TRUE(isUsable({.delimiter = '\t', .decimalMark = ','}));
    EXPECT_FALSE(isUsable({.delimiter = ',', .decimalMark = ','}));
    EXPECT_FALSE(isUsable({.delimiter = '|'}));
}

} // namespace

} // namespace hourwright::exchange
