#pragma once

#include "billing/selected_records.h"
#include "cli/session.h"
#include "store/stores.h"

#include <functional>
#include <span>
#include <string_view>

namespace hourwright::cli {

/// The record id in a text that was accepted as one.
[[nodiscard]] store::RecordId recordIdOf(std::string_view text);

/// Makes the record with this id the current one of its store. False, with the message shown, when there is none;
/// `what` names it for people.
[[nodiscard]] bool seekRecord(Session& session, store::RecordStore& records, store::RecordId id, std::string_view what);

/// Changes the records that the positional arguments name, each once, in one transaction of that name. A failure, or an
/// id that is no record's, takes everything back.
[[nodiscard]] ExitCode changeRecords(
    Session& session, const Arguments& arguments, const resources::Text& name, billing::Selected kind,
    const std::function<bool(platform::Transaction&, store::Stores&, std::span<const store::RecordId>)>& change);

} // namespace hourwright::cli
