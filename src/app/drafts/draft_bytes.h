#pragma once

#include "app/drafts/kept_draft.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace hourwright::app {

/// What is being edited as bytes, and back. Nothing for bytes that were not made so.
[[nodiscard]] std::vector<std::byte> draftBytes(const KeptRecord& record);
[[nodiscard]] std::optional<KeptRecord> draftFromBytes(std::span<const std::byte> bytes);

} // namespace hourwright::app
