#pragma once

#include "store/expense_entry.h"
#include "store/stores.h"
#include "store/time_entry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::store {

/// The learned lists, with the numbers under which their items are stored.
enum class PickList : std::uint16_t {
    phases = 3,
    currencies = 5,
    custom1 = 7,
    custom2 = 8,
    custom3 = 9,
    categories = 11,
    descriptions = 12,
};

/// The texts of a list in the order in which they were learned.
[[nodiscard]] std::vector<std::u16string> pickListTexts(Stores& stores, PickList list);

/// Adds a text to its list unless it is empty or already there. False when it had to be written and was not.
[[nodiscard]] bool addToPickList(platform::Transaction& transaction, Stores& stores, PickList list,
                                 std::u16string_view text);

/// Takes a text out of its list; finding none is a success. Records that have the text keep it.
[[nodiscard]] bool removeFromPickList(platform::Transaction& transaction, Stores& stores, PickList list,
                                      std::u16string_view text);

/// Adds a saved entry's or expense's texts to their lists.
[[nodiscard]] bool learnPickLists(platform::Transaction& transaction, Stores& stores, const TimeEntry& entry);
[[nodiscard]] bool learnPickLists(platform::Transaction& transaction, Stores& stores, const ExpenseEntry& expense);

} // namespace hourwright::store
