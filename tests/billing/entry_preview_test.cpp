#include "billing/entry_preview.h"

#include "billing/new_entry.h"

#include <gtest/gtest.h>

namespace hourwright::billing {
namespace {

constexpr platform::SystemTime nine{.year = 2026, .month = 11, .day = 16, .hour = 9};

store::TimeEntry anEntry() {
    store::TimeEntry entry;
    store::setDateAndStart(entry, nine);
    entry.duration = 83;
    entry.breakTime = 17;
    entry.rate = 6000;
    return entry;
}

struct PreviewCase {
    std::optional<std::u16string> duration;
    bool withoutStart;
    std::optional<int> endMinute; ///< of the day
    std::optional<double> total;
};

TEST(EntryPreview, FollowsWhatIsTyped) {
    const TimeRules rules{.preciseMinutes = true, .granularityOn = true, .granularityMinutes = 15};
    const PreviewCase cases[] = {
        {{}, false, 600, 50.0},             // untouched: 50 and 10 minutes
        {u"1.1", false, 9 * 60 + 85, 75.0}, // raised to a quarter of an hour
        {u"2", true, {}, 120.0},
        {u"two", false, {}, {}},
        {u"", false, {}, {}},
    };
    for (const PreviewCase& row : cases) {
        EntryDraft draft;
        draft.duration = row.duration;
        draft.withoutStart = row.withoutStart;
        const EntryPreview preview = previewOf(draft, RateChoice(anEntry()), rules, anEntry());
        EXPECT_EQ(preview.total, row.total);
        EXPECT_EQ(preview.end.has_value(), row.endMinute.has_value());
        if (preview.end && row.endMinute) {
            EXPECT_EQ(preview.end->hour * 60 + preview.end->minute, *row.endMinute);
        }
    }
}

TEST(EntryPreview, PlacesANewEntryWhereTimeWasMarked) {
    store::TimeEntry entry;
    placeEntry(entry, nine, nine, 100, {.granularityOn = true, .granularityMinutes = 15});
    EXPECT_TRUE(store::hasStart(entry));
    EXPECT_EQ(entry.duration, 175);
    placeEntry(entry, nine, {}, {}, {});
    EXPECT_FALSE(store::hasStart(entry));
    EXPECT_EQ(platform::toSystemTime(entry.date)->hour, 0);
    EXPECT_EQ(entry.duration, 175);
}

TEST(EntryPreview, SuggestsARateOnlyWhereThereIsNone) {
    const std::vector<store::RateRecord> offered = {{.type = store::RateType::overtime, .rate = 7000}};
    RateChoice none{store::TimeEntry{}};
    none.suggest(offered);
    EXPECT_EQ(none.text(), u"70.00");
    EXPECT_EQ(none.type(), store::RateType::overtime);
    RateChoice had{anEntry()};
    had.suggest(offered);
    EXPECT_EQ(had.text(), u"60.00");
    RateChoice typed{store::TimeEntry{}};
    typed.type(u"0");
    typed.suggest(offered);
    EXPECT_EQ(typed.text(), u"0");
}

} // namespace
} // namespace hourwright::billing
