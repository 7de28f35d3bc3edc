#include "ratios/commands.h"

#include "ratios/report.h"

#include <cstdio>

namespace hourwright::bench {

namespace {

using std::filesystem::path;

constexpr int quickRuns = 40;
constexpr int longRuns = 3;

// A week after the made-up history, into which both stores get the same entries, as FILETIMEs of local time.
constexpr const char* week = "2026-12-09";
constexpr int entriesOfWeek = 20;
constexpr const char* weekCondition = "p1001_filetime >= (strftime('%s', '2026-12-07') + 11644473600) * 10000000 AND"
                                      " p1001_filetime < (strftime('%s', '2026-12-14') + 11644473600) * 10000000";

// The shell as hwctl uses the file: every commit durable before it returns.
Cost shell(const path& home, const std::string& sql, const std::vector<std::string>& options = {}) {
    std::vector<std::string> command = {"sqlite3", "-batch"};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(home / "hourwright.db");
    command.push_back("PRAGMA synchronous=EXTRA; " + sql);
    return runChild(command);
}

Cost hwctl(const path& program, const path& home, std::vector<std::string> arguments) {
    std::vector<std::string> command = {program, "--home", home, "--now", "2026-11-21 12:00:00"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return runChild(command);
}

const std::vector<std::string> addArguments = {"entry",      "add",  "--client",   "Bench", "--task", "Measuring",
                                               "--duration", "1.25", "--currency", "USD",   "--rate", "45.50"};

// One row of the same width, with the indexes the table has. Records beyond the counter would be damage: the shell
// works on a copy of the table that is emptied by its own transaction's end.
std::string insertSql() {
    return "CREATE TABLE IF NOT EXISTS bench_rows (id INTEGER PRIMARY KEY, shape INTEGER, checksum INTEGER,"
           " p1001 INTEGER, p1002 TEXT, p1005 TEXT, p1006 INTEGER, p1019 INTEGER, p1007 TEXT, p1008 INTEGER,"
           " p1021 INTEGER, p1022 INTEGER); CREATE INDEX IF NOT EXISTS bench_order ON bench_rows (p1001);";
}

std::string insertRowSql() {
    return "INSERT INTO bench_rows(shape, checksum, p1001, p1002, p1005, p1006, p1019, p1007, p1008, p1021, p1022)"
           " VALUES (1, 12345, 134000000000000000, 'Bench', 'Measuring', 125, 0, 'USD', 4550, 134000000000000000, 0);";
}

void measureAdd(const path& program, const path& large, const path& small) {
    (void)shell(large, insertSql());
    const Pair pair = bestInTurns(
        quickRuns, [&] { return hwctl(program, large, addArguments); }, [&] { return shell(large, insertRowSql()); });
    printRow("hwctl entry add / shell insert", pair, 3);
    (void)shell(large, "DROP TABLE bench_rows;");
    const Pair growth = bestInTurns(
        quickRuns, [&] { return hwctl(program, large, addArguments); },
        [&] { return hwctl(program, small, addArguments); });
    printRow("hwctl entry add, large / small store", growth, 1.3);
}

void fillWeek(const path& program, const path& home) {
    for (int i = 0; i < entriesOfWeek; ++i)
        (void)hwctl(program, home,
                    {"entry", "add", "--date", "2026-12-0" + std::to_string(7 + i % 3), "--start", "09:00", "--client",
                     "Bench", "--project", "Week", "--task", "Measuring", "--duration", "0.25", "--rate", "45.50"});
}

void measureWeek(const path& program, const path& large, const path& small) {
    fillWeek(program, large);
    fillWeek(program, small);
    const std::vector<std::string> arguments = {"entry", "list", "--week", week, "--json"};
    const std::string sql =
        std::string("SELECT * FROM time_entries WHERE id IN (SELECT id FROM records_1 WHERE ") + weekCondition + ");";
    const Pair pair = bestInTurns(
        quickRuns, [&] { return hwctl(program, large, arguments); }, [&] { return shell(large, sql, {"-json"}); });
    printRow("hwctl entry list --week --json / shell query", pair, 4);
    const Pair growth = bestInTurns(
        quickRuns, [&] { return hwctl(program, large, arguments); }, [&] { return hwctl(program, small, arguments); });
    printRow("hwctl entry list --week, large / small store", growth, 1.3);
}

void measureExport(const path& program, const path& large) {
    const std::vector<std::string> arguments = {"export", "csv", "-", "--custom", "1990-01-01", "2030-12-31"};
    const Pair pair = bestInTurns(
        longRuns, [&] { return hwctl(program, large, arguments); },
        [&] {
            return shell(large,
                         "SELECT date, client, project, phase, task, date, duration_hundredths, status, currency,"
                         " rate_hundredths, rate_type, rate_hundredths * duration_hundredths, bill_to, custom1,"
                         " custom2, custom3, note, date, paid_date, break_hundredths FROM time_entries ORDER BY date;",
                         {"-csv"});
        });
    printRow("hwctl export csv of everything / shell -csv", pair, 2);
    printFigure("peak memory of hwctl export csv", pair.ours.peakMegabytes, "MB", 40);
}

// The first value that a query gives.
std::string valueOf(const path& home, const std::string& sql) {
    const std::string command = "sqlite3 '" + (home / "hourwright.db").string() + "' \"" + sql + '"';
    std::string value;
    if (FILE* const output = ::popen(command.c_str(), "r")) {
        for (int c = std::fgetc(output); c != EOF && c != '\n'; c = std::fgetc(output))
            value.push_back(static_cast<char>(c));
        ::pclose(output);
    }
    return value;
}

// Most frequent client of the store, so that its summary has much to add up.
std::string largestClient(const path& home) {
    return valueOf(home, "SELECT client FROM time_entries GROUP BY 1 ORDER BY count(*) DESC LIMIT 1");
}

const std::vector<std::string> everything = {"--custom", "1990-01-01", "2030-12-31"};

std::vector<std::string> with(std::vector<std::string> arguments, const std::vector<std::string>& more) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

void measureFilters(const path& program, const path& large) {
    // Reading every entry and writing none is the walk with nothing else.
    const auto walk = [&] {
        return hwctl(program, large, with({"export", "csv", "-", "--client", "Nobody"}, everything));
    };
    const Pair narrow = bestInTurns(
        longRuns,
        [&] {
            return hwctl(program, large, with({"export", "csv", "-", "--task", "Research"}, everything));
        },
        walk);
    printRow("export csv of 1 % / walk, no output", narrow, 1.2);
    const Pair nine = bestInTurns(
        longRuns,
        [&] {
            return hwctl(program, large,
                         with({"export",    "csv",       "-",         "--client",   largestClient(large),
                               "--project", "a",         "--phase",   "a",          "--task",
                               "a",         "--bill-to", "a",         "--currency", "EUR",
                               "--custom1", "a",         "--custom2", "a",          "--custom3",
                               "a"},
                              everything));
        },
        walk);
    printRow("export csv, all nine texts / walk, no output", nine, 1.5);
}

void measureXml(const path& program, const path& large) {
    const Pair pair = bestInTurns(
        longRuns,
        [&] {
            return hwctl(program, large, with({"export", "xml", "/dev/null"}, everything));
        },
        [&] {
            return hwctl(program, large, with({"export", "csv", "/dev/null"}, everything));
        });
    printRow("hwctl export xml / hwctl export csv", pair, 1.3);
    printFigure("peak memory of hwctl export xml", pair.ours.peakMegabytes, "MB", 40);
}

void measureSummary(const path& program, const path& large) {
    const std::string client = largestClient(large);
    const Pair pair = bestInTurns(
        longRuns,
        [&] {
            return hwctl(program, large, {"summary", client});
        },
        [&] {
            return shell(large,
                         "SELECT min(date), max(date), status, sum(duration_hundredths), sum(CASE rate_type WHEN 3"
                         " THEN rate_hundredths ELSE duration_hundredths * rate_hundredths / 100.0 END)"
                         " FROM time_entries WHERE client = '" +
                             client + "' GROUP BY status;");
        });
    printRow("hwctl summary / shell aggregate query", pair, 4);
}

// A store of its own, since a raw update leaves records without valid checksums.
path copyOf(const path& home, const std::string& name) {
    path copy = home.parent_path() / name;
    std::filesystem::remove_all(copy);
    std::filesystem::copy(home, copy, std::filesystem::copy_options::recursive);
    return copy;
}

// Both sides set status, paid date, stamp and flags of the oldest 100,000 entries, in one transaction.
void measureMarkPaid(const path& program, const path& large) {
    const path ours = copyOf(large, "changed");
    const path raw = copyOf(large, "changed-raw");
    const std::string last =
        valueOf(large, "SELECT substr(date, 1, 10) FROM time_entries ORDER BY date LIMIT 1 OFFSET 100000");
    const Pair pair = bestInTurns(
        longRuns,
        [&] {
            return hwctl(program, ours, {"bulk", "mark-paid", "--from", "1990-01-01", "--to", last});
        },
        [&] {
            return shell(raw, "BEGIN IMMEDIATE; UPDATE records_1 SET p1019_ui2 = 3, p1020_filetime ="
                              " coalesce(p1020_filetime, 1), p1021_filetime = p1021_filetime + 1, p1022_ui2 = 3"
                              " WHERE p1001_filetime < (strftime('%s', '" +
                                  last + "', '+1 day') + 11644473600) * 10000000; COMMIT;");
        });
    printRow("hwctl bulk mark-paid / shell update", pair, 3);
    std::filesystem::remove_all(ours);
    std::filesystem::remove_all(raw);
}

} // namespace

void measureCommands(const path& program, const path& large, const path& small) {
    measureAdd(program, large, small);
    measureWeek(program, large, small);
    measureExport(program, large);
    measureXml(program, large);
    measureFilters(program, large);
    measureSummary(program, large);
    measureMarkPaid(program, large);
}

} // namespace hourwright::bench
