#include "app/drafts/draft_journal.h"

#include "app/drafts/draft_bytes.h"
#include "platform/icu/icu_locale.h"
#include "support/memory_registry.h"

#include <gtest/gtest.h>

namespace hourwright::app {

namespace {

using store::EntryStatus;
using store::RateType;
using store::RecordId;

constexpr platform::SystemTime day{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 16};
constexpr platform::SystemTime time{.year = 2026, .month = 11, .day = 16, .hour = 9, .minute = 30, .milliseconds = 999};
constexpr platform::FileTime now{134'077'284'000'000'000};

std::vector<std::byte> bytesOf(std::initializer_list<int> values) {
    std::vector<std::byte> bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

// No member has the value that it begins with, and no two texts are the same.
store::TimeEntry fullEntry(int number) {
    const auto text = [number](char16_t letter) { return std::u16string(static_cast<std::size_t>(number), letter); };
    return {.id = static_cast<RecordId>(41 + number),
            .date = {now.ticks + 7},
            .client = text(u'a'),
            .project = text(u'b'),
            .phase = text(u'c'),
            .task = text(u'd'),
            .duration = -5,
            .breakTime = 2'147'483'647,
            .status = EntryStatus::paid,
            .currency = text(u'e'),
            .rate = -2'147'483'648,
            .rateType = RateType::discount,
            .billTo = text(u'f'),
            .custom1 = text(u'g'),
            .custom2 = text(u'h'),
            .custom3 = text(u'i'),
            .note = bytesOf({0, 255, 128, number}),
            .paidDate = {5},
            .modified = {6},
            .flags = 65535};
}

billing::EntryDraft fullDraft(std::u16string_view mark) {
    const auto text = [mark](char16_t letter) { return std::u16string(mark) + letter; };
    return {.date = day,
            .start = time,
            .withoutStart = true,
            .end = time,
            .client = text(u'A'),
            .project = text(u'B'),
            .phase = u"",
            .task = text(u'D'),
            .duration = u"two hours",
            .breakTime = text(u'F'),
            .status = EntryStatus{99},
            .billTo = text(u'G'),
            .rate = text(u'H'),
            .chosenRate = -1,
            .rateType = RateType::fixed,
            .currency = text(u'I'),
            .custom1 = text(u'J'),
            .custom2 = text(u'K'),
            .custom3 = text(u'L'),
            .paidDate = now,
            .note = billing::NoteDraft{bytesOf({1, 2, 3}), 4711}};
}

KeptEntry fullKeptEntry() {
    return {.stored = fullEntry(1),
            .base = fullEntry(2),
            .opened = fullDraft(u"was "),
            .draft = fullDraft(u"is "),
            .timesTaken = true,
            .suggestsRates = true,
            .timer = KeptTimer{3, now}};
}

KeptExpense fullKeptExpense() {
    return {.stored = {.id = static_cast<RecordId>(7),
                       .type = store::ExpenseType::mileage,
                       .date = now,
                       .description = u"a",
                       .client = u"bb",
                       .project = u"大阪",
                       .category = u"d",
                       .startOdometer = 4'294'967'295,
                       .distance = 1,
                       .status = EntryStatus::billed,
                       .currency = u"e",
                       .amount = 4'294'967'295,
                       .receipt = true,
                       .paidDate = {1},
                       .billTo = u"f",
                       .custom1 = u"g",
                       .custom2 = u"h",
                       .note = u"line\nline",
                       .modified = {2},
                       .flags = 3},
            .draft = {.date = day,
                      .client = u"A",
                      .project = u"B",
                      .description = u"C",
                      .category = u"D",
                      .startOdometer = u"E",
                      .distance = u"F",
                      .amount = u"G",
                      .currency = u"H",
                      .status = EntryStatus::paid,
                      .receipt = false,
                      .paidDate = now,
                      .billTo = u"I",
                      .custom1 = u"J",
                      .custom2 = u"K",
                      .note = u"L"},
            .typedEndOdometer = u"before the start"};
}

TEST(DraftBytesTest, gives_everything_back) {
    const std::vector<KeptRecord> records{fullKeptEntry(), fullKeptExpense(), KeptEntry{}, KeptExpense{}};
    for (const KeptRecord& record : records) {
        const auto bytes = draftBytes(record);
        EXPECT_EQ(draftFromBytes(bytes), record) << bytes.size();
    }
}

// What is cut off anywhere, has something behind it or is of another form is no draft.
TEST(DraftBytesTest, takes_nothing_that_is_not_whole) {
    for (const KeptRecord& record : {KeptRecord(fullKeptEntry()), KeptRecord(fullKeptExpense())}) {
        auto bytes = draftBytes(record);
        for (std::size_t size = 0; size < bytes.size(); ++size)
            ASSERT_EQ(draftFromBytes(std::span(bytes).first(size)), std::nullopt) << size;
        bytes.push_back(std::byte{0});
        EXPECT_EQ(draftFromBytes(bytes), std::nullopt);
        bytes.pop_back();
        bytes.front() = std::byte{2};
        EXPECT_EQ(draftFromBytes(bytes), std::nullopt);
    }
    EXPECT_EQ(draftFromBytes(bytesOf({1, 2})), std::nullopt); // no such kind
}

TEST(DraftJournalTest, keeps_each_place_until_it_is_erased) {
    test::MemoryRegistry registry;
    DraftJournal journal(registry);
    EXPECT_TRUE(journal.read().empty());
    journal.erase(3); // where nothing is
    EXPECT_TRUE(journal.write(3, fullKeptExpense(), now));
    EXPECT_TRUE(journal.write(0, KeptEntry{}, {5}));
    EXPECT_TRUE(journal.write(0, fullKeptEntry(), now));
    const auto drafts = DraftJournal(registry).read();
    ASSERT_EQ(drafts.size(), 2U);
    EXPECT_EQ(drafts[0].place, 0U);
    EXPECT_EQ(drafts[0].written, now);
    EXPECT_EQ(drafts[0].record, KeptRecord(fullKeptEntry()));
    EXPECT_EQ(drafts[1].place, 3U);
    EXPECT_EQ(drafts[1].record, KeptRecord(fullKeptExpense()));
    journal.erase(0);
    ASSERT_EQ(journal.read().size(), 1U);
    EXPECT_EQ(journal.read().front().place, 3U);
}

TEST(DraftJournalTest, leaves_out_what_is_damaged) {
    test::MemoryRegistry registry;
    DraftJournal journal(registry);
    ASSERT_TRUE(journal.write(0, fullKeptEntry(), now));
    ASSERT_TRUE(journal.write(1, fullKeptExpense(), now));
    const auto key = registry.open(u"Software\\Hourwright\\Drafts");
    ASSERT_TRUE(key->writeBinary(u"Draft0", bytesOf({1, 2, 3, 4, 5, 6, 7})));
    ASSERT_TRUE(key->writeString(u"Draft2", u"no draft at all"));
    const auto drafts = journal.read();
    ASSERT_EQ(drafts.size(), 1U);
    EXPECT_EQ(drafts[0].place, 1U);
}

TEST(DescribeDraftTest, says_what_stands_in_the_fields) {
    const auto locale = platform::makeIcuLocale("en_US");
    KeptEntry entry{.draft = {.date = day, .client = u"Acme", .project = u"", .task = u"Review"}};
    EXPECT_EQ(describe(KeptRecord(entry), *locale), u"New time entry, 11/16/26\nAcme · Review");
    entry = {};
    entry.stored.id = static_cast<RecordId>(1);
    EXPECT_EQ(describe(KeptRecord(entry), *locale), u"Time entry");
    KeptExpense expense{.draft = {.date = day, .description = u"Taxi"}};
    EXPECT_EQ(describe(KeptRecord(expense), *locale), u"New expense, 11/16/26\nTaxi");
    expense.stored.type = store::ExpenseType::mileage;
    expense.stored.id = static_cast<RecordId>(1);
    EXPECT_EQ(describe(KeptRecord(expense), *locale), u"Mileage expense, 11/16/26\nTaxi");
}

} // namespace

} // namespace hourwright::app
