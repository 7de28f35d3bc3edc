#pragma once

#include <span>
#include <vector>

namespace hourwright::app {

/// A stretch of a day in minutes from midnight; the end does not belong to it.
struct MinuteSpan {
    int start = 0;
    int end = 0;

    friend bool operator==(const MinuteSpan&, const MinuteSpan&) = default;
};

/// Where a block stands beside those that overlap it: from lane `first` over `width` of `count` lanes.
struct Lane {
    int first = 0;
    int width = 1;
    int count = 1;

    friend bool operator==(const Lane&, const Lane&) = default;
};

/// Lays overlapping blocks side by side, those of a group that hangs together in lanes of the same width; a block takes
/// the lanes to its right that are free all its time. The spans are sorted by their starts.
[[nodiscard]] std::vector<Lane> sideBySide(std::span<const MinuteSpan> spans);

} // namespace hourwright::app
