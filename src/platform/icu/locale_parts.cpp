#include "platform/icu/locale_parts.h"

#include <algorithm>
#include <unicode/uloc.h>
#include <vector>

namespace hourwright::platform {

namespace {

constexpr bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
constexpr bool isLetter(char c) {
    return isUpper(c) || (c >= 'a' && c <= 'z');
}
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr char lower(char c) {
    return isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char upper(char c) {
    return isLetter(c) && !isUpper(c) ? static_cast<char>(c - 'a' + 'A') : c;
}

bool areLetters(std::string_view text) {
    return std::ranges::all_of(text, isLetter);
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

std::string uppered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upper);
    return result;
}

// Cuts the part behind a mark off `name`; false when the mark is there with nothing proper behind it.
bool cutSuffix(std::string_view& name, char mark, std::string_view& suffix) {
    const std::size_t at = name.find(mark);
    if (at == std::string_view::npos)
        return true;
    suffix = name.substr(at + 1);
    name = name.substr(0, at);
    const auto isProper = [](char c) { return isLetter(c) || isDigit(c) || c == '-' || c == '_' || c == ':'; };
    return !suffix.empty() && std::ranges::all_of(suffix, isProper);
}

std::vector<std::string_view> split(std::string_view name) {
    std::vector<std::string_view> parts;
    for (std::size_t at = name.find_first_of("_-"); at != std::string_view::npos; at = name.find_first_of("_-")) {
        parts.push_back(name.substr(0, at));
        name.remove_prefix(at + 1);
    }
    parts.push_back(name);
    return parts;
}

// What the modifiers of the C library's locales mean.
std::string scriptOfModifier(std::string_view modifier) {
    if (modifier == "latin")
        return "Latn";
    if (modifier == "cyrillic")
        return "Cyrl";
    if (modifier == "devanagari")
        return "Deva";
    return {};
}

bool takeLanguage(std::string_view part, LocaleParts& out) {
    if (part.size() < 2 || part.size() > 3 || !areLetters(part))
        return false;
    out.language = lowered(part);
    return *uloc_getISO3Language(out.language.c_str()) != '\0';
}

bool takeScript(std::string_view part, LocaleParts& out) {
    if (part.size() != 4 || !areLetters(part) || !out.script.empty() || !out.territory.empty())
        return false;
    out.script = uppered(part.substr(0, 1)) + lowered(part.substr(1));
    return true;
}

bool takeTerritory(std::string_view part, LocaleParts& out) {
    if (!out.territory.empty())
        return false;
    out.territory = uppered(part);
    if (part.size() == 3)
        return std::ranges::all_of(part, isDigit);
    return part.size() == 2 && areLetters(part) && *uloc_getISO3Country(("und_" + out.territory).c_str()) != '\0';
}

} // namespace

std::optional<LocaleParts> parseLocaleName(std::string_view name) {
    std::string_view modifier;
    std::string_view codeset;
    if (!cutSuffix(name, '@', modifier) || !cutSuffix(name, '.', codeset))
        return std::nullopt;
    if (name == "C" || name == "POSIX")
        return LocaleParts{.language = "en", .script = {}, .territory = "US"};
    const std::vector<std::string_view> parts = split(name);
    LocaleParts result;
    if (!takeLanguage(parts.front(), result))
        return std::nullopt;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (!takeScript(parts[i], result) && !takeTerritory(parts[i], result))
            return std::nullopt;
    if (result.script.empty())
        result.script = scriptOfModifier(modifier);
    return result;
}

} // namespace hourwright::platform
