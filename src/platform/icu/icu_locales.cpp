#include "platform/icu/icu_locales.h"

#include "platform/icu/icu_locale.h"
#include "platform/locale_names.h"

#include <string>

namespace hourwright::platform {

namespace {

std::unique_ptr<Locale> makeLocale(const std::string& name) {
    auto locale = makeIcuLocale(name);
    return locale ? std::move(locale) : makeIcuLocale("C");
}

} // namespace

Locales makeLocales(std::optional<std::string_view> given, const Environment& environment) {
    if (given)
        return {makeLocale(std::string(*given)), makeLocale(std::string(*given))};
    std::optional<std::string> value; // keeps the text of the last variable looked up
    const auto lookUp = [&](const char* name) {
        value = environment(name);
        return value ? value->c_str() : nullptr;
    };
    return {makeLocale(userLocaleName(lookUp)), makeLocale(systemLocaleName(lookUp))};
}

} // namespace hourwright::platform
