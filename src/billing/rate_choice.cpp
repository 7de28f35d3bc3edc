#include "billing/rate_choice.h"

#include "billing/amount.h"
#include "billing/numeric_test.h"
#include "platform/number_text.h"

#include <algorithm>

namespace hourwright::billing {

namespace {

using resources::StringId;
using store::RateRecord;
using store::RateType;

bool haveSameName(const RateRecord& a, const RateRecord& b) {
    return a.type == b.type && a.description == b.description;
}

std::u16string_view nameOf(RateType type) {
    const auto index = static_cast<std::uint16_t>(type);
    const bool known = type <= RateType::discount;
    return resources::string(known ? static_cast<StringId>(resources::number(StringId::rateTypeNormal) + index)
                                   : StringId::customRate);
}

// "Overtime Rate, Standard: 45.50"
std::u16string textOf(const RateRecord& rate) {
    std::u16string text(nameOf(rate.type));
    text.append(u", ").append(rate.description).append(u": ");
    platform::appendHundredths(text, rate.rate);
    return text;
}

RateType unlessFixed(RateType type) {
    return type == RateType::fixed ? RateType::normal : type;
}

} // namespace

std::vector<RateRecord> offeredRates(std::span<const RateRecord> ofClient, std::span<const RateRecord> ofEveryClient) {
    std::vector<RateRecord> offered(ofClient.begin(), ofClient.end());
    for (const RateRecord& rate : ofEveryClient)
        if (std::ranges::none_of(ofClient, [&rate](const RateRecord& own) { return haveSameName(own, rate); }))
            offered.push_back(rate);
    return offered;
}

std::vector<RateNode> rateTree(std::span<const RateRecord> offered) {
    RateNode rates{std::u16string(resources::string(StringId::defaultRates)), {}, {}};
    for (std::size_t i = 0; i < offered.size(); ++i)
        rates.children.push_back({textOf(offered[i]), i, {}});
    return {std::move(rates), {std::u16string(resources::string(StringId::customRate)), {}, {}}};
}

RateChoice::RateChoice(const store::TimeEntry& entry)
    : rate_(entry.rate), type_(entry.rateType), typeUnlessFixed_(unlessFixed(entry.rateType)) {}

std::u16string RateChoice::text() const {
    if (typed_)
        return *typed_;
    std::u16string text;
    platform::appendHundredths(text, rate_);
    return text;
}

void RateChoice::choose(const RateRecord& rate) {
    rate_ = rate.rate;
    type_ = rate.type;
    typeUnlessFixed_ = unlessFixed(rate.type);
    typed_.reset();
}

void RateChoice::type(std::u16string text) {
    typed_ = std::move(text);
    typeUnlessFixed_ = RateType::normal;
    setFixed(isFixed());
}

void RateChoice::setFixed(bool fixed) {
    type_ = fixed ? RateType::fixed : typeUnlessFixed_;
}

std::optional<std::size_t> RateChoice::find(std::span<const RateRecord> offered) const {
    const auto found = std::ranges::find_if(
        offered, [this](const RateRecord& rate) { return rate.rate == rate_ && rate.type == type_; });
    if (typed_ || found == offered.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - offered.begin());
}

void RateChoice::changeRates(std::span<const RateRecord> former, std::span<const RateRecord> offered) {
    const auto old = find(former);
    if (!old || find(offered))
        return;
    const auto same =
        std::ranges::find_if(offered, [&](const RateRecord& rate) { return haveSameName(rate, former[*old]); });
    choose(same != offered.end() ? *same : RateRecord{});
}

void RateChoice::suggest(std::span<const RateRecord> offered) {
    if (!typed_ && rate_ == 0 && type_ == RateType::normal && !offered.empty())
        choose(offered.front());
}

std::optional<double> RateChoice::total(const store::TimeEntry& entry, const TimeRules& rules) const {
    const bool isNumber = !typed_ || passesNumericTest(*typed_);
    const auto rate = typed_ ? rateFromText(*typed_) : rate_;
    if (!isNumber || !rate)
        return std::nullopt;
    store::TimeEntry priced;
    priced.duration = entry.duration;
    priced.rate = *rate;
    priced.rateType = type_;
    return amountOf(priced, rules);
}

void RateChoice::putInto(EntryDraft& draft) const {
    draft.rateType = type_;
    draft.rate = typed_;
    draft.chosenRate = typed_ ? std::nullopt : std::optional(rate_);
}

void RateChoice::takeFrom(const EntryDraft& draft) {
    type_ = draft.rateType.value_or(type_);
    typeUnlessFixed_ = unlessFixed(type_);
    rate_ = draft.chosenRate.value_or(rate_);
    typed_ = draft.rate;
}

} // namespace hourwright::billing
