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
        {"custom",
         [](EntryDraft& d) { d.custom2 = std::u16string(129, u'x'); },
         {DraftField::custom2, StringId::error, failed}},
        {"note", [](EntryDraft& d) { d.note->characters = 65'001; }, {DraftField::note, StringId::noteTooLarge}},
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

TEST(EntryDraft, aPageIsCheckedAndTakenOverByItself) {
    EntryDraft draft = fullDraft();
    draft.task = u"";
    draft.rate = u"x";
    TimeEntry entry;
    EXPECT_EQ(applyPage(DraftPage::general, draft, {}, entry)->field, DraftField::task);
    EXPECT_EQ(applyPage(DraftPage::billing, draft, {}, entry)->field, DraftField::rate);
    EXPECT_EQ(entry, TimeEntry{});
    ASSERT_EQ(applyPage(DraftPage::custom, draft, {}, entry), std::nullopt);
    TimeEntry expected;
    expected.custom1 = u"1";
    expected.custom2 = u"2";
    expected.custom3 = u"3";
    EXPECT_EQ(entry, expected);
}

TEST(EntryDraft, aRefusalNamesAFieldOfThePageThatWasChecked) {
    struct Row {
        DraftPage page;
        std::vector<DraftField> fields;
    };
    const Row rows[] = {
        {DraftPage::general,
         {DraftField::date, DraftField::start, DraftField::client, DraftField::project, DraftField::phase,
          DraftField::task, DraftField::duration, DraftField::breakTime, DraftField::end}},
        {DraftPage::billing,
         {DraftField::status, DraftField::billTo, DraftField::rate, DraftField::rateType, DraftField::currency,
          DraftField::paidDate}},
        {DraftPage::note, {DraftField::note}},
        {DraftPage::custom, {DraftField::custom1, DraftField::custom2, DraftField::custom3}},
    };
    for (const Row& row : rows)
        for (const DraftField field : row.fields)
            EXPECT_EQ(pageOf(field), row.page) << static_cast<int>(field);
}

TEST(EntryDraft, theUncheckedStartWinsOverTheTimeShown) {
    EntryDraft draft = fullDraft();
    draft.withoutStart = true;
    TimeEntry entry;
    ASSERT_EQ(applyDraft(draft, {}, entry), std::nullopt);
    EXPECT_EQ(entry.date, platform::toFileTime(day));
}

TEST(EntryDraft, ofADurationSixteenCharactersAreRead) {
    EntryDraft draft = fullDraft();
    draft.duration = u"00000000000000012"; // the 2 is the 17th
    TimeEntry entry;
    ASSERT_EQ(applyDraft(draft, {}, entry), std::nullopt);
    EXPECT_EQ(entry.duration, 100);
}

constexpr platform::SystemTime now{.year = 2026, .month = 11, .day = 17, .hour = 14, .minute = 7};

TEST(EntryDraft, opensOnWhatTheEntryHas) {
    TimeEntry entry;
    ASSERT_EQ(applyDraft(fullDraft(), {}, entry), std::nullopt);
    EntryDraft expected = fullDraft();
    expected.date = expected.start = platform::toSystemTime(entry.date);
    expected.duration = u"1.50";
    expected.breakTime = u"0.25";
    expected.rate = u"45.50";
    expected.note.reset();
    EXPECT_EQ(draftOf(entry, now), expected);

    store::setDateWithoutStart(entry, day);
    entry.duration = 0;
    EXPECT_EQ(draftOf(entry, now).duration, u"");
    entry.id = store::RecordId{7};
    EXPECT_EQ(draftOf(entry, now).duration, u"0.00");
    EXPECT_TRUE(draftOf(entry, now).withoutStart);
    EXPECT_EQ(draftOf(entry, now).start, now);
}

TEST(EntryDraft, savingAnUntouchedDraftChangesNoNumber) {
    TimeEntry entry;
    ASSERT_EQ(applyDraft(fullDraft(), {}, entry), std::nullopt);
    entry.id = store::RecordId{7};
    entry.duration = 201; // "2.01" typed would be cut to 200
    entry.breakTime = 203;
    entry.rate = 402;
    const TimeEntry before = entry;
    const EntryDraft opened = draftOf(entry, now);
    ASSERT_EQ(applyDraft(touchedOnly(opened, opened), {.granularityOn = true}, entry), std::nullopt);
    EXPECT_EQ(entry, before);
    EntryDraft retyped = opened;
    retyped.duration = u"2.1";
    retyped.note = NoteDraft{};
    ASSERT_EQ(applyDraft(touchedOnly(retyped, opened), {.granularityOn = true}, entry), std::nullopt);
    TimeEntry expected = before;
    expected.duration = 225;
    expected.note.clear();
    EXPECT_EQ(entry, expected);
}

// Other programs may have dated an entry without a start time at any time of day.
TEST(EntryDraft, aTimeOfDayThatIsNoStartTimeStaysUnlessTouched) {
    TimeEntry entry;
    entry.task = u"Review";
    entry.duration = 100;
    entry.date = *platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = 14, .second = 33});
    const TimeEntry before = entry;
    entry.id = store::RecordId{7};
    const EntryDraft opened = draftOf(entry, now);
    EntryDraft draft = opened;
    draft.start = platform::SystemTime{}; // shown, but not checked
    ASSERT_EQ(applyDraft(touchedOnly(draft, opened), {}, entry), std::nullopt);
    EXPECT_EQ(entry.date, before.date);
    draft.date->day = 17;
    ASSERT_EQ(applyDraft(touchedOnly(draft, opened), {}, entry), std::nullopt);
    EXPECT_EQ(entry.date, platform::toFileTime({.year = 2026, .month = 11, .day = 17}));
}

TEST(EntryDraft, whatIsMissingInANewEntryCountsAsTouched) {
    TimeEntry entry;
    store::setDateWithoutStart(entry, day);
    entry.task = u"Review";
    const EntryDraft opened = draftOf(entry, now);
    EXPECT_EQ(applyDraft(touchedOnly(opened, opened), {}, entry)->message, StringId::durationMissing);
    EntryDraft draft = opened;
    draft.duration = u"1";
    draft.withoutStart = false; // checked, and the time shown is accepted as it is
    ASSERT_EQ(applyDraft(touchedOnly(draft, opened), {}, entry), std::nullopt);
    EXPECT_EQ(entry.date,
              platform::toFileTime({.year = 2026, .month = 11, .day = 16, .hour = 14, .minute = 7, .second = 1}));
}

} // namespace

} // namespace hourwright::billing
