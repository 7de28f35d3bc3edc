#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/change_journal.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/shape_catalog.h"
#include "platform/sqlite/table.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace hourwright::platform::sqlite {

class SqliteDatabase;

/// What the object store and its open databases share: the file, the shapes, the tables, and whether a transaction or
/// a snapshot is open. All writing goes through here.
class Volume {
public:
    /// `onCommitted` is called after every commit, if given.
    Volume(Connection connection, JournalBounds bounds, std::function<void()> onCommitted = {});

    [[nodiscard]] Connection& connection() { return connection_; }
    [[nodiscard]] ShapeCatalog& shapes() { return shapes_; }
    [[nodiscard]] ChangeJournal& journal() { return journal_; }

    [[nodiscard]] PlatformError lastError() const { return error_; }
    /// Remembers the outcome of an operation and returns whether it succeeded.
    bool finish(PlatformError error);
    /// Remembers the connection's error; false.
    bool fail();

    /// All databases in the order of their creation, or those of one type.
    [[nodiscard]] std::vector<DatabaseInfo> databases(std::optional<std::uint32_t> type);

    /// The table of a database, kept for all handles; null when the database does not exist.
    [[nodiscard]] std::shared_ptr<Table> table(ObjectId database);
    void forgetTable(ObjectId database) { tables_.erase(database); }

    [[nodiscard]] bool begin(const ChangeLabel& label);
    [[nodiscard]] bool commit();
    void rollback();
    [[nodiscard]] bool writing() const { return writing_; }
    /// A write under the transaction failed in the file: the transaction must not be committed any more.
    void spoil() { spoiled_ = true; }

    /// A number that is another one once another program has written to the file; nothing when it cannot be read.
    [[nodiscard]] std::optional<std::uint64_t> changesByOthers();

    void beginSnapshot();
    void endSnapshot();
    /// True while running scans may stay open between calls.
    [[nodiscard]] bool holdsReadLock() const { return writing_ || snapshots_ > 0; }

    /// The next object id; none when they are used up or cannot be read. Needs a transaction.
    [[nodiscard]] ObjectId allocateId();

    void attach(SqliteDatabase& handle) { handles_.push_back(&handle); }
    void detach(SqliteDatabase& handle) { std::erase(handles_, &handle); }
    void releaseScans();
    /// True while a database is open on it.
    [[nodiscard]] bool isInUse() const { return !handles_.empty(); }

private:
    [[nodiscard]] bool storeNextId();
    void forgetUncommitted();

    Connection connection_;
    ShapeCatalog shapes_;
    ChangeJournal journal_;
    std::map<ObjectId, std::shared_ptr<Table>> tables_;
    std::vector<SqliteDatabase*> handles_;
    PlatformError error_ = PlatformError::none;
    bool writing_ = false;
    bool spoiled_ = false;
    int snapshots_ = 0;
    std::uint64_t nextId_ = 0;   // 0: not read in this transaction
    std::uint64_t storedId_ = 0; // as in the file
    std::function<void()> onCommitted_;
    Statement begin_;
    Statement commit_;
    Statement dataVersion_;
};

} // namespace hourwright::platform::sqlite
