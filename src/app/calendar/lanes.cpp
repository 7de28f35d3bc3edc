#include "app/calendar/lanes.h"

#include <algorithm>
#include <cstddef>

namespace hourwright::app {

namespace {

bool overlap(const MinuteSpan& a, const MinuteSpan& b) {
    return a.start < b.end && b.start < a.end;
}

// The first lane whose last block has ended; a new one when there is none.
std::size_t takeLane(std::vector<int>& laneEnds, const MinuteSpan& span) {
    const auto free = std::find_if(laneEnds.begin(), laneEnds.end(), [&](int end) { return end <= span.start; });
    const auto lane = static_cast<std::size_t>(free - laneEnds.begin());
    if (free == laneEnds.end())
        laneEnds.push_back(span.end);
    else
        *free = span.end;
    return lane;
}

// Within a group from `begin` on: every block grows to the right until another one is in its way.
void widen(std::span<const MinuteSpan> spans, std::span<Lane> lanes, int count) {
    for (std::size_t i = 0; i < spans.size(); ++i) {
        int limit = count;
        for (std::size_t k = 0; k < spans.size(); ++k)
            if (lanes[k].first > lanes[i].first && overlap(spans[i], spans[k]))
                limit = std::min(limit, lanes[k].first);
        lanes[i].width = limit - lanes[i].first;
        lanes[i].count = count;
    }
}

} // namespace

std::vector<Lane> sideBySide(std::span<const MinuteSpan> spans) {
    std::vector<Lane> lanes(spans.size());
    for (std::size_t begin = 0; begin < spans.size();) {
        std::vector<int> laneEnds;
        std::size_t end = begin;
        for (int groupEnd = spans[begin].end; end < spans.size() && (end == begin || spans[end].start < groupEnd);
             ++end) {
            lanes[end].first = static_cast<int>(takeLane(laneEnds, spans[end]));
            groupEnd = std::max(groupEnd, spans[end].end);
        }
        widen(spans.subspan(begin, end - begin), std::span(lanes).subspan(begin, end - begin),
              static_cast<int>(laneEnds.size()));
        begin = end;
    }
    return lanes;
}

} // namespace hourwright::app
