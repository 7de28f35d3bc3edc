#pragma once

#include "app/app_settings.h"
#include "app/current_view.h"
#include "app/display_settings.h"
#include "app/entry_filter.h"
#include "app/expense_filter.h"
#include "billing/time_rules.h"
#include "platform/clock.h"
#include "platform/file_dialog.h"
#include "platform/file_writer.h"
#include "platform/locale.h"
#include "platform/message_box.h"
#include "platform/posix/user_directories.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "store/stores.h"

#include <QObject>
#include <functional>
#include <string>
#include <string_view>

namespace hourwright::desktop {

/// What a workspace is built on; it borrows all of it. The stores are open and the settings loaded.
struct WorkspaceParts {
    store::Stores& stores;
    platform::Registry& registry;
    app::AppSettings& settings;
    const platform::Locales& locales;
    const platform::Clock& clock;
    platform::MessageBox& messages;
    platform::Files& files;
    platform::Shell& shell;
    platform::Directories directories;
    std::function<std::optional<std::string>(const char*)> variable; ///< environment variables
    platform::FileDialog* fileDialogs = nullptr;                     ///< needed by the commands that ask for files
};

/// A connection of its own for work on another thread, with what belongs to it.
struct WorkerStores {
    std::unique_ptr<platform::Registry> registry;
    std::unique_ptr<platform::NamedMutex> clientIdMutex;
    std::unique_ptr<platform::ObjectStore> objects;
    std::unique_ptr<store::Stores> stores;
    platform::Locales locales;
};

/// Back takes the newest change away, forth makes the one again that was undone last.
enum class HistoryWay : std::uint8_t { back, forth };

/// What the windows work with: the program's objects, what the main window shows, and the notices that something has
/// changed. One lives as long as the program runs.
class Workspace : public QObject {
    Q_OBJECT

public:
    explicit Workspace(const WorkspaceParts& parts);

    [[nodiscard]] store::Stores& stores() { return parts_.stores; }
    [[nodiscard]] platform::Registry& registry() { return parts_.registry; }
    [[nodiscard]] app::AppSettings& settings() { return parts_.settings; }
    [[nodiscard]] app::DisplaySettings& display() { return display_; }
    [[nodiscard]] app::EntryFilter& entryFilter() { return entryFilter_; }
    [[nodiscard]] app::ExpenseFilter& expenseFilter() { return expenseFilter_; }
    [[nodiscard]] app::CurrentView& view() { return view_; }
    /// The user's own locale; lists, filters and fields use it.
    [[nodiscard]] const platform::Locale& locale() const { return *parts_.locales.user; }
    [[nodiscard]] const platform::Locales& locales() const { return parts_.locales; }
    [[nodiscard]] const platform::Clock& clock() const { return parts_.clock; }
    [[nodiscard]] platform::MessageBox& messages() { return parts_.messages; }
    [[nodiscard]] platform::Files& files() { return parts_.files; }
    [[nodiscard]] platform::FileDialog& fileDialogs() { return *parts_.fileDialogs; }
    [[nodiscard]] platform::Shell& shell() { return parts_.shell; }
    [[nodiscard]] const platform::Directories& directories() const { return parts_.directories; }
    [[nodiscard]] billing::TimeRules timeRules() const;

    /// Runs a change of records in one transaction, stores it and tells the views. When the transaction cannot be had,
    /// the change returns false or storing fails, nothing is changed, "Error: %d" is shown and false returned. The
    /// name says what "Undo" would take back; it is shown in the menu.
    bool change(std::u16string_view name, const std::function<bool(platform::Transaction&)>& apply);

    /// Takes back the newest change, or makes the one again that was undone last, and tells the views. A refusal is
    /// shown; false then.
    bool undo();
    bool redo();
    /// The names of those changes; empty when there is none.
    [[nodiscard]] const std::u16string& undoName();
    [[nodiscard]] const std::u16string& redoName();
    /// How many records that step changed; 0 when there is none.
    [[nodiscard]] std::uint64_t recordsOfStep(HistoryWay way);
    /// Shows why a step was refused; nothing for one that was done, cancelled or has failed.
    void tellRefusal(HistoryWay way, platform::HistoryResult result);
    /// True while a change is being made; nothing else may use the stores' positions then.
    [[nodiscard]] bool isChanging() const { return changing_; }
    /// Runs what changes records through another connection and lets the event loop go on meanwhile. Reads through this
    /// workspace fail then, without waiting, while the other one writes. The views are told when it returns true.
    bool changeElsewhere(const std::function<bool()>& run);

    /// Opens the same records a second time, to be used by one other thread. Null when that fails.
    [[nodiscard]] std::unique_ptr<WorkerStores> openForWorker() const;

    /// Shows "Error: %d" with the store's last error.
    void showStoreError();

    /// Settings, display choices or filters were changed through this object: stores them and tells the views. A
    /// failure is silent, as settings' failures are.
    void saveSettings();
    void saveFilters();

    /// Opens the manual at an anchor.
    void showHelp(const std::string& anchor);

signals:
    /// Records were changed through another connection of this program; `recordsChanged` follows.
    void changedElsewhere();
    /// Records were changed, here or by another program.
    void recordsChanged();
    /// Options that decide how things look or what is new were changed.
    void settingsChanged();
    /// A filter was changed.
    void filterChanged();

private:
    bool takeStep(HistoryWay way);
    void readNames();

    WorkspaceParts parts_;
    app::DisplaySettings display_;
    app::EntryFilter entryFilter_;
    app::ExpenseFilter expenseFilter_;
    app::CurrentView view_;
    std::u16string undoName_;
    std::u16string redoName_;
    bool namesKnown_ = false; // until records change
    bool changing_ = false;
};

} // namespace hourwright::desktop
