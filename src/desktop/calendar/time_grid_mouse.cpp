#include "desktop/calendar/time_grid.h"

#include "billing/duration.h"
#include "desktop/screen_size.h"
#include "platform/calendar.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

namespace hourwright::desktop {

void TimeGrid::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->position().toPoint();
    const Hit hit = hitAt(pressed_);
    cursorShown_ = false;
    if (event->button() != Qt::LeftButton) {
        if (hit.entry && !board_.isSelected(*hit.entry))
            goTo(*hit.entry), board_.selectOnly(*hit.entry);
        else if (!hit.entry)
            pressPlace(hit.point);
        return;
    }
    touch_ = event->source() != Qt::MouseEventNotSynthesized;
    touchScroll_ = verticalScrollBar()->value();
    wasSelected_ = hit.entry ? board_.isSelected(*hit.entry)
                             : day_ == hit.point.day && stop_.span.start <= hit.point.minute &&
                                   hit.point.minute < stop_.span.end && !stop_.entry;
    mark_.reset();
    if (hit.entry) {
        goTo(*hit.entry);
        if (event->modifiers().testFlag(Qt::ControlModifier))
            board_.toggle(*hit.entry);
        else if (!wasSelected_ || board_.selection().size() > 1)
            board_.selectOnly(*hit.entry);
    } else {
        pressPlace(hit.point);
    }
    hit_ = hit;
    if (touch_)
        longPress_.start();
    viewport()->update();
}

// The cursor goes to the empty slot; a mark that was made by keyboard stays when it is meant.
void TimeGrid::pressPlace(app::GridPoint point) {
    board_.selectNone();
    const bool marked =
        mark_ && mark_->day == point.day && mark_->span.start <= point.minute && point.minute < mark_->span.end;
    if (!marked)
        standOn(point.day, {.entry = std::nullopt, .span = app::slotAt(point.minute)}, false);
}

void TimeGrid::mouseMoveEvent(QMouseEvent* event) {
    const QPoint position = event->position().toPoint();
    if (!event->buttons().testFlag(Qt::LeftButton) || !hit_)
        return showPointer(position);
    const bool far = (position - pressed_).manhattanLength() >= QApplication::startDragDistance();
    if (far)
        longPress_.stop();
    if (touch_ && !drag_)
        return far ? scrollByTouch(position.y()) : void();
    if (!drag_ && far)
        startDrag();
    if (!drag_)
        return;
    drag_->moveTo(pointAt(position));
    const int offset = verticalScrollBar()->value();
    if (position.y() < 0 || position.y() > viewport()->height())
        verticalScrollBar()->setValue(offset + (position.y() < 0 ? position.y() : position.y() - viewport()->height()));
    viewport()->update();
}

void TimeGrid::showPointer(QPoint position) {
    const Hit hit = hitAt(position);
    const bool edge = hit.kind == app::DragKind::startEdge || hit.kind == app::DragKind::endEdge;
    viewport()->setCursor(edge ? Qt::SizeVerCursor : Qt::ArrowCursor);
}

// A finger that stays on a block takes hold of it; elsewhere it wants the menu.
void TimeGrid::held() {
    if (hit_ && hit_->entry) {
        hit_->kind = app::DragKind::move;
        startDrag();
        viewport()->update();
        return;
    }
    hit_.reset();
    askForMenu(pressed_);
}

// A finger that moves at once moves the hours themselves.
void TimeGrid::scrollByTouch(int y) {
    verticalScrollBar()->setValue(touchScroll_ + pressed_.y() - y);
    wasSelected_ = false;
    hit_->kind = app::DragKind::move;
}

void TimeGrid::startDrag() {
    const int step = app::snapStep(board_.workspace().timeRules());
    const int dayCount = static_cast<int>(board_.days().size());
    app::DayTimes original;
    int shortest = 0;
    if (hit_->entry) {
        const app::TimeBlock* block = blockOf(*hit_->entry, &original.day);
        original.span = {block->span.start, block->uncutEnd};
        shortest = billing::minutesOfBreak(board_.entry(*hit_->entry)) + step;
    }
    drag_.emplace(hit_->kind, original, hit_->point, dayCount, step, shortest);
}

void TimeGrid::mouseReleaseEvent(QMouseEvent* event) {
    longPress_.stop();
    if (event->button() != Qt::LeftButton || !hit_)
        return;
    if (drag_)
        finishDrag();
    else if (hit_ && (event->position().toPoint() - pressed_).manhattanLength() < QApplication::startDragDistance() &&
             event->modifiers() == Qt::NoModifier)
        tapped(wasSelected_);
    hit_.reset();
    viewport()->update();
}

// The drag is over before the entry is stored, because that loads everything anew.
void TimeGrid::finishDrag() {
    const app::TimeDrag drag = *drag_;
    const Hit hit = *hit_;
    drag_.reset();
    hit_.reset();
    if (drag.kind() == app::DragKind::mark)
        askForNew(drag.times(), true);
    else if (drag.changed())
        board_.place(board_.entry(*hit.entry).id, app::placeOf(drag.kind(), drag.times(), board_.days().front().date),
                     drag.kind());
    else if (touch_)
        emit contextMenuRequested(viewport()->mapToGlobal(pressed_));
}

void TimeGrid::tapped(bool wasSelected) {
    const bool atOnce = board_.workspace().settings().styleFlags.has(app::StyleFlag::secondTapCommand);
    const bool second = wasSelected && (touch_ || isHandheld());
    const Hit hit = *hit_;
    if (hit.entry && (atOnce || second))
        emit activated(board_.entry(*hit.entry).id);
    else if (!hit.entry && second)
        askForNew({day_, stop_.span}, false);
}

void TimeGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const Hit hit = hitAt(event->position().toPoint());
    if (hit.entry)
        emit activated(board_.entry(*hit.entry).id);
    else
        askForNew({hit.point.day, app::slotAt(hit.point.minute)}, false);
}

EntrySeed TimeGrid::seedOf(const app::DayTimes& times, bool withLength) const {
    EntrySeed seed{
        .day = board_.days()[static_cast<std::size_t>(times.day)].date, .start = std::nullopt, .minutes = std::nullopt};
    platform::SystemTime start = seed.day;
    platform::addMinutes(start, times.span.start);
    seed.start = start;
    if (withLength)
        seed.minutes = times.span.end - times.span.start;
    return seed;
}

EntrySeed TimeGrid::seedOfCursor() const {
    return mark_ ? seedOf(*mark_, true) : seedOf({day_, stop_.span}, false);
}

void TimeGrid::askForNew(const app::DayTimes& times, bool withLength) {
    mark_.reset();
    emit newEntryRequested(seedOf(times, withLength));
}

void TimeGrid::askForMenu(QPoint position) {
    const QPoint place = viewport()->mapToGlobal(position);
    if (board_.selection().empty() && !stop_.entry)
        emit placeMenuRequested(place, seedOfCursor());
    else
        emit contextMenuRequested(place);
}

void TimeGrid::contextMenuEvent(QContextMenuEvent* event) {
    QPoint place = event->pos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect rect = stop_.entry ? blockRect(*stop_.entry) : spanRect(day_, stop_.span);
        place = rect.isNull() ? QPoint(gutter_, 0) : rect.center();
    }
    askForMenu(place);
}

} // namespace hourwright::desktop
