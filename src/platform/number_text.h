#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as text, the same whatever the process locale is: a point, no grouping, no currency.
namespace hourwright::platform {

/// The most decimals that `fixedDecimals` writes; more are cut to this.
inline constexpr int maxDecimals = 64;

/// A double with a fixed number of decimals, as printf's "%.Nf" writes it in the C locale: the exact binary value
/// rounded, "-0.00" for a small negative one, "inf" and "nan" for what is no number.
[[nodiscard]] std::string fixedDecimals(double value, int decimals);
void appendFixedDecimals(std::string& out, double value, int decimals);
void appendFixedDecimals(std::u16string& out, double value, int decimals);

/// Hundredths as a number with two decimals: the text of "%.2f" of value / 100.0, made from the integer.
[[nodiscard]] std::string hundredths(std::int64_t value);
void appendHundredths(std::string& out, std::int64_t value);
void appendHundredths(std::u16string& out, std::int64_t value);

void appendInteger(std::string& out, std::int64_t value);
void appendInteger(std::u16string& out, std::int64_t value);

/// The number at the beginning of a typed text: leading blanks, a sign, digits, a point, an exponent; what follows is
/// ignored, and a text that begins with no number is 0. Of the text only its first 64 units count, as if it had been
/// converted into an 8-bit buffer of that size; a unit outside ASCII has no digit's meaning there and ends the number.
/// Too large for a double is plus or minus infinity, too small is 0. Words ("inf", "nan") and hexadecimal digits are
/// no numbers.
[[nodiscard]] double parseDecimal(std::u16string_view text);

} // namespace hourwright::platform
