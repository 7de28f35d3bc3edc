#include "store/upgrade.h"

#include "store/fields.h"
#include "store/time_entry.h"
#include "support/store_fixture.h"

#include <algorithm>

namespace hourwright::store {
namespace {

using platform::FileTime;
using platform::PropertyValue;

class UpgradeTest : public test::StoreFixture {
protected:
    RecordId write(const std::vector<PropertyValue>& properties) {
        RecordId id = RecordId::none;
        change([&](auto& transaction) { id = stores().entries().write(transaction, RecordId::none, properties); });
        return id;
    }

    [[nodiscard]] std::vector<std::uint16_t> fields(RecordId id) {
        platform::PropertyBuffer properties;
        EXPECT_EQ(stores().entries().seek(platform::Seek::toId(id)), id);
        EXPECT_EQ(stores().entries().read(properties), ReadResult::ok);
        std::vector<std::uint16_t> numbers;
        for (const PropertyValue& value : properties.values())
            numbers.push_back(value.id.number());
        return numbers;
    }

    [[nodiscard]] TimeEntry entry(RecordId id) {
        TimeEntry result;
        stores().entries().seek(platform::Seek::toId(id));
        EXPECT_EQ(readTimeEntry(stores().entries(), result), ReadResult::ok);
        return result;
    }
};

constexpr std::uint64_t day = platform::ticksPerDay;
constexpr std::uint64_t hour = day / 24;

TEST_F(UpgradeTest, StoresOldEntriesInTodaysFormWithoutChangingThem) {
    std::vector<RecordId> old;
    for (std::uint64_t i = 0; i < 50; ++i) // the start times turn the order of the dates around
        old.push_back(write({PropertyValue::ofFileTime(field::date, FileTime{150000 * day}),
                             PropertyValue::ofText(field::client, u"Acme"),
                             PropertyValue::ofFileTime(field::oldStart, FileTime{(20 - i % 20) * hour}),
                             PropertyValue::ofBoolean(field::oldBilled, i % 2 == 0),
                             PropertyValue::ofUi2(field::flags, static_cast<std::uint16_t>(i % 8))}));
    const RecordId today = write({PropertyValue::ofFileTime(field::date, FileTime{150000 * day})});
    std::vector<TimeEntry> before;
    std::ranges::transform(old, std::back_inserter(before), [&](RecordId id) { return entry(id); });
    EXPECT_TRUE(needsUpgrade(stores()));
    ASSERT_EQ(upgradeRecords(stores()), platform::PlatformError::none);
    EXPECT_FALSE(needsUpgrade(stores()));
    for (std::size_t i = 0; i < old.size(); ++i) {
        EXPECT_EQ(entry(old[i]), before[i]) << i;
        for (const auto number : fields(old[i]))
            EXPECT_TRUE(number != field::oldStart && number != field::oldBilled) << i;
    }
    EXPECT_EQ(before[0].status, EntryStatus::paid);
    EXPECT_EQ(fields(today), std::vector<std::uint16_t>{field::date});
}

TEST_F(UpgradeTest, ChangesNothingWhenOneEntryCannotBeStored) {
    const RecordId good = write(
        {PropertyValue::ofFileTime(field::date, FileTime{day}), PropertyValue::ofBoolean(field::oldBillable, true)});
    write({PropertyValue::ofFileTime(field::date, FileTime{2 * day}), PropertyValue::ofUi4(field::rate, 0xFFFF'FFFF),
           PropertyValue::ofBoolean(field::oldBillable, true)});
    EXPECT_EQ(upgradeRecords(stores()), platform::PlatformError::invalidParameter);
    EXPECT_EQ(fields(good), (std::vector<std::uint16_t>{field::date, field::oldBillable}));
}

} // namespace
} // namespace hourwright::store
