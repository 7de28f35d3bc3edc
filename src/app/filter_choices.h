#pragma once

#include "platform/locale.h"
#include "store/client_tree.h"
#include "store/pick_lists.h"

#include <string>
#include <string_view>
#include <vector>

namespace hourwright::app {

using Texts = std::vector<std::u16string>;

/// The texts that filters, criteria and replacements offer for a field: those of the client structure and the learned
/// lists, each once, in the locale's order. It reads when it is made, and
/// borrows the locale.
class FilterChoices {
public:
    /// Lists that cannot be read are empty: any text may be typed.
    FilterChoices(store::Stores& stores, const platform::Locale& userLocale);

    [[nodiscard]] Texts clients() const;
    /// Of a client; of all clients when it is empty. A client that is not known has none.
    [[nodiscard]] Texts projects(std::u16string_view client) const;
    /// As above; of the project when the client has it.
    [[nodiscard]] Texts tasks(std::u16string_view client, std::u16string_view project) const;
    [[nodiscard]] Texts contacts(std::u16string_view client) const;
    [[nodiscard]] const Texts& list(store::PickList list) const;

private:
    template<typename Pick>
    [[nodiscard]] Texts collect(std::u16string_view client, Pick pick) const;
    [[nodiscard]] Texts sorted(Texts texts) const;

    const platform::Locale& locale_;
    std::vector<store::ClientTree> trees_;
    std::vector<std::pair<store::PickList, Texts>> lists_;
};

} // namespace hourwright::app
