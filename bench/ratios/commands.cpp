#include "ratios/commands.h"

namespace hourwright::bench {

namespace {

using std::filesystem::path;

// A week after the made-up history, into which both stores get the same entries, as FILETIMEs of local time.
constexpr const char* week = "2026-12-09";
constexpr int entriesOfWeek = 20;
constexpr const char* weekCondition = "p1001_filetime >= (strftime('%s', '2026-12-07') + 11644473600) * 10000000 AND"
                                      " p1001_filetime < (strftime('%s', '2026-12-14') + 11644473600) * 10000000";

const Words addWords = {"entry",      "add",  "--client",   "Bench", "--task", "Measuring",
                        "--duration", "1.25", "--currency", "USD",   "--rate", "45.50"};
const Words listWords = {"entry", "list", "--week", week, "--json"};
const Words csvWords = Words{"export", "csv", "-"} + everything;

// A table of its own beside the records, with the same columns filled and the same index.
constexpr const char* addTable =
    "CREATE TABLE bench_rows (id INTEGER PRIMARY KEY, shape INTEGER, checksum INTEGER, p1001 INTEGER, p1002 TEXT,"
    " p1005 TEXT, p1006 INTEGER, p1019 INTEGER, p1007 TEXT, p1008 INTEGER, p1021 INTEGER, p1022 INTEGER);"
    " CREATE INDEX bench_order ON bench_rows (p1001);";
constexpr const char* addRow =
    "INSERT INTO bench_rows(shape, checksum, p1001, p1002, p1005, p1006, p1019, p1007, p1008, p1021, p1022)"
    " VALUES (1, 12345, 134000000000000000, 'Bench', 'Measuring', 125, 0, 'USD', 4550, 134000000000000000, 0);";

Work ours(const Bench& bench, const path& home, const Words& words) {
    return [&bench, home, words] { return hwctl(bench, home, words); };
}

Work raw(const path& home, const std::string& sql, const Words& options = {}) {
    return [home, sql, options] { return shell(home, sql, options); };
}

void writePair(const char* row, const std::vector<Work>& works) {
    const auto results = inTurns(works);
    writeRow(row, results[0], &results[1]);
}

void fillWeek(const Bench& bench, const path& home) {
    for (int i = 0; i < entriesOfWeek; ++i)
        static_cast<void>(
            hwctl(bench, home,
                  {"entry", "add", "--date", "2026-12-0" + std::to_string(7 + i % 3), "--start", "09:00", "--client",
                   "Bench", "--project", "Week", "--task", "Measuring", "--duration", "0.25", "--rate", "45.50"}));
}

} // namespace

void measureAdd(const Bench& bench) {
    static_cast<void>(shell(bench.large, addTable));
    const auto results =
        inTurns({ours(bench, bench.large, addWords), raw(bench.large, addRow), ours(bench, bench.small, addWords)});
    static_cast<void>(shell(bench.large, "DROP TABLE bench_rows;"));
    writeRow("add", results[0], &results[1]);
    writeRow("add, small store", results[0], &results[2]);
}

void measureWeek(const Bench& bench) {
    fillWeek(bench, bench.large);
    fillWeek(bench, bench.small);
    const std::string sql =
        std::string("SELECT * FROM time_entries WHERE id IN (SELECT id FROM records_1 WHERE ") + weekCondition + ");";
    const auto results = inTurns(
        {ours(bench, bench.large, listWords), raw(bench.large, sql, {"-json"}), ours(bench, bench.small, listWords)});
    writeRow("list week", results[0], &results[1]);
    writeRow("list week, small store", results[0], &results[2]);
}

void measureFilters(const Bench& bench) {
    const std::string client = largestClient(bench.large);
    const std::string task =
        valueOf(bench.large, "SELECT p1005_text FROM records_1 GROUP BY 1 ORDER BY count(*) LIMIT 1");
    const auto results = inTurns(
        {ours(bench, bench.large, csvWords + Words{"--client", "Nobody"}), // reads all and writes none
         ours(bench, bench.large, csvWords + Words{"--task", task}),
         ours(bench, bench.large,
              csvWords + Words{"--client", client, "--project", "a", "--phase", "a", "--task", "a", "--bill-to", "a",
                               "--currency", "EUR", "--custom1", "a", "--custom2", "a", "--custom3", "a"})});
    writeRow("CSV of few", results[1], &results[0]);
    writeRow("CSV by nine texts", results[2], &results[0]);
}

void measureSummary(const Bench& bench) {
    const std::string client = largestClient(bench.large);
    const std::string sql =
        "SELECT min(p1001_filetime), max(p1001_filetime), p1019_ui2, sum(p1006_ui2), sum(CASE p1018_ui2 WHEN 3 THEN"
        " p1008_ui4 ELSE p1006_ui2 * p1008_ui4 / 100.0 END) FROM records_1 WHERE p1002_text = '" +
        client + "' GROUP BY p1019_ui2;";
    writePair("summary", {ours(bench, bench.large, {"summary", client}), raw(bench.large, sql)});
}

void measureGrowth(const Bench& bench) {
    fillWeek(bench, bench.large);
    const std::string client = largestClient(bench.large);
    const auto quick = inTurns({ours(bench, bench.large, addWords), ours(bench, bench.large, listWords)});
    writeRow("add", quick[0]);
    writeRow("list week", quick[1]);
    writeRow("CSV", inTurns({ours(bench, bench.large, csvWords)})[0]);
    writeRow("summary", inTurns({ours(bench, bench.large, {"summary", client})})[0]);
}

} // namespace hourwright::bench
