#pragma once

#include "platform/registry.h"

#include <cstdint>
#include <vector>

namespace hourwright::app {

/// The lists whose columns the user arranges.
enum class ColumnList : std::uint8_t { entries, expenses };

/// The columns of a list as the user arranged them: `order` holds the column indexes from the first place to the last
/// and is always a permutation, `widths` the width of each column by column index.
struct ColumnLayout {
    std::vector<std::uint32_t> order;
    std::vector<std::uint32_t> widths; ///< pixels of the screen

    friend bool operator==(const ColumnLayout&, const ColumnLayout&) = default;
};

/// Columns by index in their built-in widths, which are meant for 96 pixels per inch.
[[nodiscard]] ColumnLayout builtInColumnLayout(ColumnList list, std::uint32_t pixelsPerInch = 96);

/// The stored layout; what is missing or damaged is as built in. An order that an earlier version stored, with fewer
/// columns, gets the newer columns behind its own.
[[nodiscard]] ColumnLayout loadColumnLayout(platform::Registry& registry, ColumnList list,
                                            std::uint32_t pixelsPerInch = 96);

/// Stores the layout, all of it or nothing; false when it was not stored, also when it does not have the list's number
/// of columns.
bool saveColumnLayout(platform::Registry& registry, ColumnList list, const ColumnLayout& layout);

} // namespace hourwright::app
