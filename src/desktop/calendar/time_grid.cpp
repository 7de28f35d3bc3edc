#include "desktop/calendar/time_grid.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/calendar.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

namespace hourwright::desktop {

using platform::toQString;
namespace texts = resources::calendar;

namespace {

constexpr int longPressTime = 550;

} // namespace

TimeGrid::TimeGrid(CalendarBoard& board, BlockPainter& painter, QWidget* parent)
    : QAbstractScrollArea(parent), board_(board), painter_(painter) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(toQString(texts::timeGrid));
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    longPress_.setSingleShot(true);
    longPress_.setInterval(longPressTime);
    connect(&longPress_, &QTimer::timeout, this, &TimeGrid::held);
    minute_.setInterval(60'000);
    connect(&minute_, &QTimer::timeout, viewport(), qOverload<>(&QWidget::update));
    minute_.start();
    connect(&board_, &CalendarBoard::selectionChanged, viewport(), qOverload<>(&QWidget::update));
    measure();
}

void TimeGrid::measure() {
    const int line = fontMetrics().height();
    hourHeight_ = std::max(48, 4 * line); // so that a quarter of an hour holds a line
    const platform::SystemTime widest{.year = 2000, .month = 1, .day = 1, .hour = 22, .minute = 0};
    const QString label = toQString(app::shortTime(widest, board_.workspace().locale()));
    gutter_ = fontMetrics().horizontalAdvance(label) + (isHandheld() ? 4 : 12);
    verticalScrollBar()->setSingleStep(hourHeight_ / 2);
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, grid().height() - viewport()->height()));
}

app::GridGeometry TimeGrid::grid() const {
    return {.left = gutter_,
            .width = std::max(7, viewport()->width() - gutter_),
            .columns = std::max(1, static_cast<int>(board_.days().size())),
            .hourHeight = hourHeight_};
}

void TimeGrid::showFromStart() {
    measure();
    const int visible = grid().minuteAt(viewport()->height());
    const int first = app::firstMinuteInView(board_.days(), visible);
    verticalScrollBar()->setValue(grid().yOf(first) - 4);
    const auto today = board_.calendar().dayOf(board_.workspace().clock().now());
    day_ = static_cast<int>(today.value_or(0));
    mark_.reset();
    drag_.reset();
    hit_.reset();
    stopId_ = store::RecordId::none;
    stop_ = {.entry = std::nullopt, .span = {first / 60 * 60, first / 60 * 60 + app::slotMinutes}};
    refresh();
}

void TimeGrid::refresh() {
    measure();
    drag_.reset();
    hit_.reset();
    day_ = std::clamp(day_, 0, static_cast<int>(board_.days().size()) - 1);
    std::optional<std::size_t> entry;
    if (stopId_ != store::RecordId::none)
        entry = board_.calendar().find(stopId_);
    if (entry)
        day_ = static_cast<int>(board_.calendar().dayOf(board_.entry(*entry).date).value_or(0));
    const auto stops = app::stopsOf(board_.days()[static_cast<std::size_t>(day_)]);
    const auto at = entry ? app::stopOf(stops, *entry) : std::nullopt;
    if (!stops.empty())
        stop_ = stops[at.value_or(app::stopAt(stops, stop_.span.start))];
    if (stop_.entry && !entry)
        stopId_ = board_.entry(*stop_.entry).id;
    describe();
    viewport()->update();
}

void TimeGrid::goTo(std::size_t entry) {
    const auto day = board_.calendar().dayOf(board_.entry(entry).date);
    if (!day)
        return;
    const auto stops = app::stopsOf(board_.days()[*day]);
    if (const auto at = app::stopOf(stops, entry))
        standOn(static_cast<int>(*day), stops[*at], false);
}

QRect TimeGrid::spanRect(int day, const app::MinuteSpan& span) const {
    const auto geometry = grid();
    const int top = geometry.yOf(span.start);
    const int left = geometry.columnLeft(day) + 1;
    return {left, top - verticalScrollBar()->value(), geometry.columnWidth(day) - 1, geometry.yOf(span.end) - top};
}

const app::TimeBlock* TimeGrid::blockOf(std::size_t entry, int* day) const {
    const auto& days = board_.days();
    for (std::size_t d = 0; d < days.size(); ++d)
        for (const app::TimeBlock& block : days[d].blocks)
            if (block.entry == entry) {
                if (day != nullptr)
                    *day = static_cast<int>(d);
                return &block;
            }
    return nullptr;
}

QRect TimeGrid::blockRect(std::size_t entry) const {
    int day = 0;
    const app::TimeBlock* block = blockOf(entry, &day);
    if (block == nullptr)
        return {};
    const QRect column = spanRect(day, block->drawn()).adjusted(1, 0, grid().columnWidth(day) > 80 ? -8 : -1, -1);
    const int left = column.width() * block->lane.first / block->lane.count;
    const int right = column.width() * (block->lane.first + block->lane.width) / block->lane.count;
    return {column.left() + left, column.top(), std::max(3, right - left - 1), column.height()};
}

TimeGrid::Hit TimeGrid::hitAt(QPoint position) const {
    Hit hit{.entry = std::nullopt, .kind = app::DragKind::mark, .point = pointAt(position)};
    for (const app::TimeBlock& block : board_.days()[static_cast<std::size_t>(hit.point.day)].blocks) {
        const QRect rect = blockRect(block.entry);
        if (!rect.contains(position))
            continue;
        const int edge = std::min(6, rect.height() / 4);
        hit.entry = block.entry;
        hit.kind = app::DragKind::move;
        if (position.y() < rect.top() + edge)
            hit.kind = app::DragKind::startEdge;
        else if (position.y() > rect.bottom() - edge && !block.pastMidnight)
            hit.kind = app::DragKind::endEdge;
        return hit;
    }
    return hit;
}

app::GridPoint TimeGrid::pointAt(QPoint position) const {
    const auto geometry = grid();
    return {geometry.columnAt(position.x()), geometry.minuteAt(position.y() + verticalScrollBar()->value())};
}

platform::SystemTime TimeGrid::dayAt(int x) const {
    return board_.days()[static_cast<std::size_t>(grid().columnAt(x))].date;
}

void TimeGrid::showSpan(int day, const app::MinuteSpan& span) {
    const QRect rect = spanRect(day, span);
    const int offset = verticalScrollBar()->value();
    if (rect.bottom() > viewport()->height())
        verticalScrollBar()->setValue(offset + rect.bottom() - viewport()->height() + 4);
    if (const QRect moved = spanRect(day, span); moved.top() < 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + moved.top() - 4);
}

// What stands under the cursor in words, for those who hear it.
void TimeGrid::describe() {
    const auto& date = board_.days()[static_cast<std::size_t>(day_)].date;
    const auto& locale = board_.workspace().locale();
    const QString day = toQString(locale.shortDate(date));
    if (stop_.entry) {
        setAccessibleDescription(day + '\n' + board_.text(*stop_.entry).full);
        return;
    }
    platform::SystemTime time = date;
    platform::addMinutes(time, mark_ ? mark_->span.start : stop_.span.start);
    const QString start = toQString(locale.timeWithoutSeconds(time));
    setAccessibleDescription(toQString(texts::freeTime).replace("%s", day + ' ' + start));
}

void TimeGrid::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    measure();
}

void TimeGrid::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        painter_.forget();
        measure();
    }
}

bool TimeGrid::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Hit hit = hitAt(help->pos());
    if (hit.entry)
        QToolTip::showText(help->globalPos(), board_.text(*hit.entry).full, viewport(), blockRect(*hit.entry));
    else
        QToolTip::hideText();
    return true;
}

} // namespace hourwright::desktop
