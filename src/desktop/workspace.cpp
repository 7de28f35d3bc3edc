#include "desktop/workspace.h"

#include "app/settings_rules.h"
#include "desktop/manual.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"

namespace hourwright::desktop {

Workspace::Workspace(const WorkspaceParts& parts)
    : parts_(parts), display_(app::DisplaySettings::load(parts.registry)),
      entryFilter_(app::EntryFilter::load(parts.registry)), expenseFilter_(app::ExpenseFilter::load(parts.registry)),
      view_(parts.settings, display_, parts.clock) {}

billing::TimeRules Workspace::timeRules() const {
    return app::timeRules(parts_.settings);
}

bool Workspace::change(std::u16string_view /*name*/, const std::function<bool(platform::Transaction&)>& apply) {
    {
        const auto transaction = stores().objects().begin();
        if (transaction == nullptr || !apply(*transaction) || !transaction->commit()) {
            showStoreError();
            return false;
        }
    }
    emit recordsChanged();
    return true;
}

std::unique_ptr<WorkerStores> Workspace::openForWorker() const {
    auto worker = std::make_unique<WorkerStores>();
    worker->registry = platform::openSqliteRegistry(directories().settingsFile());
    worker->clientIdMutex = platform::makeNamedMutex(directories().runtime, store::clientIdMutexName);
    worker->objects = platform::openSqliteObjectStore(directories().recordsFile()).store;
    if (worker->objects == nullptr)
        return nullptr;
    worker->stores = std::make_unique<store::Stores>(*worker->objects, *worker->clientIdMutex, *worker->registry);
    worker->locales = {platform::makeIcuLocale(parts_.locales.user->name()),
                       platform::makeIcuLocale(parts_.locales.system->name())};
    return worker->stores->open() ? std::move(worker) : nullptr;
}

void Workspace::showStoreError() {
    const auto ofEntries = stores().entries().lastError();
    const auto error = ofEntries == platform::PlatformError::none ? stores().objects().lastError() : ofEntries;
    messages().showError(platform::number(error));
}

void Workspace::saveSettings() {
    settings().save(registry());
    display().save(registry());
    view_.settingsChanged();
    emit settingsChanged();
}

void Workspace::saveFilters() {
    entryFilter_.save(registry());
    expenseFilter_.save(registry());
    emit filterChanged();
}

void Workspace::showHelp(const std::string& anchor) {
    const auto page = manualPage();
    if (page.empty() || !shell().openPage(page, anchor))
        messages().showFailure(resources::StringId::manualNotOpened);
}

} // namespace hourwright::desktop
