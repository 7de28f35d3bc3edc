#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// What the name of a locale says: "sr_RS.UTF-8@latin" is language sr, script Latn, territory RS. Script and territory
/// may be empty.
struct LocaleParts {
    std::string language;
    std::string script;
    std::string territory;

    friend bool operator==(const LocaleParts&, const LocaleParts&) = default;
};

/// Takes a locale's name apart: language[_Script][_TERRITORY][.codeset][@modifier], with "-" as good as "_". The
/// codeset is ignored, and so is a modifier that names no script. "C" and "POSIX" are American English. Nothing for
/// a malformed name or a language or territory that does not exist.
[[nodiscard]] std::optional<LocaleParts> parseLocaleName(std::string_view name);

} // namespace hourwright::platform
