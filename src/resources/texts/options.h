#pragma once

#include "resources/text.h"

/// The options and what is told about the program.
namespace hourwright::resources::options {

inline constexpr Text title{10600, u"Options"};
inline constexpr Text page{10601, u"&Page:"};

inline constexpr Text view{10610, u"View"};
inline constexpr Text mainViewOptions{10611, u"Main View Options"};
inline constexpr Text weekStart{10612, u"&Week start:"};
inline constexpr Text sunday{10613, u"Sunday"};
inline constexpr Text monday{10614, u"Monday"};
inline constexpr Text weekNumber{10615, u"Show week &number (Week view only)"};
inline constexpr Text fontSize{10616, u"&Font size:"};
inline constexpr Text points{10617, u"%d points"};
inline constexpr Text bold{10618, u"&Bold"};
inline constexpr Text itemTap{10619, u"&Item tap option:"};
inline constexpr Text tapOpens{10620, u"Open the item"};
inline constexpr Text tapShowsMenu{10621, u"Show its menu"};
inline constexpr Text softKeys{10622, u"Use &soft key menus"};

inline constexpr Text customFields{10630, u"Custom Fields 1"};
inline constexpr Text customField1{10631, u"Description for custom field &1:"};
inline constexpr Text customField2{10632, u"Description for custom field &2:"};
inline constexpr Text customField3{10633, u"Description for custom field &3:"};
inline constexpr Text expenseFields{10634, u"Custom Fields 2"};
inline constexpr Text expenseFieldsHeading{10635, u"General and Mileage Expenses"};

inline constexpr Text exporting{10640, u"Export"};
inline constexpr Text xmlExport{10641, u"XML Export"};
inline constexpr Text encoding{10642, u"&Encoding:"};
inline constexpr Text encodingUnnamed{10643, u"(Default)"};
inline constexpr Text csvExport{10644, u"CSV Export"};
inline constexpr Text lineBreak{10645, u"&Replace line break with:"};
inline constexpr Text oneBlank{10646, u"1 space"};
inline constexpr Text twoBlanks{10647, u"2 spaces"};
inline constexpr Text hourSymbol{10648, u"&Hour symbol:"};
inline constexpr Text noSymbol{10649, u"None"};
inline constexpr Text symbolShort{10650, u"h"};
inline constexpr Text symbolMedium{10651, u"hrs"};
inline constexpr Text symbolLong{10652, u"hours"};

inline constexpr Text defaults{10660, u"Defaults"};
inline constexpr Text newEntryDefaults{10661, u"New Entry Defaults"};
inline constexpr Text billable{10662, u"&Billable"};
inline constexpr Text currency{10663, u"&Currency:"};
inline constexpr Text granularity{10664, u"Enable &duration granularity of"};
inline constexpr Text minutes{10665, u"minutes"};

inline constexpr Text display{10670, u"Display"};
inline constexpr Text displayElements{10671, u"Display Elements"};
inline constexpr Text entryTime{10672, u"&Entry time:"};
inline constexpr Text timeNone{10673, u"Do not show"};
inline constexpr Text timeStart{10674, u"Start time"};
inline constexpr Text timeStartAndEnd{10675, u"Start and end time"};
inline constexpr Text timeDuration{10676, u"Duration"};
inline constexpr Text clientName{10677, u"Show &client name"};
inline constexpr Text statusIcon{10678, u"Show &status icon"};

inline constexpr Text general{10680, u"General"};
inline constexpr Text specialOptions{10681, u"Special Options"};
inline constexpr Text preciseMinutes{10682, u"Enable precise calculations for minutes 10, 20 , 40, and 50"};
inline constexpr Text durationInterval{10683, u"Duration &interval:"};

inline constexpr Text colour{10690, u"Colour"};
inline constexpr Text nonBillableItem{10691, u"&Non-Billable Item:"};
inline constexpr Text billableItem{10692, u"&Billable Item:"};
inline constexpr Text billedItem{10693, u"Bille&d Item:"};
inline constexpr Text paidItem{10694, u"&Paid Item:"};
inline constexpr Text followStyle{10695, u"Follow style"};
inline constexpr Text ofStyle{10696, u"As the style"};
inline constexpr Text sample{10697, u"Sample item"};

inline constexpr Text timer{10700, u"Timer"};
inline constexpr Text askClose{10701, u"&Prompt before close if timers are running"};
inline constexpr Text vibrate{10702, u"&Vibrate when starting/pausing timer"};
inline constexpr Text breakTime{10703, u"Set &break time:"};

inline constexpr Text aboutTitle{10710, u"About Hourwright"};
inline constexpr Text aboutVersion{10711, u"Version %s"};
inline constexpr Text aboutWhat{10712, u"Time and expenses of a consultant: recorded, priced, billed and paid."};
inline constexpr Text aboutLicence{10713, u"Licence:"};
inline constexpr Text aboutData{10714, u"Data:"};
inline constexpr Text aboutLibraries{10715, u"Libraries:"};
inline constexpr Text aboutSettings{10716, u"Settings:"};
inline constexpr Text aboutCopy{10717, u"&Copy"};

} // namespace hourwright::resources::options
