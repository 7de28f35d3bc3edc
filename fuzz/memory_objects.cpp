#include "fuzz/memory_objects.h"

#include "platform/utf.h"

#include <algorithm>
#include <cstdlib>

namespace hourwright::fuzz {

using platform::ObjectId;
using platform::PlatformError;
using platform::PropertyId;
using platform::PropertyValue;
using platform::ValueType;

namespace {

class MemoryTransaction final : public platform::Transaction {
public:
    [[nodiscard]] bool commit() override { return true; }
};

bool fits(const PropertyValue& value) {
    switch (value.id.type()) {
    case ValueType::boolean: return value.number <= 1;
    case ValueType::ui2: return value.number <= 0xFFFF;
    case ValueType::ui4: return value.number <= 0xFFFF'FFFF;
    default: return platform::isKnownType(value.id.type());
    }
}

} // namespace

class MemoryDatabase final : public platform::Database {
public:
    MemoryDatabase(MemoryObjects& objects, ObjectId id) : objects_(objects), id_(id) {}

    ObjectId seek(const platform::Seek& where) override {
        const bool known = where.mode == platform::SeekMode::objectId && objects_.records_.contains(where.id);
        current_ = known ? where.id : ObjectId::none;
        objects_.error_ = known ? PlatformError::none : PlatformError::noMoreItems;
        return current_;
    }

    [[nodiscard]] bool read(platform::PropertyBuffer& out, std::span<const PropertyId>) override {
        const auto found = objects_.records_.find(current_);
        objects_.error_ = found == objects_.records_.end() ? PlatformError::noMoreItems : PlatformError::none;
        if (found == objects_.records_.end())
            return false;
        std::size_t units = 0;
        std::size_t bytes = 0;
        for (const auto& value : found->second) {
            units += value.utf8.size();
            bytes += value.blob.size();
        }
        out.reset(units, bytes);
        for (const auto& value : found->second) {
            switch (value.id.type()) {
            case ValueType::text: out.addText(value.id, value.utf8); break;
            case ValueType::blob: out.addBlob(value.id, value.blob); break;
            default: out.addNumber(value.id, value.number);
            }
        }
        return true;
    }

    ObjectId write(platform::Transaction&, ObjectId id, std::span<const PropertyValue> properties) override {
        const bool valid =
            (id == ObjectId::none || objects_.records_.contains(id)) && std::ranges::all_of(properties, fits);
        objects_.error_ = valid ? PlatformError::none : PlatformError::invalidParameter;
        if (!valid)
            return current_ = ObjectId::none;
        current_ = id != ObjectId::none ? id : static_cast<ObjectId>(++objects_.lastId_);
        MemoryObjects::Record& record = objects_.records_[current_];
        for (const PropertyValue& value : properties)
            put(record, value);
        return current_;
    }

    [[nodiscard]] bool deleteCurrent(platform::Transaction&) override { return objects_.records_.erase(current_) != 0; }
    [[nodiscard]] ObjectId id() const override { return id_; }
    [[nodiscard]] std::uint64_t recordCount() override { return objects_.records_.size(); }

private:
    // A text ends at its first NUL.
    static void put(MemoryObjects::Record& record, const PropertyValue& value) {
        auto place = std::ranges::find(record, value.id, &MemoryObjects::Value::id);
        if (value.deletion) {
            if (place != record.end())
                record.erase(place);
            return;
        }
        if (place == record.end())
            place = record.insert(place, MemoryObjects::Value{.id = value.id, .utf8 = {}, .blob = {}});
        place->number = value.number;
        place->utf8 = platform::toUtf8(value.text.substr(0, value.text.find(u'\0')));
        place->blob.assign(value.blob.begin(), value.blob.end());
    }

    MemoryObjects& objects_;
    ObjectId id_;
    ObjectId current_ = ObjectId::none;
};

std::vector<platform::DatabaseInfo> MemoryObjects::databases(std::optional<std::uint32_t> type) {
    std::vector<platform::DatabaseInfo> found;
    std::ranges::copy_if(databases_, std::back_inserter(found),
                         [type](const platform::DatabaseInfo& database) { return !type || database.type == *type; });
    return found;
}

ObjectId MemoryObjects::createDatabase(platform::Transaction&, const platform::DatabaseDefinition& definition) {
    const auto id = static_cast<ObjectId>(++lastId_);
    databases_.push_back({id, std::u16string(definition.name), definition.type, definition.sortProperty});
    return id;
}

std::unique_ptr<platform::Database> MemoryObjects::openDatabase(ObjectId id, PropertyId) {
    return std::make_unique<MemoryDatabase>(*this, id);
}

std::unique_ptr<platform::Transaction> MemoryObjects::begin(const platform::ChangeLabel&) {
    return std::make_unique<MemoryTransaction>();
}

// Nothing of what is tried asks for it.
platform::History& MemoryObjects::history() {
    std::abort();
}

std::unique_ptr<platform::Snapshot> MemoryObjects::snapshot() {
    return std::make_unique<platform::Snapshot>();
}

} // namespace hourwright::fuzz
