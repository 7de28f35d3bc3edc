#pragma once

#include "billing/field_refusal.h"

#include <cstdint>
#include <optional>
#include <string>

namespace hourwright::billing {

enum class OdometerField : std::uint8_t { start, end, distance };

/// The three readings of a mileage expense while they are typed. Start and distance make the end; once an end was
/// typed, it stays instead and the distance follows, until a distance is typed again. A reading that cannot be told
/// yet, because another one is no number or the end lies before the start, is empty.
class OdometerTexts {
public:
    OdometerTexts() = default;
    OdometerTexts(std::u16string start, std::u16string distance);

    void type(OdometerField field, std::u16string text);
    [[nodiscard]] const std::u16string& text(OdometerField field) const;
    /// The end that was typed and stays; nothing when it follows from the others.
    [[nodiscard]] std::optional<std::u16string> typedEnd() const {
        return endTyped_ ? std::optional(end_) : std::nullopt;
    }

    /// What is wrong with an end that was typed; start and distance are checked with their expense.
    [[nodiscard]] std::optional<FieldRefusal<OdometerField>> checkEnd() const;

private:
    void follow();

    std::u16string start_;
    std::u16string end_;
    std::u16string distance_;
    bool endTyped_ = false;
};

} // namespace hourwright::billing
