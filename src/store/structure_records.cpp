#include "store/structure_records.h"

#include "store/fields.h"

#include <string_view>

namespace hourwright::store {

using platform::PropertyBuffer;
using platform::PropertyId;
using platform::PropertyValue;
using platform::ValueType;

namespace {

std::u16string_view textOf(const PropertyBuffer& properties, std::uint16_t number) {
    const PropertyValue* const value = properties.find({number, ValueType::text});
    return value != nullptr ? value->text : std::u16string_view{};
}

std::uint64_t numberOf(const PropertyBuffer& properties, std::uint16_t number, ValueType type) {
    const PropertyValue* const value = properties.find({number, type});
    return value != nullptr ? value->number : 0;
}

std::uint32_t clientIdOf(const PropertyBuffer& properties) {
    return static_cast<std::uint32_t>(numberOf(properties, field::clientId, ValueType::ui4));
}

} // namespace

void readStructureRecord(RecordId id, const PropertyBuffer& properties, ClientRecord& out) {
    out.id = id;
    out.clientId = clientIdOf(properties);
    out.name = textOf(properties, field::client);
}

void readStructureRecord(RecordId id, const PropertyBuffer& properties, ProjectRecord& out) {
    out.id = id;
    out.clientId = clientIdOf(properties);
    out.project = textOf(properties, field::text);
    out.task = textOf(properties, field::task);
}

void readStructureRecord(RecordId id, const PropertyBuffer& properties, TaskRecord& out) {
    out.id = id;
    out.clientId = clientIdOf(properties);
    out.name = textOf(properties, field::text);
}

void readStructureRecord(RecordId id, const PropertyBuffer& properties, ContactRecord& out) {
    out.id = id;
    out.clientId = clientIdOf(properties);
    out.name = textOf(properties, field::text);
}

void readStructureRecord(RecordId id, const PropertyBuffer& properties, RateRecord& out) {
    const auto small = [&](std::uint16_t number) {
        return static_cast<std::uint16_t>(numberOf(properties, number, ValueType::ui2));
    };
    out.id = id;
    out.clientId = clientIdOf(properties);
    out.type = static_cast<RateType>(small(field::kind));
    out.description = textOf(properties, field::description);
    out.flag = numberOf(properties, field::rateFlag, ValueType::boolean) != 0;
    out.rate = static_cast<std::int32_t>(static_cast<std::uint32_t>(numberOf(properties, field::rate, ValueType::ui4)));
    out.modified = {numberOf(properties, field::stamp, ValueType::fileTime)};
    out.flags = small(field::flags);
}

} // namespace hourwright::store
