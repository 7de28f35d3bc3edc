#include "billing/bulk_change.h"

#include "billing_fixture.h"

namespace hourwright::billing {
namespace {

using store::EntryStatus;
using store::RecordId;
using store::TimeEntry;
using test::november;

constexpr platform::FileTime none{};

class BulkChangeTest : public test::BillingFixture {
protected:
    // One entry a day from the first on.
    void insertEach(const std::vector<TimeEntry>& entries) {
        std::uint16_t day = 1;
        for (TimeEntry entry : entries) {
            entry.date = november(day++);
            insert(entry);
        }
    }
    const platform::FileTime paidDate_ = november(20);
    const platform::FileTime now_ = test::instant({.year = 2026, .month = 11, .day = 21, .hour = 9, .minute = 30});
    const platform::FileTime earlier_ = november(10);
};

struct MarkCase {
    const char* name;
    EntryStatus before;
    EntryStatus paid;
    EntryStatus billed;
    bool getsPaidDate;
};

const MarkCase markCases[] = {
    {"non billable", EntryStatus::nonBillable, EntryStatus::nonBillable, EntryStatus::nonBillable, false},
    {"billable", EntryStatus::billable, EntryStatus::paid, EntryStatus::billed, true},
    {"billed", EntryStatus::billed, EntryStatus::paid, EntryStatus::billed, true},
    {"paid", EntryStatus::paid, EntryStatus::paid, EntryStatus::paid, false},
    {"unknown", EntryStatus{9}, EntryStatus{9}, EntryStatus{9}, false},
};

// An entry in which every field has a value of its own, to see that a rewrite keeps them.
TimeEntry fullEntry(EntryStatus status, platform::FileTime paidDate) {
    return {.client = u"Acme",
            .project = u"Dam",
            .phase = u"Survey",
            .task = u"Dig",
            .duration = 150,
            .breakTime = 25,
            .status = status,
            .currency = u"EUR",
            .rate = 4550,
            .rateType = store::RateType::weekend,
            .billTo = u"Ann",
            .custom1 = u"1",
            .custom2 = u"2",
            .custom3 = u"3",
            .note = {std::byte{'{'}, std::byte{'}'}},
            .paidDate = paidDate};
}

TEST_F(BulkChangeTest, MarkPaidChangesWhatIsUnpaidAndStampsEverything) {
    for (const MarkCase& c : markCases)
        insert([&] {
            TimeEntry entry = fullEntry(c.before, c.before == EntryStatus::paid ? earlier_ : none);
            entry.date = november(3);
            return entry;
        }());
    const auto before = allEntries();
    change([&](auto& transaction) {
        EXPECT_EQ(markAllPaid(transaction, stores().entries(), {}, paidDate_, now_), std::size(markCases));
    });
    const auto after = allEntries();
    ASSERT_EQ(after.size(), std::size(markCases));
    for (std::size_t i = 0; i < after.size(); ++i) {
        TimeEntry expected = before[i];
        expected.status = markCases[i].paid;
        expected.modified = now_;
        expected.flags = 3;
        if (markCases[i].getsPaidDate)
            expected.paidDate = paidDate_;
        EXPECT_EQ(after[i], expected) << markCases[i].name;
    }
}

TEST_F(BulkChangeTest, MarkBilledChangesOnlyWhatIsBillable) {
    for (const MarkCase& c : markCases)
        insertEach({{.client = u"Acme", .status = c.before}});
    change([&](auto& transaction) {
        EXPECT_EQ(markAllBilled(transaction, stores().entries(), {}, now_), std::size(markCases));
    });
    const auto after = allEntries();
    ASSERT_EQ(after.size(), std::size(markCases));
    for (std::size_t i = 0; i < after.size(); ++i) {
        EXPECT_EQ(after[i].status, markCases[i].billed) << markCases[i].name;
        EXPECT_EQ(after[i].modified, now_) << markCases[i].name;
        EXPECT_EQ(after[i].paidDate, none) << markCases[i].name;
    }
}

TEST_F(BulkChangeTest, RecordsOfEarlierVersionsGetTodaysForm) {
    using platform::PropertyValue;
    const std::vector<PropertyValue> old = {PropertyValue::ofFileTime(1001, november(2)),
                                            PropertyValue::ofText(1002, u"Acme"), PropertyValue::ofBoolean(1009, true),
                                            PropertyValue::ofUi2(1018, 5), PropertyValue::ofUi2(1006, 150)};
    RecordId id{};
    change([&](auto& transaction) { id = stores().entries().write(transaction, RecordId::none, old); });
    change(
        [&](auto& transaction) { EXPECT_EQ(markAllPaid(transaction, stores().entries(), {}, paidDate_, now_), 1U); });
    ASSERT_EQ(stores().entries().seek(platform::Seek::toId(id)), id);
    platform::PropertyBuffer stored;
    ASSERT_EQ(stores().entries().read(stored), store::ReadResult::ok);
    std::vector<std::uint16_t> fields;
    for (const PropertyValue& value : stored.values())
        fields.push_back(value.id.number());
    EXPECT_EQ(fields, (std::vector<std::uint16_t>{1001, 1002, 1006, 1019, 1020, 1021, 1022}));
    EXPECT_EQ(allEntries().front().status, EntryStatus::paid);
}

TEST_F(BulkChangeTest, ARepeatedRewriteAddsTheThirdFlag) {
    insertEach({{.client = u"Acme"}});
    for (const int flags : {3, 7, 7}) {
        change([&](auto& transaction) { EXPECT_EQ(markAllBilled(transaction, stores().entries(), {}, now_), 1U); });
        EXPECT_EQ(allEntries().front().flags, flags);
    }
}

TEST_F(BulkChangeTest, OnlySelectedEntriesAreTouched) {
    const auto at = [this](const platform::SystemTime& time, const char16_t* client) {
        insert({.date = test::instant(time), .client = client, .status = EntryStatus::billable});
    };
    at({.year = 2026, .month = 11, .day = 2, .hour = 23, .minute = 59}, u"Acme"); // the day before
    at({.year = 2026, .month = 11, .day = 3}, u"Acme");
    at({.year = 2026, .month = 11, .day = 4}, u"Other");
    at({.year = 2026, .month = 11, .day = 5, .hour = 23, .minute = 59, .second = 1}, u"Acme");
    at({.year = 2026, .month = 11, .day = 6}, u"Acme"); // the day behind
    const EntrySelection selection{.range = test::novemberDays(3, 5),
                                   .accepts = [](const TimeEntry& entry) { return entry.client == u"Acme"; }};
    std::vector<std::size_t> progress;
    change([&](auto& transaction) {
        EXPECT_EQ(markAllPaid(transaction, stores().entries(), selection, paidDate_, now_,
                              [&](std::size_t walked) {
                                  progress.push_back(walked);
                                  return true;
                              }),
                  2U);
    });
    EXPECT_EQ(progress, (std::vector<std::size_t>{1, 2, 3}));
    std::vector<bool> paid;
    for (const TimeEntry& entry : allEntries())
        paid.push_back(entry.status == EntryStatus::paid && entry.modified == now_);
    EXPECT_EQ(paid, (std::vector<bool>{false, true, false, true, false}));
}

TEST_F(BulkChangeTest, DeletesOnlySelectedEntries) {
    insertEach({{.client = u"Acme"}, {.client = u"Acme"}, {.client = u"Other"}, {.client = u"Acme"}});
    const EntrySelection selection{.range = test::novemberDays(2, 4),
                                   .accepts = [](const TimeEntry& entry) { return entry.client == u"Acme"; }};
    change([&](auto& transaction) { EXPECT_EQ(deleteAll(transaction, stores().entries(), selection), 2U); });
    const auto left = allEntries();
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(left[0].date, november(1));
    EXPECT_EQ(left[1].client, u"Other");
}

TEST_F(BulkChangeTest, NothingIsChangedWithoutACommit) {
    insertEach({{.client = u"Acme", .status = EntryStatus::billable}, {.client = u"Acme"}});
    const auto before = allEntries();
    {
        const auto transaction = objects().begin();
        EXPECT_EQ(markAllPaid(*transaction, stores().entries(), {}, paidDate_, now_), 2U);
        EXPECT_EQ(deleteAll(*transaction, stores().entries(), {}), 2U);
        EXPECT_TRUE(allEntries().empty());
    }
    EXPECT_EQ(allEntries(), before);
}

TEST_F(BulkChangeTest, ARecordThatCannotBeRewrittenStopsTheChange) {
    insertEach({{.client = u"Acme", .status = EntryStatus::billable}});
    const std::vector<platform::PropertyValue> foreign = {
        platform::PropertyValue::ofFileTime(1001, november(2)), platform::PropertyValue::ofText(1002, u"Acme"),
        platform::PropertyValue::ofUi4(1008, 0x8000'0000)}; // no rate of ours
    change([&](auto& transaction) {
        ASSERT_NE(stores().entries().write(transaction, RecordId::none, foreign), RecordId::none);
    });
    const auto transaction = objects().begin();
    EXPECT_FALSE(markAllPaid(*transaction, stores().entries(), {}, paidDate_, now_));
    EXPECT_EQ(stores().entries().lastError(), platform::PlatformError::invalidParameter);
}

} // namespace
} // namespace hourwright::billing
