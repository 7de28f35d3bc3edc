#include "ratios/commands.h"

namespace hourwright::bench {

namespace {

using std::filesystem::path;

// The last day of the oldest 100,000 entries, or of all.
std::string lastDay(const path& home) {
    return valueOf(home, "SELECT strftime('%Y-%m-%d', max(p1001_filetime) / 10000000 - 11644473600, 'unixepoch') FROM"
                         " (SELECT p1001_filetime FROM records_1 ORDER BY 1 LIMIT 100000)");
}

// Sets the four columns that marking as paid sets, of the same entries.
std::string update(const std::string& last, const std::string& values) {
    return "BEGIN IMMEDIATE; UPDATE records_1 SET " + values + " WHERE p1001_filetime < (strftime('%s', '" + last +
           "', '+1 day') + 11644473600) * 10000000; COMMIT;";
}

} // namespace

// Marked and taken back in turns, so that each run really changes the entries. On copies: the shell's changes leave
// records without valid checksums.
void measureBulk(const Bench& bench) {
    const path changed = copyOf(bench, bench.large, "changed");
    const path changedRaw = copyOf(bench, bench.large, "changed-raw");
    const std::string last = lastDay(bench.large);
    const std::string mark = update(last, "p1019_ui2 = 3, p1020_filetime = 134000000000000000, p1021_filetime ="
                                          " p1021_filetime + 1, p1022_ui2 = 3");
    const std::string unmark =
        update(last, "p1019_ui2 = 1, p1020_filetime = NULL, p1021_filetime = p1021_filetime - 1, p1022_ui2 = 1");
    const auto results =
        inTurns({[&] {
                     return hwctl(bench, changed, {"bulk", "mark-paid", "--from", "1990-01-01", "--to", last});
                 },
                 [&] { return shell(changedRaw, mark); }, [&] { return hwctl(bench, changed, {"undo"}); },
                 [&] { return shell(changedRaw, unmark); }});
    writeRow("mark paid", results[0], &results[1]);
    writeRow("undo", results[2], &results[3]);
    std::filesystem::remove_all(changed);
    std::filesystem::remove_all(changedRaw);
}

} // namespace hourwright::bench
