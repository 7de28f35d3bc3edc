#pragma once

#include "platform/sqlite/connection.h"
#include "platform/sqlite/journal_format.h"
#include "platform/sqlite/shape_catalog.h"
#include "platform/sqlite/table.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace hourwright::platform::sqlite {

/// Writes changes of records into one table. Only columns that change are written, so that scans over the index go on
/// while the sort value stays.
class RowWriter {
public:
    RowWriter(Connection& connection, Table& table, ShapeCatalog& shapes)
        : connection_(connection), table_(table), shapes_(shapes) {}

    /// Finds the head of the row that a record with these values has. Makes missing columns and the shape; false when
    /// that failed.
    [[nodiscard]] bool findHead(ObjectId id, std::span<const StoredValue> values, RowHead& head);

    enum class Outcome : std::uint8_t {
        written,
        otherRow, ///< the row is not as the change found it; nothing was written
        failed,
    };
    /// Carries out a change as it stands.
    [[nodiscard]] Outcome apply(const RecordChange& change);

private:
    /// A statement and what it is for: one kind of change of the same columns.
    struct Prepared {
        ChangeKind kind = ChangeKind::insert;
        std::vector<PropertyId> columns;
        Statement statement;
    };
    struct ShapeHash {
        std::size_t operator()(const Shape& shape) const;
    };

    void renew();
    [[nodiscard]] std::optional<std::int64_t> numberOfShape();
    [[nodiscard]] Statement& statementFor(const RecordChange& change);
    [[nodiscard]] std::string sqlFor(const RecordChange& change) const;

    Connection& connection_;
    Table& table_;
    ShapeCatalog& shapes_;
    std::uint64_t preparedFor_ = 0;
    std::vector<std::unique_ptr<Prepared>> prepared_;
    Prepared* last_ = nullptr;
    Shape shape_;     // of the record being written
    Shape lastShape_; // of the one before, with its number
    std::int64_t lastNumber_ = 0;
    std::unordered_map<Shape, std::int64_t, ShapeHash> numbers_;
};

} // namespace hourwright::platform::sqlite
