#pragma once

#include "resources/text.h"

/// The filter dialogs, the words that tell what a filter hides, and the dialogs of periods and of the default view.
namespace hourwright::resources::filters {

inline constexpr Text entryTitle{10500, u"Custom Filter"};
inline constexpr Text expenseTitle{10501, u"Custom Expense Filter"};
inline constexpr Text any{10502, u"[Any]"};

inline constexpr Text client{10510, u"&Client:"};
inline constexpr Text project{10511, u"&Project:"};
inline constexpr Text phase{10512, u"P&hase:"};
inline constexpr Text task{10513, u"&Task:"};
inline constexpr Text billTo{10514, u"&Bill To:"};
inline constexpr Text currency{10515, u"C&urrency:"};
inline constexpr Text category{10516, u"C&ategory:"};
inline constexpr Text rateType{10517, u"&Rate Type:"};
inline constexpr Text expenseType{10518, u"T&ype:"};
inline constexpr Text receipt{10519, u"&Receipt:"};
inline constexpr Text captionWithColon{10520, u"%s:"};
inline constexpr Text status{10521, u"Status"};
inline constexpr Text withReceipt{10522, u"With receipt"};
inline constexpr Text withoutReceipt{10523, u"Without receipt"};
inline constexpr Text inRange{10524, u"Only these &dates"};
inline constexpr Text from{10525, u"&From:"};
inline constexpr Text to{10526, u"T&o:"};
inline constexpr Text notKept{10527, u"Custom fields and dates are filtered until the program ends."};
inline constexpr Text showAll{10528, u"Sho&w All"};

inline constexpr Text wordClient{10540, u"Client"};
inline constexpr Text wordProject{10541, u"Project"};
inline constexpr Text wordPhase{10542, u"Phase"};
inline constexpr Text wordTask{10543, u"Task"};
inline constexpr Text wordBillTo{10544, u"Bill to"};
inline constexpr Text wordCurrency{10545, u"Currency"};
inline constexpr Text wordCategory{10546, u"Category"};
inline constexpr Text wordRateType{10547, u"Rate type"};
inline constexpr Text wordExpenseType{10548, u"Type"};
inline constexpr Text unpaidOnly{10549, u"Unpaid only"};
inline constexpr Text noStatus{10550, u"No status"};
inline constexpr Text statusOnly{10551, u"%s only"};

inline constexpr Text periodTitle{10560, u"Custom Period"};
inline constexpr Text firstDay{10561, u"&First day:"};
inline constexpr Text lastDay{10562, u"&Last day:"};

inline constexpr Text defaultViewTitle{10570, u"Customize Default View"};
inline constexpr Text defaultViewHint{10571, u"What the program shows when it starts."};
inline constexpr Text timeEntries{10572, u"Time Entries"};
inline constexpr Text expenses{10573, u"Expenses"};
inline constexpr Text show{10574, u"Peri&od:"};
inline constexpr Text layout{10575, u"&Layout:"};
inline constexpr Text day{10576, u"Day"};
inline constexpr Text week{10577, u"Week"};
inline constexpr Text month{10578, u"Month"};
inline constexpr Text customPeriod{10579, u"Custom period"};
inline constexpr Text calendar{10580, u"Calendar"};
inline constexpr Text defaultList{10581, u"Default list"};
inline constexpr Text simpleList{10582, u"Simple list"};
inline constexpr Text treeList{10583, u"Tree list"};
inline constexpr Text filter{10584, u"Filter"};

} // namespace hourwright::resources::filters
