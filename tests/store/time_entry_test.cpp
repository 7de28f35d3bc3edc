#include "store/time_entry.h"

#include "store/fields.h"
#include "support/store_fixture.h"

namespace hourwright::store {
namespace {

using platform::FileTime;
using platform::PropertyId;
using platform::PropertyValue;
using platform::Seek;
using platform::SystemTime;
using platform::ValueType;

class TimeEntryTest : public test::StoreFixture {
protected:
    TimeEntry readBack(RecordId id) {
        EXPECT_EQ(stores().entries().seek(Seek::toId(id)), id);
        TimeEntry entry;
        EXPECT_EQ(readTimeEntry(stores().entries(), entry), ReadResult::ok);
        return entry;
    }
    std::vector<std::uint16_t> storedFields(RecordId id) {
        EXPECT_EQ(stores().entries().seek(Seek::toId(id)), id);
        platform::PropertyBuffer properties;
        EXPECT_EQ(stores().entries().read(properties), ReadResult::ok);
        std::vector<std::uint16_t> fields;
        for (const PropertyValue& value : properties.values())
            fields.push_back(value.id.number());
        return fields;
    }
    RecordId writeRaw(const std::vector<PropertyValue>& properties) {
        RecordId id = RecordId::none;
        change([&](auto& transaction) { id = stores().entries().write(transaction, RecordId::none, properties); });
        return id;
    }
};

FileTime at(const SystemTime& time) {
    return toFileTime(time).value();
}

TimeEntry fullEntry() {
    TimeEntry entry;
    entry.date = at({.year = 2026, .month = 11, .day = 16, .hour = 9, .second = 1});
    entry.client = u"Walrus & Partners";
    entry.project = u"Harbour";
    entry.phase = u"Survey";
    entry.task = u"Soundings";
    entry.duration = 65535;
    entry.breakTime = 50;
    entry.status = EntryStatus::paid;
    entry.currency = u"EUR";
    entry.rate = 2'147'483'647;
    entry.rateType = RateType::discount;
    entry.billTo = u"Frau Ärmel";
    entry.custom1 = u"eins";
    entry.custom2 = u"zwei";
    entry.custom3 = u"drei";
    entry.note = {std::byte{'{'}, std::byte{0}, std::byte{'}'}};
    entry.paidDate = at({.year = 2026, .month = 11, .day = 20});
    entry.modified = at({.year = 2026, .month = 11, .day = 16, .hour = 10, .minute = 31});
    return entry;
}

TEST_F(TimeEntryTest, EveryFieldSurvivesInTheFixedOrder) {
    TimeEntry entry = fullEntry();
    change([&](auto& transaction) { ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), entry, 5)); });
    reopen();
    EXPECT_EQ(readBack(entry.id), entry);
    EXPECT_EQ(entry.flags, 5);
    EXPECT_EQ(storedFields(entry.id),
              (std::vector<std::uint16_t>{1001, 1002, 1003, 1004, 1005, 1006, 1019, 1007, 1008, 1020, 1014, 1015, 1016,
                                          1017, 1018, 1021, 1012, 1023, 1022}));
}

TEST_F(TimeEntryTest, EmptyFieldsAreLeftOutAndRemoved) {
    TimeEntry entry = fullEntry();
    change([&](auto& transaction) { ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), entry)); });
    TimeEntry bare;
    bare.id = entry.id;
    bare.date = entry.date;
    bare.rateType = static_cast<RateType>(5); // no such rate
    change([&](auto& transaction) { ASSERT_TRUE(updateTimeEntry(transaction, stores().entries(), bare, 0)); });
    EXPECT_EQ(storedFields(entry.id), (std::vector<std::uint16_t>{1001, 1002, 1021, 1022}));
    EXPECT_EQ(readBack(entry.id).rateType, RateType::normal);

    TimeEntry fresh;
    fresh.date = entry.date;
    change([&](auto& transaction) { ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), fresh)); });
    EXPECT_EQ(storedFields(fresh.id), (std::vector<std::uint16_t>{1001, 1002, 1021, 1022}));
}

TEST_F(TimeEntryTest, RefusesWhatTheFieldsCannotHold) {
    const std::vector<std::pair<const char*, void (*)(TimeEntry&)>> cases = {
        {"negative duration", [](TimeEntry& e) { e.duration = -1; }},
        {"long duration", [](TimeEntry& e) { e.duration = 65536; }},
        {"negative break", [](TimeEntry& e) { e.breakTime = -1; }},
        {"long break", [](TimeEntry& e) { e.breakTime = 65536; }},
        {"negative rate", [](TimeEntry& e) { e.rate = -1; }},
        {"date beyond the field", [](TimeEntry& e) { e.date.ticks = std::uint64_t{1} << 63; }},
    };
    TimeEntry stored = fullEntry();
    change([&](auto& transaction) { ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), stored)); });
    for (const auto& [name, spoil] : cases) {
        TimeEntry changed = stored;
        spoil(changed);
        const auto transaction = objects().begin();
        EXPECT_FALSE(updateTimeEntry(*transaction, stores().entries(), changed)) << name;
        EXPECT_EQ(stores().entries().lastError(), platform::PlatformError::invalidParameter) << name;
        changed.id = RecordId::none;
        EXPECT_FALSE(insertTimeEntry(*transaction, stores().entries(), changed)) << name;
        EXPECT_EQ(changed.id, RecordId::none) << name;
    }
    EXPECT_EQ(readBack(stored.id), stored);
}

TEST_F(TimeEntryTest, FoldsPropertiesOfEarlierVersionsInStoredOrder) {
    const FileTime midnight = at({.year = 2001, .month = 2, .day = 3});
    const FileTime oldStart =
        at({.year = 1999, .month = 9, .day = 9, .hour = 14, .minute = 30, .second = 15, .milliseconds = 500});
    const PropertyValue date = PropertyValue::ofFileTime(field::date, midnight);
    const auto billable = [](bool value) { return PropertyValue::ofBoolean(field::oldBillable, value); };
    const auto billed = [](bool value) { return PropertyValue::ofBoolean(field::oldBilled, value); };
    const PropertyValue paid = PropertyValue::ofUi2(field::status, 3);
    struct Case {
        const char* name;
        std::vector<PropertyValue> properties;
        EntryStatus status;
    };
    const std::vector<Case> cases = {
        {"billable", {date, billable(true)}, EntryStatus::billable},
        {"not billable after a status", {date, paid, billable(false)}, EntryStatus::nonBillable},
        {"billed", {date, billed(true)}, EntryStatus::paid},
        {"not billed leaves the status", {date, paid, billed(false)}, EntryStatus::paid},
        {"billed last", {date, billable(true), billed(true)}, EntryStatus::paid},
        {"billable last", {date, billed(true), billable(true)}, EntryStatus::billable},
        {"other types are ignored", {date, PropertyValue::ofUi4(field::status, 2)}, EntryStatus::nonBillable},
    };
    for (const Case& c : cases)
        EXPECT_EQ(readBack(writeRaw(c.properties)).status, c.status) << c.name;

    const RecordId id = writeRaw({date, PropertyValue::ofFileTime(field::oldStart, oldStart), billable(true)});
    TimeEntry entry = readBack(id);
    EXPECT_EQ(entry.date, at({.year = 2001, .month = 2, .day = 3, .hour = 14, .minute = 30, .second = 15}));

    // Once it is rewritten, the old properties are gone and cannot undo the change.
    entry.status = EntryStatus::nonBillable;
    ASSERT_TRUE(setDateWithoutStart(entry, {.year = 2001, .month = 2, .day = 4}));
    change([&](auto& transaction) { ASSERT_TRUE(updateTimeEntry(transaction, stores().entries(), entry)); });
    EXPECT_EQ(readBack(id), entry);
    EXPECT_EQ(storedFields(id), (std::vector<std::uint16_t>{1001, 1002, 1021, 1022}));
}

TEST(FlagsWord, AddsTheExtraBitOnlyOnARepeatedThree) {
    struct Case {
        std::uint16_t current, requested, expected;
    };
    for (const Case c : {Case{0, 3, 3}, {3, 3, 7}, {3, 0, 7}, {7, 3, 7}, {1, 2, 3}, {2, 3, 3}, {8, 3, 11}, {0, 0, 0}})
        EXPECT_EQ(flagsAfterUpdate(c.current, c.requested), c.expected) << c.current << " with " << c.requested;
}

TEST_F(TimeEntryTest, FlagsAloneCanBeWritten) {
    TimeEntry entry = fullEntry();
    change([&](auto& transaction) {
        ASSERT_TRUE(insertTimeEntry(transaction, stores().entries(), entry));
        ASSERT_TRUE(updateFlags(transaction, stores().entries(), 9));
    });
    entry.flags = 9;
    EXPECT_EQ(readBack(entry.id), entry);
}

TEST(TimeEntryStatus, ChangesFollowTheStatus) {
    const FileTime paidOn{1234};
    for (std::uint16_t before = 0; before <= 3; ++before) {
        TimeEntry entry;
        entry.status = static_cast<EntryStatus>(before);
        toggleBilled(entry);
        EXPECT_EQ(entry.status, before <= 1 ? EntryStatus::billed : EntryStatus::billable) << before;
        markPaid(entry, paidOn);
        EXPECT_EQ(entry.status, EntryStatus::paid);
        EXPECT_EQ(entry.paidDate, paidOn);
        markUnpaid(entry);
        EXPECT_EQ(entry.status, EntryStatus::billed);
    }
}

TEST(TimeEntryStart, IsMarkedByTheSecond) {
    TimeEntry entry;
    ASSERT_TRUE(setDateAndStart(entry, {.year = 2026, .month = 1, .day = 2, .hour = 23, .minute = 59, .second = 44}));
    EXPECT_TRUE(hasStart(entry));
    EXPECT_EQ(entry.date, at({.year = 2026, .month = 1, .day = 2, .hour = 23, .minute = 59, .second = 1}));
    ASSERT_TRUE(setDateWithoutStart(entry, {.year = 2026, .month = 1, .day = 2, .hour = 8}));
    EXPECT_FALSE(hasStart(entry));
    EXPECT_EQ(entry.date, at({.year = 2026, .month = 1, .day = 2}));
    const FileTime kept = entry.date;
    EXPECT_FALSE(setDateWithoutStart(entry, {.year = 1600, .month = 1, .day = 2}));
    EXPECT_FALSE(setDateAndStart(entry, {.year = 2026, .month = 2, .day = 30}));
    EXPECT_EQ(entry.date, kept);
}

} // namespace
} // namespace hourwright::store
