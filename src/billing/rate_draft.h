#pragma once

#include "billing/field_refusal.h"
#include "store/client_structure.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

/// Editing the rates of a client, or those offered for every client.
namespace hourwright::billing {

/// The longest texts that the rate dialog takes, in UTF-16 units.
inline constexpr std::size_t maxRateDescription = 64;
inline constexpr std::size_t maxRateText = 16;

enum class RateField : std::uint8_t { type, description, rate };

using RateRefusal = FieldRefusal<RateField>;

/// What stands in the rate dialog.
struct RateDraft {
    std::optional<store::RateType> type; ///< nothing: none is selected
    std::u16string description;
    std::u16string rate;         ///< currency units; empty counts as 0
    platform::FileTime modified; ///< only shown; zero: a rate not yet saved

    /// The first failed check, in the order type, description, rate, then the pair of type and description: no other of
    /// the owner's rates may have it (`self` is the record edited). Descriptions are compared with regard to case. A
    /// text that is too long and a rate that its field cannot hold are failed writes (error 87).
    [[nodiscard]] std::optional<RateRefusal> check(std::span<const store::RateRecord> ratesOfOwner,
                                                   store::RecordId self = store::RecordId::none) const;

    friend bool operator==(const RateDraft&, const RateDraft&) = default;
};

/// The draft that the dialog opens with for a stored rate.
[[nodiscard]] RateDraft draftOf(const store::RateRecord& rate);

/// Checks the draft against the rates of the record's owner as the transaction sees them, takes it over into the record
/// and writes that. Returns why not; then nothing was written and the record is as it was.
[[nodiscard]] std::optional<RateRefusal> saveRate(platform::Transaction& transaction, store::Stores& stores,
                                                  const RateDraft& draft, platform::FileTime now,
                                                  store::RateRecord& rate);

} // namespace hourwright::billing
