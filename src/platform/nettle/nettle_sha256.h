#pragma once

#include "platform/digest.h"

#include <memory>

namespace hourwright::platform {

/// A SHA-256 digest, 64 digits; never null.
[[nodiscard]] std::unique_ptr<Digest> makeSha256();

} // namespace hourwright::platform
