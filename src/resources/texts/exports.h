#pragma once

#include "resources/text.h"

/// Exports and summaries in the window.
namespace hourwright::resources::exports {

inline constexpr Text csvFilter{11700, u"CSV Files (*.csv)|*.csv|"};
inline constexpr Text xmlFilter{11701, u"XML Files (*.xml)|*.xml|"};
inline constexpr Text otherFilter{11702, u"CSV Files (*.csv)|*.csv|JSON Files (*.json)|*.json|"
                                         u"Calendar Files (*.ics)|*.ics|"};
inline constexpr Text csvTitle{11703, u"Export CSV"};
inline constexpr Text xmlTitle{11704, u"Export XML"};
inline constexpr Text otherTitle{11705, u"Export for Other Programs"};
inline constexpr Text running{11706, u"Exporting..."};
inline constexpr Text cancel{11707, u"Cancel"};

inline constexpr Text doneTitle{11710, u"Export"};
inline constexpr Text doneOne{11711, u"1 record was exported to"};
inline constexpr Text doneMany{11712, u"%s records were exported to"};
inline constexpr Text openFile{11713, u"&Open"};
inline constexpr Text openFolder{11714, u"Open &Folder"};
inline constexpr Text notOpened{11715, u"No program was found that opens this."};

inline constexpr Text expenseType{11720, u"Which expenses:"};
inline constexpr Text general{11721, u"&General expenses"};
inline constexpr Text mileage{11722, u"&Mileage expenses"};

inline constexpr Text form{11730, u"&Form:"};
inline constexpr Text spreadsheet{11731, u"CSV for spreadsheets"};
inline constexpr Text json{11732, u"JSON"};
inline constexpr Text calendar{11733, u"iCalendar"};
inline constexpr Text delimiter{11734, u"&Delimiter:"};
inline constexpr Text comma{11735, u"Comma"};
inline constexpr Text semicolon{11736, u"Semicolon"};
inline constexpr Text tab{11737, u"Tab"};
inline constexpr Text decimalMark{11738, u"Decimal &mark:"};
inline constexpr Text point{11739, u"Point"};
inline constexpr Text byteOrderMark{11740, u"Begin with a &byte order mark"};
inline constexpr Text formulas{11741, u"Texts that a spreadsheet would run as formulas get an apostrophe in front."};

inline constexpr Text quickSummary{11750, u"Quick Summary"};
inline constexpr Text breakdown{11751, u"Breakdown"};
inline constexpr Text summary{11752, u"Summary"};
inline constexpr Text chooseClient{11753, u"&Client:"};
inline constexpr Text chooseProject{11754, u"&Project:"};
inline constexpr Text chooseTask{11755, u"&Task:"};
inline constexpr Text any{11756, u"[Any]"};
inline constexpr Text name{11757, u"Name"};
inline constexpr Text hours{11758, u"Hours"};
inline constexpr Text hoursPart{11759, u"Of Hours"};
inline constexpr Text amount{11760, u"Amount"};
inline constexpr Text amountPart{11761, u"Of Amount"};
inline constexpr Text noName{11762, u"(None)"};
inline constexpr Text total{11763, u"Total"};
inline constexpr Text copy{11764, u"C&opy"};
inline constexpr Text day{11765, u"Day"};
inline constexpr Text week{11766, u"Week"};
inline constexpr Text month{11767, u"Month"};
inline constexpr Text custom{11768, u"Custom Period"};
inline constexpr Text byAmount{11769, u"Bars show &amounts"};

} // namespace hourwright::resources::exports
