#pragma once

#include "platform/named_mutex.h"
#include "platform/object_store.h"
#include "platform/registry.h"
#include "store/record_store.h"

#include <array>
#include <cstdint>

namespace hourwright::store {

/// Name of the mutex that guards the client-id counter against other processes.
inline constexpr std::string_view clientIdMutexName = "Quellmarch.Hourwright.ClientID";

/// The eight record stores of the program, opened together.
class Stores {
public:
    /// Borrows everything; `clientIdMutex` is the mutex of the name above.
    Stores(platform::ObjectStore& objects, platform::NamedMutex& clientIdMutex, platform::Registry& registry);

    /// Opens every store, creating what is missing, and makes sure of the client-id counter. Stops at the first
    /// failure and returns false.
    [[nodiscard]] bool open(const NotificationRequest* entryNotification = nullptr);
    /// Creates the databases that are missing, and the client-id counter: 1 beside a new clients database, else the
    /// registry's "NextClient".
    [[nodiscard]] bool createMissing(platform::Transaction& transaction);
    void close();

    [[nodiscard]] RecordStore& operator[](DatabaseKind kind) { return stores_[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] RecordStore& entries() { return (*this)[DatabaseKind::data1]; }
    [[nodiscard]] RecordStore& expenses() { return (*this)[DatabaseKind::expenses]; }
    [[nodiscard]] RecordStore& clients() { return (*this)[DatabaseKind::clients]; }
    [[nodiscard]] RecordStore& projects() { return (*this)[DatabaseKind::projects]; }
    [[nodiscard]] RecordStore& tasks() { return (*this)[DatabaseKind::tasks]; }
    [[nodiscard]] RecordStore& contacts() { return (*this)[DatabaseKind::contacts]; }
    [[nodiscard]] RecordStore& rates() { return (*this)[DatabaseKind::rates]; }
    [[nodiscard]] RecordStore& lists() { return (*this)[DatabaseKind::data2]; }
    [[nodiscard]] platform::ObjectStore& objects() { return objects_; }
    [[nodiscard]] platform::Registry& registry() { return registry_; }

    /// True when any entry or expense is stored.
    [[nodiscard]] bool holdRecords();

    /// Takes the next client id from the counter, under the mutex; 0, which is never valid, when there is no counter
    /// or it cannot be written.
    [[nodiscard]] std::uint32_t allocateClientId(platform::Transaction& transaction);

private:
    [[nodiscard]] bool isComplete();
    [[nodiscard]] std::uint32_t nextClientOfRegistry();
    [[nodiscard]] bool writeCounter(platform::Transaction& transaction, std::uint32_t next);

    platform::ObjectStore& objects_;
    platform::NamedMutex& clientIdMutex_;
    platform::Registry& registry_;
    std::array<RecordStore, databaseCount> stores_;
};

} // namespace hourwright::store
