#include "billing/entry_draft.h"

#include <gtest/gtest.h>

namespace hourwright::billing {

namespace {

using platform::PlatformError;
using resources::StringId;
using store::TimeEntry;

constexpr platform::SystemTime day{.year = 2026, .month = 11, .day = 16};

EntryDraft fullDraft() {
    EntryDraft draft;
    draft.date = day;
    draft.start = platform::SystemTime{.hour = 9};
    draft.client = u"Acme";
    draft.project = u"Site";
    draft.phase = u"Design";
    draft.task = u"Review";
    draft.duration = u"1.5";
    draft.breakTime = u".25";
    draft.status = store::EntryStatus::billed;
    draft.billTo = u"Bo";
    draft.rate = u"45.509";
    draft.rateType = store::RateType::weekend;
    draft.currency = u"EUR";
    draft.custom1 = u"1";
    draft.custom2 = u"2";
    draft.custom3 = u"3";
    draft.paidDate = platform::FileTime{77};
    draft.note = NoteDraft{{std::byte{1}}, 65'000};
    return draft;
}

TEST(EntryDraft, fillsEveryField) {
    TimeEntry entry;
    ASSERT_EQ(applyDraft(fullDraft(), {}, entry), std::nullopt);
    TimeEntry expected;
    expected.date = *platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = 9, .second = 1});
    expected.client = u"Acme";
    expected.project = u"Site";
    expected.phase = u"Design";
    expected.task = u"Review";
    expected.duration = 150;
    expected.breakTime = 25;
    expected.status = store::EntryStatus::billed;
    expected.billTo = u"Bo";
    expected.rate = 4550;
    expected.rateType = store::RateType::weekend;
    expected.currency = u"EUR";
    expected.custom1 = u"1";
    expected.custom2 = u"2";
    expected.custom3 = u"3";
    expected.paidDate = platform::FileTime{77};
    expected.note = {std::byte{1}};
    EXPECT_EQ(entry, expected);
}

TEST(EntryDraft, leavesWhatWasNotTouched) {
    TimeEntry entry;
    ASSERT_EQ(applyDraft(fullDraft(), {}, entry), std::nullopt);
    const TimeEntry before = entry;
    // An untouched duration is not typed again: granularity would raise it.
    ASSERT_EQ(applyDraft({}, {.granularityOn = true, .granularityMinutes = 20}, entry), std::nullopt);
    EXPECT_EQ(entry, before);
}

TEST(EntryDraft, datesAndStartsGoTheirOwnWays) {
    TimeEntry entry;
    ASSERT_EQ(applyDraft(fullDraft(), {}, entry), std::nullopt);
    EntryDraft moved;
    moved.date = platform::SystemTime{.year = 2026, .month = 12, .day = 1, .hour = 5};
    ASSERT_EQ(applyDraft(moved, {}, entry), std::nullopt);
    EXPECT_EQ(entry.date, platform::toFileTime({.year = 2026, .month = 12, .day = 1, .hour = 9, .second = 1}));
    EntryDraft later;
    later.start = platform::SystemTime{.hour = 10, .minute = 30};
    ASSERT_EQ(applyDraft(later, {}, entry), std::nullopt);
    EXPECT_EQ(entry.date,
              platform::toFileTime({.year = 2026, .month = 12, .day = 1, .hour = 10, .minute = 30, .second = 1}));
    EntryDraft cleared;
    cleared.withoutStart = true;
    ASSERT_EQ(applyDraft(cleared, {}, entry), std::nullopt);
    EXPECT_EQ(entry.date, platform::toFileTime({.year = 2026, .month = 12, .day = 1}));
}

TEST(EntryDraft, anEndDecidesTheDurationWithTheNewBreak) {
    EntryDraft draft = fullDraft();
    draft.end = platform::SystemTime{.hour = 9, .minute = 20};
    draft.breakTime = u"";
    TimeEntry entry;
    ASSERT_EQ(applyDraft(draft, {.preciseMinutes = true}, entry), std::nullopt);
    EXPECT_EQ(entry.duration, 34);
    EXPECT_EQ(entry.breakTime, 0);
}

TEST(EntryDraft, isRefusedInTheOrderOfTheChecks) {
    struct Row {
        const char* name;
        void (*spoil)(EntryDraft&);
        DraftRefusal refusal;
    };
    constexpr auto failed = PlatformError::invalidParameter;
    // From the last check to the first: each row spoils one field more and moves the refusal to the front.
    const Row rows[] = {
        {"note", [](EntryDraft& d) { d.note->characters = 65'001; }, {DraftField::note, StringId::noteTooLarge}},
        {"custom",
         [](EntryDraft& d) { d.custom2 = std::u16string(129, u'x'); },
         {DraftField::custom2, StringId::error, failed}},
        {"negative rate", [](EntryDraft& d) { d.rate = u"-1"; }, {DraftField::rate, StringId::error, failed}},
        {"rate", [](EntryDraft& d) { d.rate = u"1e2"; }, {DraftField::rate, StringId::rateInvalid}},
        {"end",
         [](EntryDraft& d) { d.end = platform::SystemTime{.hour = 9, .minute = 10}; },
         {DraftField::end, StringId::error, failed}}, // less than the break
        {"large break", [](EntryDraft& d) { d.breakTime = u"656"; }, {DraftField::breakTime, StringId::error, failed}},
        {"break", [](EntryDraft& d) { d.breakTime = u"1h"; }, {DraftField::breakTime, StringId::numericOnly}},
        {"large duration",
         [](EntryDraft& d) {
             d.end.reset();
             d.duration = u"655.36";
         },
         {DraftField::duration, StringId::error, failed}},
        {"no duration", [](EntryDraft& d) { d.duration = u""; }, {DraftField::duration, StringId::durationMissing}},
        {"duration", [](EntryDraft& d) { d.duration = u"1h"; }, {DraftField::duration, StringId::numericOnly}},
        {"task", [](EntryDraft& d) { d.task = u""; }, {DraftField::task, StringId::taskMissing}},
        {"phase",
         [](EntryDraft& d) { d.phase = std::u16string(129, u'x'); },
         {DraftField::phase, StringId::error, failed}},
        {"client",
         [](EntryDraft& d) { d.client = std::u16string(129, u'x'); },
         {DraftField::client, StringId::error, failed}},
        {"date", [](EntryDraft& d) { d.date->day = 32; }, {DraftField::date, StringId::error, failed}},
    };
    EntryDraft draft = fullDraft();
    TimeEntry entry;
    entry.custom1 = u"as it was";
    const TimeEntry before = entry;
    for (const Row& row : rows) {
        row.spoil(draft);
        EXPECT_EQ(applyDraft(draft, {}, entry), row.refusal) << row.name;
        EXPECT_EQ(entry, before) << row.name;
    }
}

} // namespace

} // namespace hourwright::billing
