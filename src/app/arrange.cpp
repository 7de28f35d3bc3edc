#include "app/arrange.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace hourwright::app {

namespace {

using Ranks = std::unordered_map<std::u16string_view, std::size_t>;

// A number for each different text that compares as the text does. Lists repeat their texts, so that few collation
// keys are made and rows are compared by numbers.
Ranks ranksOf(std::span<const ArrangeRow> rows, const platform::Locale& locale) {
    Ranks ranks;
    for (const ArrangeRow& row : rows)
        ranks.try_emplace(row.text, 0);
    std::vector<std::pair<std::string, std::size_t*>> keys;
    keys.reserve(ranks.size());
    for (auto& [text, rank] : ranks)
        keys.emplace_back(locale.collationKey(text), &rank);
    std::ranges::sort(keys);
    for (std::size_t i = 1; i < keys.size(); ++i)
        *keys[i].second = *keys[i - 1].second + (keys[i].first == keys[i - 1].first ? 0 : 1);
    return ranks;
}

template<typename Record, std::size_t count>
void arrangeBy(std::vector<Record>& records, std::uint16_t choice,
               const std::array<ArrangeChoice<Record>, count>& choices, std::u16string Record::*second,
               const platform::Locale& locale) {
    if (choice >= count || choices[choice].by == nullptr)
        return;
    std::vector<ArrangeRow> rows;
    rows.reserve(records.size());
    for (const Record& record : records)
        rows.push_back({record.*choices[choice].by, record.date, record.*second});
    std::vector<Record> arranged;
    arranged.reserve(records.size());
    for (const std::size_t index : arrangedOrder(rows, locale))
        arranged.push_back(std::move(records[index]));
    records = std::move(arranged);
}

} // namespace

std::vector<std::size_t> arrangedOrder(std::span<const ArrangeRow> rows, const platform::Locale& userLocale) {
    const Ranks ranks = ranksOf(rows, userLocale);
    std::vector<std::size_t> rankOfRow;
    rankOfRow.reserve(rows.size());
    for (const ArrangeRow& row : rows)
        rankOfRow.push_back(ranks.at(row.text));
    const auto isBefore = [&](std::size_t a, std::size_t b) {
        if (rankOfRow[a] != rankOfRow[b])
            return rankOfRow[a] < rankOfRow[b];
        if (rows[a].date != rows[b].date)
            return rows[a].date < rows[b].date;
        return std::is_lt(userLocale.compare(rows[a].second, rows[b].second));
    };
    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, isBefore);
    return order;
}

void arrange(std::vector<store::TimeEntry>& entries, std::uint16_t choice, const platform::Locale& userLocale) {
    arrangeBy(entries, choice, entryArrangements, &store::TimeEntry::task, userLocale);
}

void arrange(std::vector<store::ExpenseEntry>& expenses, std::uint16_t choice, const platform::Locale& userLocale) {
    arrangeBy(expenses, choice, expenseArrangements, &store::ExpenseEntry::description, userLocale);
}

} // namespace hourwright::app
