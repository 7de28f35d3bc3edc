#pragma once

#include "platform/error.h"
#include "platform/history.h"
#include "platform/property.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

/// Identifies a database or a record; unique in the whole volume and never given twice. `none` is never given.
enum class ObjectId : std::uint32_t { none = 0 };

/// Plain names for the properties of a database, so that the stored file can be read with other tools. Advice only: a
/// property that has no name here is stored all the same.
struct PropertyName {
    PropertyId id;
    std::string_view name;
};
struct Legend {
    std::string_view view; ///< plain name of the database, in ASCII
    std::span<const PropertyName> names;
};

/// What is needed to make a database: its name, type number, single ascending sort property and legend.
struct DatabaseDefinition {
    std::u16string_view name;
    std::uint32_t type = 0;
    PropertyId sortProperty;
    Legend legend;
};

struct DatabaseInfo {
    ObjectId id = ObjectId::none;
    std::u16string name;
    std::uint32_t type = 0;
    PropertyId sortProperty;
};

/// How a seek finds its record. Sorted order is ascending by the sort property the database was opened with; equal
/// values keep the order of creation, and records without that property come last.
enum class SeekMode : std::uint8_t {
    objectId,   ///< the record with this id
    beginning,  ///< `distance` records after the first
    end,        ///< `distance` records before the last
    current,    ///< `distance` records after (negative: before) the current one, 0 the current one itself
    firstEqual, ///< the first record whose sort property equals `key`
    nextEqual,  ///< the record after the current one, if its sort property equals `key`
    greater,    ///< the first record whose sort property is strictly greater than `key`
};

struct Seek {
    SeekMode mode = SeekMode::beginning;
    ObjectId id = ObjectId::none;
    std::int32_t distance = 0;
    PropertyValue key{};
    /// Advice: the only properties that reads will ask for until the next seek other than from the current record.
    /// Empty: all. Must outlive those reads.
    std::span<const PropertyId> columns{};
    /// Advice for the same time: texts that all records of interest have; others may be passed over, or not. Needed
    /// during the seek only.
    std::span<const PropertyValue> texts{};

    static Seek toId(ObjectId id) { return {.mode = SeekMode::objectId, .id = id}; }
    static Seek toBeginning(std::int32_t distance = 0) { return {.mode = SeekMode::beginning, .distance = distance}; }
    static Seek toEnd(std::int32_t distance = 0) { return {.mode = SeekMode::end, .distance = distance}; }
    static Seek fromCurrent(std::int32_t distance) { return {.mode = SeekMode::current, .distance = distance}; }
    static Seek toFirstEqual(const PropertyValue& key) { return {.mode = SeekMode::firstEqual, .key = key}; }
    static Seek toNextEqual(const PropertyValue& key) { return {.mode = SeekMode::nextEqual, .key = key}; }
    static Seek toGreater(const PropertyValue& key) { return {.mode = SeekMode::greater, .key = key}; }
};

/// Holds the store for writing: everything written under it becomes durable together at `commit`, or not at all.
/// Destroyed without a successful commit it takes everything back. Every write needs one as its witness.
class Transaction {
public:
    virtual ~Transaction() = default;

    /// Makes the writes durable. False when that failed; then nothing of it is stored.
    [[nodiscard]] virtual bool commit() = 0;
};

/// While one is alive, all reads see the same state of the store and successive records are read fast. It keeps other
/// processes from committing, so it is held for the length of a walk, never while a user is thinking.
class Snapshot {
public:
    virtual ~Snapshot() = default;
};

/// An open database: a position in its sorted records. Reading leaves the position; the caller moves on with a seek.
/// Every operation reports failure by its result and sets the store's last error.
class Database {
public:
    virtual ~Database() = default;

    /// Moves to a record and returns its id; `none`, and no current record, when there is none (error 259).
    /// After the current record was deleted, a seek by 1 from it finds the one behind it.
    virtual ObjectId seek(const Seek& where) = 0;

    /// Reads all properties of the current record in stored order, or, when ids are given, just those that it has, in
    /// the order asked for. False without a current record (error 259) and on failure.
    [[nodiscard]] virtual bool read(PropertyBuffer& out, std::span<const PropertyId> wanted = {}) = 0;

    /// Writes a property list: a new record for `none`, else an update in which listed properties keep their place or
    /// are added at the end and deletions are removed. Returns the record's id, which becomes the current record;
    /// `none` on failure: 87 for an unknown id, an unknown type or a number too large for its type.
    virtual ObjectId write(Transaction& transaction, ObjectId id, std::span<const PropertyValue> properties) = 0;

    /// Deletes the current record.
    [[nodiscard]] virtual bool deleteCurrent(Transaction& transaction) = 0;

    /// The object id of the database.
    [[nodiscard]] virtual ObjectId id() const = 0;

    /// Number of records; it costs a walk over the index.
    [[nodiscard]] virtual std::uint64_t recordCount() = 0;
};

/// The volume that holds property databases. One thread uses it; other processes may use the same volume.
class ObjectStore {
public:
    virtual ~ObjectStore() = default;

    /// All databases in the order of their creation, or those of one type.
    [[nodiscard]] virtual std::vector<DatabaseInfo> databases(std::optional<std::uint32_t> type = {}) = 0;

    /// Creates a database and returns its id; `none` on failure (183 when type and name exist already).
    virtual ObjectId createDatabase(Transaction& transaction, const DatabaseDefinition& definition) = 0;

    /// Deletes a database with all its records. Handles open on it have no current record afterwards.
    [[nodiscard]] virtual bool deleteDatabase(Transaction& transaction, ObjectId id) = 0;

    /// Opens a database sorted on a property, usually the one it was created with. Null when it does not exist.
    [[nodiscard]] virtual std::unique_ptr<Database> openDatabase(ObjectId id, PropertyId sortProperty) = 0;

    /// Begins to write. Null when the store is read-only (5), in use by another process for longer than the time-out
    /// (33), or when a transaction or snapshot of this object is alive (87). With a name, what it changes in records
    /// can be undone once it is committed.
    [[nodiscard]] virtual std::unique_ptr<Transaction> begin(const ChangeLabel& label) = 0;
    [[nodiscard]] std::unique_ptr<Transaction> begin() { return begin(ChangeLabel{}); }

    /// The changes that can be undone and redone; it lives until the store is reopened.
    [[nodiscard]] virtual History& history() = 0;

    /// Begins to read one state. Never null; reading fails later if the store cannot be read. Under a transaction it
    /// sees that transaction's writes.
    [[nodiscard]] virtual std::unique_ptr<Snapshot> snapshot() = 0;

    /// Verifies the file's structure and every record's checksum, and reports each finding as one line of text.
    /// Returns true when there is none.
    [[nodiscard]] virtual bool check(const std::function<void(std::string_view)>& report) = 0;

    /// A number that is another one after a program or object other than this has written; it costs little. Nothing
    /// when the store cannot be read just now. Leaves the last error as it is.
    [[nodiscard]] virtual std::optional<std::uint64_t> changesByOthers() = 0;

    /// Whether operations wait for a while when another program or object holds the store, as they do at first. If not,
    /// they fail at once with error 33.
    virtual void waitForOthers(bool wait) = 0;

    /// True when another file has taken the place of the open one, for example a copy that was put back. What is open
    /// can still be read, but not written.
    [[nodiscard]] virtual bool isReplaced() = 0;
    /// Opens the file that stands in the place now. Databases that are open go on reading the former file, so they are
    /// to be opened anew. False, and nothing happens, when there is no file or it cannot be used, or under a
    /// transaction.
    [[nodiscard]] virtual bool reopen() = 0;

    /// The error of the last failed operation, `none` after a successful one.
    [[nodiscard]] virtual PlatformError lastError() const = 0;
};

} // namespace hourwright::platform
