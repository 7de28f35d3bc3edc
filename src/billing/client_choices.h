#pragma once

#include "billing/entry_draft.h"
#include "billing/expense_draft.h"
#include "store/client_tree.h"

#include <string>
#include <string_view>
#include <vector>

namespace hourwright::billing {

/// The texts that an editor offers once a client is chosen. They are proposals: any text may be typed instead.
struct ClientChoices {
    std::vector<std::u16string> projects;
    std::vector<std::u16string> tasks;
    std::vector<std::u16string> contacts;

    friend bool operator==(const ClientChoices&, const ClientChoices&) = default;
};

/// What a client offers (null: the client is not known, and offers nothing). The tasks are those of the project when
/// the client has it, else those of the client itself. Phases belong to no client and are not narrowed.
[[nodiscard]] ClientChoices choicesOf(const store::ClientTree* client, std::u16string_view project);

/// Goes over to another client: project, task and contact that were picked from the former client's lists are cleared
/// unless the new client offers them too. What was typed freely stays. Only texts in the draft are looked at; the
/// client's name in it is the caller's business.
void changeClient(EntryDraft& draft, const store::ClientTree* former, const store::ClientTree* client);
void changeClient(ExpenseDraft& draft, const store::ClientTree* former, const store::ClientTree* client);

} // namespace hourwright::billing
