#include "desktop/calendar/month_grid.h"

#include "desktop/screen_size.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/calendar.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

namespace hourwright::desktop {

using platform::toQString;
namespace texts = resources::calendar;

namespace {

constexpr int longPressTime = 550;
constexpr int daysInWeek = 7;

} // namespace

MonthGrid::MonthGrid(CalendarBoard& board, BlockPainter& painter, QWidget* parent)
    : QWidget(parent), board_(board), painter_(painter) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(toQString(texts::monthGrid));
    setAttribute(Qt::WA_OpaquePaintEvent);
    longPress_.setSingleShot(true);
    longPress_.setInterval(longPressTime);
    connect(&longPress_, &QTimer::timeout, this, [this] {
        touch_ = false;
        askForMenu(pressed_);
    });
    connect(&board_, &CalendarBoard::selectionChanged, this, qOverload<>(&QWidget::update));
}

void MonthGrid::showFromStart() {
    const auto date = platform::toFileTime(board_.workspace().view().period().currentDate());
    day_ = static_cast<int>(board_.calendar().dayOf(date.value_or(platform::FileTime{})).value_or(0));
    refresh();
}

void MonthGrid::refresh() {
    day_ = std::clamp(day_, 0, static_cast<int>(board_.days().size()) - 1);
    describe();
    update();
}

void MonthGrid::goTo(std::size_t entry) {
    if (const auto day = board_.calendar().dayOf(board_.entry(entry).date))
        day_ = static_cast<int>(*day);
    describe();
    update();
}

void MonthGrid::describe() {
    const app::CalendarDay& day = board_.days()[static_cast<std::size_t>(day_)];
    const auto& locale = board_.workspace().locale();
    QStringList lines{toQString(locale.shortDate(day.date))};
    if (const auto current = board_.current())
        lines.append(board_.text(*current).full);
    else if (day.totals.items > 0)
        lines.append(toQString(app::hoursText(day.totals, locale)) + ' ' +
                     toQString(app::amountsText(day.totals, locale)));
    setAccessibleDescription(lines.join('\n'));
}

int MonthGrid::dayAt(QPoint position) const {
    for (int day = 0; day < static_cast<int>(board_.days().size()); ++day)
        if (cellRect(day).contains(position))
            return day;
    return -1;
}

std::optional<std::size_t> MonthGrid::entryAt(QPoint position) const {
    const int day = dayAt(position);
    if (day < 0)
        return std::nullopt;
    const auto entries = board_.days()[static_cast<std::size_t>(day)].entries();
    for (int row = 0; row < rowsIn(day); ++row)
        if (rowRect(day, row).contains(position))
            return entries[static_cast<std::size_t>(row)];
    return std::nullopt;
}

void MonthGrid::moveTo(int day) {
    day_ = std::clamp(day, 0, static_cast<int>(board_.days().size()) - 1);
    board_.selectNone();
    describe();
    update();
}

// Goes through the entries of the day, those too for which there is no line.
void MonthGrid::stepEntry(int direction) {
    const auto entries = board_.days()[static_cast<std::size_t>(day_)].entries();
    if (entries.empty())
        return;
    const auto current = board_.current();
    const auto found = current ? std::find(entries.begin(), entries.end(), *current) : entries.end();
    const int last = static_cast<int>(entries.size()) - 1;
    int to = direction > 0 ? 0 : last;
    if (found != entries.end())
        to = std::clamp(static_cast<int>(found - entries.begin()) + direction, 0, last);
    board_.selectOnly(entries[static_cast<std::size_t>(to)]);
    describe();
}

void MonthGrid::keyPressEvent(QKeyEvent* event) {
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const int inWeek = day_ % daysInWeek;
    switch (event->key()) {
    case Qt::Key_Left: return moveTo(day_ - 1);
    case Qt::Key_Right: return moveTo(day_ + 1);
    case Qt::Key_Up: return control ? stepEntry(-1) : moveTo(day_ >= daysInWeek ? day_ - daysInWeek : day_);
    case Qt::Key_Down:
        return control ? stepEntry(1)
                       : moveTo(day_ + daysInWeek < static_cast<int>(board_.days().size()) ? day_ + daysInWeek : day_);
    case Qt::Key_Home: return moveTo(day_ - inWeek);
    case Qt::Key_End: return moveTo(day_ - inWeek + daysInWeek - 1);
    case Qt::Key_Escape: return board_.selectNone();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (const auto current = board_.current(); current && !control)
            emit activated(board_.entry(*current).id);
        else
            emit dayChosen(board_.days()[static_cast<std::size_t>(day_)].date);
        return;
    default: event->ignore();
    }
}

void MonthGrid::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->position().toPoint();
    const auto entry = entryAt(pressed_);
    const int day = dayAt(pressed_);
    touch_ = event->source() != Qt::MouseEventNotSynthesized;
    if (touch_)
        longPress_.start();
    wasSelected_ = entry ? board_.isSelected(*entry) : day == day_;
    if (day >= 0)
        day_ = day;
    if (!entry)
        board_.selectNone();
    else if (event->modifiers().testFlag(Qt::ControlModifier))
        board_.toggle(*entry);
    else if (event->button() == Qt::LeftButton || !wasSelected_)
        board_.selectOnly(*entry);
    describe();
    update();
}

void MonthGrid::mouseReleaseEvent(QMouseEvent* event) {
    const bool held = touch_ == false && event->source() != Qt::MouseEventNotSynthesized;
    longPress_.stop();
    const QPoint position = event->position().toPoint();
    const bool moved = (position - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (held || moved || event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier)
        return;
    const auto entry = entryAt(position);
    const bool atOnce = board_.workspace().settings().styleFlags.has(app::StyleFlag::secondTapCommand);
    const bool second = wasSelected_ && (isHandheld() || touch_);
    if (entry && (atOnce || second))
        emit activated(board_.entry(*entry).id);
    else if (!entry && second && dayAt(position) >= 0)
        emit dayChosen(board_.days()[static_cast<std::size_t>(day_)].date);
}

void MonthGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint position = event->position().toPoint();
    if (event->button() != Qt::LeftButton)
        return;
    if (const auto entry = entryAt(position))
        emit activated(board_.entry(*entry).id);
    else if (const int day = dayAt(position); day >= 0)
        emit dayChosen(board_.days()[static_cast<std::size_t>(day)].date);
}

void MonthGrid::contextMenuEvent(QContextMenuEvent* event) {
    const bool keyboard = event->reason() == QContextMenuEvent::Keyboard;
    askForMenu(keyboard ? cellRect(day_).center() : event->pos());
}

void MonthGrid::askForMenu(QPoint position) {
    if (board_.selection().empty() && dayAt(position) >= 0)
        emit placeMenuRequested(mapToGlobal(position), {.day = board_.days()[static_cast<std::size_t>(day_)].date});
    else
        emit contextMenuRequested(mapToGlobal(position));
}

bool MonthGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int day = dayAt(help->pos());
    QStringList lines;
    if (const auto entry = entryAt(help->pos()))
        lines.append(board_.text(*entry).full);
    else if (day >= 0)
        for (const std::size_t index : board_.days()[static_cast<std::size_t>(day)].entries())
            lines.append((board_.text(index).time + "  " + board_.text(index).title).trimmed());
    if (lines.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), lines.join('\n'), this, cellRect(day));
    return true;
}

void MonthGrid::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        painter_.forget();
    QWidget::changeEvent(event);
}

void MonthGrid::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void MonthGrid::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

} // namespace hourwright::desktop
