#pragma once

#include "resources/text.h"

/// Changes of many records at once.
namespace hourwright::resources::bulk {

inline constexpr Text criteriaTitle{10750, u"Criteria"};
inline constexpr Text start{10751, u"&Start:"};
inline constexpr Text end{10752, u"&End:"};
inline constexpr Text unpaid{10753, u"&Unpaid"};
inline constexpr Text billed{10754, u"Bille&d"};
inline constexpr Text paid{10755, u"P&aid"};
inline constexpr Text nonBillable{10756, u"&Non Billable"};

inline constexpr Text paidDateTitle{10760, u"Paid Date"};
inline constexpr Text paidDateText{
    10761, u"Paid date is automatically set when using Mark As Paid on context menu or Mark Paid feature."};
inline constexpr Text paidDate{10762, u"Custom &Paid Date:"};

inline constexpr Text replaceTitle{10770, u"Replace Field Text"};
inline constexpr Text type{10771, u"&Type:"};
inline constexpr Text find{10772, u"&Find:"};
inline constexpr Text replaceWith{10773, u"&Replace With:"};
inline constexpr Text progress{10774, u"Progress"};

inline constexpr Text markPaid{10780, u"Mark Paid"};
inline constexpr Text markBilled{10781, u"Mark Billed"};
inline constexpr Text deleteEntries{10782, u"Delete Entries"};
inline constexpr Text replaceText{10783, u"Replace Text"};
inline constexpr Text removeAll{10784, u"Remove All Data"};

} // namespace hourwright::resources::bulk
