#pragma once

#include "billing/entry_draft.h"
#include "store/structure_records.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace hourwright::billing {

/// The rates offered for an entry, in the order of the tree: the client's own, then those for every client of which the
/// client has none with the same type and description.
[[nodiscard]] std::vector<store::RateRecord> offeredRates(std::span<const store::RateRecord> ofClient,
                                                          std::span<const store::RateRecord> ofEveryClient);

/// One line of the rate tree. Its position among the rates offered is absent for what is no rate: "(Default Rates)",
/// under which the rates stand, and "(Custom Rate)".
struct RateNode {
    std::u16string text;
    std::optional<std::size_t> rate;
    std::vector<RateNode> children;

    friend bool operator==(const RateNode&, const RateNode&) = default;
};

/// The tree: "(Default Rates)" with the rates offered, then "(Custom Rate)".
[[nodiscard]] std::vector<RateNode> rateTree(std::span<const store::RateRecord> offered);

/// The rate of an entry while it is edited: chosen from the tree or typed, hourly or fixed.
class RateChoice {
public:
    /// Begins with the entry's rate.
    explicit RateChoice(const store::TimeEntry& entry);

    [[nodiscard]] store::RateType type() const { return type_; }
    [[nodiscard]] bool isFixed() const { return type_ == store::RateType::fixed; }
    /// What stands in the rate field: the text typed, or the rate with two decimals.
    [[nodiscard]] std::u16string text() const;

    /// Takes a rate of the tree with its type.
    void choose(const store::RateRecord& rate);
    /// Takes a rate typed for this entry alone. It has the normal type, or stays fixed.
    void type(std::u16string text);
    /// Makes the rate a fixed one, or gives it back the type that it was chosen with: the normal one when it was typed
    /// or chosen as a fixed one.
    void setFixed(bool fixed);

    /// The position of the first rate offered that has this rate and type; nothing for a custom rate.
    [[nodiscard]] std::optional<std::size_t> find(std::span<const store::RateRecord> offered) const;

    /// Goes over to another client's rates. A rate that was one of the former and is none of the new ones is replaced
    /// by that of the same type and description, or else taken off. One that was typed stays.
    void changeRates(std::span<const store::RateRecord> former, std::span<const store::RateRecord> offered);

    /// An entry that has no rate yet begins with the first one offered. One that was chosen or typed stays.
    void suggest(std::span<const store::RateRecord> offered);

    /// What the entry would cost at this rate; nothing while the text typed is no rate.
    [[nodiscard]] std::optional<double> total(const store::TimeEntry& entry, const TimeRules& rules) const;

    /// Puts rate and type into the draft, which checks a rate that was typed.
    void putInto(EntryDraft& draft) const;
    /// Takes them back from it.
    void takeFrom(const EntryDraft& draft);

private:
    std::int32_t rate_;
    store::RateType type_;
    store::RateType typeUnlessFixed_;
    std::optional<std::u16string> typed_;
};

} // namespace hourwright::billing
