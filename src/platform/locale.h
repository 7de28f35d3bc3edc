#pragma once

#include "platform/code_page.h"
#include "platform/file_time.h"

#include <compare>
#include <memory>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// How one locale writes and compares. Objects are made once and used by one thread.
class Locale {
public:
    virtual ~Locale() = default;

    /// Name as given, for example "de_DE".
    [[nodiscard]] virtual std::string name() const = 0;

    /// The locale's short date. Empty for a date outside 1601 to 30827.
    [[nodiscard]] virtual std::u16string shortDate(const SystemTime& date) const = 0;
    /// The locale's time of day without seconds, with ordinary blanks only.
    [[nodiscard]] virtual std::u16string timeWithoutSeconds(const SystemTime& time) const = 0;

    /// A plain decimal number ("1234.50") with the locale's digits grouping and decimal mark, its decimals kept.
    /// A text that is no such number comes back unchanged.
    [[nodiscard]] virtual std::u16string number(std::u16string_view plain) const = 0;

    /// Compares with regard to case and accents; texts that the language counts as equal are equal.
    [[nodiscard]] virtual std::weak_ordering compare(std::u16string_view a, std::u16string_view b) const = 0;
    /// The same order, with ties broken by code units: equal only for the same text.
    [[nodiscard]] virtual std::strong_ordering compareStrictly(std::u16string_view a, std::u16string_view b) const = 0;
    /// Bytes whose plain comparison gives the same result as `compare`.
    [[nodiscard]] virtual std::string collationKey(std::u16string_view text) const = 0;

    /// The ANSI code page of the locale's language.
    [[nodiscard]] virtual const CodePage& ansiCodePage() const = 0;
};

/// True when the code point is of the alphabetic class (Unicode property Alphabetic), whatever the locale.
[[nodiscard]] bool isAlphabetic(char32_t codePoint);

/// The user's choices and the system's own locale. Lists and filters use the first, exports the second.
struct Locales {
    std::unique_ptr<Locale> user;
    std::unique_ptr<Locale> system;
};

} // namespace hourwright::platform
