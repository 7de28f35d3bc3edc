#pragma once

#include "platform/object_store.h"
#include "resources/strings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>

namespace hourwright::store {

using RecordId = platform::ObjectId;

/// The platform's notification block, passed on as it is.
inline constexpr std::size_t notificationSize = 20;
using NotificationRequest = std::array<std::byte, notificationSize>;

/// The eight databases, in the order in which they are opened.
enum class DatabaseKind : std::uint8_t { data1, expenses, clients, projects, tasks, contacts, rates, data2 };
inline constexpr std::size_t databaseCount = 8;

/// What is fixed about a database.
struct DatabaseSpec {
    resources::StringId name;
    std::uint32_t type;
    platform::PropertyId sortProperty;
    platform::Legend legend;
};
[[nodiscard]] const DatabaseSpec& databaseSpec(DatabaseKind kind);

/// Result of reading the current record: 1 means that there is no (more) record.
enum class ReadResult : std::int8_t { ok = 0, noMore = 1, failed = -1 };

/// One database of the device's object store: found by type and exact name, created when missing, then a position in
/// its records. Operations report failure by their result; the object store's last error says why.
class RecordStore {
public:
    RecordStore(platform::ObjectStore& objects, DatabaseKind kind);

    [[nodiscard]] DatabaseKind kind() const { return kind_; }

    /// True when a database of this type and exact name exists.
    [[nodiscard]] bool exists();

    /// Creates the database; false when that failed or it exists already.
    [[nodiscard]] bool create(platform::Transaction& transaction);

    /// Opens the existing database, by default sorted on its own sort property, and keeps a copy of the notification
    /// request. No record is current afterwards.
    [[nodiscard]] bool open(const NotificationRequest* notification = nullptr,
                            std::optional<platform::PropertyId> sortProperty = {});
    [[nodiscard]] bool isOpen() const { return handle_ != nullptr; }
    void close();

    /// The platform's seek; the result becomes the current record.
    RecordId seek(const platform::Seek& where);
    /// The record that the last seek or write went to; none when it failed.
    [[nodiscard]] RecordId current() const { return current_; }

    /// Reads the current record, all properties or those asked for.
    [[nodiscard]] ReadResult read(platform::PropertyBuffer& out, std::span<const platform::PropertyId> wanted = {});

    /// Writes a property list (id none: a new record); the id, or none on failure, becomes the current record.
    RecordId write(platform::Transaction& transaction, RecordId id,
                   std::span<const platform::PropertyValue> properties);
    [[nodiscard]] bool deleteCurrent(platform::Transaction& transaction);

    [[nodiscard]] std::uint64_t recordCount();

    /// Why the last failed operation failed.
    [[nodiscard]] platform::PlatformError lastError() const;
    /// Refuses a write before it reaches the platform: no record is current, `lastError` gives the number. False.
    bool refuse(platform::PlatformError error);

    [[nodiscard]] platform::ObjectStore& objects() { return objects_; }
    [[nodiscard]] const NotificationRequest* notification() const { return notification_.get(); }

private:
    [[nodiscard]] platform::ObjectId find();

    platform::ObjectStore& objects_;
    DatabaseKind kind_;
    platform::ObjectId database_ = platform::ObjectId::none;
    std::unique_ptr<platform::Database> handle_;
    RecordId current_ = RecordId::none;
    platform::PlatformError refused_ = platform::PlatformError::none;
    std::unique_ptr<NotificationRequest> notification_;
};

} // namespace hourwright::store
