#pragma once

#include "app/flag_set.h"

#include <cstdint>

namespace hourwright::app {

/// Options of the views and of new entries; each number is the option's stored bit. Bits 2 and 9 have no meaning but
/// are kept.
enum class StyleFlag : std::uint8_t {
    billable = 0,         ///< new entries are billable
    secondTapCommand = 1, ///< a tap of a finger selects an item and shows its menu; else it opens the item
    weekStartsMonday = 3, ///< else on Sunday
    boldList = 4,
    preciseMinutes = 5, ///< 10, 20, 40 and 50 minutes count exactly
    weekNumber = 6,     ///< shown in the week view
    granularity = 7,    ///< durations are raised to multiples of `AppSettings::minTime`
    softKeyMenus = 8,
    vibrate = 10, ///< when a timer starts or pauses
};
using StyleFlags = FlagSet<StyleFlag, 11>;

/// The five options of the tree list, by their stored bits.
enum class TreeOption : std::uint8_t {
    itemCounts = 0, ///< the row of a group tells how many records it has
    hours = 1,      ///< and their hours
    amounts = 2,    ///< and what they come to, by currency
    expanded = 3,   ///< groups are open at first
    ascending = 4,  ///< groups in ascending order, else the last one stands on top
};
using TreeOptions = FlagSet<TreeOption, 5>;

} // namespace hourwright::app
