#include "app/column_layout.h"

#include "app/entry_columns.h"
#include "app/expense_columns.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::app {

namespace {

constexpr std::size_t indexBytes = 4;
/// Both lists had so many columns once.
constexpr std::size_t oldColumnCount = 11;
/// Stored in place of a width it means that there is none.
constexpr std::uint32_t noWidth = 0xFFFFFFFF;

struct LayoutValues {
    std::u16string_view order;
    std::u16string_view widthPrefix;
};

LayoutValues valuesOf(ColumnList list) {
    return list == ColumnList::entries ? LayoutValues{u"ColOrder", u"Column"}
                                       : LayoutValues{u"ExpColOrder", u"ExpColumn"};
}

std::u16string widthName(const LayoutValues& values, std::size_t column) {
    std::u16string name(values.widthPrefix);
    platform::appendInteger(name, static_cast<std::int64_t>(column));
    return name;
}

template<typename Columns>
std::vector<std::uint32_t> builtInWidths(const Columns& columns, std::uint32_t pixelsPerInch) {
    std::vector<std::uint32_t> widths;
    for (const auto& column : columns)
        widths.push_back(column.width * pixelsPerInch / 96);
    return widths;
}

std::vector<std::uint32_t> builtInOrder(std::size_t columns) {
    std::vector<std::uint32_t> order(columns);
    std::iota(order.begin(), order.end(), 0U);
    return order;
}

std::uint32_t indexAt(std::span<const std::byte> bytes, std::size_t position) {
    std::uint32_t index = 0;
    for (std::size_t i = indexBytes; i-- > 0;)
        index = index << 8 | std::to_integer<std::uint32_t>(bytes[position * indexBytes + i]);
    return index;
}

// The stored order for a list of so many columns; nothing when it names a column twice or one that does not exist.
std::optional<std::vector<std::uint32_t>> orderOf(const platform::RegistryValue& stored, std::size_t columns) {
    if (stored.type != platform::RegistryType::binary || stored.data.size() > columns * indexBytes)
        return std::nullopt;
    std::vector<std::uint32_t> order = builtInOrder(columns);
    const std::size_t count = stored.data.size() / indexBytes;
    for (std::size_t i = 0; i < count; ++i)
        order[i] = indexAt(stored.data, i);
    if (count < columns)
        std::iota(order.begin() + oldColumnCount, order.end(), static_cast<std::uint32_t>(oldColumnCount));
    const std::vector<std::uint32_t> all = builtInOrder(columns);
    return std::ranges::is_permutation(order, all) ? std::optional(std::move(order)) : std::nullopt;
}

std::vector<std::byte> bytesOf(const std::vector<std::uint32_t>& order) {
    std::vector<std::byte> bytes;
    for (const std::uint32_t index : order)
        for (std::size_t i = 0; i < indexBytes; ++i)
            bytes.push_back(static_cast<std::byte>(index >> (8 * i) & 0xFF));
    return bytes;
}

} // namespace

ColumnLayout builtInColumnLayout(ColumnList list, std::uint32_t pixelsPerInch) {
    ColumnLayout layout;
    layout.widths = list == ColumnList::entries ? builtInWidths(entryColumns(), pixelsPerInch)
                                                : builtInWidths(expenseColumns(), pixelsPerInch);
    layout.order = builtInOrder(layout.widths.size());
    return layout;
}

ColumnLayout loadColumnLayout(platform::Registry& registry, ColumnList list, std::uint32_t pixelsPerInch) {
    ColumnLayout layout = builtInColumnLayout(list, pixelsPerInch);
    const auto key = registry.create(platform::settingsKey);
    if (key == nullptr)
        return layout;
    const LayoutValues values = valuesOf(list);
    if (const auto stored = key->query(values.order))
        if (auto order = orderOf(*stored, layout.widths.size()))
            layout.order = std::move(*order);
    for (std::size_t column = 0; column < layout.widths.size(); ++column) {
        const std::uint32_t width = key->readDword(widthName(values, column)).value_or(noWidth);
        if (width != noWidth)
            layout.widths[column] = width;
    }
    return layout;
}

bool saveColumnLayout(platform::Registry& registry, ColumnList list, const ColumnLayout& layout) {
    const std::size_t columns = builtInColumnLayout(list).widths.size();
    if (layout.order.size() != columns || layout.widths.size() != columns)
        return false;
    const auto key = registry.create(platform::settingsKey);
    const auto batch = key == nullptr ? nullptr : key->batch();
    if (batch == nullptr)
        return false;
    const LayoutValues values = valuesOf(list);
    bool saved = key->writeBinary(values.order, bytesOf(layout.order));
    for (std::size_t column = 0; column < columns; ++column)
        saved = key->writeDword(widthName(values, column), layout.widths[column]) && saved;
    return batch->commit() && saved;
}

} // namespace hourwright::app
