#pragma once

#include "platform/locale.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/store_copies.h"

#include <optional>

namespace hourwright::app {

/// Says what the user must know of the copy of the day, if anything: that it could not be made, or that records are
/// damaged, each once until a copy was made again. In the second case the newest copy is offered; true when the user
/// wants it. The wish is kept for the next start then.
[[nodiscard]] bool tellOfCopy(const std::optional<platform::MadeCopy>& made, platform::StoreCopies& copies,
                              platform::Registry& registry, const platform::Locale& locale,
                              platform::MessageBox& messages);

/// Restores the copy that was wished for before, once, and shows how that ended. To be called before the records are
/// opened.
void restoreWishedCopy(platform::StoreCopies& copies, platform::Registry& registry, const platform::SystemTime& now,
                       platform::MessageBox& messages);

} // namespace hourwright::app
