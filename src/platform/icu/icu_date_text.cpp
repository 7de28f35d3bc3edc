#include "platform/icu/icu_date_text.h"

#include <algorithm>
#include <limits>
#include <new>

namespace hourwright::platform {

namespace {

constexpr std::uint64_t noDay = std::numeric_limits<std::uint64_t>::max();
constexpr std::size_t daysKept = 512;
constexpr std::size_t minutesOfDay = 24 * 60;

constexpr double millisecondsPerMinute = 60'000;
constexpr double millisecondsPerDay = 24 * 60 * millisecondsPerMinute;
/// Days from 1 January 1601 to 1 January 1970.
constexpr double daysBefore1970 = 134'774;

icu::Locale formattingLocale(const std::string& name) {
    // Naming the zone keeps the library from looking for the machine's.
    return icu::Locale((name + "@calendar=gregorian;numbers=latn;timezone=Etc/GMT").c_str());
}

bool isSpecialBlank(char16_t c) {
    return c == u'\u00A0' || c == u'\u202F';
}

std::optional<NumericDate> numericDateOf(const icu::DateFormat& format) {
    const auto* const simple = dynamic_cast<const icu::SimpleDateFormat*>(&format);
    if (simple == nullptr)
        return std::nullopt;
    icu::UnicodeString pattern;
    simple->toPattern(pattern);
    std::u16string text(pattern.getBuffer(), static_cast<std::size_t>(pattern.length()));
    std::ranges::replace_if(text, isSpecialBlank, u' ');
    return NumericDate::parse(text);
}

template<typename Made>
std::unique_ptr<Made> owned(Made* made) {
    if (made == nullptr)
        throw std::bad_alloc{};
    return std::unique_ptr<Made>{made};
}

std::unique_ptr<icu::Calendar> makeCalendar(const icu::Locale& locale) {
    // Its change from the Julian calendar lies in 1582, before the first date there is.
    UErrorCode status = U_ZERO_ERROR;
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), locale, status);
    if (U_FAILURE(status))
        throw std::bad_alloc{};
    return calendar;
}

} // namespace

IcuDateText::IcuDateText(const std::string& icuLocaleName) : days_(daysKept, {noDay, {}}), minutes_(minutesOfDay) {
    const icu::Locale locale = formattingLocale(icuLocaleName);
    calendar_ = makeCalendar(locale);
    date_ = owned(icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
    numericDate_ = numericDateOf(*date_);
    time_ = owned(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale));
}

std::u16string IcuDateText::shortDate(const SystemTime& date) {
    const std::optional<FileTime> instant = toFileTime(date);
    if (!instant)
        return {};
    const std::uint64_t day = instant->ticks / ticksPerDay;
    DayText& kept = days_[day % daysKept];
    if (kept.day != day) {
        kept.text = numericDate_ ? numericDate_->text(date)
                                 : format(*date_, (static_cast<double>(day) - daysBefore1970) * millisecondsPerDay);
        kept.day = day;
    }
    return kept.text;
}

std::u16string IcuDateText::timeWithoutSeconds(const SystemTime& time) {
    if (time.hour > 23 || time.minute > 59)
        return {};
    const std::size_t minute = time.hour * std::size_t{60} + time.minute;
    std::u16string& kept = minutes_[minute];
    if (kept.empty())
        kept = format(*time_, static_cast<double>(minute) * millisecondsPerMinute);
    return kept;
}

std::u16string IcuDateText::format(const icu::DateFormat& format, double millisecondsSince1970) {
    UErrorCode status = U_ZERO_ERROR;
    calendar_->setTime(millisecondsSince1970, status);
    icu::UnicodeString text;
    icu::FieldPosition anywhere(icu::FieldPosition::DONT_CARE);
    format.format(*calendar_, text, anywhere);
    std::u16string result(text.getBuffer(), static_cast<std::size_t>(text.length()));
    std::ranges::replace_if(result, isSpecialBlank, u' ');
    return result;
}

} // namespace hourwright::platform
