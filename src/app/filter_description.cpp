#include "app/filter_description.h"

#include "resources/filled.h"
#include "resources/strings.h"
#include "resources/texts/filters.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace hourwright::app {

namespace {

namespace words = resources::filters;
using resources::StringId;
using store::EntryStatus;

constexpr std::array statusNames{StringId::statusNonBillable, StringId::statusBillable, StringId::statusBilled,
                                 StringId::statusPaid};
constexpr std::array rateTypeNames{StringId::rateTypeNormal, StringId::rateTypeOvertime, StringId::rateTypeWeekend,
                                   StringId::rateTypeFixed, StringId::rateTypeDiscount};
constexpr std::array expenseTypeNames{StringId::expenseGeneral, StringId::expenseMileage};

// Conditions one after the other, with commas between.
class Line {
public:
    void add(std::u16string_view part) {
        if (!text_.empty() && !part.empty())
            text_ += u", ";
        text_ += part;
    }
    // "Client Acme"; nothing for an empty value.
    void add(std::u16string_view word, std::u16string_view value) {
        if (value.empty())
            return;
        std::u16string part(word);
        if (!part.empty())
            part += u' ';
        add(part += value);
    }
    [[nodiscard]] const std::u16string& text() const { return text_; }

private:
    std::u16string text_;
};

// A number that has no name is shown as it is: it still hides records.
template<std::size_t count>
std::u16string nameOf(const std::array<StringId, count>& names, const resources::Text& word, std::uint32_t number) {
    if (number < count)
        return std::u16string(resources::string(names[number]));
    const std::string digits = std::to_string(number);
    std::u16string text(word.text);
    return (text += u' ').append(digits.begin(), digits.end());
}

std::u16string statusWords(const ViewFilter& filter) {
    ViewFilter unpaid = filter;
    unpaid.showUnpaidOnly();
    if (filter == unpaid)
        return std::u16string(words::unpaidOnly.text);
    std::vector<EntryStatus> shown;
    for (std::uint16_t status = 0; status < statusNames.size(); ++status)
        if (filter.shows(EntryStatus{status}))
            shown.push_back(EntryStatus{status});
    if (shown.size() == statusNames.size())
        return {};
    if (shown.empty())
        return std::u16string(words::noStatus.text);
    std::u16string names;
    for (const EntryStatus status : shown)
        (names += names.empty() ? u"" : u" + ") += statusName(status);
    return resources::filled(words::statusOnly.text, {names});
}

std::u16string rangeWords(const ViewFilter& filter, const platform::Locale& locale) {
    if (!filter.hasRange())
        return {};
    const std::u16string first = locale.shortDate(filter.rangeStart);
    const std::u16string last = locale.shortDate(filter.rangeEnd);
    return first == last ? first : first + u" – " + last;
}

// What only one kind of records has.
void addOwn(Line& line, const EntryFilter& filter) {
    if (filter.rateType != EntryFilter::anyRateType)
        line.add(nameOf(rateTypeNames, words::wordRateType, filter.rateType));
}

void addOwn(Line& line, const ExpenseFilter& filter) {
    if (filter.type != ExpenseFilter::anyType)
        line.add(nameOf(expenseTypeNames, words::wordExpenseType, static_cast<std::uint16_t>(filter.type)));
    if (filter.receipt <= ExpenseFilter::withReceipt)
        line.add(filter.receipt == ExpenseFilter::withReceipt ? words::withReceipt.text : words::withoutReceipt.text);
}

template<typename Filter>
struct TextCondition {
    std::u16string_view word;
    std::u16string Filter::*value;
};

template<typename Filter>
std::u16string describe(const Filter& filter, const platform::Locale& locale,
                        std::initializer_list<TextCondition<Filter>> texts) {
    Line line;
    for (const auto& [word, value] : texts)
        line.add(word, filter.*value);
    addOwn(line, filter);
    line.add(statusWords(filter));
    line.add(rangeWords(filter, locale));
    return line.text();
}

} // namespace

std::u16string_view statusName(EntryStatus status) {
    const auto number = static_cast<std::size_t>(status);
    return number < statusNames.size() ? resources::string(statusNames[number]) : std::u16string_view{};
}

std::u16string describeFilter(const EntryFilter& filter, const std::array<std::u16string, 3>& captions,
                              const platform::Locale& locale) {
    return describe(filter, locale,
                    {{words::wordClient.text, &EntryFilter::client},
                     {words::wordProject.text, &EntryFilter::project},
                     {words::wordPhase.text, &EntryFilter::phase},
                     {words::wordTask.text, &EntryFilter::task},
                     {words::wordBillTo.text, &EntryFilter::billTo},
                     {words::wordCurrency.text, &EntryFilter::currency},
                     {captions[0], &EntryFilter::custom1},
                     {captions[1], &EntryFilter::custom2},
                     {captions[2], &EntryFilter::custom3}});
}

std::u16string describeFilter(const ExpenseFilter& filter, const std::array<std::u16string, 2>& captions,
                              const platform::Locale& locale) {
    return describe(filter, locale,
                    {{words::wordClient.text, &ExpenseFilter::client},
                     {words::wordProject.text, &ExpenseFilter::project},
                     {words::wordCategory.text, &ExpenseFilter::category},
                     {words::wordCurrency.text, &ExpenseFilter::currency},
                     {words::wordBillTo.text, &ExpenseFilter::billTo},
                     {captions[0], &ExpenseFilter::custom1},
                     {captions[1], &ExpenseFilter::custom2}});
}

} // namespace hourwright::app
