#include "desktop/workspace.h"

#include "app/settings_rules.h"
#include "desktop/manual.h"

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
