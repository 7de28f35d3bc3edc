#pragma once

#include "app/copy_work.h"
#include "platform/locale.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/store_copies.h"

#include <optional>

namespace hourwright::app {

/// Says what the user must know of the copy of the day, if anything: that it could not be made, or that records are
/// damaged, each once until a copy was made again. In the second case the newest sound copy is looked for and offered;
/// true when the user wants it. The wish is kept for the next start then.
[[nodiscard]] bool tellOfCopy(const std::optional<platform::MadeCopy>& made, platform::StoreCopies& copies,
                              platform::Registry& registry, const platform::Locale& locale,
                              platform::MessageBox& messages, const CopyWorkRunner& run = runAtOnce);

/// What the user is told of a copy that he asked for. True when records are damaged and he wants the newest sound copy
/// back.
[[nodiscard]] bool tellOfWishedCopy(const platform::MadeCopy& made, platform::StoreCopies& copies,
                                    platform::Registry& registry, const platform::Locale& locale,
                                    platform::MessageBox& messages, const CopyWorkRunner& run = runAtOnce);

/// Asks whether to go back to a copy and, when it verifies, keeps that wish for the next start; true then, and the
/// program is to end. A damaged copy is refused.
[[nodiscard]] bool wishForCopy(const platform::StoreCopy& copy, platform::StoreCopies& copies,
                               platform::Registry& registry, const platform::Locale& locale,
                               platform::MessageBox& messages, const CopyWorkRunner& run);

/// Takes the wish back: the program did not end, and what is recorded from now on must not get lost.
void forgetWishedCopy(platform::Registry& registry);

/// Restores the copy that was wished for before, once, and shows how that ended. To be called before the records are
/// opened.
void restoreWishedCopy(platform::StoreCopies& copies, platform::Registry& registry, const platform::SystemTime& now,
                       platform::MessageBox& messages, const CopyWorkRunner& run = runAtOnce);

} // namespace hourwright::app
