#pragma once

#include <cstdint>
#include <string_view>

namespace hourwright::app {

/// The encoding of the XML export, by its stored index. Only `utf16` changes the bytes of the file; the others are
/// written in the ANSI code page and differ in the declared name.
enum class XmlEncoding : std::uint8_t { unnamed = 0, utf8 = 1, utf16 = 2, latin1 = 3, big5 = 4, shiftJis = 5 };
inline constexpr std::uint32_t xmlEncodingCount = 6;

/// The encoding of a stored index; one that is none reads as `unnamed`.
[[nodiscard]] XmlEncoding xmlEncoding(std::uint32_t index);

/// The name that the declaration carries; empty for `unnamed`.
[[nodiscard]] std::u16string_view declaredName(XmlEncoding encoding);

inline constexpr std::uint32_t lineBreakSubstituteCount = 4;

/// What the CSV export writes for a line break in a note, by its stored index; one blank for an index that is none.
[[nodiscard]] std::u16string_view lineBreakSubstitute(std::uint32_t index);

} // namespace hourwright::app
