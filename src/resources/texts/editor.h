#pragma once

#include "resources/text.h"

/// The editor of time entries and the small dialogs beside it.
namespace hourwright::resources::editor {

inline constexpr Text newTitle{10800, u"New Entry"};
inline constexpr Text editTitle{10801, u"Edit Entry"};
inline constexpr Text general{10802, u"&General"};
inline constexpr Text billing{10803, u"&Billing"};
inline constexpr Text note{10804, u"&Note"};
inline constexpr Text custom{10805, u"C&ustom"};

inline constexpr Text date{10810, u"&Date:"};
inline constexpr Text client{10811, u"&Client:"};
inline constexpr Text project{10812, u"&Project:"};
inline constexpr Text phase{10813, u"P&hase:"};
inline constexpr Text task{10814, u"&Task:"};
inline constexpr Text duration{10815, u"Du&ration:"};
inline constexpr Text hours{10816, u"hour(s)"};
inline constexpr Text start{10817, u"&Start:"};
inline constexpr Text startTime{10818, u"Start time"};
inline constexpr Text openTimes{10819, u"Start/Break/&End..."};
inline constexpr Text endsAt{10820, u"Ends at %s"};
inline constexpr Text withBreak{10821, u"with a break of %sh"};
inline constexpr Text recordedAs{10822, u"recorded as %sh"};

inline constexpr Text status{10830, u"&Status:"};
inline constexpr Text billTo{10831, u"Bill T&o:"};
inline constexpr Text rate{10832, u"&Rate:"};
inline constexpr Text rateAmount{10833, u"Rate"};
inline constexpr Text fixed{10834, u"&Fixed"};
inline constexpr Text currency{10835, u"&Currency:"};
inline constexpr Text paidDate{10836, u"&Paid Date:"};
inline constexpr Text paidOn{10837, u"Paid date"};
inline constexpr Text total{10838, u"Total:"};

inline constexpr Text custom1{10840, u"Custom 1"};
inline constexpr Text custom2{10841, u"Custom 2"};
inline constexpr Text custom3{10842, u"Custom 3"};

inline constexpr Text timesTitle{10850, u"Start, Break and End"};
inline constexpr Text timesStart{10851, u"&Start time:"};
inline constexpr Text timesBreak{10852, u"&Break time:"};
inline constexpr Text timesEnd{10853, u"&End time:"};
inline constexpr Text now{10854, u"&Now"};
inline constexpr Text setMinute{10855, u"Set the minutes to %s"};
inline constexpr Text timesHours{10856, u"= %sh"};

inline constexpr Text copyTitle{10860, u"Copy Entry"};
inline constexpr Text copyTo{10861, u"Copy entry to:"};
inline constexpr Text copyDate{10862, u"&Date:"};
inline constexpr Text copyRestOfWeek{10863, u"&Rest of the week"};
inline constexpr Text copyUntil{10864, u"&Specific end date:"};
inline constexpr Text copyWeekend{10865, u"Include &weekend"};
inline constexpr Text copyDuration{10866, u"D&uration:"};
inline constexpr Text copiesNone{10867, u"Nothing will be added."};
inline constexpr Text copiesOne{10868, u"Adds one entry on %s."};
inline constexpr Text copiesMany{10869, u"Adds %n entries from %s to %s."};

inline constexpr Text undoAdd{10880, u"Add Entry"};
inline constexpr Text undoEdit{10881, u"Edit Entry"};
inline constexpr Text undoCopy{10882, u"Copy Entry"};
inline constexpr Text undoBilled{10883, u"Mark As Billed"};
inline constexpr Text undoPaid{10884, u"Mark As Paid"};
inline constexpr Text undoDelete{10885, u"Delete"};

} // namespace hourwright::resources::editor
