#include "app/calendar/time_drag.h"

#include "app/calendar/calendar_days.h"
#include "platform/calendar.h"

#include <algorithm>

namespace hourwright::app {

namespace {

constexpr int finestStep = 5;

int floorTo(int minute, int step) {
    return minute >= 0 ? minute / step * step : -((step - 1 - minute) / step * step);
}

int roundTo(int minute, int step) {
    return floorTo(minute + step / 2, step);
}

} // namespace

int snapStep(const billing::TimeRules& rules) {
    const int minutes = rules.granularityOn ? rules.granularityMinutes : finestStep;
    return minutes > 0 ? std::min(minutes, 60) : finestStep;
}

TimeDrag::TimeDrag(DragKind kind, const DayTimes& original, GridPoint grabbed, int dayCount, int step, int shortest)
    : kind_(kind), original_(original), grabbed_(grabbed), dayCount_(dayCount), step_(step), shortest_(shortest),
      times_(original) {
    if (kind == DragKind::mark)
        mark(grabbed);
}

void TimeDrag::moveTo(GridPoint point) {
    MinuteSpan& span = times_.span;
    const int least = std::max(step_, shortest_);
    const int moved = point.minute - grabbed_.minute;
    switch (kind_) {
    case DragKind::mark: mark(point); break;
    case DragKind::move: move(point); break;
    case DragKind::startEdge:
        span.start = std::max(0, std::min(roundTo(original_.span.start + moved, step_), span.end - least));
        break;
    case DragKind::endEdge:
        span.end = std::max(roundTo(original_.span.end + moved, step_), span.start + least);
        span.end = std::min(span.end, std::max(minutesPerDay, original_.span.end));
        break;
    }
    if (moved == 0 && kind_ != DragKind::mark && point.day == grabbed_.day)
        times_ = original_;
}

void TimeDrag::mark(GridPoint point) {
    times_.day = grabbed_.day;
    const int from = floorTo(std::min(grabbed_.minute, point.minute), step_);
    const int to = floorTo(std::max(grabbed_.minute, point.minute), step_) + step_;
    times_.span = {std::clamp(from, 0, minutesPerDay - step_), std::clamp(to, step_, minutesPerDay)};
}

void TimeDrag::move(GridPoint point) {
    const int moved = point.minute - grabbed_.minute;
    const int length = original_.span.end - original_.span.start;
    // Only sideways: the start keeps its minute, on a step or not.
    const int start = moved == 0 ? original_.span.start : roundTo(original_.span.start + moved, step_);
    times_.span.start = std::clamp(start, 0, minutesPerDay - step_);
    times_.span.end = times_.span.start + length;
    times_.day = std::clamp(original_.day + point.day - grabbed_.day, 0, dayCount_ - 1);
}

billing::EntryPlace placeOf(DragKind kind, const DayTimes& times, const platform::SystemTime& firstDay) {
    const auto instant = [&](int minute) {
        platform::SystemTime time = firstDay;
        platform::clearTime(time);
        platform::addDays(time, times.day);
        platform::addMinutes(time, minute);
        return time;
    };
    billing::EntryPlace place{.day = instant(0), .start = instant(times.span.start), .end = std::nullopt};
    if (kind != DragKind::move)
        place.end = instant(times.span.end);
    return place;
}

} // namespace hourwright::app
