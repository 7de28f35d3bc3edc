#pragma once

#include "cli/session.h"
#include "store/stores.h"

#include <functional>
#include <optional>
#include <string_view>

namespace hourwright::cli {

/// The record id in a text that was accepted as one.
[[nodiscard]] store::RecordId recordIdOf(std::string_view text);

/// Makes the record with this id the current one of its store. False, with the message shown, when there is none;
/// `what` names it for people.
[[nodiscard]] bool seekRecord(Session& session, store::RecordStore& records, store::RecordId id, std::string_view what);

/// Works on each record id that the positional arguments name, once each and in one transaction of that name: the first
/// failure, which `work` has shown and returns, takes everything back.
[[nodiscard]] ExitCode forEachRecordId(
    Session& session, const Arguments& arguments, const resources::Text& name,
    const std::function<std::optional<ExitCode>(platform::Transaction&, store::Stores&, store::RecordId)>& work);

} // namespace hourwright::cli
