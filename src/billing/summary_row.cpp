#include "billing/summary_row.h"

#include "platform/number_text.h"

namespace hourwright::billing {

std::u16string titleLabel(resources::StringId title) {
    return std::u16string(resources::string(title)) + u':';
}

std::u16string hoursText(double hours) {
    return amountText(hours) + u'h';
}

std::u16string amountText(double amount) {
    std::u16string text;
    platform::appendFixedDecimals(text, amount, 2);
    return text;
}

} // namespace hourwright::billing
