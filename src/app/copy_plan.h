#pragma once

#include "platform/store_copies.h"

#include <span>
#include <string>
#include <vector>

namespace hourwright::app {

/// How many copies are kept: the newest of each of the last so many days, weeks (from Monday) and months that have one.
/// Days without work do not count, so copies do not run out while nobody records anything.
struct CopyRetention {
    unsigned days = 7;
    unsigned weeks = 5;
    unsigned months = 12;
};

/// What a copy stands for: it is the newest of its day, else of its week, else of its month, among those that count.
enum class CopyAge : std::uint8_t { day, week, month, none };

/// What each of the copies, the newest first, stands for.
[[nodiscard]] std::vector<CopyAge> agesOf(std::span<const platform::StoreCopy> copies,
                                          const CopyRetention& retention = {});

/// Settings alone are reason for a copy only when the last one is this old, in days.
inline constexpr unsigned settingsCopyDays = 7;

/// True when a copy should be made: there is none of this day, and records have been written since the newest one, or
/// settings some time after it. `copies` are the present ones, the newest first.
[[nodiscard]] bool isCopyDue(std::span<const platform::StoreCopy> copies, const platform::SourceStamps& present,
                             const platform::SystemTime& now);

/// The copies that need not be kept any longer. Those of this day always stay. `copies` are the newest first.
[[nodiscard]] std::vector<platform::StoreCopy> copiesToForget(std::span<const platform::StoreCopy> copies,
                                                              const platform::SystemTime& now,
                                                              const CopyRetention& retention = {});

} // namespace hourwright::app
