#pragma once

#include "billing/entry_draft.h"
#include "cli/session.h"

#include <optional>

namespace hourwright::cli {

/// What the FIELDS of a command line say, read into a draft. On failure the message has been shown and the command's
/// exit code is returned.
[[nodiscard]] std::optional<ExitCode> readEntryFields(Session& session, const Arguments& arguments,
                                                      billing::EntryDraft& draft);

/// Shows why a draft was refused.
ExitCode showRefusal(Session& session, const billing::DraftRefusal& refusal);

/// The instant that an accepted date of payment means: that day at 00:00; zero for an empty text. Nothing, with the
/// message shown, when it cannot be stored.
[[nodiscard]] std::optional<platform::FileTime> paidDateOf(Session& session, std::string_view date);

} // namespace hourwright::cli
