#include "platform/sqlite/sqlite_object_store.h"

#include "platform/posix/private_file.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/sqlite/sqlite_history.h"
#include "platform/sqlite/store_check.h"
#include "platform/sqlite/store_file.h"
#include "platform/sqlite/volume.h"
#include "platform/utf.h"

namespace hourwright::platform {

namespace {

using namespace sqlite;

class SqliteTransaction final : public Transaction {
public:
    explicit SqliteTransaction(Volume& volume) : volume_(volume) {}
    ~SqliteTransaction() override {
        if (!ended_)
            volume_.rollback();
    }
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    [[nodiscard]] bool commit() override {
        if (ended_)
            return volume_.finish(PlatformError::invalidParameter);
        ended_ = true;
        return volume_.commit();
    }

private:
    Volume& volume_;
    bool ended_ = false;
};

class SqliteSnapshot final : public Snapshot {
public:
    explicit SqliteSnapshot(Volume& volume) : volume_(volume) { volume_.beginSnapshot(); }
    ~SqliteSnapshot() override { volume_.endSnapshot(); }
    SqliteSnapshot(const SqliteSnapshot&) = delete;
    SqliteSnapshot& operator=(const SqliteSnapshot&) = delete;

private:
    Volume& volume_;
};

class SqliteObjectStore final : public ObjectStore {
public:
    SqliteObjectStore(Connection connection, JournalBounds bounds, std::function<void()> onCommitted)
        : volume_(std::move(connection), bounds, std::move(onCommitted)), history_(volume_) {}

    [[nodiscard]] std::vector<DatabaseInfo> databases(std::optional<std::uint32_t> type) override {
        return volume_.databases(type);
    }

    ObjectId createDatabase(Transaction&, const DatabaseDefinition& definition) override {
        for (const DatabaseInfo& known : databases(definition.type))
            if (known.name == definition.name)
                return failed(PlatformError::alreadyExists);
        if (!volume_.writing() || !isKnownType(definition.sortProperty.type()))
            return failed(PlatformError::invalidParameter);
        const ObjectId id = volume_.allocateId();
        if (id == ObjectId::none || !insertRow(id, definition) || !createTable(volume_.connection(), id, definition)) {
            volume_.spoil();
            volume_.fail();
            return ObjectId::none;
        }
        volume_.finish(PlatformError::none);
        return id;
    }

    [[nodiscard]] bool deleteDatabase(Transaction&, ObjectId id) override {
        if (!volume_.writing() || volume_.table(id) == nullptr)
            return volume_.finish(PlatformError::invalidParameter);
        volume_.releaseScans();
        Statement row(volume_.connection(), "DELETE FROM databases WHERE id = ?1");
        if (row)
            row.bind(1, static_cast<std::int64_t>(id));
        if (!row.run() || !dropTable(volume_.connection(), id) || !volume_.journal().clear()) {
            volume_.spoil();
            return volume_.fail();
        }
        volume_.forgetTable(id);
        return volume_.finish(PlatformError::none);
    }

    [[nodiscard]] std::unique_ptr<Database> openDatabase(ObjectId id, PropertyId sortProperty) override {
        auto table = volume_.table(id);
        volume_.finish(table ? PlatformError::none : PlatformError::fileNotFound);
        if (!table)
            return nullptr;
        return std::make_unique<SqliteDatabase>(volume_, std::move(table), sortProperty);
    }

    using ObjectStore::begin;
    [[nodiscard]] std::unique_ptr<Transaction> begin(const ChangeLabel& label) override {
        return volume_.begin(label) ? std::make_unique<SqliteTransaction>(volume_) : nullptr;
    }

    [[nodiscard]] History& history() override { return history_; }

    [[nodiscard]] std::unique_ptr<Snapshot> snapshot() override { return std::make_unique<SqliteSnapshot>(volume_); }

    [[nodiscard]] bool check(const std::function<void(std::string_view)>& report) override {
        const SqliteSnapshot snapshot(volume_);
        const bool sound = checkStore(volume_, databases({}), report);
        volume_.finish(sound ? PlatformError::none : PlatformError::fileCorrupt);
        return sound;
    }

    [[nodiscard]] std::optional<std::uint64_t> changesByOthers() override { return volume_.changesByOthers(); }

    [[nodiscard]] PlatformError lastError() const override { return volume_.lastError(); }

private:
    ObjectId failed(PlatformError error) {
        volume_.finish(error);
        return ObjectId::none;
    }

    [[nodiscard]] bool insertRow(ObjectId id, const DatabaseDefinition& definition) {
        const std::string name = toUtf8(definition.name);
        Statement insert(volume_.connection(),
                         "INSERT INTO databases(id, name, type, sort_property) VALUES (?1, ?2, ?3, ?4)");
        if (!insert)
            return false;
        insert.bind(1, static_cast<std::int64_t>(id));
        insert.bind(2, std::string_view(name));
        insert.bind(3, std::int64_t{definition.type});
        insert.bind(4, std::int64_t{definition.sortProperty.value});
        return insert.run();
    }

    Volume volume_;
    SqliteHistory history_;
};

OpenedStore refused(const StoreProblem& problem) {
    return {.store = nullptr, .error = problem.error, .reason = problem.reason};
}

} // namespace

OpenedStore openSqliteObjectStore(const std::filesystem::path& file, StoreFileOptions options) {
    if (const auto problem = inspectStoreFile(file))
        return refused(*problem);
    const PlatformError created = createPrivateFile(file);
    if (created == PlatformError::pathNotFound || created == PlatformError::fileNotFound)
        return {.store = nullptr, .error = PlatformError::pathNotFound, .reason = "The folder does not exist."};
    if (created != PlatformError::none)
        return {.store = nullptr, .error = created, .reason = "The file cannot be created."};
    Connection connection(file, options.busyTimeout);
    if (const auto problem = prepareStoreFile(connection))
        return refused(*problem);
    return {.store = std::make_unique<SqliteObjectStore>(
                std::move(connection), JournalBounds{.steps = options.historySteps, .bytes = options.historyBytes},
                std::move(options.onCommitted)),
            .error = PlatformError::none,
            .reason = {}};
}

} // namespace hourwright::platform
