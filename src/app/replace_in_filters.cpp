#include "app/replace_in_filters.h"

#include "app/entry_filter.h"
#include "app/expense_filter.h"

#include <array>

namespace hourwright::app {

namespace {

using billing::ReplaceRequest;

// The fields of the filters that are stored, in the order of billing::ReplaceType.
constexpr std::array<std::u16string EntryFilter::*, 10> entryTexts = {&EntryFilter::client,
                                                                      &EntryFilter::project,
                                                                      &EntryFilter::phase,
                                                                      &EntryFilter::task,
                                                                      &EntryFilter::billTo,
                                                                      &EntryFilter::currency,
                                                                      nullptr,
                                                                      nullptr,
                                                                      nullptr,
                                                                      nullptr};
constexpr std::array<std::u16string ExpenseFilter::*, 10> expenseTexts = {&ExpenseFilter::client,
                                                                          &ExpenseFilter::project,
                                                                          nullptr,
                                                                          nullptr,
                                                                          &ExpenseFilter::billTo,
                                                                          &ExpenseFilter::currency,
                                                                          nullptr,
                                                                          nullptr,
                                                                          nullptr,
                                                                          &ExpenseFilter::category};

template<typename Filter>
bool replaceIn(platform::Registry& registry, std::u16string Filter::*text, const ReplaceRequest& request) {
    if (text == nullptr)
        return true;
    Filter filter = Filter::load(registry);
    if (filter.*text != request.find)
        return true;
    filter.*text = request.replacement;
    return filter.save(registry);
}

} // namespace

bool replaceInFilters(platform::Registry& registry, const ReplaceRequest& request) {
    const auto type = static_cast<std::size_t>(request.type);
    const bool entrySaved = replaceIn(registry, entryTexts[type], request);
    return replaceIn(registry, expenseTexts[type], request) && entrySaved;
}

} // namespace hourwright::app
