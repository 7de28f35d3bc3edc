#include "desktop/calendar/time_grid.h"

#include "billing/duration.h"
#include "platform/calendar.h"

#include <QKeyEvent>

namespace hourwright::desktop {

void TimeGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && (drag_ || mark_)) {
        drag_.reset();
        hit_.reset();
        mark_.reset();
        viewport()->update();
        return;
    }
    cursorShown_ = true;
    if (changeKey(event) || moveKey(event)) {
        viewport()->update();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers().testFlag(Qt::ControlModifier))
            emit dayChosen(board_.days()[static_cast<std::size_t>(day_)].date);
        else
            open();
        break;
    case Qt::Key_Space:
        if (stop_.entry)
            board_.toggle(*stop_.entry);
        break;
    default: event->ignore();
    }
}

// Alt moves the block, Alt+Shift its end; Ctrl sideways takes it to another day.
bool TimeGrid::changeKey(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool vertical = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    const bool sideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    const int direction = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left ? -1 : 1;
    const int step = direction * app::snapStep(board_.workspace().timeRules());
    if (vertical && modifiers == Qt::AltModifier)
        shift(app::DragKind::move, 0, step);
    else if (vertical && modifiers == (Qt::AltModifier | Qt::ShiftModifier))
        shift(app::DragKind::endEdge, 0, step);
    else if (sideways && modifiers == Qt::ControlModifier)
        shift(app::DragKind::move, direction, 0);
    else
        return false;
    return true;
}

bool TimeGrid::moveKey(QKeyEvent* event) {
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool select = !event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Up: shift ? extendMark(-1) : moveBy(-1, select); return true;
    case Qt::Key_Down: shift ? extendMark(1) : moveBy(1, select); return true;
    case Qt::Key_Left: moveToDay(day_ - 1, select); return true;
    case Qt::Key_Right: moveToDay(day_ + 1, select); return true;
    case Qt::Key_PageUp: moveToMinute(stop_.span.start - 240, select); return true;
    case Qt::Key_PageDown: moveToMinute(stop_.span.start + 240, select); return true;
    case Qt::Key_Home: moveToMinute(-1, select); return true;
    case Qt::Key_End: moveToMinute(app::minutesPerDay, select); return true;
    default: return false;
    }
}

void TimeGrid::moveBy(int count, bool select) {
    const auto stops = app::stopsOf(board_.days()[static_cast<std::size_t>(day_)]);
    const auto at = stop_.entry ? app::stopOf(stops, *stop_.entry) : std::nullopt;
    const auto from = static_cast<int>(at.value_or(app::stopAt(stops, stop_.span.start)));
    const int to = std::clamp(from + count, 0, static_cast<int>(stops.size()) - 1);
    standOn(day_, stops[static_cast<std::size_t>(to)], select);
}

void TimeGrid::moveToDay(int day, bool select) {
    if (day < 0 || day >= static_cast<int>(board_.days().size()))
        return;
    const auto stops = app::stopsOf(board_.days()[static_cast<std::size_t>(day)]);
    standOn(day, stops[app::stopAt(stops, std::max(0, stop_.span.start))], select);
}

void TimeGrid::moveToMinute(int minute, bool select) {
    const auto stops = app::stopsOf(board_.days()[static_cast<std::size_t>(day_)]);
    standOn(day_, stops[app::stopAt(stops, std::clamp(minute, -1, app::minutesPerDay - 1))], select);
}

void TimeGrid::standOn(int day, const app::GridStop& stop, bool select) {
    day_ = day;
    stop_ = stop;
    mark_.reset();
    stopId_ = stop.entry ? board_.entry(*stop.entry).id : store::RecordId::none;
    if (stop.span.start >= 0)
        showSpan(day, stop.span);
    if (select && stop.entry)
        board_.selectOnly(*stop.entry);
    else if (select)
        board_.selectNone();
    describe();
    viewport()->update();
}

void TimeGrid::extendMark(int slotCount) {
    constexpr int slot = app::slotMinutes;
    if (!mark_) {
        markAnchor_ = std::max(0, stop_.span.start) / slot * slot;
        mark_ = app::DayTimes{day_, {markAnchor_, markAnchor_ + slot}};
        board_.selectNone();
        stopId_ = store::RecordId::none;
        stop_ = {.entry = std::nullopt, .span = mark_->span};
    }
    app::MinuteSpan& span = mark_->span;
    int& moving = slotCount < 0 ? (span.end > markAnchor_ + slot ? span.end : span.start)
                                : (span.start < markAnchor_ ? span.start : span.end);
    moving = std::clamp(moving + slotCount * slot, 0, app::minutesPerDay);
    showSpan(day_, span);
    describe();
}

void TimeGrid::shift(app::DragKind kind, int days, int minutes) {
    if (!stop_.entry)
        return;
    const std::size_t entry = *stop_.entry;
    app::DayTimes times{day_, {}};
    const app::TimeBlock* block = blockOf(entry, &times.day);
    const int day = std::clamp(times.day + days, 0, static_cast<int>(board_.days().size()) - 1);
    if (block == nullptr) {
        auto place = app::placeOf(kind, {day, {}}, board_.days().front().date);
        place.start.reset();
        if (day != day_)
            board_.place(board_.entry(entry).id, place, kind);
        return;
    }
    times.span = {block->span.start, block->uncutEnd};
    const int step = app::snapStep(board_.workspace().timeRules());
    const int shortest = billing::minutesOfBreak(board_.entry(entry)) + step;
    const app::GridPoint from{times.day, 0};
    app::TimeDrag drag(kind, times, from, static_cast<int>(board_.days().size()), step, shortest);
    drag.moveTo({times.day + days, minutes});
    if (drag.changed())
        board_.place(board_.entry(entry).id, app::placeOf(kind, drag.times(), board_.days().front().date), kind);
}

void TimeGrid::open() {
    if (mark_)
        askForNew(*mark_, true);
    else if (stop_.entry)
        emit activated(board_.entry(*stop_.entry).id);
    else
        askForNew({day_, stop_.span}, false);
}

void TimeGrid::focusInEvent(QFocusEvent* event) {
    cursorShown_ = event->reason() != Qt::MouseFocusReason;
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TimeGrid::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

} // namespace hourwright::desktop
