#pragma once

#include "platform/store_copies.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// The text that describes a copy in its folder: a line a fact, name and value.
[[nodiscard]] std::string describeCopy(const StoreCopy& copy);

/// The copy of that name with what such a text says; nothing when it is none of a version that is understood.
[[nodiscard]] std::optional<StoreCopy> parseCopyDescription(std::string_view name, std::string_view text);

/// Digests by file name, in the form that sha256sum reads and writes.
using FileDigests = std::map<std::string, std::string>;
[[nodiscard]] std::string digestLines(const FileDigests& digests);
/// Nothing when a line is not of that form or names a file of another folder.
[[nodiscard]] std::optional<FileDigests> parseDigestLines(std::string_view text);

} // namespace hourwright::platform
