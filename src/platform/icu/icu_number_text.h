#pragma once

#include <string>
#include <string_view>

namespace hourwright::platform {

/// How one locale groups the digits of a number and marks its decimals.
class IcuNumberText {
public:
    explicit IcuNumberText(const std::string& icuLocaleName);

    /// Groups a plain decimal number ("-1234.50") digit by digit, so that nothing is rounded; its sign stays as it is.
    /// Any other text comes back unchanged.
    [[nodiscard]] std::u16string format(std::u16string_view plain) const;

private:
    [[nodiscard]] bool isGroupEnd(std::size_t digitsLeft) const;

    std::u16string groupMark_;
    std::u16string decimalMark_;
    std::size_t lastGroup_ = 0;
    std::size_t otherGroups_ = 0;
};

} // namespace hourwright::platform
