#include "desktop/timers/timers_window.h"

#include "desktop/icons.h"
#include "desktop/screen_size.h"
#include "desktop/timers/timer_dialogs.h"
#include "desktop/timers/timer_row_delegate.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/timers.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;
using platform::toU16;
namespace texts = resources::timers;

namespace {

constexpr int slotRole = Qt::UserRole;

std::size_t slotOf(const QTreeWidgetItem& row) {
    return row.data(0, slotRole).toUInt();
}

} // namespace

TimersWindow::TimersWindow(TimerControl& control, QWidget* parent)
    : QDialog(parent), watchIdle(new QAction(toQString(texts::watchIdle), this)),
      showTray(new QAction(toQString(texts::showTray), this)), control_(control), list_(new QTreeWidget),
      note_(new QPlainTextEdit) {
    setWindowTitle(toQString(resources::StringId::entryTimers));
    watchIdle->setCheckable(true);
    showTray->setCheckable(true);
    buildActions();
    buildLayout();
    connect(&control_, &TimerControl::changed, this, &TimersWindow::fill);
    connect(&control_, &TimerControl::ticked, this, &TimersWindow::tick);
    connect(list_, &QTreeWidget::currentItemChanged, this, &TimersWindow::selectionChanged);
    connect(list_, &QTreeWidget::itemActivated, this, [this] { editTimer(); });
    connect(list_, &QWidget::customContextMenuRequested, this, &TimersWindow::showContextMenu);
    connect(note_, &QPlainTextEdit::textChanged, this, [this] {
        if (const auto slot = selectedSlot())
            control_.setNote(*slot, toU16(note_->toPlainText().replace("\n", "\r\n")));
    });
    fill();
    if (list_->topLevelItemCount() > 0)
        list_->setCurrentItem(list_->topLevelItem(0));
    selectionChanged();
}

QAction* TimersWindow::addAction(const resources::Text& text, const QKeySequence& shortcut,
                                 void (TimersWindow::*run)()) {
    auto* action = new QAction(toQString(text), this);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WindowShortcut);
    connect(action, &QAction::triggered, this, run);
    QWidget::addAction(action);
    return action;
}

void TimersWindow::buildActions() {
    add_ = addAction(texts::add, QKeySequence("Ins"), &TimersWindow::addEmptyTimer);
    pause_ = addAction(texts::pause, QKeySequence("Ctrl+P"), &TimersWindow::togglePause);
    edit_ = addAction(texts::edit, QKeySequence("F2"), &TimersWindow::editTimer);
    complete_ = addAction(texts::complete, QKeySequence("Ctrl+Return"), &TimersWindow::completeTimer);
    cancel_ = addAction(texts::cancel, QKeySequence("Ctrl+Del"), &TimersWindow::cancelTimer);
    pause_->setCheckable(true);
}

void TimersWindow::buildLayout() {
    auto* menuButton = new QToolButton;
    auto* menu = new QMenu(menuButton);
    menu->addActions({add_, pause_, edit_, complete_, cancel_});
    auto* choose = menu->addMenu(toQString(texts::choose));
    for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot)
        choose->addAction(toQString(texts::timer).replace("%s", QString::number(slot + 1)), this,
                          [this, slot] { select(slot); });
    connect(choose, &QMenu::aboutToShow, this, [this, choose] {
        for (int slot = 0; slot < choose->actions().size(); ++slot)
            choose->actions().at(slot)->setEnabled(!control_.timers().slot(static_cast<std::size_t>(slot)).isFree());
    });
    menu->addSeparator();
    menu->addActions({watchIdle, showTray});
    menuButton->setText(toQString(texts::menu));
    menuButton->setMenu(menu);
    menuButton->setPopupMode(QToolButton::InstantPopup);
    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->addActions({add_, pause_, edit_, complete_, cancel_});
    bar->addWidget(menuButton);

    list_->setColumnCount(7);
    list_->setHeaderLabels({toQString(texts::duration), toQString(texts::start),
                            toQString(resources::StringId::columnClient), toQString(resources::StringId::columnProject),
                            toQString(resources::StringId::columnPhase), toQString(resources::StringId::columnTask),
                            toQString(texts::breakTime)});
    list_->setRootIsDecorated(false);
    list_->setAllColumnsShowFocus(true);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    list_->setAccessibleName(windowTitle());
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    if (isHandheld())
        showAsTwoLines(*list_);
    list_->setMinimumHeight(isHandheld() ? 4 * twoLineHeight(*list_) + 4 : 130);

    auto* label = new QLabel(toQString(texts::note));
    label->setBuddy(note_);
    note_->setTabChangesFocus(true);
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(nullptr);
    layout->addWidget(bar);
    layout->addWidget(list_, 2);
    layout->addWidget(label);
    layout->addWidget(note_, 1);
    resize(isHandheld() ? QSize(360, 640) : QSize(720, 380));
}

void TimersWindow::fill() {
    const auto selected = selectedSlot();
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        for (std::size_t slot = 0; slot < billing::TimerSet::slotCount; ++slot)
            if (!control_.timers().slot(slot).isFree())
                showRow(*new QTreeWidgetItem(list_), slot);
        if (list_->topLevelItemCount() > 0)
            list_->setCurrentItem(list_->topLevelItem(0));
    }
    if (selected)
        select(*selected);
    selectionChanged();
}

void TimersWindow::showRow(QTreeWidgetItem& row, std::size_t slot) const {
    const billing::EntryTimer& timer = control_.timers().slot(slot);
    row.setData(0, slotRole, static_cast<uint>(slot));
    row.setIcon(0, icon(timer.isPaused() ? "timer-paused" : "timer"));
    row.setText(0, toQString(billing::clockText(timer.duration())));
    row.setText(1, toQString(control_.workspace().locale().timeWithoutSeconds(timer.start())));
    row.setText(2, toQString(timer.names().client));
    row.setText(3, toQString(timer.names().project));
    row.setText(4, toQString(timer.names().phase));
    row.setText(5, toQString(timer.names().task));
    row.setText(6, toQString(billing::clockText(timer.breakTime())));
    row.setData(0, Qt::AccessibleDescriptionRole, toQString(timer.isPaused() ? texts::paused : texts::running));
}

void TimersWindow::tick(std::size_t slot) {
    if (!isVisible())
        return;
    for (int index = 0; index < list_->topLevelItemCount(); ++index)
        if (auto* row = list_->topLevelItem(index); slotOf(*row) == slot)
            showRow(*row, slot);
}

std::optional<std::size_t> TimersWindow::selectedSlot() const {
    const QTreeWidgetItem* row = list_->currentItem();
    if (row == nullptr || control_.timers().slot(slotOf(*row)).isFree())
        return std::nullopt;
    return slotOf(*row);
}

void TimersWindow::select(std::size_t slot) {
    for (int index = 0; index < list_->topLevelItemCount(); ++index)
        if (slotOf(*list_->topLevelItem(index)) == slot)
            list_->setCurrentItem(list_->topLevelItem(index));
}

void TimersWindow::selectionChanged() {
    const auto slot = selectedSlot();
    const QSignalBlocker quiet(note_);
    const QString text = slot ? toQString(control_.timers().slot(*slot).note()).replace("\r\n", "\n") : QString();
    if (note_->toPlainText() != text)
        note_->setPlainText(text);
    note_->setEnabled(slot.has_value());
    note_->setPlaceholderText(slot ? QString() : toQString(texts::none));
    updateActions();
}

void TimersWindow::updateActions() {
    const auto slot = selectedSlot();
    add_->setEnabled(control_.timers().firstFree().has_value());
    for (QAction* action : {pause_, edit_, complete_, cancel_})
        action->setEnabled(slot.has_value());
    pause_->setChecked(slot && control_.timers().slot(*slot).isPaused());
}

void TimersWindow::addEmptyTimer() {
    addTimer({}, {});
}

void TimersWindow::addTimer(const billing::TimerNames& names, std::optional<store::TimeEntry> source) {
    if (!control_.timers().firstFree())
        return;
    auto* dialog = new AddTimerDialog(control_.workspace(), names, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog, source = std::move(source)] {
        if (const auto slot = control_.add(dialog->names(), dialog->start(), source))
            select(*slot);
    });
    dialog->open();
}

void TimersWindow::togglePause() {
    if (const auto slot = selectedSlot())
        control_.togglePause(*slot);
}

void TimersWindow::editTimer() {
    const auto slot = selectedSlot();
    if (!slot)
        return;
    auto* dialog = new EditTimerDialog(control_.workspace(), control_.timers().slot(*slot), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, slot = *slot] { control_.setTimes(slot, dialog->duration(), dialog->breakTime()); });
    dialog->open();
}

void TimersWindow::completeTimer() {
    if (const auto slot = selectedSlot())
        control_.complete(*slot);
}

void TimersWindow::cancelTimer() {
    if (const auto slot = selectedSlot())
        control_.cancel(*slot);
}

void TimersWindow::showContextMenu(QPoint position) {
    QMenu menu(this);
    menu.addActions({pause_, edit_, complete_, cancel_});
    menu.exec(list_->viewport()->mapToGlobal(position));
}

} // namespace hourwright::desktop
