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

/// A connection that is ready for use, or why it is not.
struct OpenedConnection {
    std::optional<Connection> connection;
    std::optional<StoreProblem> problem;
};

OpenedConnection openConnection(const std::filesystem::path& file, std::chrono::milliseconds busyTimeout) {
    OpenedConnection opened;
    opened.problem = inspectStoreFile(file);
    if (opened.problem)
        return opened;
    const PlatformError created = createPrivateFile(file);
    if (created == PlatformError::pathNotFound || created == PlatformError::fileNotFound)
        opened.problem = {PlatformError::pathNotFound, "The folder does not exist."};
    else if (created != PlatformError::none)
        opened.problem = {created, "The file cannot be created."};
    if (opened.problem)
        return opened;
    opened.connection.emplace(file, busyTimeout);
    opened.problem = prepareStoreFile(*opened.connection);
    return opened;
}

class SqliteObjectStore final : public ObjectStore {
public:
    SqliteObjectStore(Connection connection, std::filesystem::path file, StoreFileOptions options)
        : file_(std::move(file)), options_(std::move(options)) {
        use(std::move(connection));
    }

    [[nodiscard]] std::vector<DatabaseInfo> databases(std::optional<std::uint32_t> type) override {
        return volume_->databases(type);
    }

    ObjectId createDatabase(Transaction&, const DatabaseDefinition& definition) override {
        for (const DatabaseInfo& known : databases(definition.type))
            if (known.name == definition.name)
                return failed(PlatformError::alreadyExists);
        if (!volume_->writing() || !isKnownType(definition.sortProperty.type()))
            return failed(PlatformError::invalidParameter);
        const ObjectId id = volume_->allocateId();
        if (id == ObjectId::none || !insertRow(id, definition) || !createTable(volume_->connection(), id, definition)) {
            volume_->spoil();
            volume_->fail();
            return ObjectId::none;
        }
        volume_->finish(PlatformError::none);
        return id;
    }

    [[nodiscard]] bool deleteDatabase(Transaction&, ObjectId id) override {
        if (!volume_->writing() || volume_->table(id) == nullptr)
            return volume_->finish(PlatformError::invalidParameter);
        volume_->releaseScans();
        Statement row(volume_->connection(), "DELETE FROM databases WHERE id = ?1");
        if (row)
            row.bind(1, static_cast<std::int64_t>(id));
        if (!row.run() || !dropTable(volume_->connection(), id) || !volume_->journal().clear()) {
            volume_->spoil();
            return volume_->fail();
        }
        volume_->forgetTable(id);
        return volume_->finish(PlatformError::none);
    }

    [[nodiscard]] std::unique_ptr<Database> openDatabase(ObjectId id, PropertyId sortProperty) override {
        auto table = volume_->table(id);
        volume_->finish(table ? PlatformError::none : PlatformError::fileNotFound);
        if (!table)
            return nullptr;
        return std::make_unique<SqliteDatabase>(*volume_, std::move(table), sortProperty);
    }

    using ObjectStore::begin;
    [[nodiscard]] std::unique_ptr<Transaction> begin(const ChangeLabel& label) override {
        return volume_->begin(label) ? std::make_unique<SqliteTransaction>(*volume_) : nullptr;
    }

    [[nodiscard]] History& history() override { return *history_; }

    [[nodiscard]] std::unique_ptr<Snapshot> snapshot() override { return std::make_unique<SqliteSnapshot>(*volume_); }

    [[nodiscard]] bool check(const std::function<void(std::string_view)>& report) override {
        const SqliteSnapshot snapshot(*volume_);
        const bool sound = checkStore(*volume_, databases({}), report);
        volume_->finish(sound ? PlatformError::none : PlatformError::fileCorrupt);
        return sound;
    }

    [[nodiscard]] std::optional<std::uint64_t> changesByOthers() override { return volume_->changesByOthers(); }

    void waitForOthers(bool wait) override {
        volume_->connection().setBusyTimeout(wait ? options_.busyTimeout : std::chrono::milliseconds(0));
    }

    [[nodiscard]] bool isReplaced() override {
        std::error_code unreadable;
        return volume_->connection().hasMoved() && std::filesystem::exists(file_, unreadable);
    }

    [[nodiscard]] bool reopen() override {
        std::error_code unreadable;
        if (volume_->holdsReadLock())
            return volume_->finish(PlatformError::invalidParameter);
        if (!std::filesystem::exists(file_, unreadable))
            return volume_->finish(PlatformError::fileNotFound);
        auto opened = openConnection(file_, options_.busyTimeout);
        if (opened.problem)
            return volume_->finish(opened.problem->error);
        std::erase_if(former_, [](const auto& volume) { return !volume->isInUse(); });
        former_.push_back(std::move(volume_));
        use(std::move(*opened.connection));
        return true;
    }

    [[nodiscard]] PlatformError lastError() const override { return volume_->lastError(); }

private:
    ObjectId failed(PlatformError error) {
        volume_->finish(error);
        return ObjectId::none;
    }

    [[nodiscard]] bool insertRow(ObjectId id, const DatabaseDefinition& definition) {
        const std::string name = toUtf8(definition.name);
        Statement insert(volume_->connection(),
                         "INSERT INTO databases(id, name, type, sort_property) VALUES (?1, ?2, ?3, ?4)");
        if (!insert)
            return false;
        insert.bind(1, static_cast<std::int64_t>(id));
        insert.bind(2, std::string_view(name));
        insert.bind(3, std::int64_t{definition.type});
        insert.bind(4, std::int64_t{definition.sortProperty.value});
        return insert.run();
    }

    void use(Connection connection) {
        volume_ = std::make_unique<Volume>(
            std::move(connection), JournalBounds{.steps = options_.historySteps, .bytes = options_.historyBytes},
            options_.onCommitted);
        history_ = std::make_unique<SqliteHistory>(*volume_);
    }

    std::filesystem::path file_;
    StoreFileOptions options_;
    std::vector<std::unique_ptr<Volume>> former_; // of files that were replaced, as long as databases are open on them
    std::unique_ptr<Volume> volume_;
    std::unique_ptr<SqliteHistory> history_;
};

OpenedStore refused(const StoreProblem& problem) {
    return {.store = nullptr, .error = problem.error, .reason = problem.reason};
}

} // namespace

OpenedStore openSqliteObjectStore(const std::filesystem::path& file, StoreFileOptions options) {
    auto opened = openConnection(file, options.busyTimeout);
    if (opened.problem)
        return refused(*opened.problem);
    return {.store = std::make_unique<SqliteObjectStore>(std::move(*opened.connection), file, std::move(options)),
            .error = PlatformError::none,
            .reason = {}};
}

} // namespace hourwright::platform
