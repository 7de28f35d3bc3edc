#pragma once

#include "platform/registry.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace hourwright::platform {

/// The registry kept in one small SQLite file, safe beside other processes. The file is opened at the first use and
/// made when the first key is created; a file that is foreign, damaged or of a newer version is left untouched, and
/// every access to it fails. Used by one thread.
class SqliteRegistry : public Registry {
public:
    /// Why the last access to the file failed, for tools; empty when it did not fail. A key or value that does not
    /// exist is no failure.
    [[nodiscard]] virtual std::string problem() const = 0;

    /// Looks into the whole file: its structure and the checksum of every value. Reports each finding as a line of
    /// text; true when there is none.
    [[nodiscard]] virtual bool check(const std::function<void(std::string_view)>& report) = 0;
};

/// A registry in this file; never null. The folder of the file must exist by the time a key is created.
[[nodiscard]] std::unique_ptr<SqliteRegistry> openSqliteRegistry(const std::filesystem::path& file);

} // namespace hourwright::platform
