#pragma once

#include <compare>
#include <cstdint>
#include <optional>

namespace hourwright::platform {

/// An instant: 100-nanosecond ticks since 1 January 1601, 00:00, counted in local time without any zone.
struct FileTime {
    std::uint64_t ticks = 0;

    friend auto operator<=>(const FileTime&, const FileTime&) = default;
};

inline constexpr std::uint64_t ticksPerMillisecond = 10'000;
inline constexpr std::uint64_t ticksPerSecond = 1000 * ticksPerMillisecond;
inline constexpr std::uint64_t ticksPerMinute = 60 * ticksPerSecond;
inline constexpr std::uint64_t ticksPerDay = 24 * 60 * ticksPerMinute;

/// The latest instant that converts to calendar fields: 31 December 30827, 23:59:59.999.
inline constexpr FileTime lastFileTime{9'223'149'887'999'999'999ULL};

/// A calendar instant. Month is 1 to 12, day 1 to 31, day of week 0 (Sunday) to 6.
struct SystemTime {
    std::uint16_t year = 0;
    std::uint16_t month = 0;
    std::uint16_t dayOfWeek = 0;
    std::uint16_t day = 0;
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
    std::uint16_t milliseconds = 0;

    friend auto operator<=>(const SystemTime&, const SystemTime&) = default;
};

/// The instant of a calendar record, its day of week ignored. Nothing when a field is out of range or the year is
/// outside 1601 to 30827.
[[nodiscard]] std::optional<FileTime> toFileTime(const SystemTime& time);

/// The calendar record of an instant, with its day of week; below a millisecond it is truncated. Nothing for an
/// instant after the year 30827.
[[nodiscard]] std::optional<SystemTime> toSystemTime(FileTime time);

} // namespace hourwright::platform
