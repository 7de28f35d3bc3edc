#include "billing/record_merge.h"

#include <gtest/gtest.h>

namespace hourwright::billing {
namespace {

using store::EntryStatus;
using store::ExpenseEntry;
using store::TimeEntry;

const TimeEntry openedEntry{.id = store::RecordId{7},
                            .date = {1000},
                            .client = u"Acme",
                            .task = u"Review",
                            .duration = 100,
                            .status = EntryStatus::billable,
                            .currency = u"USD",
                            .rate = 5000,
                            .modified = {1},
                            .flags = 1};

template<typename Record>
struct Case {
    const char* name;
    void (*edit)(Record&);
    void (*other)(Record&);
    bool collides;
    void (*expected)(Record&); ///< what is not as the other one stored it
};

template<typename Record>
void expectMerges(const Record& opened, std::initializer_list<Case<Record>> cases) {
    for (const auto& c : cases) {
        Record edited = opened;
        Record stored = opened;
        stored.modified = {2};
        stored.flags = 2;
        c.edit(edited);
        c.other(stored);
        const auto merged = mergeRecords(opened, edited, stored);
        Record expected = stored;
        c.expected(expected);
        EXPECT_EQ(merged.record, expected) << c.name;
        EXPECT_EQ(merged.collides, c.collides) << c.name;
    }
}

TEST(RecordMerge, KeepsWhatBothChangedInATimeEntry) {
    using E = TimeEntry;
    expectMerges<E>(openedEntry,
                    {{"nothing edited", [](E&) {}, [](E& e) { e.task = u"x"; }, false, [](E&) {}},
                     {"other fields", [](E& e) { e.phase = u"mine"; }, [](E& e) { e.task = u"x"; }, false,
                      [](E& e) { e.phase = u"mine"; }},
                     {"the same field", [](E& e) { e.task = u"mine"; }, [](E& e) { e.task = u"x"; }, true,
                      [](E& e) { e.task = u"mine"; }},
                     {"the same change", [](E& e) { e.task = u"x"; }, [](E& e) { e.task = u"x"; }, false, [](E&) {}},
                     {"cleared against changed", [](E& e) { e.client.clear(); }, [](E& e) { e.client = u"x"; }, true,
                      [](E& e) { e.client.clear(); }},
                     {"start against duration", [](E& e) { e.date = {2000}; }, [](E& e) { e.duration = 50; }, true,
                      [](E& e) {
                          e.date = {2000};
                          e.duration = 100;
                      }},
                     {"rate against currency", [](E& e) { e.rate = 1; }, [](E& e) { e.currency = u"EUR"; }, true,
                      [](E& e) {
                          e.rate = 1;
                          e.currency = u"USD";
                      }},
                     {"paid by the other, note edited", [](E& e) { e.note = {std::byte{1}}; },
                      [](E& e) {
                          e.status = EntryStatus::paid;
                          e.paidDate = {9};
                      },
                      false, [](E& e) { e.note = {std::byte{1}}; }}});
}

TEST(RecordMerge, KeepsWhatBothChangedInAnExpense) {
    using E = ExpenseEntry;
    const E opened{.id = store::RecordId{7}, .date = {1000}, .client = u"Acme", .distance = 5, .amount = 100};
    expectMerges<E>(opened,
                    {{"other fields", [](E& e) { e.amount = 2; }, [](E& e) { e.client = u"Bolt"; }, false,
                      [](E& e) { e.amount = 2; }},
                     {"the same field", [](E& e) { e.client = u"Acorn"; }, [](E& e) { e.client = u"Bolt"; }, true,
                      [](E& e) { e.client = u"Acorn"; }},
                     {"the odometer's readings", [](E& e) { e.startOdometer = 3; }, [](E& e) { e.distance = 6; }, true,
                      [](E& e) {
                          e.startOdometer = 3;
                          e.distance = 5;
                      }},
                     {"a receipt", [](E& e) { e.receipt = true; }, [](E& e) { e.date = {5}; }, false,
                      [](E& e) { e.receipt = true; }}});
}

// A member that is forgotten in the merge would silently stay as it was stored.
TEST(RecordMerge, TakesOverEveryField) {
    TimeEntry entry{.id = openedEntry.id,
                    .date = {5},
                    .client = u"a",
                    .project = u"b",
                    .phase = u"c",
                    .task = u"d",
                    .duration = 1,
                    .breakTime = 2,
                    .status = EntryStatus::paid,
                    .currency = u"e",
                    .rate = 3,
                    .rateType = store::RateType::fixed,
                    .billTo = u"f",
                    .custom1 = u"g",
                    .custom2 = u"h",
                    .custom3 = u"i",
                    .note = {std::byte{1}},
                    .paidDate = {4}};
    EXPECT_EQ(mergeRecords({.id = entry.id}, entry, {.id = entry.id}).record, entry);
    ExpenseEntry expense{.id = entry.id,
                         .date = {5},
                         .description = u"a",
                         .client = u"b",
                         .project = u"c",
                         .category = u"d",
                         .startOdometer = 1,
                         .distance = 2,
                         .status = EntryStatus::paid,
                         .currency = u"e",
                         .amount = 3,
                         .receipt = true,
                         .paidDate = {4},
                         .billTo = u"f",
                         .custom1 = u"g",
                         .custom2 = u"h",
                         .note = u"i"};
    EXPECT_EQ(mergeRecords({.id = entry.id}, expense, {.id = entry.id}).record, expense);
}

} // namespace
} // namespace hourwright::billing
