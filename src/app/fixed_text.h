#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hourwright::app {

/// A text whose stored form has room for `units` UTF-16 units, terminator included. It never holds a text that does
/// not fit and never cuts one.
template<std::size_t units>
class FixedText {
public:
    static constexpr std::size_t capacity = units;

    FixedText() = default;
    template<std::size_t size>
    explicit FixedText(const char16_t (&literal)[size]) : text_(literal) {
        static_assert(size <= units, "the text does not fit");
    }

    /// Takes a text. False, and nothing changed, when it does not fit with its terminator or has a zero unit inside.
    [[nodiscard]] bool assign(std::u16string_view text) {
        if (text.size() >= units || text.find(u'\0') != std::u16string_view::npos)
            return false;
        text_ = text;
        return true;
    }

    [[nodiscard]] const std::u16string& text() const { return text_; }
    [[nodiscard]] bool empty() const { return text_.empty(); }

    friend bool operator==(const FixedText&, const FixedText&) = default;

private:
    std::u16string text_;
};

} // namespace hourwright::app
