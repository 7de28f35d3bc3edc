#pragma once

#include "resources/text.h"

/// What is being edited, in words.
namespace hourwright::resources::drafts {

inline constexpr Text newEntry{12000, u"New time entry"};
inline constexpr Text entry{12001, u"Time entry"};
inline constexpr Text newExpense{12002, u"New expense"};
inline constexpr Text expense{12003, u"Expense"};
inline constexpr Text newMileage{12004, u"New mileage expense"};
inline constexpr Text mileage{12005, u"Mileage expense"};

} // namespace hourwright::resources::drafts
