#include "platform/remembering_locale.h"

namespace hourwright::platform {

namespace {

constexpr std::size_t mostRemembered = 16'384;

template<typename Map, typename Key, typename Make>
const std::u16string& remembered(Map& map, const Key& key, Make make) {
    if (const auto found = map.find(key); found != map.end())
        return found->second;
    if (map.size() >= mostRemembered)
        map.clear();
    return map.emplace(key, make()).first->second;
}

} // namespace

std::u16string RememberingLocale::shortDate(const SystemTime& date) const {
    const std::uint32_t key = std::uint32_t{date.year} << 16 | std::uint32_t{date.month} << 8 | date.day;
    return remembered(dates_, key, [&] { return locale_.shortDate(date); });
}

std::u16string RememberingLocale::timeWithoutSeconds(const SystemTime& time) const {
    const std::uint32_t key = std::uint32_t{time.hour} << 8 | time.minute;
    return remembered(times_, key, [&] { return locale_.timeWithoutSeconds(time); });
}

std::u16string RememberingLocale::number(std::u16string_view plain) const {
    return remembered(numbers_, plain, [&] { return locale_.number(plain); });
}

} // namespace hourwright::platform
