#include "platform/locale_names.h"

#include <initializer_list>

namespace hourwright::platform {

namespace {

std::string firstSet(const EnvironmentLookup& environment, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        const char* const value = environment(name);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return "C";
}

} // namespace

std::string userLocaleName(const EnvironmentLookup& environment) {
    return firstSet(environment, {"LC_ALL", "LC_TIME", "LANG"});
}

std::string systemLocaleName(const EnvironmentLookup& environment) {
    return firstSet(environment, {"LC_ALL", "LANG"});
}

} // namespace hourwright::platform
