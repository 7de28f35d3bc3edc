#include "app/column_layout.h"

#include "app/recording_registry.h"
#include "app/settings_fixture.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace hourwright::app {
namespace {

using Order = std::vector<std::uint32_t>;

std::vector<std::uint8_t> bytesOf(const Order& order) {
    std::vector<std::uint8_t> bytes;
    for (const std::uint32_t index : order)
        bytes.insert(bytes.end(), {static_cast<std::uint8_t>(index), static_cast<std::uint8_t>(index >> 8), 0,
                                   static_cast<std::uint8_t>(index >> 24)});
    return bytes;
}

const Order entryOrder{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
const Order entryWidths{80, 100, 100, 50, 100, 50, 65, 80, 70, 70, 70, 65, 65, 60, 70, 60};
const Order expenseOrder{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};

class ColumnLayoutTest : public testing::Test {
protected:
    [[nodiscard]] ColumnLayout load(ColumnList list = ColumnList::entries) { return loadColumnLayout(registry_, list); }

    test::SettingsRegistry registry_;
};

TEST_F(ColumnLayoutTest, IsAsBuiltInWithoutStoredValues) {
    EXPECT_EQ(load().order, entryOrder);
    EXPECT_EQ(load().widths, entryWidths);
    EXPECT_EQ(load(ColumnList::expenses).order, expenseOrder);
    EXPECT_EQ(builtInColumnLayout(ColumnList::entries, 192).widths[3], 100U);
    EXPECT_EQ(builtInColumnLayout(ColumnList::entries, 131).widths[6], 88U) << "65 * 131 / 96 = 88.7";
}

TEST_F(ColumnLayoutTest, OrdersOfAnySize) {
    struct Case {
        const char* name;
        Order stored;
        Order entries;
        Order expenses;
    };
    const Case cases[] = {
        {"eleven columns",
         {10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0},
         {10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 11, 12, 13, 14, 15},
         {10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 11, 12, 13, 14}},
        {"fifteen columns",
         {1, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 13, 12, 11},
         {1, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
         {1, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 13, 12, 11}},
        {"sixteen columns",
         {15, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 13, 12, 11, 1},
         {15, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 13, 12, 11, 1},
         expenseOrder},
        {"three columns",
         {2, 0, 1},
         {2, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
         {2, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}},
        {"none", {}, entryOrder, expenseOrder},
        {"a column twice", {0, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10}, entryOrder, expenseOrder},
        {"a column that does not exist",
         {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 16},
         entryOrder,
         expenseOrder},
        {"a huge index", {0xFF000000, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, entryOrder, expenseOrder},
        {"too many", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 14, 16}, entryOrder, expenseOrder},
    };
    for (const Case& c : cases) {
        registry_.putBytes(u"ColOrder", bytesOf(c.stored));
        registry_.putBytes(u"ExpColOrder", bytesOf(c.stored));
        EXPECT_EQ(load().order, c.entries) << c.name;
        EXPECT_EQ(load(ColumnList::expenses).order, c.expenses) << c.name;
    }
    registry_.put(u"ColOrder", u"text");
    EXPECT_EQ(load().order, entryOrder);
    registry_.putBytes(u"ColOrder", {1, 0, 0, 0, 0, 0, 0, 0, 9, 9});
    EXPECT_EQ(load().order[0], 1U) << "a piece of an index does not count";
}

TEST_F(ColumnLayoutTest, MissingWidthsStayAsBuiltIn) {
    Order widths;
    for (std::uint32_t column = 0; column < 16; ++column) {
        widths.push_back(200 + column);
        if (column != 7)
            registry_.put(u"Column" + std::u16string(column > 9 ? u"1" : u"") +
                              static_cast<char16_t>(u'0' + column % 10),
                          widths.back());
    }
    widths[7] = 80;
    EXPECT_EQ(load().widths, widths);
    registry_.put(u"Column3", 0xFFFFFFFF);
    registry_.put(u"Column4", 0U);
    registry_.put(u"Column5", u"99");
    EXPECT_EQ(load().widths[3], 50U);
    EXPECT_EQ(load().widths[4], 0U);
    EXPECT_EQ(load().widths[5], 50U);
    EXPECT_EQ(load(ColumnList::expenses).widths, builtInColumnLayout(ColumnList::expenses).widths);
}

TEST_F(ColumnLayoutTest, SavesTheOrderAndThenEachWidth) {
    test::RecordingRegistry registry;
    EXPECT_TRUE(saveColumnLayout(registry, ColumnList::expenses, builtInColumnLayout(ColumnList::expenses)));
    ASSERT_EQ(registry.changes.size(), 16U);
    EXPECT_EQ(registry.changes[0], "ExpColOrder=60 bytes");
    EXPECT_EQ(registry.changes[1], "ExpColumn0=80");
    EXPECT_EQ(registry.changes[15], "ExpColumn14=60");
    registry.changes.clear();
    EXPECT_TRUE(saveColumnLayout(registry, ColumnList::entries, builtInColumnLayout(ColumnList::entries)));
    ASSERT_EQ(registry.changes.size(), 17U);
    EXPECT_EQ(registry.changes[0], "ColOrder=64 bytes");
    EXPECT_EQ(registry.changes[16], "Column15=60");
}

TEST_F(ColumnLayoutTest, LoadsWhatWasSaved) {
    for (const ColumnList list : {ColumnList::entries, ColumnList::expenses}) {
        ColumnLayout layout = builtInColumnLayout(list);
        std::ranges::reverse(layout.order);
        for (std::uint32_t& width : layout.widths)
            width = 2 * width + 1;
        const int batches = registry_.batches;
        EXPECT_TRUE(saveColumnLayout(registry_, list, layout));
        EXPECT_EQ(registry_.batches, batches + 1);
        EXPECT_TRUE(load(list) == layout);
        layout.order.pop_back();
        EXPECT_FALSE(saveColumnLayout(registry_, list, layout));
    }
}

TEST_F(ColumnLayoutTest, FailuresAreSilent) {
    const ColumnLayout layout = builtInColumnLayout(ColumnList::entries);
    registry_.failCreate = true;
    EXPECT_TRUE(load() == layout);
    EXPECT_FALSE(saveColumnLayout(registry_, ColumnList::entries, layout));
    registry_.failCreate = false;
    registry_.failCommit = true;
    EXPECT_FALSE(saveColumnLayout(registry_, ColumnList::entries, layout));
}

} // namespace
} // namespace hourwright::app
