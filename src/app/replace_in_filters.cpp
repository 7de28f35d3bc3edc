#include "app/replace_in_filters.h"

#include <array>

namespace hourwright::app {

namespace {

using billing::ReplaceRequest;

// The fields of the filters in the order of billing::ReplaceType. Stored filters have empty custom fields.
constexpr std::array<std::u16string EntryFilter::*, 10> entryTexts = {
    &EntryFilter::client,   &EntryFilter::project, &EntryFilter::phase,   &EntryFilter::task,    &EntryFilter::billTo,
    &EntryFilter::currency, &EntryFilter::custom1, &EntryFilter::custom2, &EntryFilter::custom3, nullptr};
constexpr std::array<std::u16string ExpenseFilter::*, 10> expenseTexts = {&ExpenseFilter::client,
                                                                          &ExpenseFilter::project,
                                                                          nullptr,
                                                                          nullptr,
                                                                          &ExpenseFilter::billTo,
                                                                          &ExpenseFilter::currency,
                                                                          &ExpenseFilter::custom1,
                                                                          &ExpenseFilter::custom2,
                                                                          nullptr,
                                                                          &ExpenseFilter::category};

// True when the filter named the text.
template<typename Filter>
bool replaceIn(Filter& filter, std::u16string Filter::*text, const ReplaceRequest& request) {
    if (text == nullptr || filter.*text != request.find)
        return false;
    filter.*text = request.replacement;
    return true;
}

template<typename Filter>
bool replaceInStored(platform::Registry& registry, std::u16string Filter::*text, const ReplaceRequest& request) {
    Filter filter = Filter::load(registry);
    return !replaceIn(filter, text, request) || filter.save(registry);
}

std::size_t indexOf(const ReplaceRequest& request) {
    return static_cast<std::size_t>(request.type);
}

} // namespace

bool replaceInFilters(platform::Registry& registry, const ReplaceRequest& request) {
    const bool entrySaved = replaceInStored(registry, entryTexts[indexOf(request)], request);
    return replaceInStored(registry, expenseTexts[indexOf(request)], request) && entrySaved;
}

void replaceInFilter(EntryFilter& filter, const ReplaceRequest& request) {
    replaceIn(filter, entryTexts[indexOf(request)], request);
}

void replaceInFilter(ExpenseFilter& filter, const ReplaceRequest& request) {
    replaceIn(filter, expenseTexts[indexOf(request)], request);
}

} // namespace hourwright::app
