#include "exchange/csv_export.h"

#include "exchange/memory_files.h"
#include "platform/icu/icu_locale.h"
#include "support/store_fixture.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {
namespace {

using platform::PlatformError;

constexpr std::string_view timeHeader =
    "\"Date\",\"Client\",\"Project\",\"Phase\",\"Task\",\"Start\",\"Duration(h)\",\"Status\",\"Currency\",\"Rate\","
    "\"Rate Type\",\"Amount\",\"Bill To\",\"1\",\"2\",\"3\",\"Note\",\"End Time\",\"Paid Date\",\"Break Time\"\r\n";

platform::FileTime day(std::uint16_t number, std::uint16_t hour = 0) {
    return *platform::toFileTime({.year = 2026, .month = 11, .day = number, .hour = hour});
}

std::string lineFor(std::string_view date, std::string_view client) {
    return "\"" + std::string(date) + "\",\"" + std::string(client) +
           "\",\"\",\"\",\"\",\"\",\"0.00\",\"0\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0.00\"\r\n";
}

class CsvExportTest : public test::StoreFixture {
protected:
    void add(platform::FileTime date, std::u16string client) {
        store::TimeEntry entry;
        entry.date = date;
        entry.client = std::move(client);
        change([&](platform::Transaction& transaction) {
            ASSERT_TRUE(store::insertTimeEntry(transaction, stores().entries(), entry));
        });
    }
    void addExpense(store::ExpenseType type, std::u16string client) {
        store::ExpenseEntry expense;
        expense.type = type;
        expense.date = day(3);
        expense.client = std::move(client);
        change([&](platform::Transaction& transaction) {
            ASSERT_TRUE(store::insertExpenseEntry(transaction, stores().expenses(), expense));
        });
    }

    ExportResult run(
        const store::DateRange& range = {}, const TimeEntryFilter& accepts = [](const auto&) { return true; }) {
        return exportTimeEntries(stores().entries(), range, accepts, options_, {files_, "out.csv", *system_});
    }

    test::MemoryFiles files_;
    std::unique_ptr<platform::Locale> system_ = platform::makeIcuLocale("de_DE");
    CsvOptions options_{
        .captions = {u"1", u"2", u"3"}, .expenseCaptions = {u"1", u"2"}, .lineBreak = u" ", .rules = {}};
};

TEST_F(CsvExportTest, NothingInTheRangeLeavesTheHeader) {
    EXPECT_EQ(run(), ExportResult{});
    EXPECT_EQ(files_.content, timeHeader);
    EXPECT_TRUE(files_.closed);
}

// After the first instant, up to and with the last, in date order.
TEST_F(CsvExportTest, TakesTheRange) {
    add(day(5), u"last");
    add(day(2), u"first instant");
    add(day(3), u"b");
    add(day(2, 1), u"a");
    add(day(5, 1), u"too late");
    const ExportResult result = run({.after = day(2), .last = day(5)});
    EXPECT_EQ(result, (ExportResult{ExportStatus::done, PlatformError::none, 3}));
    EXPECT_EQ(files_.content, std::string(timeHeader) + lineFor("02.11.26", "a") + lineFor("03.11.26", "b") +
                                  lineFor("05.11.26", "last"));
}

TEST_F(CsvExportTest, TakesWhatTheFilterAccepts) {
    add(day(2), u"a");
    add(day(3), u"b");
    EXPECT_EQ(run({}, [](const store::TimeEntry& entry) { return entry.client == u"b"; }).records, 1U);
    EXPECT_EQ(files_.content, std::string(timeHeader) + lineFor("03.11.26", "b"));
}

TEST_F(CsvExportTest, WritesTheCodePageOfTheSystem) {
    struct Case {
        std::string_view locale;
        std::u16string client;
        std::string line;
    };
    const std::string end =
        "\",\"\",\"\",\"\",\"\",\"0.00\",\"0\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0.00\"\r\n";
    const Case cases[] = {
        {"en_US", u"M\u00FCller \u20AC", "\"11/2/26\",\"M\xFCller \x80" + end},
        {"de_DE", u"\u0416\u6F22x", "\"02.11.26\",\"??x" + end},
        {"ru_RU", u"\u0416", "\"02.11.2026\",\"\xC6" + end},
        // Two characters of two bytes: the line loses its last two bytes, its CR LF.
        {"ja_JP", u"\u6F22\u5B57\uFF76", "\"2026/11/02\",\"\x8A\xBF\x8E\x9A\xB6" + end.substr(0, end.size() - 2)},
    };
    add(day(2), u"");
    const auto id = stores().entries().seek(platform::Seek::toBeginning());
    for (const Case& c : cases) {
        store::TimeEntry entry;
        entry.id = id;
        entry.date = day(2);
        entry.client = c.client;
        change([&](platform::Transaction& transaction) {
            ASSERT_TRUE(store::updateTimeEntry(transaction, stores().entries(), entry));
        });
        system_ = platform::makeIcuLocale(c.locale);
        EXPECT_TRUE(run().ok());
        EXPECT_EQ(files_.content, std::string(timeHeader) + c.line) << c.locale;
    }
}

TEST_F(CsvExportTest, TellsFailuresApart) {
    add(day(2), u"a");
    add(day(3), u"b");

    files_.denied = true;
    EXPECT_EQ(run(), (ExportResult{ExportStatus::notCreated, PlatformError::accessDenied, 0}));
    files_.denied = false;

    files_.room = 100;
    EXPECT_EQ(run(), (ExportResult{ExportStatus::writeFailed, PlatformError::diskFull, 0}));
    EXPECT_EQ(files_.content, "");

    files_.room = timeHeader.size() + lineFor("02.11.26", "a").size();
    EXPECT_EQ(run(), (ExportResult{ExportStatus::writeFailed, PlatformError::diskFull, 1}));
    EXPECT_EQ(files_.content, std::string(timeHeader) + lineFor("02.11.26", "a"));
    EXPECT_TRUE(files_.closed);

    files_.room = 10'000;
    files_.closeFails = true;
    EXPECT_EQ(run(), (ExportResult{ExportStatus::writeFailed, PlatformError::diskFull, 2}));
}

TEST_F(CsvExportTest, ReadFailure) {
    stores().entries().close();
    const ExportResult result = run();
    EXPECT_EQ(result.status, ExportStatus::readFailed);
    EXPECT_NE(result.error, PlatformError::none);
    EXPECT_EQ(files_.content, timeHeader);
    EXPECT_TRUE(files_.closed);
}

TEST_F(CsvExportTest, ExpensesOfOneType) {
    addExpense(store::ExpenseType::general, u"g");
    addExpense(store::ExpenseType::mileage, u"m");
    addExpense(store::ExpenseType::general, u"no");
    const auto accepts = [](const store::ExpenseEntry& expense) { return expense.client != u"no"; };
    const auto content = [&](store::ExpenseType type) {
        EXPECT_EQ(exportExpenses(stores().expenses(), type, {}, accepts, options_, {files_, "-", *system_}),
                  (ExportResult{ExportStatus::done, PlatformError::none, 1}));
        return files_.content;
    };
    EXPECT_EQ(
        content(store::ExpenseType::general),
        "\"Type\",\"Date\",\"Description\",\"Client\",\"Project\",\"Category\",\"Receipt\",\"Currency\",\"Amount\","
        "\"Status\",\"Paid Date\",\"Bill To\",\"1\",\"2\",\"Note\"\r\n"
        "\"0\",\"03.11.26\",\"\",\"g\",\"\",\"\",\"N\",\"\",\"0.00\",\"0\",\"\",\"\",\"\",\"\",\"\"\r\n");
    EXPECT_EQ(
        content(store::ExpenseType::mileage),
        "\"Type\",\"Date\",\"Description\",\"Client\",\"Project\",\"Start Odo\",\"Distance\",\"Receipt\","
        "\"Currency\",\"Amount\",\"Status\",\"Paid Date\",\"Bill To\",\"1\",\"2\",\"Note\"\r\n"
        "\"1\",\"03.11.26\",\"\",\"m\",\"\",\"0\",\"0\",\"N\",\"\"0.00,\"0.00\",\"0\",\"\",\"\",\"\",\"\",\"\"\r\n");
}

TEST(CsvOptions, ComeFromTheSettings) {
    struct Case {
        std::uint16_t breakSubstitute;
        std::u16string_view lineBreak;
    };
    const Case cases[] = {{0, u" "}, {1, u"  "}, {2, u"~`"}, {3, u"|"}, {4, u" "}};
    for (const Case& c : cases) {
        app::AppSettings settings({});
        settings.breakSubstitute = c.breakSubstitute;
        EXPECT_EQ(csvOptions(settings).lineBreak, c.lineBreak) << c.breakSubstitute;
    }
    app::AppSettings settings({});
    const std::array captions{&settings.custom1Label, &settings.custom2Label, &settings.custom3Label,
                              &settings.expenseCustom1Label, &settings.expenseCustom2Label};
    const std::array<std::u16string, 5> texts{u"a", u"b", u"c", u"d", u"e"};
    for (std::size_t i = 0; i < captions.size(); ++i)
        ASSERT_TRUE(captions[i]->assign(texts[i]));
    settings.styleFlags.set(app::StyleFlag::preciseMinutes);
    const CsvOptions options = csvOptions(settings);
    EXPECT_EQ(options.captions, (std::array<std::u16string, 3>{u"a", u"b", u"c"}));
    EXPECT_EQ(options.expenseCaptions, (std::array<std::u16string, 2>{u"d", u"e"}));
    EXPECT_TRUE(options.rules.preciseMinutes);
}

} // namespace
} // namespace hourwright::exchange
