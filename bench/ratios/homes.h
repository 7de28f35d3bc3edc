#pragma once

#include "ratios/samples.h"

#include <filesystem>
#include <string>
#include <vector>

namespace hourwright::bench {

/// Programs that are measured, and the stores that they work on. All of them may be changed.
struct Bench {
    std::filesystem::path hwctl;
    std::filesystem::path folder; ///< for copies
    std::filesystem::path large;  ///< a home with the made-up entries of this run
    std::filesystem::path small;  ///< a home with 1,000 entries
};

using Words = std::vector<std::string>;

/// Runs hwctl on a home, at noon of the day on which the made-up entries end.
[[nodiscard]] Cost hwctl(const Bench& bench, const std::filesystem::path& home, const Words& arguments);

/// Runs the SQLite shell on a home's records with the durability that the program has.
[[nodiscard]] Cost shell(const std::filesystem::path& home, const std::string& sql, const Words& options = {});

/// The first value that a query over a home's records gives.
[[nodiscard]] std::string valueOf(const std::filesystem::path& home, const std::string& sql);

/// The client with the most entries.
[[nodiscard]] std::string largestClient(const std::filesystem::path& home);

/// A home with the same files, made anew.
[[nodiscard]] std::filesystem::path copyOf(const Bench& bench, const std::filesystem::path& home,
                                           const std::string& name);

/// The options of a period with every entry.
inline const Words everything = {"--custom", "1990-01-01", "2030-12-31"};

/// One list of words behind the other.
[[nodiscard]] Words operator+(Words words, const Words& more);

} // namespace hourwright::bench
