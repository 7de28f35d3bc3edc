#include "ratios/homes.h"

#include "ratios/child.h"

#include <cstdio>

namespace hourwright::bench {

using std::filesystem::path;

Words operator+(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

Cost hwctl(const Bench& bench, const path& home, const Words& arguments) {
    return runChild(Words{bench.hwctl, "--home", home, "--now", "2026-11-21 12:00:00"} + arguments);
}

Cost shell(const path& home, const std::string& sql, const Words& options) {
    return runChild(Words{"sqlite3", "-batch"} + options + Words{home / "hourwright.db"} +
                    Words{"PRAGMA synchronous=EXTRA; " + sql});
}

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

std::string largestClient(const path& home) {
    return valueOf(home, "SELECT p1002_text FROM records_1 GROUP BY 1 ORDER BY count(*) DESC LIMIT 1");
}

path copyOf(const Bench& bench, const path& home, const std::string& name) {
    path copy = bench.folder / name;
    std::filesystem::remove_all(copy);
    std::filesystem::copy(home, copy, std::filesystem::copy_options::recursive);
    return copy;
}

} // namespace hourwright::bench
