#include "app/calendar/time_drag.h"

#include "support/print_system_time.h"

#include <gtest/gtest.h>

namespace hourwright::app {

static void PrintTo(const DayTimes& times, std::ostream* out) {
    *out << "day " << times.day << ", " << times.span.start << " to " << times.span.end;
}

namespace {

TEST(TimeDrag, snapsToFiveMinutesOrTheGranularity) {
    EXPECT_EQ(snapStep({}), 5);
    EXPECT_EQ(snapStep({.granularityOn = true, .granularityMinutes = 15}), 15);
    EXPECT_EQ(snapStep({.granularityOn = true, .granularityMinutes = 0}), 5);
    EXPECT_EQ(snapStep({.granularityOn = true, .granularityMinutes = 500}), 60);
}

TEST(TimeDrag, followsTheMouseInSteps) {
    const DayTimes block{2, {542, 602}}; // 9:02 to 10:02
    const DayTimes late{2, {1380, 1500}};
    const struct {
        const char* name;
        DragKind kind;
        DayTimes original;
        GridPoint from, to;
        DayTimes times;
    } rows[] = {
        {"mark down", DragKind::mark, {}, {1, 483}, {1, 558}, {1, {480, 560}}},
        {"mark up", DragKind::mark, {}, {1, 558}, {3, 483}, {1, {480, 560}}},
        {"mark a step", DragKind::mark, {}, {1, 483}, {1, 483}, {1, {480, 485}}},
        {"mark to the end", DragKind::mark, {}, {1, 1430}, {1, 9999}, {1, {1430, 1440}}},
        {"mark to the beginning", DragKind::mark, {}, {1, 7}, {1, -50}, {1, {0, 10}}},
        {"move", DragKind::move, block, {2, 550}, {2, 581}, {2, {575, 635}}},
        {"move sideways only", DragKind::move, block, {2, 550}, {4, 550}, {4, {542, 602}}},
        {"move out of the week", DragKind::move, block, {2, 550}, {9, 550}, {6, {542, 602}}},
        {"move above midnight", DragKind::move, block, {2, 550}, {2, -200}, {2, {0, 60}}},
        {"move below midnight", DragKind::move, block, {2, 550}, {2, 2000}, {2, {1435, 1495}}},
        {"end", DragKind::endEdge, block, {2, 600}, {3, 631}, {2, {542, 635}}},
        {"end before start", DragKind::endEdge, block, {2, 600}, {2, 100}, {2, {542, 557}}},
        {"end to midnight", DragKind::endEdge, block, {2, 600}, {2, 3000}, {2, {542, 1440}}},
        {"end after midnight", DragKind::endEdge, late, {2, 1400}, {2, 1460}, {2, {1380, 1500}}},
        {"start", DragKind::startEdge, block, {2, 545}, {2, 520}, {2, {515, 602}}},
        {"start after end", DragKind::startEdge, block, {2, 545}, {2, 900}, {2, {587, 602}}},
        {"start before midnight", DragKind::startEdge, block, {2, 545}, {2, -900}, {2, {0, 602}}},
        {"back again", DragKind::endEdge, block, {2, 600}, {2, 600}, block},
    };
    for (const auto& row : rows) {
        TimeDrag drag(row.kind, row.original, row.from, 7, 5, 15);
        drag.moveTo({row.from.day, row.from.minute + 200});
        drag.moveTo(row.to);
        EXPECT_EQ(drag.times(), row.times) << row.name;
        EXPECT_EQ(drag.changed(), row.times != row.original) << row.name;
    }
}

TEST(TimeDrag, givesThePlaceOfTheEntry) {
    const platform::SystemTime first{.year = 2026, .month = 11, .dayOfWeek = 1, .day = 30};
    const auto moved = placeOf(DragKind::move, {1, {1380, 1500}}, first);
    EXPECT_EQ(moved.day.month, 12);
    EXPECT_EQ(moved.day.day, 1);
    EXPECT_EQ(moved.start->hour, 23);
    EXPECT_FALSE(moved.end.has_value());
    const auto longer = placeOf(DragKind::endEdge, {1, {1380, 1500}}, first);
    EXPECT_EQ(longer.end->day, 2);
    EXPECT_EQ(longer.end->hour, 1);
}

} // namespace
} // namespace hourwright::app
