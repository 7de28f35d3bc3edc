#pragma once

#include "app/demo/demo_history.h"
#include "store/stores.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace hourwright::app::demo {

enum class DemoResult : std::uint8_t {
    done,
    notEmpty, ///< the store holds entries, expenses or clients; nothing was written
    failed,   ///< the store's last error says why; nothing was written
};

/// Makes the bytes of a note from its plain text.
using NoteEncoder = std::function<std::vector<std::byte>(std::u16string_view)>;

/// Fills the open and empty stores with a made-up history, its client structure and its pick lists, in one
/// transaction. Other writers wait until it is done.
[[nodiscard]] DemoResult fillWithDemoHistory(store::Stores& stores, const DemoOptions& options,
                                             const NoteEncoder& encodeNote);

} // namespace hourwright::app::demo
