#include "app/expense_filter.h"

#include "app/stored_filter.h"

namespace hourwright::app {

namespace {

using store::ExpenseEntry;

constexpr std::optional<SavePlace> never;

constexpr std::array<FilterText<ExpenseFilter, ExpenseEntry>, 7> texts{{
    {u"fExpClient", &ExpenseFilter::client, &ExpenseEntry::client, 0, 0},
    {u"fExpProject", &ExpenseFilter::project, &ExpenseEntry::project, 1, 1},
    {u"fExpCategory", &ExpenseFilter::category, &ExpenseEntry::category, 2, 2},
    {u"fExpCurrency", &ExpenseFilter::currency, &ExpenseEntry::currency, 5, 3},
    {u"fExpBillTo", &ExpenseFilter::billTo, &ExpenseEntry::billTo, 6, 4},
    {u"fExpCustom1", &ExpenseFilter::custom1, &ExpenseEntry::custom1, 3, never},
    {u"fExpCustom2", &ExpenseFilter::custom2, &ExpenseEntry::custom2, 4, never},
}};

// The type is a 16-bit number that is stored with its sign.
std::uint32_t storedType(const ExpenseFilter& filter) {
    return static_cast<std::uint32_t>(std::int32_t{filter.type});
}

void setStoredType(ExpenseFilter& filter, std::uint32_t stored) {
    filter.type = static_cast<std::int16_t>(static_cast<std::uint16_t>(stored));
}

constexpr std::array<FilterNumber<ExpenseFilter>, 3> numbers{{
    {u"fExpFlags", 7, [](const ExpenseFilter& f) { return f.statusFlags(); },
     [](ExpenseFilter& f, std::uint32_t flags) { f.setStatusFlags(flags); }},
    {u"fExpType", 9, storedType, setStoredType},
    {u"fExpReceipt", 8, [](const ExpenseFilter& f) { return f.receipt; },
     [](ExpenseFilter& f, std::uint32_t receipt) { f.receipt = receipt; }},
}};
static_assert(hasEveryPlaceOnce(texts, numbers));

} // namespace

ExpenseFilter ExpenseFilter::load(platform::Registry& registry) {
    return loadFilter<ExpenseFilter>(registry, texts, numbers);
}

bool ExpenseFilter::save(platform::Registry& registry) const {
    return saveFilter(registry, *this, texts, numbers);
}

std::vector<StoredFilterValue> ExpenseFilter::storedValues() const {
    return storedFilterValues(*this, texts, numbers);
}

bool ExpenseFilter::matches(const ExpenseEntry& expense, const platform::Locale& userLocale) const {
    return ExpenseMatcher(*this, userLocale).matches(expense);
}

ExpenseMatcher::ExpenseMatcher(const ExpenseFilter& filter, const platform::Locale& userLocale)
    : common_(filter), range_(filterRange(filter)), type_(filter.type), receipt_(filter.receipt),
      texts_(filter, texts, userLocale) {}

bool ExpenseMatcher::matches(const ExpenseEntry& expense) const {
    return range_.contains(expense.date) && texts_.hold(expense) && common_.shows(expense.status) &&
           typeMatches(expense) && receiptMatches(expense);
}

bool ExpenseMatcher::typeMatches(const ExpenseEntry& expense) const {
    return type_ == ExpenseFilter::anyType ||
           static_cast<std::uint16_t>(type_) == static_cast<std::uint16_t>(expense.type);
}

bool ExpenseMatcher::receiptMatches(const ExpenseEntry& expense) const {
    switch (receipt_) {
    case ExpenseFilter::withReceipt: return expense.receipt;
    case ExpenseFilter::withoutReceipt: return !expense.receipt;
    default: return true;
    }
}

} // namespace hourwright::app
