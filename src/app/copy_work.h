#pragma once

#include "platform/store_copies.h"
#include "resources/text.h"

#include <functional>

namespace hourwright::app {

/// Work at copies that may take long, as the user is told of it.
struct CopyWork {
    resources::Text label;
    bool mayCancel = false;
};

/// Runs such work and returns when it has ended. A face may use another thread for it and go on showing that it lives;
/// nothing else touches the copies meanwhile.
using CopyWorkRunner = std::function<void(const CopyWork&, const std::function<void(const platform::KeepGoing&)>&)>;

/// Runs it here and now, to its end.
inline void runAtOnce(const CopyWork& /*work*/, const std::function<void(const platform::KeepGoing&)>& run) {
    run([] { return true; });
}

} // namespace hourwright::app
