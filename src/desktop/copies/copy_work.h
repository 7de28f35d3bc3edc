#pragma once

#include "app/copy_work.h"

namespace hourwright::desktop {

/// Runs work at copies on a thread of its own, with a progress bar once it takes longer than a moment. Returns when it
/// has ended.
void runCopyWork(const app::CopyWork& work, const std::function<void(const platform::KeepGoing&)>& run);

} // namespace hourwright::desktop
