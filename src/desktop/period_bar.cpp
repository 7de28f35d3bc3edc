#include "desktop/period_bar.h"

#include "app/period_title.h"
#include "desktop/font_look.h"
#include "desktop/icons.h"
#include "desktop/screen_size.h"
#include "platform/qt/qt_locale.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/periods.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QMenu>
#include <QToolButton>
#include <QWidgetAction>

namespace hourwright::desktop {

namespace {

using platform::toQString;
namespace periods = resources::periods;

} // namespace

QString periodTitle(Workspace& workspace) {
    const app::Period& period = workspace.view().period();
    const QLocale locale = platform::toQLocale(workspace.locale());
    const QDate first = platform::toQDate(period.currentDate());
    const auto month = platform::toU16(locale.standaloneMonthName(first.month()) + ' ' + QString::number(first.year()));
    return toQString(app::periodTitle(period, workspace.locale(),
                                      workspace.settings().styleFlags.has(app::StyleFlag::weekNumber), month));
}

PeriodBar::PeriodBar(Workspace& workspace, CommandActions& actions, QWidget* parent)
    : QToolBar(parent), workspace_(workspace), actions_(actions), title_(new QToolButton(this)) {
    using enum app::Command;
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setWindowTitle(toQString(periods::pickDate));
    addCommand(previousPeriod, "go-previous", toQString(periods::previous));
    title_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    title_->setAutoRaise(true);
    QFont caption = title_->font();
    takeLook(caption, app::captionFont(app::clearTypeOn(workspace.registry())));
    title_->setFont(caption);
    connect(title_, &QToolButton::clicked, this, &PeriodBar::pickDate);
    addWidget(title_);
    addCommand(nextPeriod, "go-next", toQString(periods::next));
    addCommand(gotoToday, "go-today", toQString(periods::today));
    addSeparator();
    addChoice("view-period", toQString(periods::showMenu),
              {viewDay, viewWeek, viewMonth, viewCustom, calendarStyle, defaultListStyle, simpleListStyle,
               treeListStyle, switchRecords});
    addCommand(newEntry, "new-entry", toQString(periods::newItem));
}

QToolButton* PeriodBar::addCommand(app::Command command, const QString& iconName, const QString& name) {
    auto* button = new QToolButton(this);
    // The icon is the action's: a button takes it over anew whenever the action changes.
    actions_.action(command)->setIcon(icon(iconName));
    actions_.action(command)->setIconVisibleInMenu(false);
    button->setDefaultAction(actions_.action(command));
    button->setAccessibleName(name);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setToolTip(name);
    addWidget(button);
    return button;
}

QToolButton* PeriodBar::addChoice(const QString& iconName, const QString& name,
                                  std::initializer_list<app::Command> commands) {
    auto* button = new QToolButton(this);
    auto* menu = new QMenu(button);
    for (const app::Command command : commands)
        menu->addAction(actions_.action(command));
    button->setIcon(icon(iconName));
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    addWidget(button);
    return button;
}

void PeriodBar::refresh() {
    title_->setText(periodTitle(workspace_));
    title_->setAccessibleName(title_->text());
    title_->setToolTip(toQString(periods::pickDate));
}

void PeriodBar::pickDate() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* calendar = new QCalendarWidget(menu);
    calendar->setSelectedDate(platform::toQDate(workspace_.view().period().currentDate()));
    calendar->setFirstDayOfWeek(workspace_.settings().styleFlags.has(app::StyleFlag::weekStartsMonday) ? Qt::Monday
                                                                                                       : Qt::Sunday);
    connect(calendar, &QCalendarWidget::activated, menu, [this, menu](const QDate& date) {
        menu->close();
        emit dateChosen(date);
    });
    connect(calendar, &QCalendarWidget::clicked, menu, [this, menu](const QDate& date) {
        menu->close();
        emit dateChosen(date);
    });
    auto* action = new QWidgetAction(menu);
    action->setDefaultWidget(calendar);
    menu->addAction(action);
    menu->popup(title_->mapToGlobal(QPoint(0, title_->height())));
    calendar->setFocus();
}

} // namespace hourwright::desktop
