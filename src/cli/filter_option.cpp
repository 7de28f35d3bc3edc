#include "cli/filter_option.h"

#include "platform/utf.h"

#include <array>

namespace hourwright::cli {

namespace {

using app::EntryFilter;
using app::ExpenseFilter;

template<typename Filter>
struct TextOption {
    const OptionSpec* option;
    std::u16string Filter::*text;
};

constexpr std::array entryTexts{
    TextOption<EntryFilter>{&option::client, &EntryFilter::client},
    TextOption<EntryFilter>{&option::project, &EntryFilter::project},
    TextOption<EntryFilter>{&option::phase, &EntryFilter::phase},
    TextOption<EntryFilter>{&option::task, &EntryFilter::task},
    TextOption<EntryFilter>{&option::billTo, &EntryFilter::billTo},
    TextOption<EntryFilter>{&option::currency, &EntryFilter::currency},
    TextOption<EntryFilter>{&option::custom1, &EntryFilter::custom1},
    TextOption<EntryFilter>{&option::custom2, &EntryFilter::custom2},
    TextOption<EntryFilter>{&option::custom3, &EntryFilter::custom3},
};

constexpr std::array expenseTexts{
    TextOption<ExpenseFilter>{&option::client, &ExpenseFilter::client},
    TextOption<ExpenseFilter>{&option::project, &ExpenseFilter::project},
    TextOption<ExpenseFilter>{&option::category, &ExpenseFilter::category},
    TextOption<ExpenseFilter>{&option::currency, &ExpenseFilter::currency},
    TextOption<ExpenseFilter>{&option::billTo, &ExpenseFilter::billTo},
    TextOption<ExpenseFilter>{&option::custom1, &ExpenseFilter::custom1},
    TextOption<ExpenseFilter>{&option::custom2, &ExpenseFilter::custom2},
};

constexpr std::array entryAlone{&option::phase, &option::task, &option::custom3, &option::rateType};
constexpr std::array expenseAlone{&option::category, &option::expenseKind, &option::receipt};

// Without a first day the range begins with the calendar; without a last one it has no end.
constexpr platform::SystemTime firstDay{.year = 1601, .month = 1, .dayOfWeek = 1, .day = 1};

bool readRange(Session& session, const Arguments& arguments, app::ViewFilter& filter) {
    const auto from = arguments.value(option::from);
    const auto to = arguments.value(option::to);
    if (!from && !to)
        return true;
    const auto start = from ? session.day(*from) : firstDay;
    const auto end = !start ? std::nullopt : to ? session.day(*to) : platform::SystemTime{};
    if (!start || !end)
        return false;
    filter.rangeStart = *start;
    filter.rangeEnd = *end;
    return true;
}

// What both kinds of filter have.
template<typename Filter, typename Texts>
bool readCommon(Session& session, const Arguments& arguments, const Texts& texts, Filter& filter) {
    for (const auto& text : texts)
        if (const auto value = arguments.value(*text.option))
            filter.*text.text = platform::toUtf16(*value);
    for (const std::string_view status : arguments.values(option::hide))
        filter.show(store::EntryStatus{choiceOf(status, option::statusChoices)}, false);
    return readRange(session, arguments, filter);
}

// The number of a choice, or the number for any when the value is empty.
template<typename Number>
void readChoice(const Arguments& arguments, const OptionSpec& option, Number any, Number& out) {
    if (const auto value = arguments.value(option))
        out = value->empty() ? any : static_cast<Number>(choiceOf(*value, option.choices));
}

} // namespace

// The settings tell a first run by their key, which loading a filter creates; so they are loaded before.
EntryFilter savedEntryFilter(Session& session) {
    static_cast<void>(session.settings());
    return EntryFilter::load(session.registry());
}

ExpenseFilter savedExpenseFilter(Session& session) {
    static_cast<void>(session.settings());
    return ExpenseFilter::load(session.registry());
}

std::optional<EntryFilter> entryFilterOption(Session& session, const Arguments& arguments) {
    EntryFilter filter = arguments.has(option::savedFilter) ? savedEntryFilter(session) : EntryFilter{};
    readChoice(arguments, option::rateType, EntryFilter::anyRateType, filter.rateType);
    if (!readCommon(session, arguments, entryTexts, filter))
        return std::nullopt;
    return filter;
}

std::optional<ExpenseFilter> expenseFilterOption(Session& session, const Arguments& arguments) {
    ExpenseFilter filter = arguments.has(option::savedFilter) ? savedExpenseFilter(session) : ExpenseFilter{};
    readChoice(arguments, option::expenseKind, ExpenseFilter::anyType, filter.type);
    if (const auto receipt = arguments.value(option::receipt))
        filter.receipt = *receipt == "yes" ? ExpenseFilter::withReceipt : ExpenseFilter::withoutReceipt;
    if (!readCommon(session, arguments, expenseTexts, filter))
        return std::nullopt;
    return filter;
}

const OptionSpec* foreignFilterOption(const Arguments& arguments, bool expenses) {
    const std::span<const OptionSpec* const> foreign =
        expenses ? std::span<const OptionSpec* const>(entryAlone) : std::span<const OptionSpec* const>(expenseAlone);
    for (const OptionSpec* option : foreign)
        if (arguments.has(*option))
            return option;
    return nullptr;
}

} // namespace hourwright::cli
