#pragma once

#include "app/period.h"
#include "cli/session.h"

#include <cstdint>
#include <optional>

namespace hourwright::cli {

/// Which stored view kind decides when no period is named.
enum class PeriodView : std::uint8_t { entries, expenses };

/// The period that --day, --week, --month or --custom names; without any, that of the stored view kind and today.
/// Nothing, with the message shown, when there is no such period.
[[nodiscard]] std::optional<app::Period> periodOption(Session& session, const Arguments& arguments,
                                                      PeriodView view = PeriodView::entries);

/// The period of a kind around a day of which the text is an accepted date (nothing: today). Nothing, with the message
/// shown, when there is no such period.
[[nodiscard]] std::optional<app::Period> periodAround(Session& session, app::PeriodKind kind,
                                                      std::optional<std::string_view> date);

} // namespace hourwright::cli
