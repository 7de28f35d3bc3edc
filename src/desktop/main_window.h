#pragma once

#include "desktop/command_actions.h"
#include "desktop/commands/record_editing.h"
#include "desktop/record_view.h"
#include "desktop/workspace.h"

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

class QLabel;
class QStackedWidget;

namespace hourwright::desktop {

class EmptyPage;
class FilterBar;
class PeriodBar;

/// The frame: menus or soft keys, the bar that moves through time, the view of the records and their totals. Its
/// commands are filled in by the functions of `desktop/commands/`.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Workspace& workspace);
    ~MainWindow() override;

    [[nodiscard]] Workspace& workspace() { return workspace_; }
    [[nodiscard]] CommandHandlers& commands() { return handlers_; }
    [[nodiscard]] CommandActions& actions() { return *actions_; }
    [[nodiscard]] RecordView& view() { return *view_; }
    [[nodiscard]] app::ViewState viewState() const;

    /// Shows the current view from its beginning: another period, kind of records or layout was chosen.
    void showView();
    /// Selects records once they are shown, after a change that made them.
    void select(std::span<const store::RecordId> ids);
    /// Where the empty place is whose menu was just chosen from: new records begin with it. Once; nothing otherwise.
    [[nodiscard]] std::optional<EntrySeed> takePlace() { return std::exchange(place_, std::nullopt); }
    /// Opens the calendar of the period bar.
    void pickDate();

    /// Where the counts and names in menus come from; set by those who own them.
    std::function<unsigned()> timersInUse;
    std::function<std::u16string()> undoName;
    std::function<std::u16string()> redoName;
    /// Answers what another program asks of the running timers; bytes to bytes, nothing when they make no sense.
    std::function<std::optional<std::string>(const std::string&)> answerTimers;
    /// Asked before the window closes; false keeps it open.
    std::function<bool()> mayClose;
    /// Opens the editor on a new record that begins with the seed.
    std::function<void(const EntrySeed&)> openNew;
    /// Opens the editor on a draft that was left behind.
    std::function<QDialog*(const app::KeptRecord&)> reopen;
    /// How expenses are edited; set by their commands.
    RecordEditing expenseEditing;
    std::function<void()> loadDemo;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildBody();
    void buildStatus();
    [[nodiscard]] RecordView* viewFor(app::Presentation presentation, app::ListStyle style);
    void useView(RecordView* view);
    void refresh();
    void refreshTotals();
    void recordsChanged();
    void showContextMenu(QPoint position);
    void showPlaceMenu(QPoint position, const EntrySeed& seed);

    Workspace& workspace_;
    CommandHandlers handlers_;
    std::unique_ptr<CommandActions> actions_;
    PeriodBar* periodBar_ = nullptr;
    FilterBar* filterBar_ = nullptr;
    QStackedWidget* stack_ = nullptr;
    EmptyPage* empty_ = nullptr;
    RecordView* view_ = nullptr;
    std::map<int, RecordView*> views_;
    std::optional<EntrySeed> place_; ///< while its menu is open
    QLabel* totals_ = nullptr;
};

} // namespace hourwright::desktop
