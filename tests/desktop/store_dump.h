#pragma once

#include "platform/object_store.h"

#include <span>
#include <string>

namespace hourwright::test {

/// All records of all databases with all their properties, in stored order, as bytes to be compared.
inline std::string dumpOf(platform::ObjectStore& objects) {
    std::string dump;
    const auto append = [&dump](const auto& values) {
        const auto bytes = std::as_bytes(std::span(values));
        dump.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        dump += '\n';
    };
    for (const platform::DatabaseInfo& info : objects.databases()) {
        append(info.name);
        const auto database = objects.openDatabase(info.id, info.sortProperty);
        platform::PropertyBuffer record;
        for (auto id = database->seek(platform::Seek::toBeginning()); id != platform::ObjectId::none;
             id = database->seek(platform::Seek::fromCurrent(1))) {
            dump += std::to_string(static_cast<std::uint32_t>(id)) + (database->read(record) ? ":" : "?");
            for (const platform::PropertyValue& value : record.values()) {
                dump += std::to_string(value.id.value) + '=' + std::to_string(value.number) + ' ';
                append(value.text);
                append(value.blob);
            }
        }
    }
    return dump;
}

} // namespace hourwright::test
