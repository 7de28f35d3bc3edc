#include "app/calendar/lanes.h"

#include <gtest/gtest.h>

#include <ostream>

namespace hourwright::app {

static void PrintTo(const Lane& lane, std::ostream* out) {
    *out << lane.first << '+' << lane.width << " of " << lane.count;
}

namespace {

TEST(Lanes, putOverlapsSideBySide) {
    const struct {
        const char* name;
        std::vector<MinuteSpan> spans;
        std::vector<Lane> lanes;
    } rows[] = {
        {"none", {}, {}},
        {"one after the other", {{60, 120}, {120, 180}}, {{0, 1, 1}, {0, 1, 1}}},
        {"two at once", {{60, 120}, {90, 180}}, {{0, 1, 2}, {1, 1, 2}}},
        {"the same time", {{60, 90}, {60, 90}, {60, 90}}, {{0, 1, 3}, {1, 1, 3}, {2, 1, 3}}},
        {"a lane is used again", {{0, 60}, {30, 120}, {60, 100}}, {{0, 1, 2}, {1, 1, 2}, {0, 1, 2}}},
        {"the last takes what is free",
         {{0, 30}, {0, 100}, {10, 30}, {40, 100}},
         {{0, 1, 3}, {1, 1, 3}, {2, 1, 3}, {0, 1, 3}}},
        {"wide beside a gap", {{0, 100}, {0, 30}, {10, 30}, {40, 100}}, {{0, 1, 3}, {1, 1, 3}, {2, 1, 3}, {1, 2, 3}}},
        {"groups apart", {{0, 30}, {10, 40}, {40, 50}}, {{0, 1, 2}, {1, 1, 2}, {0, 1, 1}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(sideBySide(row.spans), row.lanes) << row.name;
}

} // namespace
} // namespace hourwright::app
