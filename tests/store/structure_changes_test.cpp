#include "store/structure_changes.h"

#include "store/expense_entry.h"
#include "support/structure_fixture.h"

namespace hourwright::store {
namespace {

using platform::FileTime;
using Lines = std::vector<std::string>;

constexpr FileTime firstStamp{1};
constexpr FileTime changeStamp{77};

class StructureChangesTest : public test::StructureFixture {
protected:
    RecordId addEntry(std::u16string client, std::u16string project, std::u16string task, std::u16string billTo) {
        TimeEntry entry{.client = std::move(client), .project = std::move(project), .task = std::move(task)};
        entry.billTo = std::move(billTo);
        entry.modified = firstStamp;
        entry.note = {std::byte{'n'}};
        change([&](auto& transaction) { EXPECT_TRUE(insertTimeEntry(transaction, stores().entries(), entry)); });
        return entry.id;
    }
    RecordId addExpense(std::u16string client, std::u16string project, std::u16string billTo) {
        ExpenseEntry expense{.client = std::move(client), .project = std::move(project)};
        expense.billTo = std::move(billTo);
        expense.modified = firstStamp;
        change([&](auto& transaction) { EXPECT_TRUE(insertExpenseEntry(transaction, stores().expenses(), expense)); });
        return expense.id;
    }
    std::string entryText(RecordId id) {
        TimeEntry entry;
        EXPECT_EQ(stores().entries().seek(platform::Seek::toId(id)), id);
        EXPECT_EQ(readTimeEntry(stores().entries(), entry), ReadResult::ok);
        EXPECT_EQ(entry.note.size(), 1U);
        return platform::printableUtf8(entry.client + u"/" + entry.project + u"/" + entry.task + u"/" + entry.billTo) +
               (entry.modified == changeStamp && entry.flags == 3 ? " changed" : "");
    }
    std::string expenseText(RecordId id) {
        ExpenseEntry expense;
        EXPECT_EQ(stores().expenses().seek(platform::Seek::toId(id)), id);
        EXPECT_EQ(readExpenseEntry(stores().expenses(), expense), ReadResult::ok);
        return platform::printableUtf8(expense.client + u"/" + expense.project + u"/" + expense.billTo) +
               (expense.modified == changeStamp && expense.flags == 3 ? " changed" : "");
    }
    template<typename Rename>
    RenameResult rename(Rename apply) {
        RenameResult result = RenameResult::failed;
        change([&](auto& transaction) { result = apply(transaction); });
        return result;
    }
};

TEST_F(StructureChangesTest, RenamingCarriesJustTheEntriesOfThatNameAlong) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    makeFullClient(u"Other");
    const RecordId whole = addEntry(u"Acme", u"Bridge", u"Survey", u"Ms Lind");
    const RecordId alone = addEntry(u"Acme", u"", u"Survey", u"");
    const RecordId foreign = addEntry(u"Other", u"Bridge", u"Survey", u"Ms Lind");
    const RecordId expense = addExpense(u"Acme", u"Bridge", u"Ms Lind");
    const RecordId foreignExpense = addExpense(u"Other", u"Bridge", u"Ms Lind");
    const std::string before = entryText(alone);

    EXPECT_EQ(rename([&](auto& t) {
                  return renameTask(t, stores(), {acme, u"Survey", u"Plan"}, u"Bridge", changeStamp);
              }),
              RenameResult::done);
    EXPECT_EQ(entryText(whole), "Acme/Bridge/Plan/Ms Lind changed");
    EXPECT_EQ(entryText(alone), "Acme//Survey/");
    EXPECT_EQ(rename([&](auto& t) {
                  return renameProject(t, stores(), {acme, u"Bridge", u"Arch"}, changeStamp);
              }),
              RenameResult::done);
    EXPECT_EQ(rename([&](auto& t) {
                  return renameContact(t, stores(), {acme, u"Ms Lind", u"Mr Holm"}, changeStamp);
              }),
              RenameResult::done);
    EXPECT_EQ(expenseText(expense), "Acme/Arch/Mr Holm"); // flags are 7 after the second change
    EXPECT_EQ(entryText(alone), before);
    EXPECT_EQ(rename([&](auto& t) { return renameClient(t, stores(), acme, u"Zenith", changeStamp); }),
              RenameResult::done);
    EXPECT_EQ(entryText(alone), "Zenith//Survey/ changed");
    EXPECT_EQ(expenseText(expense), "Zenith/Arch/Mr Holm");
    EXPECT_EQ(entryText(foreign), "Other/Bridge/Survey/Ms Lind");
    EXPECT_EQ(expenseText(foreignExpense), "Other/Bridge/Ms Lind");
    EXPECT_EQ(findClient(stores(), u"Zenith")->clientId, acme);
    EXPECT_EQ(linesOf(acme), (Lines{"project Arch/Plan", "project Arch/Design", "project Tunnel/Survey", "task Travel",
                                    "task Office", "contact Mr Holm", "rate Standard"}));
}

TEST_F(StructureChangesTest, WithoutAnInstantTheEntriesStay) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    const RecordId entry = addEntry(u"Acme", u"Bridge", u"Survey", u"Ms Lind");
    EXPECT_EQ(rename([&](auto& t) { return renameClient(t, stores(), acme, u"Zenith", {}); }), RenameResult::done);
    EXPECT_EQ(rename([&](auto& t) {
                  return renameTask(t, stores(), {acme, u"Survey", u"Plan"}, u"Bridge", {});
              }),
              RenameResult::done);
    EXPECT_EQ(entryText(entry), "Acme/Bridge/Survey/Ms Lind");
}

TEST_F(StructureChangesTest, WhatGetsTheNameOfAnotherBecomesOneWithIt) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    EXPECT_EQ(rename([&](auto& t) {
                  return renameProject(t, stores(), {acme, u"Bridge", u"Tunnel"}, {});
              }),
              RenameResult::done);
    EXPECT_EQ(rename([&](auto& t) {
                  return renameTask(t, stores(), {acme, u"Travel", u"Office"}, u"", {});
              }),
              RenameResult::done);
    EXPECT_EQ(linesOf(acme), (Lines{"project Tunnel/Design", "project Tunnel/Survey", "task Office", "contact Ms Lind",
                                    "rate Standard"}));
}

TEST_F(StructureChangesTest, ANewNameMustBeOneAndFreeForClients) {
    const std::uint32_t acme = makeFullClient(u"Acme");
    makeClient(u"Other");
    const Lines before = linesOf(acme);
    EXPECT_EQ(rename([&](auto& t) { return renameClient(t, stores(), acme, u"Other", {}); }), RenameResult::taken);
    EXPECT_EQ(rename([&](auto& t) { return renameClient(t, stores(), acme, u"Acme", {}); }), RenameResult::done);
    EXPECT_EQ(rename([&](auto& t) { return renameClient(t, stores(), acme, u"", {}); }), RenameResult::failed);
    EXPECT_EQ(rename([&](auto& t) {
                  return renameContact(t, stores(), {acme, u"Ms Lind", u""}, {});
              }),
              RenameResult::failed);
    EXPECT_EQ(rename([&](auto& t) { return renameClient(t, stores(), 99, u"Nobody", {}); }), RenameResult::failed);
    EXPECT_EQ(linesOf(acme), before);
}

TEST_F(StructureChangesTest, MigratingMovesTheChosenNames) {
    const std::uint32_t from = makeFullClient(u"Acme");
    const std::uint32_t to = makeClient(u"Other");
    makeProject(to, u"Bridge", u"Design");
    makeTask(to, u"Home");
    const RecordId entry = addEntry(u"Acme", u"Bridge", u"Survey", u"");
    const std::vector<std::u16string> projects = {u"Bridge", u"No such"};
    const std::vector<std::u16string> tasks = {u"Office"};
    change([&](auto& transaction) {
        EXPECT_TRUE(migrateStructure(transaction, stores(), {from, to, projects, tasks}));
        EXPECT_TRUE(migrateStructure(transaction, stores(), {to, to, projects, tasks}));
    });
    EXPECT_EQ(linesOf(from), (Lines{"project Tunnel/Survey", "task Travel", "contact Ms Lind", "rate Standard"}));
    EXPECT_EQ(linesOf(to), (Lines{"project Bridge/Design", "project Bridge/Survey", "task Home", "task Office"}));
    EXPECT_EQ(entryText(entry), "Acme/Bridge/Survey/");
}

} // namespace
} // namespace hourwright::store
