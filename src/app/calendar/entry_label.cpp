#include "app/calendar/entry_label.h"

#include "billing/duration.h"
#include "platform/number_text.h"
#include "resources/strings.h"

#include <algorithm>
#include <initializer_list>

namespace hourwright::app {

namespace {

using platform::Locale;
using store::TimeEntry;

std::u16string joined(std::initializer_list<std::u16string_view> parts, std::u16string_view separator) {
    std::u16string text;
    for (const auto part : parts)
        if (!part.empty())
            (text += text.empty() ? std::u16string_view() : separator) += part;
    return text;
}

std::optional<platform::SystemTime> startOf(const TimeEntry& entry) {
    return store::hasStart(entry) ? platform::toSystemTime(entry.date) : std::nullopt;
}

std::u16string hoursOf(const TimeEntry& entry, const Locale& locale) {
    return locale.number(billing::formatHours(entry)) + u'h';
}

std::u16string endOf(const TimeEntry& entry, const Locale& locale) {
    const auto start = startOf(entry);
    return start ? locale.timeWithoutSeconds(billing::endTime(*start, entry)) : std::u16string();
}

std::u16string timeText(const TimeEntry& entry, EntryTimeShown shown, const Locale& locale) {
    const auto start = startOf(entry);
    switch (shown) {
    case EntryTimeShown::none: return {};
    case EntryTimeShown::duration: return hoursOf(entry, locale);
    case EntryTimeShown::start: return start ? locale.timeWithoutSeconds(*start) : hoursOf(entry, locale);
    case EntryTimeShown::startAndEnd: return start ? startAndEnd(entry, locale) : hoursOf(entry, locale);
    }
    return {};
}

std::u16string_view statusName(store::EntryStatus status) {
    using resources::StringId;
    const auto number = std::min<std::uint16_t>(static_cast<std::uint16_t>(status), 3);
    return resources::string(static_cast<StringId>(resources::number(StringId::statusNonBillable) + number));
}

std::u16string fullText(const TimeEntry& entry, const Locale& locale) {
    const std::u16string when = joined({startAndEnd(entry, locale), hoursOf(entry, locale)}, u" · ");
    const std::u16string where = joined({entry.client, entry.project, entry.phase}, u" · ");
    return joined({when, where, entry.task, entry.billTo, statusName(entry.status)}, u"\n");
}

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'-' || unit == u'&' || unit == u'/';
}

// The letter at a place, both units of one outside the basic plane.
std::u16string_view letterAt(std::u16string_view text, std::size_t at) {
    const bool pair = text[at] >= 0xD800 && text[at] < 0xDC00;
    return text.substr(at, pair ? 2 : 1);
}

} // namespace

std::u16string initialsOf(std::u16string_view name) {
    std::u16string initials;
    int letters = 0;
    for (std::size_t i = 0; i < name.size() && letters < 2; ++i)
        if (!isBlank(name[i]) && (i == 0 || isBlank(name[i - 1]))) {
            initials += letterAt(name, i);
            ++letters;
        }
    if (letters == 1 && initials.size() < name.size()) {
        const auto first = name.find(initials);
        if (const auto next = first + initials.size(); next < name.size() && !isBlank(name[next]))
            initials += letterAt(name, next);
    }
    return initials;
}

std::u16string shortTime(const platform::SystemTime& time, const Locale& locale) {
    std::u16string text = locale.timeWithoutSeconds(time);
    if (const auto zero = text.find(u":00 "); zero != std::u16string::npos)
        text.erase(zero, 3);
    return text;
}

std::u16string startAndEnd(const TimeEntry& entry, const Locale& locale) {
    const auto start = startOf(entry);
    if (!start)
        return {};
    const std::u16string from = locale.timeWithoutSeconds(*start);
    const bool hasLength = billing::minutesOfDuration(entry) + billing::minutesOfBreak(entry) > 0;
    return hasLength ? from + u" – " + endOf(entry, locale) : from;
}

EntryLabel entryLabel(const TimeEntry& entry, const DisplaySettings& display, const Locale& locale) {
    EntryLabel label;
    label.time = timeText(entry, display.entryTime, locale);
    if (const auto start = startOf(entry); start && display.entryTime != EntryTimeShown::none)
        label.start = shortTime(*start, locale);
    const std::u16string_view client = display.showClientName ? std::u16string_view(entry.client) : u"";
    label.title = joined({client, entry.project}, u" · ");
    label.detail = joined({entry.phase, entry.task}, u" · ");
    if (label.title.empty())
        std::swap(label.title, label.detail);
    label.initials = initialsOf(client.empty() ? std::u16string_view(label.title) : client);
    label.full = fullText(entry, locale);
    return label;
}

std::u16string entryLine(const TimeEntry& entry, const Locale& locale) {
    const auto start = startOf(entry);
    const auto day = platform::toSystemTime(entry.date);
    std::u16string line = day ? locale.shortDate(*day) : std::u16string();
    for (const std::u16string& part :
         {start ? locale.timeWithoutSeconds(*start) : std::u16string(), endOf(entry, locale),
          billing::formatHours(entry), entry.client, entry.project, entry.phase, entry.task})
        (line += u'\t') += part;
    return line;
}

} // namespace hourwright::app
