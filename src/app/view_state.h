#pragma once

#include "app/list_style.h"
#include "app/period_kind.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace hourwright::app {

/// Which records the main window shows.
enum class RecordKind : std::uint8_t { entries, expenses };

/// How the period is laid out: as a list in its style, or as a calendar of hours or days.
enum class Presentation : std::uint8_t { list, calendar };

/// All that the menus depend on.
struct ViewState {
    RecordKind records = RecordKind::entries;
    PeriodKind period = PeriodKind::week;
    Presentation presentation = Presentation::list;
    ListStyle listStyle = ListStyle::standard;
    std::uint16_t arrangedBy = 0;
    std::array<std::u16string, 3> customLabels; ///< captions of the custom fields of the records shown
    bool filterActive = false;                  ///< the filter may hide something
    bool filterUnpaidOnly = false;              ///< it is exactly that of "Show Unpaid Only"
    std::size_t shown = 0;                      ///< records in the view
    std::size_t selected = 0;                   ///< of them
    unsigned timersInUse = 0;
    std::u16string undoName; ///< what "Undo" takes back; empty: nothing
    std::u16string redoName;

    friend bool operator==(const ViewState&, const ViewState&) = default;
};

} // namespace hourwright::app
