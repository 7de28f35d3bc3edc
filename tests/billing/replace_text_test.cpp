#include "billing/replace_text.h"

#include "billing_fixture.h"
#include "store/fields.h"
#include "store/pick_lists.h"

#include <set>

namespace hourwright::billing {
namespace {

namespace field = store::field;
using platform::PropertyValue;
using resources::StringId;
using store::DatabaseKind;
using store::ExpenseEntry;
using store::PickList;
using store::RecordId;
using store::TimeEntry;
using test::november;

class ReplaceTextTest : public test::BillingFixture {
protected:
    void insertExpense(ExpenseEntry expense) {
        change([&](auto& transaction) { ASSERT_TRUE(insertExpenseEntry(transaction, stores().expenses(), expense)); });
    }
    ExpenseEntry onlyExpense() {
        ExpenseEntry expense;
        EXPECT_NE(stores().expenses().seek(platform::Seek::toBeginning()), RecordId::none);
        EXPECT_EQ(readExpenseEntry(stores().expenses(), expense), store::ReadResult::ok);
        return expense;
    }
    void write(DatabaseKind database, std::uint32_t client, std::vector<PropertyValue> properties) {
        properties.insert(properties.begin(), PropertyValue::ofUi4(field::clientId, client));
        change([&](auto& transaction) {
            ASSERT_NE(stores()[database].write(transaction, RecordId::none, properties), RecordId::none);
        });
    }
    // The records of a database, each as its properties joined by '/', in the store's order.
    std::vector<std::string> records(DatabaseKind database) {
        std::vector<std::string> lines;
        store::RecordStore& store = stores()[database];
        platform::PropertyBuffer properties;
        for (RecordId id = store.seek(platform::Seek::toBeginning()); id != RecordId::none;
             id = store.seek(platform::Seek::fromCurrent(1))) {
            EXPECT_EQ(store.read(properties), store::ReadResult::ok);
            std::string line;
            for (const PropertyValue& value : properties.values())
                line += (line.empty() ? "" : "/") + (value.id.type() == platform::ValueType::text
                                                         ? platform::toUtf8(value.text)
                                                         : std::to_string(value.number));
            lines.push_back(line);
        }
        return lines;
    }
    ReplaceCounts replace(ReplaceType type, const char16_t* from, const char16_t* to) {
        std::optional<ReplaceCounts> counts;
        change([&](auto& transaction) { counts = replaceText(transaction, stores(), {type, from, to}, now_); });
        EXPECT_TRUE(counts);
        return counts.value_or(ReplaceCounts{});
    }

    const platform::FileTime now_ = november(21);
};

constexpr ReplaceCounts oneEntry{.entries = 1};

TEST(ReplaceCheck, AsksForTheMissingTextInOrder) {
    EXPECT_EQ(checkReplace({ReplaceType::task, u"", u""}), StringId::replaceFindMissing);
    EXPECT_EQ(checkReplace({ReplaceType::task, u"", u"b"}), StringId::replaceFindMissing);
    EXPECT_EQ(checkReplace({ReplaceType::task, u"a", u""}), StringId::replaceWithMissing);
    EXPECT_EQ(checkReplace({ReplaceType::task, u"a", u"b"}), std::nullopt);
}

constexpr PickList allLists[] = {PickList::phases,  PickList::currencies, PickList::custom1,     PickList::custom2,
                                 PickList::custom3, PickList::categories, PickList::descriptions};

struct FieldCase {
    const char* name;
    ReplaceType type;
    std::u16string TimeEntry::*inEntry;
    std::u16string ExpenseEntry::*inExpense;
    std::optional<PickList> list;
};

const FieldCase fieldCases[] = {
    {"client", ReplaceType::client, &TimeEntry::client, &ExpenseEntry::client, {}},
    {"project", ReplaceType::project, &TimeEntry::project, &ExpenseEntry::project, {}},
    {"phase", ReplaceType::phase, &TimeEntry::phase, nullptr, PickList::phases},
    {"task", ReplaceType::task, &TimeEntry::task, nullptr, {}},
    {"bill to", ReplaceType::billTo, &TimeEntry::billTo, &ExpenseEntry::billTo, {}},
    {"currency", ReplaceType::currency, &TimeEntry::currency, &ExpenseEntry::currency, PickList::currencies},
    {"custom 1", ReplaceType::custom1, &TimeEntry::custom1, &ExpenseEntry::custom1, PickList::custom1},
    {"custom 2", ReplaceType::custom2, &TimeEntry::custom2, &ExpenseEntry::custom2, PickList::custom2},
    {"custom 3", ReplaceType::custom3, &TimeEntry::custom3, nullptr, PickList::custom3},
    {"category", ReplaceType::category, nullptr, &ExpenseEntry::category, PickList::categories},
};

// All texts of the record are the same, so that one field too many would show.
TEST_F(ReplaceTextTest, EachTypeRewritesItsFieldOnly) {
    TimeEntry entry{.date = november(3),
                    .client = u"x",
                    .project = u"x",
                    .phase = u"x",
                    .task = u"x",
                    .duration = 150,
                    .currency = u"x",
                    .billTo = u"x",
                    .custom1 = u"x",
                    .custom2 = u"x",
                    .custom3 = u"x",
                    .note = {std::byte{'x'}}};
    ExpenseEntry expense{.date = november(4),
                         .description = u"x",
                         .client = u"x",
                         .project = u"x",
                         .category = u"x",
                         .currency = u"x",
                         .billTo = u"x",
                         .custom1 = u"x",
                         .custom2 = u"x",
                         .note = u"x"};
    entry.id = insert(entry);
    insertExpense(expense);
    expense.id = onlyExpense().id;
    change([&](auto& transaction) {
        for (const PickList list : allLists)
            EXPECT_TRUE(addToPickList(transaction, stores(), list, u"x"));
    });
    std::set<PickList> replacedLists;
    for (const FieldCase& c : fieldCases) {
        const ReplaceCounts counts{.entries = c.inEntry ? 1U : 0U, .expenses = c.inExpense ? 1U : 0U};
        EXPECT_EQ(replace(c.type, u"x", u"y"), counts) << c.name;
        if (c.inEntry) {
            entry.*c.inEntry = u"y";
            entry.modified = now_;
            entry.flags = static_cast<std::uint16_t>(entry.flags == 0 ? 3 : 7);
        }
        if (c.inExpense) {
            expense.*c.inExpense = u"y";
            expense.modified = now_;
            expense.flags = static_cast<std::uint16_t>(expense.flags == 0 ? 3 : 7);
        }
        if (c.list)
            replacedLists.insert(*c.list);
        EXPECT_EQ(allEntries(), std::vector{entry}) << c.name;
        EXPECT_EQ(onlyExpense(), expense) << c.name;
        for (const PickList list : allLists)
            EXPECT_EQ(pickListTexts(stores(), list),
                      std::vector<std::u16string>{replacedLists.contains(list) ? u"y" : u"x"})
                << c.name << ", list " << static_cast<int>(list);
    }
}

TEST_F(ReplaceTextTest, ComparesExactlyAndWhole) {
    for (const char16_t* const task : {u"dig", u"Digging", u" Dig", u"", u"Dig", u"Fill"})
        insert({.date = november(3), .client = u"Acme", .task = task});
    EXPECT_EQ(replace(ReplaceType::task, u"Dig", u"Fill"), oneEntry);
    std::vector<std::u16string> tasks;
    for (const TimeEntry& entry : allEntries())
        tasks.push_back(entry.task);
    EXPECT_EQ(tasks, (std::vector<std::u16string>{u"dig", u"Digging", u" Dig", u"", u"Fill", u"Fill"}));
    EXPECT_EQ(allEntries()[5].flags, 0) << "had the new text before";
    EXPECT_EQ(replace(ReplaceType::task, u"Nowhere", u"x"), ReplaceCounts{});
}

TEST_F(ReplaceTextTest, ListItemsThatBecomeTheSameAreMerged) {
    change([&](auto& transaction) {
        for (const char16_t* const phase : {u"Plan", u"Build", u"Test"})
            EXPECT_TRUE(addToPickList(transaction, stores(), PickList::phases, phase));
        EXPECT_TRUE(addToPickList(transaction, stores(), PickList::custom1, u"Plan"));
    });
    replace(ReplaceType::phase, u"Plan", u"Test");
    EXPECT_EQ(pickListTexts(stores(), PickList::phases), (std::vector<std::u16string>{u"Build", u"Test"}));
    replace(ReplaceType::phase, u"Build", u"Build");
    EXPECT_EQ(pickListTexts(stores(), PickList::phases), (std::vector<std::u16string>{u"Build", u"Test"}));
    EXPECT_EQ(pickListTexts(stores(), PickList::custom1), std::vector<std::u16string>{u"Plan"});
}

TEST_F(ReplaceTextTest, StructureKeepsItsPairsUnique) {
    const auto pair = [this](std::uint32_t client, const char16_t* project, const char16_t* task) {
        write(DatabaseKind::projects, client,
              {PropertyValue::ofText(field::text, project), PropertyValue::ofText(field::task, task)});
    };
    pair(1, u"Dam", u"Dig");
    pair(1, u"Dam", u"Fill");
    pair(1, u"Weir", u"Dig");
    pair(2, u"Dam", u"Dig");
    for (const char16_t* const task : {u"Dig", u"Fill"})
        write(DatabaseKind::tasks, 1, {PropertyValue::ofText(field::text, task)});
    write(DatabaseKind::contacts, 1, {PropertyValue::ofText(field::text, u"Ann")});

    replace(ReplaceType::project, u"Weir", u"Dam");
    EXPECT_EQ(records(DatabaseKind::projects), (std::vector<std::string>{"1/Dam/Dig", "1/Dam/Fill", "2/Dam/Dig"}));
    replace(ReplaceType::task, u"Dig", u"Fill");
    EXPECT_EQ(records(DatabaseKind::projects), (std::vector<std::string>{"1/Dam/Fill", "2/Dam/Fill"}));
    EXPECT_EQ(records(DatabaseKind::tasks), std::vector<std::string>{"1/Fill"});
    replace(ReplaceType::billTo, u"Ann", u"Bob");
    EXPECT_EQ(records(DatabaseKind::contacts), std::vector<std::string>{"1/Bob"});
}

TEST_F(ReplaceTextTest, AClientThatGetsAnothersNameIsMergedIntoIt) {
    write(DatabaseKind::clients, 1, {PropertyValue::ofText(field::client, u"Acme")});
    write(DatabaseKind::clients, 2, {PropertyValue::ofText(field::client, u"Apex")});
    for (const std::uint32_t client : {1U, 2U})
        write(DatabaseKind::contacts, client, {PropertyValue::ofText(field::text, u"Ann")});
    write(DatabaseKind::contacts, 1, {PropertyValue::ofText(field::text, u"Bob")});
    const auto rate = [this](std::uint32_t client, std::uint16_t type, std::uint32_t hundredths) {
        write(DatabaseKind::rates, client,
              {PropertyValue::ofUi2(field::kind, type), PropertyValue::ofText(field::description, u"std"),
               PropertyValue::ofUi4(field::rate, hundredths), PropertyValue::ofFileTime(field::stamp, november(1)),
               PropertyValue::ofUi2(field::flags, 0)});
    };
    rate(1, 0, 100);
    rate(1, 1, 200);
    rate(2, 0, 300);

    replace(ReplaceType::client, u"Acme", u"Ajax");
    EXPECT_EQ(records(DatabaseKind::clients), (std::vector<std::string>{"1/Ajax", "2/Apex"}));
    replace(ReplaceType::client, u"Ajax", u"Apex");
    EXPECT_EQ(records(DatabaseKind::clients), std::vector<std::string>{"2/Apex"});
    EXPECT_EQ(records(DatabaseKind::contacts), (std::vector<std::string>{"2/Ann", "2/Bob"}));
    const std::string now = std::to_string(now_.ticks);
    const std::string then = std::to_string(november(1).ticks);
    EXPECT_EQ(records(DatabaseKind::rates),
              (std::vector<std::string>{"2/1/std/200/" + now + "/3", "2/0/std/300/" + then + "/0"}));
}

TEST_F(ReplaceTextTest, ProgressRunsFromNothingToOnePastTheEntries) {
    for (const char16_t* const task : {u"Dig", u"Fill"})
        insert({.date = november(3), .client = u"Acme", .task = task});
    struct ProgressCase {
        ReplaceType type;
        std::vector<std::size_t> steps;
    };
    const ProgressCase cases[] = {{ReplaceType::task, {0, 1, 2, 3}}, {ReplaceType::category, {0, 3}}};
    for (const ProgressCase& c : cases) {
        std::vector<std::size_t> steps;
        change([&](auto& transaction) {
            EXPECT_TRUE(replaceText(transaction, stores(), {c.type, u"Dig", u"Bore"}, now_,
                                    [&](std::size_t done, std::size_t total) {
                                        EXPECT_EQ(total, 3U);
                                        steps.push_back(done);
                                    }));
        });
        EXPECT_EQ(steps, c.steps) << "type " << static_cast<int>(c.type);
    }
}

TEST_F(ReplaceTextTest, NothingIsReplacedWithoutACommit) {
    insert({.date = november(3), .client = u"Acme"});
    write(DatabaseKind::clients, 1, {PropertyValue::ofText(field::client, u"Acme")});
    const auto before = allEntries();
    {
        const auto transaction = objects().begin();
        EXPECT_EQ(replaceText(*transaction, stores(), {ReplaceType::client, u"Acme", u"Apex"}, now_), oneEntry);
    }
    EXPECT_EQ(allEntries(), before);
    EXPECT_EQ(records(DatabaseKind::clients), std::vector<std::string>{"1/Acme"});
}

} // namespace
} // namespace hourwright::billing
