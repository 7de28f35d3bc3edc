#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::platform::sqlite {

/// A column of a database's table; it holds the values of one property.
struct Column {
    PropertyId id;
    std::string name;
};

/// Name of the column for a property: "p1001_filetime".
[[nodiscard]] std::string columnName(PropertyId id);
/// The property whose values a column holds; nothing for the columns that every table has.
[[nodiscard]] std::optional<PropertyId> columnProperty(std::string_view name);

/// The table of one property database: a row a record, a column a property, absent values NULL. Its first columns are
/// `id`, `shape` (see ShapeCatalog) and `checksum`.
class Table {
public:
    Table(Connection& connection, DatabaseInfo info);

    [[nodiscard]] const DatabaseInfo& info() const { return info_; }
    [[nodiscard]] const std::string& name() const { return name_; }

    /// The property columns; read from the file when first needed.
    [[nodiscard]] const std::vector<Column>& columns();
    [[nodiscard]] const Column* findColumn(PropertyId id);
    /// Makes the column when it is missing; needs an open transaction.
    [[nodiscard]] bool ensureColumn(PropertyId id);
    /// Reads the columns anew, for example when another process may have added one.
    void reloadColumns();

    /// Changes whenever the columns change; statements over all columns are made anew then.
    [[nodiscard]] std::uint64_t columnsVersion() const { return columnsVersion_; }

    /// Changes whenever a running scan of the table may have become wrong: a record added, deleted or moved.
    [[nodiscard]] std::uint64_t orderVersion() const { return orderVersion_; }
    void orderChanged() { ++orderVersion_; }

    /// Changes whenever anything is written to the table; a row fetched before may be an old one then.
    [[nodiscard]] std::uint64_t contentVersion() const { return contentVersion_; }
    void contentChanged() { ++contentVersion_; }

private:
    Connection& connection_;
    DatabaseInfo info_;
    std::string name_;
    std::vector<Column> columns_;
    bool loaded_ = false;
    std::uint64_t columnsVersion_ = 1;
    std::uint64_t orderVersion_ = 1;
    std::uint64_t contentVersion_ = 1;
};

/// Name of the table of a database.
[[nodiscard]] std::string tableName(ObjectId database);

/// Makes the table, its index and its plainly named view; needs an open transaction.
[[nodiscard]] bool createTable(Connection& connection, ObjectId database, const DatabaseDefinition& definition);
/// Removes them.
[[nodiscard]] bool dropTable(Connection& connection, ObjectId database);

} // namespace hourwright::platform::sqlite
