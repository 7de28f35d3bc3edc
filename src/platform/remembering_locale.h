#pragma once

#include "platform/locale.h"

#include <cstdint>
#include <functional>
#include <unordered_map>

namespace hourwright::platform {

/// Another locale whose dates, times and numbers are made once each and remembered up to a bound: lists show the same
/// ones again and again. It borrows that locale and, like it, is used by one thread.
class RememberingLocale final : public Locale {
public:
    explicit RememberingLocale(const Locale& locale) : locale_(locale) {}

    [[nodiscard]] std::string name() const override { return locale_.name(); }
    [[nodiscard]] std::u16string shortDate(const SystemTime& date) const override;
    [[nodiscard]] std::u16string timeWithoutSeconds(const SystemTime& time) const override;
    [[nodiscard]] std::u16string number(std::u16string_view plain) const override;
    [[nodiscard]] std::weak_ordering compare(std::u16string_view a, std::u16string_view b) const override {
        return locale_.compare(a, b);
    }
    [[nodiscard]] std::strong_ordering compareStrictly(std::u16string_view a, std::u16string_view b) const override {
        return locale_.compareStrictly(a, b);
    }
    [[nodiscard]] std::string collationKey(std::u16string_view text) const override {
        return locale_.collationKey(text);
    }
    [[nodiscard]] const CodePage& ansiCodePage() const override { return locale_.ansiCodePage(); }

private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>{}(text); }
    };

    const Locale& locale_;
    mutable std::unordered_map<std::uint32_t, std::u16string> dates_;
    mutable std::unordered_map<std::uint32_t, std::u16string> times_;
    mutable std::unordered_map<std::u16string, std::u16string, TextHash, std::equal_to<>> numbers_;
};

} // namespace hourwright::platform
