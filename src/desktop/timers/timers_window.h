#pragma once

#include "desktop/timers/timer_control.h"
#include "resources/text.h"

#include <QDialog>
#include <optional>

class QAction;
class QPlainTextEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace hourwright::desktop {

/// "Entry Timers": a row for each timer in use, the note of the one that is selected, and all that can be done with it.
/// The window shows the timers; they run without it.
class TimersWindow : public QDialog {
    Q_OBJECT

public:
    TimersWindow(TimerControl& control, QWidget* parent);

    /// Opens "Add Timer" with these names; an entry that the timer is started from goes along.
    void addTimer(const billing::TimerNames& names, std::optional<store::TimeEntry> source);
    void select(std::size_t slot);
    [[nodiscard]] std::optional<std::size_t> selectedSlot() const;

    /// Whether idle time is watched and the tray is shown; the owner sets what the actions do.
    QAction* watchIdle;
    QAction* showTray;

private:
    QAction* addAction(const resources::Text& text, const QKeySequence& shortcut, void (TimersWindow::*run)());
    void buildActions();
    void buildLayout();
    void fill();
    void showRow(QTreeWidgetItem& row, std::size_t slot) const;
    void tick(std::size_t slot);
    void selectionChanged();
    void updateActions();
    void addEmptyTimer();
    void togglePause();
    void editTimer();
    void completeTimer();
    void cancelTimer();
    void showContextMenu(QPoint position);

    TimerControl& control_;
    QTreeWidget* list_;
    QPlainTextEdit* note_;
    QAction* add_ = nullptr;
    QAction* pause_ = nullptr;
    QAction* edit_ = nullptr;
    QAction* complete_ = nullptr;
    QAction* cancel_ = nullptr;
};

} // namespace hourwright::desktop
