#include "ratios/commands.h"

namespace hourwright::bench {

namespace {

// The cells of the exports, made by the shell: dates and times from instants, hours and money from hundredths. Notes
// are handed over as they are stored, which is less than the exports do.
constexpr const char* cells =
    "SELECT strftime('%m/%d/%Y', d, 'unixepoch') AS date, p1002_text AS client, p1003_text AS project,"
    " p1004_text AS phase, p1005_text AS task, strftime('%H:%M', d, 'unixepoch') AS start,"
    " printf('%.2f', p1006_ui2 / 100.0) AS duration, p1019_ui2 AS status, p1007_text AS currency,"
    " printf('%.2f', p1008_ui4 / 100.0) AS rate, p1018_ui2 AS rate_type,"
    " printf('%.2f', p1008_ui4 * p1006_ui2 / 10000.0) AS amount, p1014_text AS bill_to, p1015_text AS custom1,"
    " p1016_text AS custom2, p1017_text AS custom3, CAST(p1012_blob AS TEXT) AS note,"
    " strftime('%H:%M', d + p1006_ui2 * 36, 'unixepoch') AS end_time,"
    " strftime('%m/%d/%Y', p1020_filetime / 10000000 - 11644473600, 'unixepoch') AS paid,"
    " printf('%.2f', p1023_ui2 / 100.0) AS break"
    " FROM (SELECT *, p1001_filetime / 10000000 - 11644473600 AS d FROM records_1 ORDER BY p1001_filetime);";

} // namespace

void measureExports(const Bench& bench) {
    const auto ours = [&bench](const char* format) -> Work {
        return [&bench, format] { return hwctl(bench, bench.large, Words{"export", format, "-"} + everything); };
    };
    const auto raw = [&bench](const char* mode) -> Work {
        return [&bench, mode] { return shell(bench.large, cells, {mode}); };
    };
    const auto results = inTurns(
        {ours("csv"), raw("-csv"), ours("xml"), ours("spreadsheet"), ours("json"), raw("-json"), ours("icalendar")});
    writeRow("CSV", results[0], &results[1]);
    writeRow("XML", results[2], &results[0]);
    writeRow("spreadsheet", results[3], &results[1]);
    writeRow("JSON", results[4], &results[5]);
    writeRow("iCalendar", results[6], &results[0]);
}

} // namespace hourwright::bench
