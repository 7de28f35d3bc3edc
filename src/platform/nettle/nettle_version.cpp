#include "platform/nettle/nettle_version.h"

#include <nettle/version.h>

namespace hourwright::platform {

std::string nettleVersion() {
    return std::to_string(nettle_version_major()) + "." + std::to_string(nettle_version_minor());
}

} // namespace hourwright::platform
