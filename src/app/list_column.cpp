#include "app/list_column.h"

#include "platform/number_text.h"

namespace hourwright::app {

std::uint8_t statusIcon(store::EntryStatus status) {
    switch (status) {
    case store::EntryStatus::nonBillable: return 1;
    case store::EntryStatus::billable: return 2;
    case store::EntryStatus::billed: return 3;
    case store::EntryStatus::paid: return 4;
    }
    return 1;
}

std::u16string dateCell(platform::FileTime instant, const CellContext& context) {
    const auto date = platform::toSystemTime(instant);
    return date ? context.locale.shortDate(*date) : std::u16string{};
}

std::u16string moneyCell(double amount, const CellContext& context) {
    std::u16string plain;
    platform::appendFixedDecimals(plain, amount, 2);
    return context.locale.number(plain);
}

} // namespace hourwright::app
