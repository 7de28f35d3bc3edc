#include "platform/icu/icu_version.h"

#include <array>
#include <unicode/uversion.h>

namespace hourwright::platform {

std::string icuVersion() {
    UVersionInfo version{};
    std::array<char, U_MAX_VERSION_STRING_LENGTH> text{};
    u_getVersion(version);
    u_versionToString(version, text.data());
    return text.data();
}

} // namespace hourwright::platform
