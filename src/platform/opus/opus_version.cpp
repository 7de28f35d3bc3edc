#include "platform/opus/opus_version.h"

#include <opus/opus.h>

namespace hourwright::platform {

// The library says "libopus 1.3.1".
std::string opusVersion() {
    const std::string text = opus_get_version_string();
    return text.substr(text.rfind(' ') + 1);
}

} // namespace hourwright::platform
