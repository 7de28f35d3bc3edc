#pragma once

#include <string_view>

namespace hourwright::billing {

/// True for a text without any alphabetic character: digits, signs, blanks and punctuation pass, and so does no text.
/// It is the test that every typed number passes before it is converted.
[[nodiscard]] bool passesNumericTest(std::u16string_view text);

} // namespace hourwright::billing
