#include "desktop/calendar/calendar_view.h"

#include "platform/qt/qt_text.h"

#include <QStackedLayout>
#include <QVBoxLayout>
#include <numeric>

namespace hourwright::desktop {

CalendarView::CalendarView(Workspace& workspace, QWidget* parent)
    : RecordView(parent), workspace_(workspace), board_(workspace, this), painter_(board_) {
    board_.load();
    auto* hours = new QWidget(this);
    auto* column = new QVBoxLayout(hours);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    grid_ = new TimeGrid(board_, painter_, hours);
    heading_ = new WeekHeading(board_, *grid_, hours);
    strip_ = new UntimedStrip(board_, painter_, *grid_, hours);
    column->addWidget(heading_);
    column->addWidget(strip_);
    column->addWidget(grid_, 1);
    hours->setFocusProxy(grid_);
    month_ = new MonthGrid(board_, painter_, this);
    pages_ = new QStackedLayout(this);
    pages_->addWidget(hours);
    pages_->addWidget(month_);
    setFocusProxy(grid_);
    connectParts();
}

void CalendarView::connectParts() {
    connect(&board_, &CalendarBoard::selectionChanged, this, &RecordView::selectionChanged);
    connect(grid_, &TimeGrid::activated, this, &RecordView::activated);
    connect(grid_, &TimeGrid::contextMenuRequested, this, &RecordView::contextMenuRequested);
    connect(grid_, &TimeGrid::placeMenuRequested, this, &RecordView::placeMenuRequested);
    connect(grid_, &TimeGrid::newEntryRequested, this, &RecordView::newEntryRequested);
    connect(grid_, &TimeGrid::dayChosen, this, &RecordView::dayChosen);
    connect(heading_, &WeekHeading::dayChosen, this, &RecordView::dayChosen);
    connect(strip_, &UntimedStrip::activated, this, &RecordView::activated);
    connect(strip_, &UntimedStrip::contextMenuRequested, this, &RecordView::contextMenuRequested);
    connect(strip_, &UntimedStrip::placeMenuRequested, this, &RecordView::placeMenuRequested);
    connect(month_, &MonthGrid::activated, this, &RecordView::activated);
    connect(month_, &MonthGrid::contextMenuRequested, this, &RecordView::contextMenuRequested);
    connect(month_, &MonthGrid::placeMenuRequested, this, &RecordView::placeMenuRequested);
    connect(month_, &MonthGrid::dayChosen, this, &RecordView::dayChosen);
}

// Options and filters come here too; only another period begins anew.
void CalendarView::showView() {
    const app::Period period = workspace_.view().period();
    const bool same = shown_ && *shown_ == period;
    const bool hadFocus = pages_->currentWidget()->hasFocus() || grid_->hasFocus();
    shown_ = period;
    painter_.forget();
    board_.load();
    const bool month = period.kind() == app::PeriodKind::month;
    pages_->setCurrentIndex(month ? 1 : 0);
    setFocusProxy(month ? static_cast<QWidget*>(month_) : grid_);
    if (hadFocus)
        setFocus();
    refreshParts();
    if (same)
        return;
    layout()->activate();
    month ? month_->showFromStart() : grid_->showFromStart();
}

void CalendarView::reload() {
    board_.load();
    refreshParts();
}

void CalendarView::refreshParts() {
    heading_->update();
    if (pages_->currentIndex() == 1)
        return month_->refresh();
    strip_->refresh();
    grid_->refresh();
}

void CalendarView::goTo(std::size_t entry) {
    if (pages_->currentIndex() == 1)
        return month_->goTo(entry);
    grid_->goTo(entry);
    strip_->showEntry(entry);
}

void CalendarView::select(std::span<const store::RecordId> ids) {
    board_.select(ids);
    if (const auto current = board_.current())
        goTo(*current);
}

void CalendarView::selectAll() {
    std::vector<store::RecordId> all;
    for (const store::TimeEntry& entry : board_.calendar().entries())
        all.push_back(entry.id);
    board_.select(all);
}

QString CalendarView::selectedText() const {
    const auto& entries = board_.calendar().entries();
    const bool all = board_.selection().empty();
    QStringList lines;
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (all || board_.isSelected(i))
            lines.append(platform::toQString(app::entryLine(entries[i], workspace_.locale())));
    return lines.join('\n');
}

Found CalendarView::findNext(const QString& text) {
    const std::size_t count = board_.calendar().entries().size();
    const auto current = board_.current();
    for (std::size_t step = 1; step <= count; ++step) {
        const std::size_t index = ((current ? *current : count - 1) + step) % count;
        if (!board_.text(index).full.contains(text, Qt::CaseInsensitive))
            continue;
        board_.selectOnly(index);
        goTo(index);
        return Found::yes;
    }
    return Found::no;
}

} // namespace hourwright::desktop
