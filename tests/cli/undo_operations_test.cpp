#include "cli/command_runner.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "store/structure_changes.h"
#include "support/memory_registry.h"

#include <functional>
#include <gtest/gtest.h>

namespace hourwright::test {

namespace {

using Words = std::vector<std::string>;

/// A made-up consultant's store, all of whose databases can be printed.
class UndoOperations : public testing::Test {
protected:
    UndoOperations() {
        run({"demo", "--entries", "60"});
        run({"client", "add", "Zeta"});
        run({"project", "add", "Zeta", "Bridge", "Plan"});
        run({"entry", "add", "--client", "Zeta", "--project", "Bridge", "--task", "Plan", "--duration", "2"});
        const std::string all = run({"store", "databases", "--json"});
        const std::string key = "\"name\":\"";
        for (auto at = all.find(key); at != std::string::npos; at = all.find(key, at)) {
            at += key.size();
            databases_.push_back(all.substr(at, all.find('"', at) - at));
        }
    }

    std::string run(const Words& words) {
        const auto result = runner_.run(words);
        EXPECT_EQ(result.exitCode, 0) << words[0] << ' ' << words[1 % words.size()] << ": " << result.err;
        return result.out;
    }
    std::string dump() {
        std::string text;
        for (const std::string& database : databases_)
            text += database + '\n' + run({"store", "dump", database});
        return text;
    }
    /// Undoes and redoes the last change, which led from one state to the other.
    void expectReversible(const std::string& before, const std::string& after) {
        EXPECT_TRUE(before != after);
        run({"undo"});
        EXPECT_TRUE(dump() == before);
        run({"redo"});
        EXPECT_TRUE(dump() == after);
        run({"undo"});
        EXPECT_TRUE(dump() == before);
        EXPECT_EQ(run({"store", "check"}), "");
    }

    CommandRunner runner_;
    std::vector<std::string> databases_;
};

TEST_F(UndoOperations, EveryCommandThatChangesRecordsIsTakenBackExactly) {
    ASSERT_EQ(databases_.size(), 8U);
    const std::string id = run(
        {"entry", "add", "--client", "Zeta", "--task", "Go", "--duration", "1", "--status", "billable", "--note", "n"});
    const std::string entry = id.substr(0, id.size() - 1);
    const std::string expenseId = run({"expense", "add", "general", "--client", "Zeta", "--amount", "5"});
    const std::string expense = expenseId.substr(0, expenseId.size() - 1);
    const std::string rateId =
        run({"rate", "add", "Zeta", "--type", "normal", "--description", "Basic", "--rate", "50"});
    const std::string rate = rateId.substr(0, rateId.size() - 1);
    const Words range = {"--from", "2000-01-01", "--to", "2030-01-01"};
    const auto bulk = [&range](Words words) {
        words.insert(words.end(), range.begin(), range.end());
        return words;
    };
    const std::vector<Words> commands = {
        {"entry", "add", "--client", "Zeta", "--task", "Something new", "--duration", "3", "--currency", "XYZ"},
        {"entry", "edit", entry, "--date", "2020-01-01", "--task", "Another", "--note", "", "--duration", "9"},
        {"entry", "copy", entry, "--until", "2026-12-24"},
        {"entry", "pay", entry},
        {"entry", "toggle-billed", entry},
        {"entry", "delete", entry},
        {"expense", "add", "mileage", "--distance", "12", "--category", "New"},
        {"expense", "edit", expense, "--category", "Another", "--amount", "7"},
        {"expense", "delete", expense},
        {"client", "add", "Eta"},
        {"project", "add", "Zeta", "Tower", "Build"},
        {"task", "add", "Zeta", "Talk"},
        {"contact", "add", "Zeta", "Ms Zoe"},
        {"rate", "edit", rate, "--rate", "60"},
        {"rate", "delete", rate},
        {"--yes", "client", "delete", "Zeta"},
        {"--yes", "project", "delete", "Zeta", "Bridge"},
        bulk({"bulk", "mark-paid"}),
        bulk({"bulk", "mark-billed"}),
        bulk({"--yes", "bulk", "delete"}),
        {"entry", "edit", entry, "--start", "10:00", "--end", "12:30", "--break", "0.5"},
        {"expense", "edit", expense, "--note", "n", "--currency", "", "--receipt", "yes"},
        {"--yes", "task", "delete", "Zeta", "Plan", "--project", "Bridge"},
        {"store", "delete", databases_.front(), entry},
    };
    const std::string before = dump();
    for (const Words& command : commands) {
        std::string line;
        for (const std::string& word : command)
            line += word + ' ';
        SCOPED_TRACE(line);
        run(command);
        expectReversible(before, dump());
    }
}

// Each type in a text that stands in every field, first by a new one, then by one that lists and structure have
// already.
TEST_F(UndoOperations, ReplacedTextsOfEveryTypeAreTakenBackExactly) {
    for (const std::string text : {"Same", "There"}) {
        run({"client", "add", text});
        run({"project", "add", text, text, text});
        run({"contact", "add", text, text});
        run({"entry",     "add", "--client",  text, "--project",  text, "--phase",   text,
             "--task",    text,  "--bill-to", text, "--currency", text, "--custom1", text,
             "--custom2", text,  "--custom3", text, "--duration", "1"});
        run({"expense", "add", "general", "--client", text, "--project", text, "--category", text, "--bill-to", text,
             "--currency", text, "--custom1", text, "--custom2", text, "--amount", "5"});
    }
    const std::string before = dump();
    for (const std::string type :
         {"client", "project", "phase", "task", "bill-to", "currency", "custom1", "custom2", "custom3", "category"})
        for (const std::string by : {"New", "There"}) {
            SCOPED_TRACE(type + " by " + by);
            run({"--now", "2026-12-01 10:00:00", "--yes", "bulk", "replace", type, "Same", by});
            expectReversible(before, dump());
        }
}

TEST_F(UndoOperations, ChangesOfTheStructureAreTakenBackExactly) {
    using platform::FileTime;
    using platform::Transaction;
    using store::Stores;
    const std::vector<std::u16string> projects = {u"Bridge"};
    const auto clientId = [](Stores& stores, std::u16string_view name) {
        return store::findClient(stores, name).value_or(store::ClientRecord{}).clientId;
    };
    const std::vector<std::function<bool(Transaction&, Stores&)>> changes = {
        [&](Transaction& transaction, Stores& stores) {
            return store::renameClient(transaction, stores, clientId(stores, u"Zeta"), u"Omega", FileTime{4711}) ==
                   store::RenameResult::done;
        },
        [&](Transaction& transaction, Stores& stores) {
            return store::renameProject(transaction, stores, {clientId(stores, u"Zeta"), u"Bridge", u"Tunnel"},
                                        FileTime{4711}) == store::RenameResult::done;
        },
        [&](Transaction& transaction, Stores& stores) {
            const auto clients = store::listClients(stores);
            return clients && store::migrateStructure(transaction, stores,
                                                      {.from = clientId(stores, u"Zeta"),
                                                       .to = clients->front().clientId,
                                                       .projects = projects,
                                                       .tasks = {}});
        },
    };
    const std::string before = dump();
    for (const auto& change : changes) {
        {
            const auto mutex = platform::makeNamedMutex(runner_.home(), std::string(store::clientIdMutexName));
            const auto opened = platform::openSqliteObjectStore(runner_.home() / "hourwright.db");
            MemoryRegistry registry;
            Stores stores(*opened.store, *mutex, registry);
            ASSERT_TRUE(stores.open());
            const auto transaction = opened.store->begin({.name = u"Change", .time = {}});
            ASSERT_TRUE(change(*transaction, stores));
            ASSERT_TRUE(transaction->commit());
        }
        expectReversible(before, dump());
    }
}

} // namespace

} // namespace hourwright::test
