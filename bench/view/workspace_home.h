#pragma once

#include "desktop/workspace.h"
#include "no_shell.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/system_clock.h"
#include "store_file.h"
#include "support/recording_message_box.h"

#include <cstdlib>

namespace hourwright::bench {

/// A workspace over the store that is read, whose view is the period of its newest entries, at most 100,000 of them.
struct WorkspaceHome {
    static constexpr std::uint64_t mostRows = 100'000;

    WorkspaceHome() {
        if (!stores.open())
            std::abort();
        settings.periodStart = firstDay();
        settings.periodEnd = {.year = 2030, .month = 12, .day = 31};
        if (!workspace.view().setKind(app::PeriodKind::custom))
            std::abort();
    }

    [[nodiscard]] platform::SystemTime firstDay() {
        store::RecordStore& entries = stores.entries();
        const std::uint64_t count = entries.recordCount();
        entries.seek(platform::Seek::toBeginning(static_cast<std::int32_t>(count > mostRows ? count - mostRows : 0)));
        store::TimeEntry entry;
        if (readTimeEntry(entries, entry) != store::ReadResult::ok)
            std::abort();
        return platform::toSystemTime(entry.date).value_or(platform::SystemTime{});
    }

    test::TemporaryDirectory folder;
    test::MemoryRegistry registry;
    std::unique_ptr<platform::NamedMutex> mutex =
        platform::makeNamedMutex(folder.path(), std::string(store::clientIdMutexName));
    std::unique_ptr<platform::ObjectStore> objects = platform::openSqliteObjectStore(storeFile()).store;
    store::Stores stores{*objects, *mutex, registry};
    app::AppSettings settings = app::AppSettings::load(registry, {.osMajorVersion = 4, .personalFolder = u""});
    platform::Locales locales{platform::makeIcuLocale("en_US"), platform::makeIcuLocale("en_US")};
    platform::FixedClock clock{{.year = 2026, .month = 11, .day = 21}};
    test::RecordingMessageBox messages;
    platform::PosixFiles files;
    NoShell shell;
    desktop::Workspace workspace{{.stores = stores,
                                  .registry = registry,
                                  .settings = settings,
                                  .locales = locales,
                                  .clock = clock,
                                  .messages = messages,
                                  .files = files,
                                  .shell = shell,
                                  .directories = {.data = folder.path(),
                                                  .config = folder.path(),
                                                  .state = folder.path(),
                                                  .runtime = folder.path()},
                                  .variable = [](const char*) { return std::optional<std::string>(); }}};
};

} // namespace hourwright::bench
