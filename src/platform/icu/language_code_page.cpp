#include "platform/icu/language_code_page.h"

#include <algorithm>
#include <array>

namespace hourwright::platform {

namespace {

constexpr std::uint32_t western = 1252;

/// Languages, separated by blanks, that use a code page when written in a script, or in any when none is named.
struct LanguageGroup {
    std::uint32_t codePage;
    std::string_view script;
    std::string_view languages;
};

// The first row that fits decides, so a language's less usual scripts stand above its usual one.
constexpr std::array groups{
    LanguageGroup{1250, "Latn", "sr"},
    LanguageGroup{1251, "Cyrl", "az bs crh ku ro sh tk uz"},
    LanguageGroup{western, "Latn", "ks kk ky mn pa sd tg tt ug ur yi"},
    LanguageGroup{1256, "Arab", "az kk ks ku ky ms pa sd tg tk tr tt uz"},
    LanguageGroup{936, "Hans", "cmn hak lzh nan yue zh"},
    LanguageGroup{950, "Hant", "cmn hak lzh nan yue zh"},

    LanguageGroup{1250, "", "bs cs csb dsb hr hsb hu pl ro sh sk sl sq szl tk"},
    LanguageGroup{1251, "", "ab ba be bg bua ce cv kk kv ky mhr mk mn mrj myv os ru rue sah sr tg tt udm uk"},
    LanguageGroup{1253, "", "el grc"},
    LanguageGroup{1254, "", "az crh gag ku tr uz"},
    LanguageGroup{1255, "", "he iw ji yi"},
    LanguageGroup{1256, "", "ar arz ckb fa lrc mzn prs ps sd ug ur"},
    LanguageGroup{1257, "", "et lt ltg lv sgs"},
    LanguageGroup{1258, "", "vi"},
    LanguageGroup{874, "", "th"},
    LanguageGroup{932, "", "ja"},
    LanguageGroup{936, "", "cmn zh"},
    LanguageGroup{949, "", "ko"},
    LanguageGroup{950, "", "hak lzh nan yue"},
};

bool hasWord(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (words.substr(0, end) == word)
            return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

// Taiwan, Hong Kong and Macau write Chinese in the traditional way unless the name says otherwise, China and
// Singapore in the simplified one.
std::string_view scriptOf(const LocaleParts& locale) {
    if (!locale.script.empty())
        return locale.script;
    if (locale.territory == "TW" || locale.territory == "HK" || locale.territory == "MO")
        return "Hant";
    return {};
}

} // namespace

std::uint32_t ansiCodePageOf(const LocaleParts& locale) {
    const std::string_view script = scriptOf(locale);
    const auto fits = [&](const LanguageGroup& group) {
        return (group.script.empty() || group.script == script) && hasWord(group.languages, locale.language);
    };
    const auto found = std::ranges::find_if(groups, fits);
    return found != groups.end() ? found->codePage : western;
}

} // namespace hourwright::platform
