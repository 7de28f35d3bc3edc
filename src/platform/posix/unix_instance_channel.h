#pragma once

#include "platform/instance_channel.h"

#include <filesystem>
#include <memory>

namespace hourwright::platform {

/// The channel in a folder that only its owner can enter: a kernel lock decides who runs, a local socket beside it
/// carries the messages. The folder is made when only it is missing. Files that a crashed program left do no harm.
[[nodiscard]] std::unique_ptr<InstanceChannel> makeInstanceChannel(const std::filesystem::path& folder);

} // namespace hourwright::platform
