#include "app/copy_list.h"

#include "platform/number_text.h"

#include <algorithm>
#include <array>

namespace hourwright::app {

using platform::CopyHealth;
using platform::StoreCopy;

void CopyList::load(platform::StoreCopies& copies) {
    rows_.clear();
    const auto all = copies.list();
    const auto ages = agesOf(all);
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto known = known_.find(all[i].name);
        rows_.push_back({.copy = all[i],
                         .age = ages[i],
                         .health = known != known_.end() ? std::optional(known->second) : std::nullopt});
    }
    for (const StoreCopy& copy : copies.unreadable()) {
        const auto older =
            std::ranges::find_if(rows_, [&copy](const CopyRow& other) { return platform::isNewer(copy, other.copy); });
        rows_.insert(older, {.copy = copy, .readable = false, .health = CopyHealth::damaged});
    }
}

void CopyList::note(const StoreCopy& copy, CopyHealth health) {
    if (health == CopyHealth::cancelled)
        return;
    known_[copy.name] = health;
    const auto row = std::ranges::find(rows_, copy.name, [](const CopyRow& each) { return each.copy.name; });
    if (row != rows_.end())
        row->health = health;
}

std::vector<StoreCopy> CopyList::toVerify() const {
    std::vector<StoreCopy> copies;
    for (const CopyRow& row : rows_)
        if (!row.health)
            copies.push_back(row.copy);
    return copies;
}

std::u16string sizeText(std::uint64_t bytes, const platform::Locale& locale) {
    constexpr std::uint64_t step = 1000;
    constexpr std::array<std::u16string_view, 4> units{u" kB", u" MB", u" GB", u" TB"};
    std::u16string number;
    std::uint64_t unit = step;
    std::size_t name = 0;
    while (name + 1 < units.size() && bytes >= unit * step) {
        unit *= step;
        ++name;
    }
    platform::appendFixedDecimals(number, static_cast<double>(bytes) / static_cast<double>(unit), name == 0 ? 0 : 1);
    return locale.number(number) + std::u16string(units[name]);
}

} // namespace hourwright::app
