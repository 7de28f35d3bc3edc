#pragma once

#include "billing/expense_draft.h"
#include "cli/session.h"

#include <optional>

namespace hourwright::cli {

/// What the FIELDS of a command line say, read into a draft. On failure the message has been shown and the command's
/// exit code is returned.
[[nodiscard]] std::optional<ExitCode> readExpenseFields(Session& session, const Arguments& arguments,
                                                        billing::ExpenseDraft& draft);

/// Shows why a draft was refused.
ExitCode showRefusal(Session& session, const billing::ExpenseRefusal& refusal);

} // namespace hourwright::cli
