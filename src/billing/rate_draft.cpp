#include "billing/rate_draft.h"

#include "billing/amount.h"
#include "billing/numeric_test.h"
#include "platform/number_text.h"

#include <algorithm>

namespace hourwright::billing {

using platform::PlatformError;
using resources::StringId;
using store::RateRecord;

namespace {

RateRefusal failedWrite(RateField field, PlatformError error = PlatformError::invalidParameter) {
    return {field, StringId::error, error};
}

std::optional<RateRefusal> checkDescription(std::u16string_view description) {
    if (description.empty())
        return RateRefusal{RateField::description, StringId::descriptionMissing};
    if (description.size() > maxRateDescription)
        return failedWrite(RateField::description);
    return std::nullopt;
}

std::optional<RateRefusal> checkRateText(std::u16string_view rate) {
    if (!passesNumericTest(rate))
        return RateRefusal{RateField::rate, StringId::rateInvalid};
    if (rate.size() > maxRateText || !rateFromText(rate))
        return failedWrite(RateField::rate);
    return std::nullopt;
}

} // namespace

std::optional<RateRefusal> RateDraft::check(std::span<const RateRecord> ratesOfOwner, store::RecordId self) const {
    if (!type)
        return RateRefusal{RateField::type, StringId::typeMissing};
    if (auto refusal = checkDescription(description))
        return refusal;
    if (auto refusal = checkRateText(rate))
        return refusal;
    const bool doubled = std::ranges::any_of(ratesOfOwner, [&](const RateRecord& other) {
        return other.id != self && other.type == *type && other.description == description;
    });
    return doubled ? std::optional(RateRefusal{RateField::description, StringId::rateExists}) : std::nullopt;
}

RateDraft draftOf(const RateRecord& rate) {
    RateDraft draft{.type = rate.type, .description = rate.description, .rate = {}, .modified = rate.modified};
    platform::appendHundredths(draft.rate, rate.rate);
    return draft;
}

std::optional<RateRefusal> saveRate(platform::Transaction& transaction, store::Stores& stores, const RateDraft& draft,
                                    platform::FileTime now, RateRecord& rate) {
    const auto others = store::recordsOf<RateRecord>(stores, rate.clientId);
    if (!others)
        return failedWrite(RateField::rate, stores.rates().lastError());
    if (auto refusal = draft.check(*others, rate.id))
        return refusal;
    RateRecord changed = rate;
    changed.type = *draft.type;
    changed.description = draft.description;
    // Reading back the text of a rate can lose a hundredth (2.01 becomes 2.00): what was not touched stays.
    if (draft.rate != draftOf(rate).rate)
        changed.rate = rateFromText(draft.rate).value_or(0);
    changed.modified = now;
    if (!store::writeRate(transaction, stores, changed))
        return failedWrite(RateField::rate, stores.rates().lastError());
    rate = std::move(changed);
    return std::nullopt;
}

} // namespace hourwright::billing
