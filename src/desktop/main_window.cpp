#include "desktop/main_window.h"

#include "desktop/commands/commands.h"
#include "desktop/empty_page.h"
#include "desktop/filter_bar.h"
#include "desktop/icons.h"
#include "desktop/period_bar.h"
#include "desktop/screen_size.h"
#include "desktop/views.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/menus.h"
#include "resources/texts/periods.h"

#include <QCloseEvent>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;

MainWindow::MainWindow(Workspace& workspace) : workspace_(workspace) {
    setWindowTitle(toQString(resources::StringId::appTitle));
    setWindowIcon(applicationIcon());
    addAllCommands(*this);
    actions_ = std::make_unique<CommandActions>(this, handlers_, [this] { return viewState(); });
    buildBody();
    buildMenus();
    buildStatus();
    connect(&workspace_, &Workspace::recordsChanged, this, &MainWindow::recordsChanged);
    connect(&workspace_, &Workspace::settingsChanged, this, &MainWindow::showView);
    connect(&workspace_, &Workspace::filterChanged, this, &MainWindow::showView);
    resize(1000, 640);
    showView();
}

// A dialog that is open still would lose the focus while it is being destroyed, and call members that are gone.
MainWindow::~MainWindow() {
    for (QDialog* const dialog : findChildren<QDialog*>())
        dialog->hide();
}

void MainWindow::buildBody() {
    periodBar_ = new PeriodBar(workspace_, *actions_, this);
    addToolBar(periodBar_);
    connect(periodBar_, &PeriodBar::dateChosen, this, [this](const QDate& date) {
        workspace_.view().setDate(platform::toSystemTime(date));
        showView();
    });
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    filterBar_ = new FilterBar(body);
    connect(filterBar_, &FilterBar::clearRequested, this, [this] { handlers_.run(app::Command::filterAll); });
    connect(filterBar_, &FilterBar::editRequested, this, [this] { handlers_.run(app::Command::filterCustom); });
    stack_ = new QStackedWidget(body);
    empty_ = new EmptyPage(*actions_, stack_);
    connect(empty_, &EmptyPage::demoRequested, this, [this] {
        if (loadDemo)
            loadDemo();
    });
    stack_->addWidget(empty_);
    layout->addWidget(filterBar_);
    layout->addWidget(stack_, 1);
    setCentralWidget(body);
}

// The classic command bar on top, or two soft keys at the bottom, where a thumb reaches them.
void MainWindow::buildMenus() {
    if (!workspace_.settings().styleFlags.has(app::StyleFlag::softKeyMenus)) {
        actions_->fill(*menuBar());
        return;
    }
    auto* keys = new QToolBar(this);
    keys->setMovable(false);
    keys->setContextMenuPolicy(Qt::PreventContextMenu);
    keys->setWindowTitle(toQString(resources::menus::softMenu));
    const auto addKey = [&](const resources::Text& text) {
        auto* key = new QToolButton(keys);
        key->setText(toQString(text));
        key->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        key->setMinimumHeight(touchTarget);
        keys->addWidget(key);
        return key;
    };
    connect(addKey(resources::menus::softNew), &QToolButton::clicked, this,
            [this] { actions_->action(app::Command::newEntry)->trigger(); });
    auto* menuKey = addKey(resources::menus::softMenu);
    auto* menu = new QMenu(menuKey);
    actions_->fill(*menu);
    menuKey->setMenu(menu);
    menuKey->setPopupMode(QToolButton::InstantPopup);
    menuKey->setShortcut(QKeySequence("F10"));
    addToolBar(Qt::BottomToolBarArea, keys);
}

void MainWindow::buildStatus() {
    totals_ = new QLabel(this);
    totals_->setTextFormat(Qt::PlainText);
    totals_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(totals_, 1);
    statusBar()->setSizeGripEnabled(false);
}

RecordView* MainWindow::viewFor(app::Presentation presentation, app::ListStyle style) {
    const bool calendar = presentation == app::Presentation::calendar;
    const int key = calendar ? -1 : static_cast<int>(style);
    RecordView*& view = views_[key];
    if (view == nullptr) {
        view = calendar ? makeCalendarView(workspace_, stack_) : makeListView(workspace_, style, stack_);
        stack_->addWidget(view);
    }
    return view;
}

void MainWindow::useView(RecordView* view) {
    if (view_ == view)
        return;
    if (view_ != nullptr)
        disconnect(view_, nullptr, this, nullptr);
    view_ = view;
    connect(view_, &RecordView::selectionChanged, this, &MainWindow::refreshTotals);
    connect(view_, &RecordView::totalsChanged, this, &MainWindow::refreshTotals);
    connect(view_, &RecordView::activated, this, [this] { handlers_.run(app::Command::edit); });
    connect(view_, &RecordView::contextMenuRequested, this, &MainWindow::showContextMenu);
    connect(view_, &RecordView::placeMenuRequested, this, &MainWindow::showPlaceMenu);
    connect(view_, &RecordView::newEntryRequested, this, [this](const EntrySeed& seed) {
        if (openNew)
            openNew(seed);
    });
    connect(view_, &RecordView::dayChosen, this, [this](const platform::SystemTime& day) {
        workspace_.view().setKind(app::PeriodKind::day);
        workspace_.view().setDate(day);
        showView();
    });
}

void MainWindow::showView() {
    const auto& current = workspace_.view();
    useView(viewFor(current.presentation(), current.listStyle()));
    view_->showView();
    refresh();
}

void MainWindow::recordsChanged() {
    view_->reload();
    refresh();
}

void MainWindow::refresh() {
    const bool blank = !workspace_.stores().holdRecords();
    stack_->setCurrentWidget(blank ? static_cast<QWidget*>(empty_) : view_);
    periodBar_->refresh();
    filterBar_->describe(filterDescription(workspace_));
    refreshTotals();
}

void MainWindow::refreshTotals() {
    const app::ViewTotals totals = view_->totals();
    const std::size_t selected = view_->selection().size();
    QStringList parts{totals.items == 1
                          ? toQString(resources::periods::oneItem)
                          : toQString(resources::periods::items).replace("%d", QString::number(totals.items))};
    if (selected > 1)
        parts.append(toQString(resources::periods::selectedItems).replace("%d", QString::number(selected)));
    if (workspace_.view().records() == app::RecordKind::entries)
        parts.append(toQString(app::hoursText(totals, workspace_.locale())));
    if (!totals.amounts.empty())
        parts.append(toQString(app::amountsText(totals, workspace_.locale())));
    totals_->setText(parts.join("  ·  "));
    actions_->update();
}

void MainWindow::select(std::span<const store::RecordId> ids) {
    view_->select(ids);
}

void MainWindow::pickDate() {
    periodBar_->pickDate();
}

void MainWindow::showContextMenu(QPoint position) {
    QMenu menu(this);
    actions_->fillContextMenu(menu);
    menu.exec(position);
}

void MainWindow::showPlaceMenu(QPoint position, const EntrySeed& seed) {
    QMenu menu(this);
    actions_->fillPlaceMenu(menu);
    place_ = seed;
    menu.exec(position);
    place_.reset();
}

app::ViewState MainWindow::viewState() const {
    const auto& current = workspace_.view();
    const auto& settings = workspace_.settings();
    const bool entries = current.records() == app::RecordKind::entries;
    app::ViewState state{.records = current.records(),
                         .period = current.kind(),
                         .presentation = current.presentation(),
                         .listStyle = current.listStyle(),
                         .arrangedBy = current.arrangedBy()};
    if (entries)
        state.customLabels = {settings.custom1Label.text(), settings.custom2Label.text(), settings.custom3Label.text()};
    else
        state.customLabels = {settings.expenseCustom1Label.text(), settings.expenseCustom2Label.text(), {}};
    state.filterActive =
        entries ? workspace_.entryFilter() != app::EntryFilter{} : workspace_.expenseFilter() != app::ExpenseFilter{};
    app::EntryFilter unpaidEntries;
    app::ExpenseFilter unpaidExpenses;
    unpaidEntries.showUnpaidOnly();
    unpaidExpenses.showUnpaidOnly();
    state.filterUnpaidOnly =
        entries ? workspace_.entryFilter() == unpaidEntries : workspace_.expenseFilter() == unpaidExpenses;
    state.shown = view_->totals().items;
    state.selected = view_->selection().size();
    state.timersInUse = timersInUse ? timersInUse() : 0;
    state.undoName = undoName ? undoName() : std::u16string();
    state.redoName = redoName ? redoName() : std::u16string();
    return state;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (mayClose && !mayClose()) {
        event->ignore();
        return;
    }
    QMainWindow::closeEvent(event);
}

} // namespace hourwright::desktop
