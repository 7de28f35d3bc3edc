#include "platform/icu/icu_number_text.h"

#include <algorithm>
#include <memory>
#include <new>
#include <unicode/decimfmt.h>

namespace hourwright::platform {

namespace {

bool areDigits(std::u16string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

std::u16string symbol(const icu::DecimalFormat& format, icu::DecimalFormatSymbols::ENumberFormatSymbol which) {
    const icu::UnicodeString& text = format.getDecimalFormatSymbols()->getConstSymbol(which);
    return {text.getBuffer(), static_cast<std::size_t>(text.length())};
}

std::size_t count(std::int32_t number) {
    return static_cast<std::size_t>(std::max(number, 0));
}

} // namespace

IcuNumberText::IcuNumberText(const std::string& icuLocaleName) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale((icuLocaleName + "@numbers=latn").c_str());
    const std::unique_ptr<icu::NumberFormat> made{icu::NumberFormat::createInstance(locale, status)};
    const auto* format = dynamic_cast<const icu::DecimalFormat*>(made.get());
    if (U_FAILURE(status) || format == nullptr)
        throw std::bad_alloc{};
    groupMark_ = symbol(*format, icu::DecimalFormatSymbols::kGroupingSeparatorSymbol);
    decimalMark_ = symbol(*format, icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
    lastGroup_ = format->isGroupingUsed() ? count(format->getGroupingSize()) : 0;
    otherGroups_ = count(format->getSecondaryGroupingSize());
    if (otherGroups_ == 0)
        otherGroups_ = lastGroup_;
}

std::u16string IcuNumberText::format(std::u16string_view plain) const {
    const std::size_t sign = plain.starts_with(u'-') ? 1 : 0;
    const std::size_t point = std::min(plain.find(u'.'), plain.size());
    const std::u16string_view whole = plain.substr(sign, point - sign);
    const bool hasDecimals = point < plain.size();
    if (!areDigits(whole) || (hasDecimals && !areDigits(plain.substr(point + 1))))
        return std::u16string(plain);
    std::u16string result(plain.substr(0, sign));
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && isGroupEnd(whole.size() - i))
            result += groupMark_;
        result += whole[i];
    }
    if (hasDecimals)
        result.append(decimalMark_).append(plain.substr(point + 1));
    return result;
}

// 1234567: the last group is of one size, those before it are of another (12,34,567 in India).
bool IcuNumberText::isGroupEnd(std::size_t digitsLeft) const {
    return lastGroup_ > 0 && digitsLeft >= lastGroup_ && (digitsLeft - lastGroup_) % otherGroups_ == 0;
}

} // namespace hourwright::platform
