#include "store/record_store.h"

namespace hourwright::store {

using platform::ObjectId;
using platform::PlatformError;

RecordStore::RecordStore(platform::ObjectStore& objects, DatabaseKind kind) : objects_(objects), kind_(kind) {}

ObjectId RecordStore::find() {
    const DatabaseSpec& spec = databaseSpec(kind_);
    const std::u16string_view name = resources::string(spec.name);
    for (const platform::DatabaseInfo& database : objects_.databases(spec.type))
        if (database.name == name)
            return database.id;
    return ObjectId::none;
}

bool RecordStore::exists() {
    return find() != ObjectId::none;
}

bool RecordStore::create(platform::Transaction& transaction) {
    const DatabaseSpec& spec = databaseSpec(kind_);
    database_ = objects_.createDatabase(transaction, {.name = resources::string(spec.name),
                                                      .type = spec.type,
                                                      .sortProperty = spec.sortProperty,
                                                      .legend = spec.legend});
    return database_ != ObjectId::none;
}

bool RecordStore::open(const NotificationRequest* notification, std::optional<platform::PropertyId> sortProperty) {
    close();
    if (notification != nullptr)
        notification_ = std::make_unique<NotificationRequest>(*notification);
    database_ = find();
    if (database_ != ObjectId::none)
        handle_ = objects_.openDatabase(database_, sortProperty.value_or(databaseSpec(kind_).sortProperty));
    return handle_ != nullptr;
}

void RecordStore::close() {
    handle_.reset();
    notification_.reset();
    current_ = RecordId::none;
}

RecordId RecordStore::seek(const platform::Seek& where) {
    refused_ = PlatformError::none;
    current_ = handle_ ? handle_->seek(where) : RecordId::none;
    return current_;
}

ReadResult RecordStore::read(platform::PropertyBuffer& out, std::span<const platform::PropertyId> wanted) {
    refused_ = PlatformError::none;
    if (!handle_)
        return ReadResult::failed;
    if (handle_->read(out, wanted))
        return ReadResult::ok;
    return objects_.lastError() == PlatformError::noMoreItems ? ReadResult::noMore : ReadResult::failed;
}

RecordId RecordStore::write(platform::Transaction& transaction, RecordId id,
                            std::span<const platform::PropertyValue> properties) {
    refused_ = PlatformError::none;
    current_ = handle_ ? handle_->write(transaction, id, properties) : RecordId::none;
    return current_;
}

bool RecordStore::deleteCurrent(platform::Transaction& transaction) {
    refused_ = PlatformError::none;
    return handle_ && handle_->deleteCurrent(transaction);
}

std::uint64_t RecordStore::recordCount() {
    return handle_ ? handle_->recordCount() : 0;
}

bool RecordStore::refuse(PlatformError error) {
    current_ = RecordId::none;
    refused_ = error;
    return false;
}

PlatformError RecordStore::lastError() const {
    if (refused_ != PlatformError::none)
        return refused_;
    return handle_ ? objects_.lastError() : PlatformError::invalidHandle;
}

} // namespace hourwright::store
