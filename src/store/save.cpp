#include "store/save.h"

#include "store/client_structure.h"
#include "store/pick_lists.h"

namespace hourwright::store {

bool saveTimeEntry(platform::Transaction& transaction, Stores& stores, TimeEntry& entry) {
    const bool written = entry.id == RecordId::none ? insertTimeEntry(transaction, stores.entries(), entry)
                                                    : updateTimeEntry(transaction, stores.entries(), entry);
    return written && learnStructure(transaction, stores, entry) && learnPickLists(transaction, stores, entry);
}

bool saveExpenseEntry(platform::Transaction& transaction, Stores& stores, ExpenseEntry& expense) {
    const bool written = expense.id == RecordId::none ? insertExpenseEntry(transaction, stores.expenses(), expense)
                                                      : updateExpenseEntry(transaction, stores.expenses(), expense);
    return written && learnPickLists(transaction, stores, expense);
}

} // namespace hourwright::store
