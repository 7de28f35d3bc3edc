#pragma once

#include "desktop/command_actions.h"
#include "desktop/workspace.h"

#include <QToolBar>

class QToolButton;

namespace hourwright::desktop {

/// The bar that moves through time: previous, the period's title (a button that opens a calendar), next, today, and the
/// kinds of periods and records.
class PeriodBar : public QToolBar {
    Q_OBJECT

public:
    PeriodBar(Workspace& workspace, CommandActions& actions, QWidget* parent);

    /// Shows the current view's title and states.
    void refresh();
    /// Opens the calendar below the title.
    void pickDate();

signals:
    void dateChosen(const QDate& date);

private:
    QToolButton* addCommand(app::Command command, const QString& iconName, const QString& name);
    QToolButton* addChoice(const QString& iconName, const QString& name, std::initializer_list<app::Command> commands);

    Workspace& workspace_;
    CommandActions& actions_;
    QToolButton* title_;
};

/// The title of the current view's period.
[[nodiscard]] QString periodTitle(Workspace& workspace);

} // namespace hourwright::desktop
