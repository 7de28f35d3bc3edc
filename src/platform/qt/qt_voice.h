#pragma once

#include "platform/voice.h"

namespace hourwright::platform {

/// The microphone and the loudspeaker that the desktop has chosen. Finding them takes a moment.
[[nodiscard]] VoiceDevices makeQtVoiceDevices();

} // namespace hourwright::platform
