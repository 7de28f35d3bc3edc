#pragma once

#include "platform/error.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace hourwright::platform::sqlite {

/// The platform's error number for an SQLite result code, extended or not.
[[nodiscard]] PlatformError platformError(int resultCode);

class Connection;

/// Outcome of stepping a statement.
enum class Step : std::uint8_t { row, done, failed };

/// A prepared statement. Parameters and columns are numbered as SQLite does: parameters from 1, columns from 0. Bound
/// texts and blobs are borrowed until the next reset; column views live until the next step or reset.
class Statement {
public:
    Statement() = default;
    /// Prepares one statement; on failure the object is empty and `Connection::lastResult` says why.
    Statement(Connection& connection, std::string_view sql);

    [[nodiscard]] explicit operator bool() const { return handle_ != nullptr; }

    void bind(int parameter, std::int64_t value);
    void bind(int parameter, std::string_view utf8);
    void bind(int parameter, std::span<const std::byte> bytes);
    void bindNull(int parameter);

    [[nodiscard]] Step step();
    /// Steps a statement that returns no rows and resets it; true when it was carried out.
    [[nodiscard]] bool run();
    void reset();

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::span<const std::byte> blob(int column) const;
    [[nodiscard]] int columnCount() const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

/// Resets a statement at the end of a scope, so that it holds no lock on the file.
class ResetGuard {
public:
    explicit ResetGuard(Statement& statement) : statement_(statement) {}
    ~ResetGuard() { statement_.reset(); }
    ResetGuard(const ResetGuard&) = delete;
    ResetGuard& operator=(const ResetGuard&) = delete;

private:
    Statement& statement_;
};

/// What the header of a database file says about it.
struct FileHeader {
    enum class Kind : std::uint8_t { missing, empty, sqlite, foreign, unreadable };
    Kind kind = Kind::missing; ///< `empty` also while, or after, the file's first change was interrupted
    std::uint32_t applicationId = 0;
    std::uint32_t userVersion = 0;
    std::uint32_t changes = 0; ///< how often the file was written to
};

/// Reads the header of a file without opening it as a database, so that a foreign file stays untouched.
[[nodiscard]] FileHeader readFileHeader(const std::filesystem::path& file);

/// An open database file, used by one thread. It waits for other processes' locks up to the busy time-out, trusts no
/// schema it did not write (no trigger runs, no view is read, sizes are bounded), and makes every commit durable before
/// it returns.
class Connection {
public:
    Connection() = default;
    /// Opens a file, which is created when missing. Check `isOpen`; `lastResult` and `message` say what went wrong.
    Connection(const std::filesystem::path& file, std::chrono::milliseconds busyTimeout);
    /// Opens a file that nobody writes to for reading only: its bytes as they lie there, whatever journal is beside it.
    [[nodiscard]] static Connection asItLies(const std::filesystem::path& file);

    [[nodiscard]] bool isOpen() const { return handle_ != nullptr && open_; }
    [[nodiscard]] bool isReadOnly() const;
    /// True when the file is no longer at its place.
    [[nodiscard]] bool hasMoved() const;
    /// How long an operation waits for another one's lock.
    void setBusyTimeout(std::chrono::milliseconds time);
    /// True while a transaction is open.
    [[nodiscard]] bool inTransaction() const;

    /// Runs statements that return no rows of interest.
    [[nodiscard]] bool execute(const std::string& sql);

    /// How many rows the last INSERT, UPDATE or DELETE changed.
    [[nodiscard]] std::int64_t changedRows() const;

    /// SQLite's extended result code of the last failed call.
    [[nodiscard]] int lastResult() const;
    [[nodiscard]] PlatformError lastError() const { return platformError(lastResult()); }
    /// SQLite's own words for the last error.
    [[nodiscard]] std::string message() const;

    [[nodiscard]] sqlite3* handle() const { return handle_.get(); }

private:
    void open(const std::string& name, int flags, std::chrono::milliseconds busyTimeout);

    struct Closer {
        void operator()(sqlite3* connection) const;
    };
    std::unique_ptr<sqlite3, Closer> handle_;
    bool open_ = false;
};

} // namespace hourwright::platform::sqlite
