#include "app/demo/demo_store.h"
#include "platform/utf.h"
#include "store/date_walk.h"
#include "store/fields.h"
#include "store/pick_lists.h"
#include "support/store_fixture.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace hourwright;
using namespace hourwright::app::demo;
using platform::Seek;
using platform::ValueType;
using store::ExpenseEntry;
using store::PickList;
using store::ReadResult;
using store::RecordId;
using store::TimeEntry;

namespace {

constexpr DemoOptions options{.entries = 150, .seed = 3, .lastDay = {.year = 2026, .month = 6, .day = 19}};

std::vector<std::byte> reversedNote(std::u16string_view text) {
    std::vector<std::byte> bytes;
    for (const char byte : platform::toUtf8(text))
        bytes.insert(bytes.begin(), static_cast<std::byte>(byte));
    return bytes;
}

/// The history as it should be read back, without ids.
struct Expected : DemoSink {
    DemoWorld world;
    std::vector<TimeEntry> entries;
    std::vector<ExpenseEntry> expenses;

    Expected() { EXPECT_TRUE(makeDemoHistory(options, *this)); }
    bool take(const DemoWorld& w) override {
        world = w;
        return true;
    }
    bool take(TimeEntry& entry, std::u16string_view note) override {
        entries.push_back(entry);
        entries.back().note = reversedNote(note);
        return true;
    }
    bool take(ExpenseEntry& expense) override {
        expenses.push_back(expense);
        return true;
    }
};

class DemoStore : public test::StoreFixture {
protected:
    DemoResult fill() { return fillWithDemoHistory(stores(), options, reversedNote); }

    // Texts of one property over a whole store, in its order.
    static std::vector<std::u16string> textsOf(store::RecordStore& records, std::uint16_t field) {
        std::vector<std::u16string> texts;
        platform::PropertyBuffer properties;
        for (auto id = records.seek(Seek::toBeginning()); id != RecordId::none; id = records.seek(Seek::fromCurrent(1)))
            if (records.read(properties) == ReadResult::ok)
                if (const auto* value = properties.find({field, ValueType::text}))
                    texts.emplace_back(value->text);
        return texts;
    }
};

TEST_F(DemoStore, HoldsTheWholeHistory) {
    ASSERT_EQ(fill(), DemoResult::done);
    reopen();
    const Expected expected;
    store::DateWalk entries(stores().entries(), {});
    for (TimeEntry wanted : expected.entries) {
        TimeEntry entry;
        ASSERT_EQ(entries.next(entry), ReadResult::ok);
        wanted.id = entry.id;
        EXPECT_EQ(entry, wanted);
    }
    TimeEntry none;
    EXPECT_EQ(entries.next(none), ReadResult::noMore);
    store::DateWalk expenses(stores().expenses(), {});
    for (ExpenseEntry wanted : expected.expenses) {
        ExpenseEntry expense;
        ASSERT_EQ(expenses.next(expense), ReadResult::ok);
        wanted.id = expense.id;
        EXPECT_EQ(expense, wanted);
    }
}

TEST_F(DemoStore, HoldsTheClientStructureInTheOrderOfItsClients) {
    ASSERT_EQ(fill(), DemoResult::done);
    const Expected expected;
    std::vector<std::u16string> projects, projectTasks, tasks, contacts, rates;
    for (const auto& client : expected.world.clients) {
        for (const auto& project : client.projects)
            for (const auto& task : project.tasks) {
                projects.push_back(project.name);
                projectTasks.push_back(task);
            }
        tasks.insert(tasks.end(), client.tasks.begin(), client.tasks.end());
        contacts.insert(contacts.end(), client.contacts.begin(), client.contacts.end());
        for (const auto& rate : client.rates)
            rates.push_back(rate.description);
    }
    EXPECT_EQ(textsOf(stores().projects(), store::field::text), projects);
    EXPECT_EQ(textsOf(stores().projects(), store::field::task), projectTasks);
    EXPECT_EQ(textsOf(stores().tasks(), store::field::text), tasks);
    EXPECT_EQ(textsOf(stores().contacts(), store::field::text), contacts);
    EXPECT_EQ(textsOf(stores().rates(), store::field::description), rates);
    EXPECT_EQ(textsOf(stores().clients(), store::field::client).size(), expected.world.clients.size());
}

TEST_F(DemoStore, HoldsThePickLists) {
    ASSERT_EQ(fill(), DemoResult::done);
    const Expected expected;
    EXPECT_EQ(store::pickListTexts(stores(), PickList::phases), expected.world.phases);
    EXPECT_EQ(store::pickListTexts(stores(), PickList::currencies), expected.world.currencies);
    EXPECT_EQ(store::pickListTexts(stores(), PickList::custom1), expected.world.places);
    EXPECT_EQ(store::pickListTexts(stores(), PickList::custom2), expected.world.orderNumbers);
    EXPECT_EQ(store::pickListTexts(stores(), PickList::custom3), expected.world.consultants);
    EXPECT_EQ(store::pickListTexts(stores(), PickList::categories), expected.world.categories);
    EXPECT_EQ(store::pickListTexts(stores(), PickList::descriptions), expected.world.descriptions);
}

TEST_F(DemoStore, LeavesAStoreWithRecordsAlone) {
    TimeEntry entry;
    change([&](platform::Transaction& t) { EXPECT_TRUE(store::insertTimeEntry(t, stores().entries(), entry)); });
    EXPECT_EQ(fill(), DemoResult::notEmpty);
    EXPECT_EQ(stores().clients().seek(Seek::toBeginning()), RecordId::none);
    EXPECT_EQ(stores().entries().seek(Seek::toBeginning(1)), RecordId::none);
}

TEST_F(DemoStore, LeavesAStoreWithClientsAlone) {
    change([&](platform::Transaction& t) {
        const std::array client = {platform::PropertyValue::ofUi4(store::field::clientId, 9),
                                   platform::PropertyValue::ofText(store::field::client, u"Acme")};
        EXPECT_NE(stores().clients().write(t, RecordId::none, client), RecordId::none);
    });
    EXPECT_EQ(fill(), DemoResult::notEmpty);
}

TEST_F(DemoStore, WritesNothingWhenItFails) {
    {
        const auto other = objects().begin();
        EXPECT_EQ(fill(), DemoResult::failed);
    }
    DemoOptions impossible = options;
    impossible.lastDay.day = 31;
    EXPECT_EQ(fillWithDemoHistory(stores(), impossible, reversedNote), DemoResult::failed);
    EXPECT_FALSE(stores().holdRecords());
}

} // namespace
