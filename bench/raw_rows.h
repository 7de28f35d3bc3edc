#pragma once

#include "store/time_entry.h"

#include <filesystem>
#include <memory>
#include <span>
#include <sqlite3.h>
#include <string_view>
#include <vector>

namespace hourwright::bench {

/// A plain connection to a store's file, with the settings that the program writes with. The other half of the
/// comparisons: what SQLite alone takes for the same rows and values.
class RawStore {
public:
    explicit RawStore(const std::filesystem::path& file);

    /// Decodes each row of a query over `rowColumns`, its parameters bound to the numbers given, into the same value;
    /// `visit` sees it. Returns how many there were.
    template<typename Visit>
    std::size_t each(std::string_view condition, std::span<const std::int64_t> numbers, Visit visit) {
        sqlite3_stmt* const rows = query(condition, numbers);
        std::size_t count = 0;
        for (; sqlite3_step(rows) == SQLITE_ROW; ++count) {
            takeRow(rows, row_);
            visit(row_);
        }
        sqlite3_reset(rows);
        return count;
    }

    /// Inserts entries, again from the first one until there are `count`, in one transaction. False when it failed.
    [[nodiscard]] bool insert(std::span<const store::TimeEntry> entries, std::size_t count);

    [[nodiscard]] bool execute(const char* sql);

private:
    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    [[nodiscard]] sqlite3_stmt* query(std::string_view condition, std::span<const std::int64_t> numbers);
    static void takeRow(sqlite3_stmt* row, store::TimeEntry& entry);

    std::unique_ptr<sqlite3, Close> connection_;
    std::unique_ptr<sqlite3_stmt, Close> statement_;
    std::string prepared_;
    store::TimeEntry row_;
};

} // namespace hourwright::bench
