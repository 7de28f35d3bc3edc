#include "exchange/icalendar.h"

#include "billing/duration.h"
#include "exchange/iso_dates.h"
#include "platform/calendar.h"
#include "platform/number_text.h"
#include "platform/utf.h"
#include "resources/strings.h"

#include <algorithm>

namespace hourwright::exchange {

using platform::SystemTime;

namespace {

constexpr std::size_t longestLine = 75; // bytes, without the line break
constexpr std::uint16_t lastYear = 9999;

std::string dayStamp(const SystemTime& time) {
    std::string out;
    appendPadded(out, time.year, 4);
    appendPadded(out, time.month, 2);
    appendPadded(out, time.day, 2);
    return out;
}

std::string timeStamp(const SystemTime& time) {
    std::string out = dayStamp(time) + 'T';
    appendPadded(out, time.hour, 2);
    appendPadded(out, time.minute, 2);
    return out + "00";
}

std::string escaped(std::u16string_view text) {
    std::string out;
    for (const char c : platform::printableUtf8(text)) {
        if (c == '\n')
            out += "\\n";
        else if (c == '\\' || c == ';' || c == ',')
            (out += '\\') += c;
        else if (static_cast<unsigned char>(c) >= 0x20 || c == '\t')
            out += c;
    }
    return out;
}

// Long lines are folded between characters: a continuation begins with a blank.
void appendFolded(std::string& out, std::string_view line) {
    std::size_t room = longestLine;
    while (line.size() > room) {
        std::size_t cut = room;
        while ((static_cast<unsigned char>(line[cut]) & 0xC0) == 0x80)
            --cut;
        out += line.substr(0, cut);
        out += "\r\n ";
        line.remove_prefix(cut);
        room = longestLine - 1;
    }
    out += line;
    out += "\r\n";
}

std::u16string summaryOf(const store::TimeEntry& entry) {
    std::u16string summary;
    for (const std::u16string* const part : {&entry.client, &entry.project, &entry.task}) {
        if (part->empty())
            continue;
        if (!summary.empty())
            summary += u" – ";
        summary += *part;
    }
    return summary;
}

} // namespace

ICalendar::ICalendar(const platform::ClockReading& now) {
    SystemTime utc = now.local;
    platform::addSeconds(utc, -now.offsetFromUtc.count());
    stamp_ = timeStamp(utc) + 'Z';
}

std::string_view ICalendar::begin() {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Hourwright//Time Entries//EN\r\nCALSCALE:GREGORIAN\r\n";
}

std::string_view ICalendar::end() {
    return "END:VCALENDAR\r\n";
}

void ICalendar::line(std::string_view name, std::string_view value) {
    appendFolded(event_, std::string(name) + ':' + std::string(value));
}

void ICalendar::text(std::string_view name, std::u16string_view value) {
    if (!value.empty())
        line(name, escaped(value));
}

// The end of an event that lasts no time is its beginning, which is left out.
void ICalendar::times(const store::TimeEntry& entry, const SystemTime& date) {
    if (!store::hasStart(entry)) {
        SystemTime next = date;
        platform::addDays(next, 1);
        line("DTSTART;VALUE=DATE", dayStamp(date));
        line("DTEND;VALUE=DATE", dayStamp(next));
        return;
    }
    const SystemTime end = billing::endTime(date, entry);
    line("DTSTART", timeStamp(date));
    if (timeStamp(end) != timeStamp(date))
        line("DTEND", timeStamp(end));
}

std::string_view ICalendar::event(const store::TimeEntry& entry) {
    event_.clear();
    const auto date = platform::toSystemTime(entry.date);
    if (!date || date->year > lastYear)
        return event_;
    line("BEGIN", "VEVENT");
    line("UID", "entry-" + std::to_string(static_cast<std::uint32_t>(entry.id)) + "@hourwright");
    line("DTSTAMP", stamp_);
    times(entry, *date);
    text("SUMMARY", summaryOf(entry));
    std::u16string note(notes_.convert(entry.note));
    std::erase(note, u'\r');
    text("DESCRIPTION", note);
    line("X-HOURWRIGHT-HOURS", platform::hundredths(entry.duration));
    line("TRANSP", "TRANSPARENT");
    line("END", "VEVENT");
    return event_;
}

} // namespace hourwright::exchange
