#pragma once

#include "platform/registry.h"
#include "store/entry_types.h"

#include <array>
#include <cstdint>

namespace hourwright::app {

/// What the calendar's blocks and the simple list show of an entry's time; the numbers are the stored ones.
enum class EntryTimeShown : std::uint8_t { none = 0, start = 1, startAndEnd = 2, duration = 3 };
inline constexpr std::uint32_t entryTimeShownCount = 4;

/// A colour as 0xRRGGBB, or the one that the light or dark style gives its status.
struct StatusColour {
    static constexpr std::uint32_t ofStyle = 0xFFFF'FFFF; ///< stored for "follows the style"

    std::uint32_t rgb = ofStyle;

    [[nodiscard]] bool followsStyle() const { return rgb > 0xFF'FFFF; }
    friend bool operator==(const StatusColour&, const StatusColour&) = default;
};

/// The choices of the options pages "Display" and "Colour" and how the periods are laid out. They are kept beside the
/// other settings and saved when they are changed.
struct DisplaySettings {
    EntryTimeShown entryTime = EntryTimeShown::startAndEnd;
    bool showClientName = true;
    bool showStatusIcon = true;
    bool calendar = false;                 ///< days, weeks and months of time entries are shown as a calendar
    std::array<StatusColour, 4> colours{}; ///< by `store::EntryStatus`

    /// The stored choices; what is missing or means nothing has its default. Never fails.
    [[nodiscard]] static DisplaySettings load(platform::Registry& registry);

    /// Stores them, all or none; false when they were not stored.
    bool save(platform::Registry& registry) const;

    friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;
};

} // namespace hourwright::app
