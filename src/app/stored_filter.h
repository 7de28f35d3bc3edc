#pragma once

#include "app/stored_filter_value.h"
#include "platform/registry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// How the view filters are kept in the registry: tables of their values, and loading and saving by them.
namespace hourwright::app {

/// Where a value stands in one of the orders of saving, from 0; the order is part of the stored form.
using SavePlace = std::uint8_t;

/// A text of a filter: the registry value it is kept in, the record's text that it is compared with, when saving
/// removes its value and when it writes it (nothing: its value is never written). Rows stand in the order in which
/// texts are compared and loaded.
template<typename Filter, typename Record>
struct FilterText {
    std::u16string_view value;
    std::u16string Filter::*wanted;
    std::u16string Record::*text;
    SavePlace removed;
    std::optional<SavePlace> written;
};

/// A number of a filter, written in the order of the rows behind all texts.
template<typename Filter>
struct FilterNumber {
    std::u16string_view value;
    SavePlace removed;
    std::uint32_t (*get)(const Filter&);
    void (*set)(Filter&, std::uint32_t);
};

/// Longer texts than this are no texts of a filter.
inline constexpr std::size_t maxFilterText = 0x7FFF'FFFF;

/// The values of a filter in the order of writing, empty texts included.
template<typename Filter, typename Texts, typename Numbers>
std::vector<StoredFilterValue> storedFilterValues(const Filter& filter, const Texts& texts, const Numbers& numbers) {
    std::vector<StoredFilterValue> values;
    for (std::size_t place = 0; place < texts.size(); ++place)
        for (const auto& text : texts)
            if (text.written == place)
                values.push_back({text.value, filter.*text.wanted});
    for (const auto& number : numbers)
        values.push_back({number.value, number.get(filter)});
    return values;
}

/// Loads what is stored into a new filter; what is missing or of another type keeps its default.
template<typename Filter, typename Texts, typename Numbers>
Filter loadFilter(platform::Registry& registry, const Texts& texts, const Numbers& numbers) {
    Filter filter;
    const auto key = registry.create(platform::settingsKey);
    if (key == nullptr)
        return filter;
    for (const auto& number : numbers)
        if (const auto stored = key->readDword(number.value))
            number.set(filter, *stored);
    for (const auto& text : texts)
        if (text.written)
            if (auto stored = key->readString(text.value, maxFilterText))
                filter.*text.wanted = std::move(*stored);
    return filter;
}

/// The registry values in the order in which saving removes them.
template<typename Texts, typename Numbers>
constexpr auto removalOrder(const Texts& texts, const Numbers& numbers) {
    std::array<std::u16string_view, std::tuple_size_v<Texts> + std::tuple_size_v<Numbers>> names{};
    for (const auto& text : texts)
        names[text.removed] = text.value;
    for (const auto& number : numbers)
        names[number.removed] = number.value;
    return names;
}

/// True when the rows name every place of removing and of writing exactly once.
template<typename Texts, typename Numbers>
constexpr bool hasEveryPlaceOnce(const Texts& texts, const Numbers& numbers) {
    for (const std::u16string_view name : removalOrder(texts, numbers))
        if (name.empty())
            return false;
    std::size_t written = 0;
    std::size_t places = 0;
    for (const auto& text : texts)
        if (text.written) {
            ++written;
            places |= std::size_t{1} << *text.written;
        }
    return places == (std::size_t{1} << written) - 1;
}

/// Removes every value of the filter, then writes its texts that are not empty and its numbers; all of it is stored or
/// nothing. False when it was not stored.
template<typename Filter, typename Texts, typename Numbers>
bool saveFilter(platform::Registry& registry, const Filter& filter, const Texts& texts, const Numbers& numbers) {
    const auto key = registry.create(platform::settingsKey);
    const auto batch = key == nullptr ? nullptr : key->batch();
    if (batch == nullptr)
        return false;
    bool saved = true;
    for (const std::u16string_view name : removalOrder(texts, numbers))
        saved = key->remove(name) && saved;
    for (const StoredFilterValue& stored : storedFilterValues(filter, texts, numbers)) {
        if (const auto* number = std::get_if<std::uint32_t>(&stored.value))
            saved = key->writeDword(stored.name, *number) && saved;
        else if (const auto& text = std::get<std::u16string>(stored.value); !text.empty())
            saved = key->writeString(stored.name, text) && saved;
    }
    return batch->commit() && saved;
}

} // namespace hourwright::app
