#pragma once

#include "billing/field_refusal.h"
#include "cli/joined.h"
#include "cli/session.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace hourwright::cli {

/// The option that a field of a draft is given by.
template<typename Field>
struct FieldOption {
    Field field;
    const OptionSpec* option;
};

/// Shows why a field of a draft was refused; `what` names the record for people.
template<typename Field>
ExitCode showRefusal(Session& session, const billing::FieldRefusal<Field>& refusal,
                     std::span<const FieldOption<Field>> options, std::string_view what) {
    if (refusal.error == platform::PlatformError::none)
        return session.refuse(refusal.message);
    const auto row = std::ranges::find(options, refusal.field, &FieldOption<Field>::field);
    const std::string_view name = row != options.end() ? row->option->name : "";
    return session.fail(refusal.error, joined({"The ", what, " cannot hold the value of ", name, "."}));
}

} // namespace hourwright::cli
