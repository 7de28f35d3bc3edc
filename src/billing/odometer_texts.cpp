#include "billing/odometer_texts.h"

#include "billing/numeric_test.h"
#include "billing/odometer.h"
#include "platform/number_text.h"

namespace hourwright::billing {

using resources::StringId;

namespace {

std::u16string readingText(std::uint64_t reading) {
    std::u16string text;
    platform::appendInteger(text, static_cast<std::int64_t>(reading));
    return text;
}

} // namespace

OdometerTexts::OdometerTexts(std::u16string start, std::u16string distance)
    : start_(std::move(start)), distance_(std::move(distance)) {
    follow();
}

void OdometerTexts::type(OdometerField field, std::u16string text) {
    switch (field) {
    case OdometerField::start: start_ = std::move(text); break;
    case OdometerField::end:
        end_ = std::move(text);
        endTyped_ = !end_.empty();
        break;
    case OdometerField::distance:
        distance_ = std::move(text);
        endTyped_ = false;
        break;
    }
    follow();
}

const std::u16string& OdometerTexts::text(OdometerField field) const {
    if (field == OdometerField::start)
        return start_;
    return field == OdometerField::end ? end_ : distance_;
}

// The reading that was not typed follows the two that were.
void OdometerTexts::follow() {
    const auto start = odometerFromText(start_);
    if (endTyped_) {
        const auto end = odometerFromText(end_);
        Odometer odometer(start.value_or(0), 0);
        distance_ = start && end && odometer.setEnd(*end) ? readingText(odometer.distance()) : std::u16string();
        return;
    }
    const auto distance = odometerFromText(distance_);
    // Without a distance there is no end yet; an empty field that counts as 0 must not look like one.
    end_ = start && distance && !distance_.empty() ? readingText(Odometer(*start, *distance).end()) : std::u16string();
}

std::optional<FieldRefusal<OdometerField>> OdometerTexts::checkEnd() const {
    if (!endTyped_)
        return std::nullopt;
    if (!passesNumericTest(end_))
        return FieldRefusal<OdometerField>{OdometerField::end, StringId::numericOnly};
    const auto end = odometerFromText(end_);
    if (!end)
        return cannotHold(OdometerField::end);
    const auto start = odometerFromText(start_);
    if (start && *end < *start)
        return FieldRefusal<OdometerField>{OdometerField::end, StringId::odometerEndBeforeStart};
    return std::nullopt;
}

} // namespace hourwright::billing
