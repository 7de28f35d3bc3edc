#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace hourwright::platform {
namespace {

// The largest double has 309 digits before its point; a sign and the point come on top.
constexpr std::size_t fixedCapacity = 311 + maxDecimals;
// Sign, 19 digits and a point.
constexpr std::size_t integerCapacity = 24;
constexpr std::size_t typedCapacity = 64;

void append(std::string& out, const char* begin, const char* end) {
    out.append(begin, end);
}

void append(std::u16string& out, const char* begin, const char* end) {
    // All of it is ASCII: widening each byte is the whole conversion.
    out.append(begin, end);
}

template<typename Text>
void appendFixed(Text& out, double value, int decimals) {
    std::array<char, fixedCapacity> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed,
                                      std::clamp(decimals, 0, maxDecimals));
    append(out, buffer.data(), result.ptr);
}

template<typename Text>
void appendWhole(Text& out, std::int64_t value) {
    std::array<char, integerCapacity> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    append(out, buffer.data(), result.ptr);
}

template<typename Text>
void appendHundredthsOf(Text& out, std::int64_t value) {
    std::array<char, integerCapacity> buffer;
    char* next = buffer.data();
    auto magnitude = static_cast<std::uint64_t>(value);
    if (value < 0) {
        *next++ = '-';
        magnitude = 0 - magnitude; // also right for the least value, which has no positive counterpart
    }
    next = std::to_chars(next, buffer.data() + buffer.size(), magnitude / 100).ptr;
    *next++ = '.';
    *next++ = static_cast<char>('0' + magnitude / 10 % 10);
    *next++ = static_cast<char>('0' + magnitude % 10);
    append(out, buffer.data(), next);
}

bool isBlank(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// A number begins with a digit, or with a point and a digit.
bool beginsNumber(const char* begin, const char* end) {
    if (begin != end && *begin == '.')
        ++begin;
    return begin != end && isDigit(*begin);
}

// The value of a number that no double holds. Its at most 64 characters cannot shift a number by hundreds of decimal
// places, so the sign of its exponent tells too large from too small.
double outOfRange(std::string_view number) {
    const auto exponent = number.find_first_of("eE");
    const bool tooSmall = exponent + 1 < number.size() && number[exponent + 1] == '-';
    return tooSmall ? 0.0 : std::numeric_limits<double>::infinity();
}

double parseUnsigned(const char* begin, const char* end) {
    if (!beginsNumber(begin, end))
        return 0.0;
    double value = 0.0;
    const auto result = std::from_chars(begin, end, value);
    if (result.ec == std::errc::result_out_of_range)
        return outOfRange({begin, result.ptr});
    return value;
}

} // namespace

void appendFixedDecimals(std::string& out, double value, int decimals) {
    appendFixed(out, value, decimals);
}

void appendFixedDecimals(std::u16string& out, double value, int decimals) {
    appendFixed(out, value, decimals);
}

std::string fixedDecimals(double value, int decimals) {
    std::string text;
    appendFixed(text, value, decimals);
    return text;
}

void appendHundredths(std::string& out, std::int64_t value) {
    appendHundredthsOf(out, value);
}

void appendHundredths(std::u16string& out, std::int64_t value) {
    appendHundredthsOf(out, value);
}

std::string hundredths(std::int64_t value) {
    std::string text;
    appendHundredthsOf(text, value);
    return text;
}

void appendInteger(std::string& out, std::int64_t value) {
    appendWhole(out, value);
}

void appendInteger(std::u16string& out, std::int64_t value) {
    appendWhole(out, value);
}

double parseDecimal(std::u16string_view text) {
    text = text.substr(0, typedCapacity);
    text.remove_prefix(static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isBlank) - text.begin()));
    std::array<char, typedCapacity> buffer;
    std::size_t size = 0;
    while (size < text.size() && text[size] < 0x80) {
        buffer[size] = static_cast<char>(text[size]);
        ++size;
    }
    const char* begin = buffer.data();
    const char* end = begin + size;
    const bool negative = begin != end && *begin == '-';
    if (negative || (begin != end && *begin == '+'))
        ++begin;
    const double value = parseUnsigned(begin, end);
    return negative ? -value : value;
}

} // namespace hourwright::platform
