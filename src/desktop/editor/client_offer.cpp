#include "desktop/editor/client_offer.h"

#include "billing/rate_choice.h"

#include <algorithm>

namespace hourwright::desktop {

ClientOffer::ClientOffer(store::Stores& stores)
    : stores_(stores), clients_(store::listClients(stores).value_or(std::vector<store::ClientRecord>())),
      everyClientsRates_(store::recordsOf<store::RateRecord>(stores, store::defaultRatesOwner)
                             .value_or(std::vector<store::RateRecord>())) {
    choose(u"");
}

std::vector<std::u16string> ClientOffer::clients() const {
    std::vector<std::u16string> names;
    for (const store::ClientRecord& client : clients_)
        names.push_back(client.name);
    return names;
}

void ClientOffer::choose(std::u16string_view name) {
    chosen_ = name;
    const auto found = std::ranges::find(clients_, name, &store::ClientRecord::name);
    tree_ = found != clients_.end() ? store::clientTree(stores_, *found) : std::nullopt;
    const std::vector<store::RateRecord> none;
    rates_ = billing::offeredRates(tree_ ? tree_->rates : none, everyClientsRates_);
}

} // namespace hourwright::desktop
