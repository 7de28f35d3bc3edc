#include "exchange/time_entry_xml.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "platform/calendar.h"

namespace hourwright::exchange {

namespace {

using platform::SystemTime;
using store::TimeEntry;

void appendDigits(std::u16string& out, unsigned value, unsigned count) {
    if (count > 1 || value > 9)
        appendDigits(out, value / 10, count > 1 ? count - 1 : 1);
    out += static_cast<char16_t>(u'0' + value % 10);
}

// 2026-11-16, the year with at least four digits.
void setDate(std::u16string& out, const SystemTime& date) {
    out.clear();
    appendDigits(out, date.year, 4);
    out += u'-';
    appendDigits(out, date.month, 2);
    out += u'-';
    appendDigits(out, date.day, 2);
}

// 09:15:00: seconds do not count.
void setTime(std::u16string& out, const SystemTime& time) {
    out.clear();
    appendDigits(out, time.hour, 2);
    out += u':';
    appendDigits(out, time.minute, 2);
    out += u":00";
}

} // namespace

std::u16string_view TimeEntryXml::begin() {
    xml_.clear();
    xml_.declaration(app::declaredName(options_.encoding));
    xml_.openStartTag(u"ITEMS");
    xml_.attribute(u"Version", 300);
    xml_.attribute(u"xmlns", u"entry-schema");
    xml_.closeStartTagAndLine();
    return xml_.text();
}

std::u16string_view TimeEntryXml::end() {
    xml_.clear();
    xml_.endTag(u"ITEMS");
    return xml_.text();
}

std::u16string_view TimeEntryXml::item(const TimeEntry& entry) {
    const auto date = platform::toSystemTime(entry.date);
    xml_.clear();
    xml_.openStartTag(u"ITEM");
    xml_.attribute(u"Status", static_cast<std::uint16_t>(entry.status));
    xml_.closeStartTagAndLine();
    addDate(date);
    xml_.element(u"CLIENT", entry.client);
    xml_.element(u"PROJECT", entry.project);
    xml_.element(u"PHASE", entry.phase);
    xml_.element(u"TASK", entry.task);
    if (date && store::hasStart(entry))
        addTimes(*date, entry);
    xml_.hundredthsElement(u"DURATION", entry.duration);
    xml_.element(u"CURRENCY", entry.currency);
    addRateAndAmount(entry);
    xml_.element(u"BILLTO", entry.billTo);
    xml_.element(u"CUSTOM1", entry.custom1);
    xml_.element(u"CUSTOM2", entry.custom2);
    xml_.element(u"CUSTOM3", entry.custom3);
    addNotes(entry);
    xml_.endTag(u"ITEM");
    return xml_.text();
}

void TimeEntryXml::addDate(const std::optional<SystemTime>& date) {
    value_.clear();
    if (date)
        setDate(value_, *date);
    xml_.element(u"DATE", value_);
}

void TimeEntryXml::addTimes(SystemTime start, const TimeEntry& entry) {
    start.second = 0;
    setTime(value_, start);
    xml_.element(u"START", value_);
    xml_.hundredthsElement(u"BREAKTIME", entry.breakTime);
    setTime(value_, billing::endTime(start, entry));
    xml_.element(u"END", value_);
}

void TimeEntryXml::addRateAndAmount(const TimeEntry& entry) {
    if (entry.rate == 0) {
        xml_.emptyElement(u"RATE");
    } else {
        xml_.openStartTag(u"RATE");
        xml_.attribute(u"Type", static_cast<std::uint16_t>(entry.rateType));
        xml_.closeStartTag();
        xml_.hundredths(entry.rate);
        xml_.endTag(u"RATE");
    }
    xml_.openStartTag(u"AMOUNT");
    xml_.closeStartTag();
    xml_.twoDecimals(billing::amountOf(entry, options_.rules));
    xml_.endTag(u"AMOUNT");
}

// A note without text, such as a drawing, has no element at all.
void TimeEntryXml::addNotes(const TimeEntry& entry) {
    if (entry.note.empty())
        return xml_.emptyElement(u"NOTES");
    const std::u16string_view text = notes_.convert(entry.note);
    if (text.empty())
        return;
    xml_.startTag(u"NOTES");
    xml_.cdata(text);
    xml_.endTag(u"NOTES");
}

} // namespace hourwright::exchange
