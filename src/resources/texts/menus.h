#pragma once

#include "resources/text.h"

/// Menus of the main window.
namespace hourwright::resources::menus {

inline constexpr Text entry{10000, u"&Entry"};
inline constexpr Text edit{10001, u"E&dit"};
inline constexpr Text view{10002, u"&View"};
inline constexpr Text filter{10003, u"&Filter"};
inline constexpr Text arrangeBy{10004, u"&Arrange By"};
inline constexpr Text tools{10005, u"&Tools"};
inline constexpr Text exportTo{10006, u"E&xport"};
inline constexpr Text data{10007, u"&Data"};
inline constexpr Text help{10008, u"&Help"};
inline constexpr Text softNew{10009, u"New"};
inline constexpr Text softMenu{10010, u"Menu"};

inline constexpr Text newEntry{10020, u"&New Entry..."};
inline constexpr Text newGeneralExpense{10021, u"New &General Expense..."};
inline constexpr Text newMileageExpense{10022, u"New &Mileage Expense..."};
inline constexpr Text editEntry{10023, u"&Edit..."};
inline constexpr Text createCopy{10024, u"&Create Copy..."};
inline constexpr Text copyTo{10025, u"Copy Entry &To..."};
inline constexpr Text createNewTimer{10026, u"Create Ne&w Timer..."};
inline constexpr Text markBilled{10027, u"Mark As &Billed"};
inline constexpr Text markPaid{10028, u"Mark As &Paid"};
inline constexpr Text deleteSelected{10029, u"&Delete"};
inline constexpr Text selectionSummary{10030, u"&Summary..."};
inline constexpr Text quit{10031, u"&Quit"};

inline constexpr Text undo{10040, u"&Undo"};
inline constexpr Text redo{10041, u"&Redo"};
inline constexpr Text history{10042, u"&History..."};
inline constexpr Text copyText{10043, u"Cop&y as Text"};
inline constexpr Text selectAll{10044, u"Select &All"};
inline constexpr Text find{10045, u"&Find..."};

inline constexpr Text viewDay{10050, u"&Day"};
inline constexpr Text viewWeek{10051, u"&Week"};
inline constexpr Text viewMonth{10052, u"&Month"};
inline constexpr Text viewCustom{10053, u"Custom &Period..."};
inline constexpr Text calendarStyle{10054, u"&Calendar"};
inline constexpr Text defaultListStyle{10055, u"De&fault List Style"};
inline constexpr Text simpleListStyle{10056, u"&Simple List Style"};
inline constexpr Text treeListStyle{10057, u"&Tree List Style"};
inline constexpr Text customize{10058, u"C&ustomize..."};
inline constexpr Text customizeDefaultView{10059, u"Customize Default &View..."};
inline constexpr Text showExpenses{10060, u"Show &Expenses"};
inline constexpr Text showEntries{10061, u"Show Time &Entries"};
inline constexpr Text previousPeriod{10062, u"P&revious Period"};
inline constexpr Text nextPeriod{10063, u"&Next Period"};
inline constexpr Text gotoToday{10064, u"G&oto Today"};
inline constexpr Text gotoDate{10065, u"&Goto Date..."};

inline constexpr Text filterAll{10080, u"Show &All"};
inline constexpr Text filterUnpaid{10081, u"Show &Unpaid Only"};
inline constexpr Text filterCustom{10082, u"&Custom..."};

inline constexpr Text arrangeDefault{10090, u"(&Default Order)"};
inline constexpr Text arrangeClient{10091, u"&Client"};
inline constexpr Text arrangeProject{10092, u"&Project"};
inline constexpr Text arrangePhase{10093, u"P&hase"};
inline constexpr Text arrangeTask{10094, u"&Task"};
inline constexpr Text arrangeBillTo{10095, u"&Bill To"};
inline constexpr Text arrangeCategory{10096, u"C&ategory"};
inline constexpr Text arrangeDescription{10097, u"D&escription"};

inline constexpr Text quickSummary{10101, u"&Quick Summary..."};
inline constexpr Text breakdown{10102, u"&Breakdown..."};
inline constexpr Text clientSummary{10103, u"C&lient Summary..."};
inline constexpr Text exportCsv{10104, u"&CSV..."};
inline constexpr Text exportXml{10105, u"&XML..."};
inline constexpr Text exportMore{10106, u"&For Other Programs..."};
inline constexpr Text markBilledEntries{10107, u"Mark &Billed Entries..."};
inline constexpr Text markPaidEntries{10108, u"Mark &Paid Entries..."};
inline constexpr Text markViewPaid{10109, u"Mark &View Paid..."};
inline constexpr Text deleteByCriteria{10110, u"&Delete Entries..."};
inline constexpr Text editDropLists{10111, u"&Edit Drop Lists..."};
inline constexpr Text replaceFieldText{10112, u"&Replace Field Text..."};
inline constexpr Text removeAllData{10113, u"Remove &All Data"};
inline constexpr Text copies{10118, u"&Copies of the Records..."};
inline constexpr Text setupClients{10114, u"Setup &Clients..."};
inline constexpr Text setupRates{10115, u"Setup &Rates..."};
inline constexpr Text options{10116, u"&Options..."};

inline constexpr Text helpContents{10130, u"&Contents"};
inline constexpr Text about{10131, u"&About..."};

} // namespace hourwright::resources::menus
