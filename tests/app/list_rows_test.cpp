#include "app/list_rows.h"

#include "app/arrange.h"
#include "platform/icu/icu_locale.h"
#include "store/save.h"
#include "support/store_fixture.h"

#include <map>
#include <random>

namespace hourwright::app {
namespace {

using store::EntryStatus;
using store::RecordId;
using store::TimeEntry;

class ListRowsTest : public test::StoreFixture {
protected:
    RecordId add(int day, const std::u16string& client, const std::u16string& task, std::int32_t duration = 100,
                 EntryStatus status = EntryStatus::nonBillable, const std::u16string& currency = u"") {
        TimeEntry entry{
            .client = client, .task = task, .duration = duration, .status = status, .currency = currency, .rate = 5000};
        EXPECT_TRUE(
            store::setDateWithoutStart(entry, {.year = 2026, .month = 11, .day = static_cast<std::uint16_t>(day)}));
        change([&](platform::Transaction& t) { EXPECT_TRUE(store::saveTimeEntry(t, stores(), entry)); });
        return entry.id;
    }

    std::unique_ptr<ListRows> rows(const ListQuery& query) {
        return makeListRows(stores(), *locale_, billing::TimeRules{}, query);
    }

    std::vector<RecordId> ids(const ListRows& rows) {
        std::vector<RecordId> result;
        for (std::size_t row = 0; row < rows.size(); ++row)
            result.push_back(rows.id(row));
        return result;
    }

    std::unique_ptr<platform::Locale> locale_ = platform::makeIcuLocale("en_US");
};

TEST_F(ListRowsTest, StepsOfAnySizeLoadTheSameRows) {
    std::vector<RecordId> expected;
    for (int i = 0; i < 20; ++i)
        expected.push_back(add(10 + i / 7, u"Ann", u"")); // up to seven on the same instant
    for (const std::size_t step : {1U, 2U, 3U, 7U, 19U, 20U, 21U}) {
        const auto list = rows({});
        while (list->load(step)) {
        }
        EXPECT_EQ(ids(*list), expected) << step;
        EXPECT_EQ(list->totals().items, 20U) << step;
    }
    const auto partial = rows({});
    EXPECT_TRUE(partial->load(8));
    EXPECT_EQ(partial->size(), 8U) << "the first rows are there before the others";
}

TEST_F(ListRowsTest, RecordsAddedOrDeletedBetweenStepsDoNotUpsetTheWalk) {
    for (int i = 0; i < 6; ++i)
        add(10, u"Ann", u"");
    const auto list = rows({});
    ASSERT_TRUE(list->load(3));
    const RecordId third = list->id(2);
    change([&](platform::Transaction& t) {
        ASSERT_NE(stores().entries().seek(platform::Seek::toId(third)), RecordId::none);
        ASSERT_TRUE(stores().entries().deleteCurrent(t));
    });
    list->loadAll();
    EXPECT_EQ(list->size(), 6U);
    EXPECT_EQ(list->cell(2, 1), u"") << "the deleted one, until the view reloads";
    EXPECT_EQ(list->cell(3, 1), u"Ann");
}

TEST_F(ListRowsTest, ArrangesByTextThenDateThenTask) {
    const RecordId zebra = add(1, u"Zebra", u"a");
    const RecordId late = add(3, u"abel", u"a");
    const RecordId writing = add(2, u"abel", u"Writing");
    const RecordId call = add(2, u"abel", u"call");
    const RecordId none = add(9, u"Nobody", u"");
    struct Case {
        std::uint16_t by;
        bool descending;
        std::vector<RecordId> expected;
    };
    const Case cases[] = {
        {0, false, {zebra, writing, call, late, none}},  {1, false, {call, writing, late, none, zebra}},
        {1, true, {zebra, none, call, writing, late}},   {4, false, {none, zebra, late, call, writing}},
        {99, false, {zebra, writing, call, late, none}},
    };
    for (const Case& c : cases) {
        const auto list = rows({.arrangedBy = c.by, .groupsDescending = c.descending});
        list->loadAll();
        EXPECT_EQ(ids(*list), c.expected) << c.by << c.descending;
    }
}

TEST_F(ListRowsTest, GroupsHaveTheirRowsAndTotals) {
    add(2, u"Beta", u"", 100, EntryStatus::billable, u"EUR");
    add(2, u"Alpha", u"", 150);
    add(3, u"Beta", u"", 50, EntryStatus::paid, u"USD");
    add(4, u"", u"", 25);
    struct Group {
        std::u16string title;
        std::size_t first;
        std::size_t count;
        std::u16string text;
    };
    const auto check = [&](std::uint16_t by, const std::vector<Group>& expected) {
        const auto list = rows({.arrangedBy = by});
        list->loadAll();
        ASSERT_EQ(list->groups().size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const RowGroup& group = list->groups()[i];
            EXPECT_EQ(group.title, expected[i].title);
            EXPECT_EQ(group.first, expected[i].first);
            EXPECT_EQ(group.count, expected[i].count);
            EXPECT_EQ(groupText(group, TreeOptions(TreeOptions::allBits), RecordKind::entries, *locale_),
                      expected[i].text);
        }
    };
    check(0, {{u"11/2/26", 0, 2, u"2 items · 2.50h · 50.00 EUR"},
              {u"11/3/26", 2, 1, u"1 item · 0.50h · 25.00 USD"},
              {u"11/4/26", 3, 1, u"1 item · 0.25h"}});
    check(1, {{u"", 0, 1, u"1 item · 0.25h"},
              {u"Alpha", 1, 1, u"1 item · 1.50h"},
              {u"Beta", 2, 2, u"2 items · 1.50h · 50.00 EUR · 25.00 USD"}});
    RowGroup group{.count = 3};
    EXPECT_EQ(groupText(group, TreeOptions{TreeOption::itemCounts, TreeOption::hours}, RecordKind::expenses, *locale_),
              u"3 items");
    EXPECT_EQ(groupText(group, TreeOptions{}, RecordKind::entries, *locale_), u"");
}

TEST_F(ListRowsTest, FiltersByPropertiesThatAreReadForItOnly) {
    add(2, u"Ann", u"Call", 100, EntryStatus::billable, u"EUR");
    const RecordId wanted = add(2, u"Ann", u"Visit", 100, EntryStatus::paid, u"USD");
    add(2, u"Bob", u"Visit", 100, EntryStatus::paid, u"USD");
    ListQuery query;
    query.entryFilter.client = u"Ann";
    query.entryFilter.task = u"Visit";
    query.entryFilter.currency = u"USD";
    query.entryFilter.showBillable = false;
    const auto list = rows(query);
    list->loadAll();
    EXPECT_EQ(ids(*list), std::vector{wanted});
    EXPECT_EQ(list->totals().amounts, (std::map<std::u16string, double>{{u"USD", 50.0}}));
}

TEST_F(ListRowsTest, SimpleRowsAsTheOptionsWantThem) {
    TimeEntry entry{.client = u"Ann",
                    .project = u"Site",
                    .phase = u"Plan",
                    .task = u"Call",
                    .duration = 150,
                    .status = EntryStatus::billable,
                    .currency = u"EUR",
                    .rate = 5000};
    ASSERT_TRUE(store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = 2, .hour = 9, .minute = 30}));
    change([&](platform::Transaction& t) { ASSERT_TRUE(store::saveTimeEntry(t, stores(), entry)); });
    const auto list = rows({});
    list->loadAll();
    struct Case {
        EntryTimeShown time;
        bool client;
        SimpleRow expected;
    };
    const Case cases[] = {
        {EntryTimeShown::startAndEnd,
         true,
         {u"Ann · Site / Call", u"1.50h", u"11/2/26 · 9:30 AM–11:00 AM · Plan", u"75.00 EUR"}},
        {EntryTimeShown::start, true, {u"Ann · Site / Call", u"1.50h", u"11/2/26 · 9:30 AM · Plan", u"75.00 EUR"}},
        {EntryTimeShown::duration, false, {u"Site / Call", u"1.50h", u"11/2/26 · Plan", u"75.00 EUR"}},
        {EntryTimeShown::none, true, {u"Ann · Site / Call", u"", u"11/2/26 · Plan", u"75.00 EUR"}},
    };
    for (const Case& c : cases) {
        DisplaySettings display;
        display.entryTime = c.time;
        display.showClientName = c.client;
        const SimpleRow row = list->simpleRow(0, display);
        EXPECT_EQ(row.title, c.expected.title);
        EXPECT_EQ(row.titleRight, c.expected.titleRight);
        EXPECT_EQ(row.detail, c.expected.detail);
        EXPECT_EQ(row.detailRight, c.expected.detailRight);
    }
}

TEST_F(ListRowsTest, CopiesRowsWithTabs) {
    add(2, u"Tab\there", u"Call");
    add(3, u"Bob", u"");
    const auto list = rows({});
    list->loadAll();
    const std::vector<std::size_t> columns{4, 1};
    const std::vector<std::u16string> titles{u"Date", u"Client", u"Project", u"Phase", u"Task"};
    const std::vector<std::size_t> one{0};
    const std::vector<std::size_t> both{0, 1};
    EXPECT_EQ(copiedText(*list, one, columns, titles), u"Call\tTab here\n");
    EXPECT_EQ(copiedText(*list, both, columns, titles), u"Task\tClient\nCall\tTab here\n\tBob\n");
}

// What dealing rows out to their groups gives is what sorting them gives.
TEST_F(ListRowsTest, ManyRowsStandAsSortingArrangesThem) {
    std::mt19937 random(7);
    const std::array<std::u16string, 6> texts{u"abel", u"Abel", u"Zo\u00eb", u"zoe", u"", u"x"};
    change([&](platform::Transaction& t) {
        for (int i = 0; i < 400; ++i) {
            TimeEntry entry{.client = texts[random() % texts.size()], .task = texts[random() % texts.size()]};
            ASSERT_TRUE(store::setDateWithoutStart(
                entry, {.year = 2026, .month = 11, .day = static_cast<std::uint16_t>(1 + random() % 9)}));
            ASSERT_TRUE(store::insertTimeEntry(t, stores().entries(), entry));
        }
    });
    std::vector<TimeEntry> entries;
    store::DateWalk walk(stores().entries(), {});
    for (TimeEntry entry; walk.next(entry) == store::ReadResult::ok;)
        entries.push_back(entry);
    for (const std::uint16_t by : {std::uint16_t{1}, std::uint16_t{4}}) {
        std::vector<TimeEntry> sorted = entries;
        arrange(sorted, by, *locale_);
        const auto list = rows({.arrangedBy = by});
        list->loadAll();
        std::vector<RecordId> expected;
        for (const TimeEntry& entry : sorted)
            expected.push_back(entry.id);
        EXPECT_EQ(ids(*list), expected) << by;
    }
}

// A search reads less than a row does; it finds what the rows show all the same.
TEST_F(ListRowsTest, ASearchFindsExactlyTheRowsThatShowTheText) {
    for (int day = 1; day <= 9; ++day)
        add(day, day % 2 == 0 ? u"Ann" : u"Bob", day % 3 == 0 ? u"Call" : u"Visit", 25 * day,
            static_cast<EntryStatus>(day % 4), day % 2 == 0 ? u"EUR" : u"USD");
    change([&](platform::Transaction& t) {
        store::ExpenseEntry mileage{.type = store::ExpenseType::mileage, .startOdometer = 123456, .distance = 78};
        ASSERT_TRUE(store::saveExpenseEntry(t, stores(), mileage));
        store::ExpenseEntry general{.description = u"Ferry", .category = u"Travel", .amount = 4711, .receipt = true};
        ASSERT_TRUE(store::saveExpenseEntry(t, stores(), general));
    });
    for (const RecordKind kind : {RecordKind::entries, RecordKind::expenses}) {
        for (const std::uint16_t by : {std::uint16_t{0}, std::uint16_t{1}}) {
            ListQuery query{.records = kind, .arrangedBy = by};
            query.entryFilter.client = u"Ann";
            const auto list = rows(query);
            list->loadAll();
            ASSERT_GE(list->size(), 2U);
            for (std::size_t column = 0; column < list->columnCount(); ++column)
                for (std::size_t row = 0; row < list->size(); ++row) {
                    const std::u16string text = list->cell(row, column);
                    std::vector<std::size_t> expected;
                    for (std::size_t other = 0; other < list->size(); ++other)
                        if (list->cell(other, column) == text)
                            expected.push_back(other);
                    const auto search = list->search({column}, [&](std::u16string_view cell) { return cell == text; });
                    while (search->look(2)) {
                    }
                    EXPECT_EQ(search->found(), expected) << column << ' ' << row;
                }
        }
    }
}

TEST(ArrangementOf, ColumnsThatHaveOne) {
    EXPECT_EQ(arrangementOf(RecordKind::entries, "date"), 0);
    EXPECT_EQ(arrangementOf(RecordKind::entries, "bill-to"), 5);
    EXPECT_EQ(arrangementOf(RecordKind::entries, "amount"), std::nullopt);
    EXPECT_EQ(arrangementOf(RecordKind::expenses, "category"), 3);
    EXPECT_EQ(arrangementOf(RecordKind::expenses, "phase"), std::nullopt);
}

} // namespace
} // namespace hourwright::app
