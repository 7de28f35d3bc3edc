#include "store/date_walk.h"
#include "store/fields.h"
#include "support/store_fixture.h"

namespace hourwright::store {
namespace {

using platform::FileTime;
using platform::PropertyId;
using platform::PropertyValue;
using platform::ValueType;

constexpr PropertyId durationProperty{field::duration, ValueType::ui2};
constexpr PropertyId unknownProperty{field::oldBillable, ValueType::boolean}; // no record has it

class DateWalkConditionsTest : public test::StoreFixture {
protected:
    void SetUp() override {
        change([this](auto& transaction) {
            const auto add = [&](std::uint64_t date, const char16_t* client, const char16_t* task) {
                TimeEntry entry{.date = FileTime{date}, .client = client, .task = task, .duration = 100};
                ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), entry));
            };
            add(10, u"Acme", u"Dig");
            add(20, u"Straße", u"Dig");
            add(30, u"Acme", u"");
            add(30, u"acme", u"Dig");
            add(40, u"Acme", u"Dig");
            add(50, u"Acme", u"Dig");
        });
    }
    std::vector<std::uint64_t> dates(DateWalk walk) {
        std::vector<std::uint64_t> found;
        ReadResult result = ReadResult::ok;
        for (TimeEntry entry; (result = walk.next(entry)) == ReadResult::ok;) {
            EXPECT_EQ(entry.duration, 100);
            found.push_back(entry.date.ticks);
        }
        EXPECT_EQ(result, ReadResult::noMore);
        return found;
    }
};

struct ConditionCase {
    const char* name;
    DateRange range;
    std::vector<TextCondition> conditions;
    std::vector<std::uint64_t> dates;
};

TEST_F(DateWalkConditionsTest, VisitsOnlyRecordsWithTheTexts) {
    const ConditionCase cases[] = {
        {"one text", {}, {{field::client, u"Acme"}}, {10, 30, 40, 50}},
        {"beyond ASCII", {}, {{field::client, u"Straße"}}, {20}},
        {"two texts", {}, {{field::client, u"Acme"}, {field::task, u"Dig"}}, {10, 40, 50}},
        {"no text", {}, {{field::task, u""}}, {30}},
        {"text of no record", {}, {{field::phase, u"Plan"}}, {}},
        {"within a range", {.after = FileTime{10}, .last = FileTime{40}}, {{field::client, u"Acme"}}, {30, 40}},
        {"last is no match", {.after = {}, .last = FileTime{45}}, {{field::task, u"Dig"}}, {10, 20, 30, 40}},
    };
    const std::vector<std::vector<PropertyId>> reads = {{}, {durationProperty}, {unknownProperty, durationProperty}};
    for (const ConditionCase& c : cases)
        for (const auto& wanted : reads)
            EXPECT_EQ(dates(DateWalk(stores().entries(), c.range, wanted, c.conditions)), c.dates)
                << c.name << ", reading " << wanted.size() << " properties";
}

TEST_F(DateWalkConditionsTest, RecordsMayLoseTheTextWhileTheyAreWalked) {
    change([this](auto& transaction) {
        DateWalk walk(stores().entries(), {}, {}, {{field::client, u"Acme"}});
        for (TimeEntry entry; walk.next(entry) == ReadResult::ok;) {
            entry.client = u"Apex";
            ASSERT_TRUE(updateTimeEntry(transaction, stores().entries(), entry));
        }
    });
    EXPECT_EQ(dates(DateWalk(stores().entries(), {}, {}, {{field::client, u"Apex"}})),
              (std::vector<std::uint64_t>{10, 30, 40, 50}));
    EXPECT_TRUE(dates(DateWalk(stores().entries(), {}, {}, {{field::client, u"Acme"}})).empty());
}

TEST_F(DateWalkConditionsTest, RecordsMayBeDeletedWhileTheyAreWalked) {
    change([this](auto& transaction) {
        DateWalk walk(stores().entries(), {}, {}, {{field::client, u"Acme"}});
        while (walk.next() == ReadResult::ok)
            ASSERT_TRUE(stores().entries().deleteCurrent(transaction));
    });
    EXPECT_EQ(dates(DateWalk(stores().entries(), {})), (std::vector<std::uint64_t>{20, 30}));
}

} // namespace
} // namespace hourwright::store
