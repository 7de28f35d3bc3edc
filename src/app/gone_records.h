#pragma once

#include "app/copy_work.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/message_box.h"

#include <filesystem>

namespace hourwright::app {

/// True when the file of the records is not there or empty although there are copies of it. A damaged one is there, and
/// removing all data leaves it.
[[nodiscard]] bool recordsAreGone(platform::StoreCopies& copies, const std::filesystem::path& file);

/// For a start, before records are opened, which makes a file that is not there: when the records are gone, looks for
/// the newest copy that verifies, and asks whether to put it in place, to begin without records, or to end. True when
/// the records may be opened.
[[nodiscard]] bool settleGoneRecords(platform::StoreCopies& copies, const std::filesystem::path& file,
                                     const platform::SystemTime& now, const platform::Locale& locale,
                                     platform::MessageBox& messages, const CopyWorkRunner& run);

} // namespace hourwright::app
