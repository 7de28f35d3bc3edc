#pragma once

#include "app/copy_work.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/message_box.h"
#include "platform/store_copies.h"

#include <optional>

namespace hourwright::app {

/// Makes a copy and, once it is there, deletes those that need not be kept any longer. After a failure nothing is
/// deleted. Before anything is, all newer copies that stay are verified: a damaged one takes no sound one's place.
[[nodiscard]] platform::MadeCopy makeCopy(platform::StoreCopies& copies, const platform::SystemTime& now,
                                          const platform::KeepGoing& keepGoing);

/// The same when one is due; nothing otherwise. That nothing was written since the newest one is no reason to do
/// without when that one is damaged.
[[nodiscard]] std::optional<platform::MadeCopy>
makeDueCopy(platform::StoreCopies& copies, const platform::SystemTime& now, const platform::KeepGoing& keepGoing);

/// The newest copy that has this part and verifies; nothing when there is none.
[[nodiscard]] std::optional<platform::StoreCopy> newestSoundCopy(platform::StoreCopies& copies,
                                                                 platform::CopyPart part = platform::CopyPart::records);
/// The newest copy of the records that verifies, by a search that the user may end; nothing then either.
[[nodiscard]] std::optional<platform::StoreCopy> newestSoundCopy(platform::StoreCopies& copies,
                                                                 const CopyWorkRunner& run);

/// "%s" and "%s" of a message replaced by the date and the number of records of a copy.
[[nodiscard]] std::u16string withCopy(resources::StringId id, const platform::StoreCopy& copy,
                                      const platform::Locale& locale);

/// Asks one of the two questions about restoring a copy; the default is No.
[[nodiscard]] bool askToRestore(platform::MessageBox& messages, resources::StringId question,
                                const platform::StoreCopy& copy, const platform::Locale& locale);

/// Restores records or settings; a failure is shown.
[[nodiscard]] platform::RestoredCopy restoreCopy(platform::StoreCopies& copies, const platform::StoreCopy& copy,
                                                 platform::CopyPart part, const platform::SystemTime& now,
                                                 platform::MessageBox& messages, const CopyWorkRunner& run = runAtOnce);

/// Says that a copy was restored and where the file is that was there before.
void showRestored(platform::MessageBox& messages, const platform::RestoredCopy& restored);

/// For records that cannot be opened because they are damaged: looks for the newest copy that verifies and offers it.
/// True when it was restored; false, and nothing changed, when there is none or the user does not want it.
[[nodiscard]] bool offerCopy(platform::StoreCopies& copies, const platform::SystemTime& now,
                             const platform::Locale& locale, platform::MessageBox& messages,
                             const CopyWorkRunner& run = runAtOnce);

} // namespace hourwright::app
