#include "exchange/time_entry_csv.h"

#include "billing/amount.h"
#include "billing/duration.h"
#include "resources/strings.h"

#include <algorithm>
#include <utility>

namespace hourwright::exchange {

namespace {

constexpr std::u16string_view crLf = u"\r\n";

void appendReplaced(std::u16string& out, std::u16string_view text, std::u16string_view lineBreak) {
    for (;;) {
        const std::size_t end = std::min(text.find(crLf), text.size());
        out += text.substr(0, end);
        if (end == text.size())
            return;
        out += lineBreak;
        text.remove_prefix(end + crLf.size());
    }
}

} // namespace

TimeEntryCsv::TimeEntryCsv(CsvOptions options, const platform::Locale& systemLocale)
    : options_(std::move(options)), dates_(systemLocale) {}

// The first text ends with the opening quote of the next cell, and so does each caption.
std::u16string TimeEntryCsv::header() const {
    std::u16string header(resources::string(resources::StringId::csvTimeHeader));
    for (const std::u16string& caption : options_.captions)
        header.append(caption).append(u"\",\"");
    header += resources::string(resources::StringId::csvTimeHeaderEnd);
    return header.append(crLf);
}

std::u16string_view TimeEntryCsv::line(const store::TimeEntry& entry) {
    const bool charged = entry.status != store::EntryStatus::nonBillable;
    const auto start = store::hasStart(entry) ? platform::toSystemTime(entry.date) : std::nullopt;

    line_.clear();
    line_.text(dates_.date(entry.date));
    for (const std::u16string* const text : {&entry.client, &entry.project, &entry.phase, &entry.task})
        line_.text(*text);
    addTime(start);
    line_.hundredths(entry.duration);
    line_.integer(static_cast<std::uint16_t>(entry.status));
    line_.text(entry.currency);
    entry.rate != 0 ? line_.hundredths(entry.rate) : line_.empty();
    charged ? line_.integer(static_cast<std::uint16_t>(entry.rateType)) : line_.empty();
    charged ? line_.twoDecimals(billing::amountOf(entry, options_.rules)) : line_.empty();
    for (const std::u16string* const text : {&entry.billTo, &entry.custom1, &entry.custom2, &entry.custom3})
        line_.text(*text);
    addNote(entry);
    addTime(start ? std::optional(billing::endTime(*start, entry)) : std::nullopt);
    entry.paidDate.ticks != 0 ? line_.text(dates_.date(entry.paidDate)) : line_.empty();
    line_.hundredths(entry.breakTime);
    return line_.finish();
}

void TimeEntryCsv::addNote(const store::TimeEntry& entry) {
    line_.open();
    appendReplaced(line_.content(), notes_.convert(entry.note), options_.lineBreak);
    line_.close();
}

void TimeEntryCsv::addTime(const std::optional<platform::SystemTime>& time) {
    line_.text(time ? dates_.time(*time) : std::u16string_view{});
}

} // namespace hourwright::exchange
