#pragma once

#include "billing/client_choices.h"
#include "store/stores.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::desktop {

/// What the client structure offers to an editor: the clients, and of the one chosen its projects, tasks, contacts and
/// rates. A structure that cannot be read offers nothing; any text may be typed all the same.
class ClientOffer {
public:
    explicit ClientOffer(store::Stores& stores);

    [[nodiscard]] std::vector<std::u16string> clients() const;
    /// Goes over to the client of this name; an unknown name offers the rates of every client only.
    void choose(std::u16string_view name);

    [[nodiscard]] const std::u16string& chosen() const { return chosen_; }
    /// The client chosen; null when it is not known.
    [[nodiscard]] const store::ClientTree* tree() const { return tree_ ? &*tree_ : nullptr; }
    [[nodiscard]] const std::vector<store::RateRecord>& rates() const { return rates_; }

private:
    store::Stores& stores_;
    std::vector<store::ClientRecord> clients_;
    std::vector<store::RateRecord> everyClientsRates_;
    std::u16string chosen_;
    std::optional<store::ClientTree> tree_;
    std::vector<store::RateRecord> rates_;
};

} // namespace hourwright::desktop
