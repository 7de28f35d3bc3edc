#pragma once

#include "app/demo/demo_store.h"
#include "exchange/note_document.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "support/memory_registry.h"
#include "support/temporary_directory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace hourwright::bench {

/// A store in a directory of its own, to be filled with made-up entries.
struct Home {
    test::TemporaryDirectory directory;
    test::MemoryRegistry registry;
    std::unique_ptr<platform::NamedMutex> mutex =
        platform::makeNamedMutex(directory.path(), std::string(store::clientIdMutexName));
    std::unique_ptr<platform::ObjectStore> objects =
        platform::openSqliteObjectStore(directory.path() / "hourwright.db").store;
    store::Stores stores{*objects, *mutex, registry};

    bool fill(std::uint64_t entries) {
        namespace demo = app::demo;
        const auto encode = [](std::u16string_view text) { return exchange::writeNote(exchange::fromPlainText(text)); };
        const demo::DemoOptions options{
            .entries = entries, .seed = 1, .lastDay = {.year = 2026, .month = 6, .day = 19}};
        return stores.open() && demo::fillWithDemoHistory(stores, options, encode) == demo::DemoResult::done;
    }
};

} // namespace hourwright::bench
