#pragma once

#include "resources/text.h"

/// Labels of the expense editor.
namespace hourwright::resources::expenses {

inline constexpr Text newGeneral{11200, u"New General Expense"};
inline constexpr Text newMileage{11201, u"New Mileage Expense"};
inline constexpr Text editGeneral{11202, u"General Expense"};
inline constexpr Text editMileage{11203, u"Mileage Expense"};

inline constexpr Text date{11210, u"Dat&e:"};
inline constexpr Text client{11211, u"&Client:"};
inline constexpr Text project{11212, u"&Project:"};
inline constexpr Text description{11213, u"&Description:"};
inline constexpr Text category{11214, u"Cate&gory:"};
inline constexpr Text startOdometer{11215, u"&Start Odometer:"};
inline constexpr Text endOdometer{11216, u"End Odo&meter:"};
inline constexpr Text distance{11217, u"D&istance:"};
inline constexpr Text amount{11218, u"&Amount:"};
inline constexpr Text ratePerUnit{11219, u"&Rate per Unit:"};
inline constexpr Text currency{11220, u"C&urrency:"};
inline constexpr Text total{11221, u"Amount:"};
inline constexpr Text status{11222, u"Sta&tus:"};
inline constexpr Text paidOn{11223, u"Paid &On:"};
inline constexpr Text billTo{11224, u"&Bill To:"};
inline constexpr Text receipt{11225, u"T&here is a receipt"};
inline constexpr Text note{11226, u"&Note:"};
inline constexpr Text paidDate{11227, u"Paid date"};

inline constexpr Text undoAdd{11240, u"Add Expense"};
inline constexpr Text undoChange{11241, u"Change Expense"};

} // namespace hourwright::resources::expenses
