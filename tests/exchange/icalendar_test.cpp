#include "exchange/icalendar.h"

#include "exchange/note_document.h"

#include <gtest/gtest.h>

namespace hourwright::exchange {

namespace {

using namespace std::chrono_literals;

constexpr platform::ClockReading now{.local = {.year = 2026, .month = 11, .day = 16, .hour = 0, .minute = 30},
                                     .offsetFromUtc = 3600s};

TEST(ICalendar, MakesAnEventOfTheHoursWorked) {
    store::TimeEntry entry;
    entry.id = static_cast<store::RecordId>(12);
    store::setDateAndStart(entry, {.year = 2026, .month = 11, .day = 16, .hour = 23});
    entry.duration = 150;
    entry.breakTime = 25;
    entry.client = u"Smith, Jones; Co";
    entry.task = u"C:\\temp";
    entry.note = writeNote(fromPlainText(u"one\r\ntwo"));
    ICalendar calendar(now);
    EXPECT_EQ(calendar.event(entry), "BEGIN:VEVENT\r\n"
                                     "UID:entry-12@hourwright\r\n"
                                     "DTSTAMP:20261115T233000Z\r\n"
                                     "DTSTART:20261116T230000\r\n"
                                     "DTEND:20261117T004500\r\n"
                                     "SUMMARY:Smith\\, Jones\\; Co – C:\\\\temp\r\n"
                                     "DESCRIPTION:one\\ntwo\r\n"
                                     "X-HOURWRIGHT-HOURS:1.50\r\n"
                                     "TRANSP:TRANSPARENT\r\n"
                                     "END:VEVENT\r\n");
}

TEST(ICalendar, TakesAWholeDayWithoutAStartTime) {
    store::TimeEntry entry;
    store::setDateWithoutStart(entry, {.year = 2024, .month = 2, .day = 29});
    ICalendar calendar(now);
    const std::string event(calendar.event(entry));
    EXPECT_NE(event.find("DTSTART;VALUE=DATE:20240229\r\nDTEND;VALUE=DATE:20240301\r\n"), std::string::npos) << event;
    EXPECT_EQ(event.find("SUMMARY"), std::string::npos);
}

// No line is longer than 75 bytes, and no character is cut in two.
TEST(ICalendar, FoldsLongLines) {
    store::TimeEntry entry;
    store::setDateWithoutStart(entry, {.year = 2026, .month = 11, .day = 16});
    for (int i = 0; i < 100; ++i)
        entry.task += u"大é1";
    ICalendar calendar(now);
    std::string event(calendar.event(entry));
    std::string unfolded;
    for (std::size_t begin = 0; begin < event.size();) {
        const auto end = event.find("\r\n", begin);
        EXPECT_LE(end - begin, 75U);
        const std::string line = event.substr(begin, end - begin);
        EXPECT_NE(static_cast<unsigned char>(line[line.starts_with(' ') ? 1 : 0]) & 0xC0, 0x80);
        unfolded += line.starts_with(' ') ? line.substr(1) : line;
        begin = end + 2;
    }
    std::string expected = "SUMMARY:";
    for (int i = 0; i < 100; ++i)
        expected += "\xE5\xA4\xA7\xC3\xA9"
                    "1";
    EXPECT_NE(unfolded.find(expected), std::string::npos);
}

} // namespace

} // namespace hourwright::exchange
