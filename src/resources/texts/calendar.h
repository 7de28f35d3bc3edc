#pragma once

#include "resources/text.h"

/// The calendar of days, weeks and months.
namespace hourwright::resources::calendar {

inline constexpr Text timeGrid{10400, u"Calendar of hours"};
inline constexpr Text monthGrid{10401, u"Calendar of the month"};
inline constexpr Text more{10402, u"+%s more"};
inline constexpr Text withoutStart{10403, u"No start"};
inline constexpr Text freeTime{10404, u"%s, free"};
inline constexpr Text pastMidnight{10405, u"past midnight"};
inline constexpr Text openDay{10406, u"Open this day"};
inline constexpr Text untimedList{10407, u"Entries without a start time"};

inline constexpr Text moveEntry{10410, u"Move Entry"};
inline constexpr Text changeLength{10411, u"Change Duration"};

} // namespace hourwright::resources::calendar
