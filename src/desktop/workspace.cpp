#include "desktop/workspace.h"

#include "app/settings_rules.h"
#include "desktop/manual.h"
#include "platform/icu/icu_locale.h"
#include "platform/posix/flock_mutex.h"
#include "platform/sqlite/sqlite_object_store.h"
#include "platform/sqlite/sqlite_registry.h"

#include <QScopedValueRollback>

namespace hourwright::desktop {

Workspace::Workspace(const WorkspaceParts& parts)
    : parts_(parts), display_(app::DisplaySettings::load(parts.registry)),
      entryFilter_(app::EntryFilter::load(parts.registry)), expenseFilter_(app::ExpenseFilter::load(parts.registry)),
      view_(parts.settings, display_, parts.clock) {
    connect(this, &Workspace::recordsChanged, this, [this] { namesKnown_ = false; });
}

billing::TimeRules Workspace::timeRules() const {
    return app::timeRules(parts_.settings);
}

bool Workspace::change(std::u16string_view name, const std::function<bool(platform::Transaction&)>& apply) {
    const QScopedValueRollback changing(changing_, true);
    {
        const auto transaction = stores().objects().begin({.name = name, .time = clock().now()});
        if (transaction == nullptr || !apply(*transaction) || !transaction->commit()) {
            showStoreError();
            return false;
        }
    }
    emit recordsChanged();
    return true;
}

bool Workspace::changeElsewhere(const std::function<bool()>& run) {
    bool changed = false;
    {
        const QScopedValueRollback changing(changing_, true);
        stores().objects().waitForOthers(false);
        changed = run();
        stores().objects().waitForOthers(true);
    }
    if (changed) {
        emit changedElsewhere();
        emit recordsChanged();
    }
    namesKnown_ = false;
    return changed;
}

bool Workspace::undo() {
    return takeStep(HistoryWay::back);
}

bool Workspace::redo() {
    return takeStep(HistoryWay::forth);
}

bool Workspace::takeStep(HistoryWay way) {
    platform::History& history = stores().objects().history();
    const auto result = way == HistoryWay::back ? history.undo() : history.redo();
    namesKnown_ = false;
    if (result == platform::HistoryResult::done)
        emit recordsChanged();
    else if (result == platform::HistoryResult::failed)
        messages().showError(platform::number(stores().objects().lastError()));
    tellRefusal(way, result);
    return result == platform::HistoryResult::done;
}

void Workspace::tellRefusal(HistoryWay way, platform::HistoryResult result) {
    using resources::StringId;
    const bool back = way == HistoryWay::back;
    if (result == platform::HistoryResult::nothing)
        messages().showCheck(back ? StringId::nothingToUndo : StringId::nothingToRedo);
    else if (result == platform::HistoryResult::changedMeanwhile)
        messages().showCheck(back ? StringId::undoChangedMeanwhile : StringId::redoChangedMeanwhile);
}

std::uint64_t Workspace::recordsOfStep(HistoryWay way) {
    std::uint64_t records = 0;
    for (const platform::HistoryStep& step : stores().objects().history().steps()) {
        if (step.undone && way == HistoryWay::forth)
            return step.records;
        if (!step.undone && way == HistoryWay::back)
            records = step.records;
    }
    return records;
}

const std::u16string& Workspace::undoName() {
    readNames();
    return undoName_;
}

const std::u16string& Workspace::redoName() {
    readNames();
    return redoName_;
}

void Workspace::readNames() {
    if (namesKnown_)
        return;
    undoName_.clear();
    redoName_.clear();
    for (const platform::HistoryStep& step : stores().objects().history().steps()) {
        if (!step.undone)
            undoName_ = step.name;
        else if (redoName_.empty())
            redoName_ = step.name;
    }
    namesKnown_ = true;
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
