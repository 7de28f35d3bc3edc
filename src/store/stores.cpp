#include "store/stores.h"

#include "store/fields.h"

#include <limits>
#include <utility>

namespace hourwright::store {

using platform::PropertyId;
using platform::PropertyValue;
using platform::Seek;
using platform::ValueType;

namespace {

constexpr std::uint16_t counterKind = 0;
constexpr PropertyId nextIdProperty{field::nextClientId, ValueType::ui4};

Seek toCounter() {
    return Seek::toFirstEqual(PropertyValue::ofUi2(field::kind, counterKind));
}

template<std::size_t... kinds>
std::array<RecordStore, databaseCount> makeStores(platform::ObjectStore& objects, std::index_sequence<kinds...>) {
    return {RecordStore(objects, static_cast<DatabaseKind>(kinds))...};
}

constexpr std::array openingOrder = {DatabaseKind::data1,    DatabaseKind::expenses, DatabaseKind::data2,
                                     DatabaseKind::clients,  DatabaseKind::projects, DatabaseKind::tasks,
                                     DatabaseKind::contacts, DatabaseKind::rates};

} // namespace

Stores::Stores(platform::ObjectStore& objects, platform::NamedMutex& clientIdMutex, platform::Registry& registry)
    : objects_(objects), clientIdMutex_(clientIdMutex), registry_(registry),
      stores_(makeStores(objects, std::make_index_sequence<databaseCount>{})) {}

bool Stores::open(const NotificationRequest* entryNotification) {
    close();
    if (!isComplete()) {
        const auto transaction = objects_.begin();
        if (!transaction || !createMissing(*transaction) || !transaction->commit())
            return false;
    }
    for (const DatabaseKind kind : openingOrder) {
        const bool watched = kind == DatabaseKind::data1 || kind == DatabaseKind::expenses;
        if (!(*this)[kind].open(watched ? entryNotification : nullptr))
            return false;
    }
    return true;
}

bool Stores::isComplete() {
    for (RecordStore& store : stores_)
        if (!store.exists())
            return false;
    return lists().open() && lists().seek(toCounter()) != RecordId::none;
}

bool Stores::createMissing(platform::Transaction& transaction) {
    const bool hadClients = clients().exists();
    for (const DatabaseKind kind : openingOrder)
        if (!(*this)[kind].exists() && !(*this)[kind].create(transaction))
            return false;
    if (!lists().open())
        return false;
    if (lists().seek(toCounter()) != RecordId::none)
        return true;
    // A store that lost its counter goes on where the registry says; a new one starts at 1 whatever it says.
    return writeCounter(transaction, hadClients ? nextClientOfRegistry() : 1);
}

std::uint32_t Stores::nextClientOfRegistry() {
    const auto key = registry_.open(platform::settingsKey);
    return key ? key->readDword(u"NextClient").value_or(1) : 1;
}

bool Stores::writeCounter(platform::Transaction& transaction, std::uint32_t next) {
    const std::array properties = {PropertyValue::ofUi2(field::kind, counterKind),
                                   PropertyValue::ofUi4(field::nextClientId, next)};
    return lists().write(transaction, RecordId::none, properties) != RecordId::none;
}

void Stores::close() {
    for (RecordStore& store : stores_)
        store.close();
}

bool Stores::holdRecords() {
    return entries().seek(Seek::toBeginning()) != RecordId::none ||
           expenses().seek(Seek::toBeginning()) != RecordId::none;
}

std::uint32_t Stores::allocateClientId(platform::Transaction& transaction) {
    const platform::NamedMutexLock lock(clientIdMutex_);
    if (!lock.held() || lists().seek(toCounter()) == RecordId::none)
        return 0;
    platform::PropertyBuffer counter;
    const std::array wanted = {nextIdProperty};
    if (lists().read(counter, wanted) != ReadResult::ok || counter.values().empty())
        return 0;
    const auto id = static_cast<std::uint32_t>(counter.values().front().number);
    if (id == 0 || id == std::numeric_limits<std::uint32_t>::max())
        return 0;
    const std::array next = {PropertyValue::ofUi4(field::nextClientId, id + 1)};
    return lists().write(transaction, lists().current(), next) != RecordId::none ? id : 0;
}

} // namespace hourwright::store
