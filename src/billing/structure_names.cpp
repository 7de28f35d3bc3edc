#include "billing/structure_names.h"

namespace hourwright::billing {

using resources::StringId;

namespace {

constexpr NameRefusal invalid{StringId::error, platform::PlatformError::invalidParameter};

} // namespace

std::optional<NameRefusal> checkName(std::u16string_view name) {
    return name.size() > maxNameLength ? std::optional(invalid) : std::nullopt;
}

std::optional<NameRefusal> checkClientName(std::u16string_view name) {
    if (name.empty())
        return NameRefusal{StringId::clientMissing};
    if (name == resources::string(StringId::defaultRates))
        return invalid;
    return checkName(name);
}

} // namespace hourwright::billing
