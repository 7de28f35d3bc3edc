#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/shape_catalog.h"
#include "platform/sqlite/table.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace hourwright::platform::sqlite {

/// Writes records into one table: finds the shape, makes missing columns, computes the checksum.
class RowWriter {
public:
    RowWriter(Connection& connection, Table& table, ShapeCatalog& shapes)
        : connection_(connection), table_(table), shapes_(shapes) {}

    /// Inserts a record with these properties (no deletions, no property twice).
    [[nodiscard]] bool insert(ObjectId id, std::span<const PropertyValue> properties);
    /// Replaces all properties of an existing record. `sortChanged`: its place in the order changes.
    [[nodiscard]] bool update(ObjectId id, std::span<const PropertyValue> properties, bool sortChanged);
    [[nodiscard]] bool remove(ObjectId id);

private:
    /// What is the same for all records of a shape: its number and, for each column, the place of its property in the
    /// shape (the shape's size when it has none).
    struct ShapePlan {
        std::int64_t number = 0;
        std::vector<std::size_t> placeOfColumn;
    };
    struct ShapeHash {
        std::size_t operator()(const Shape& shape) const;
    };

    [[nodiscard]] bool write(Statement& statement, ObjectId id, std::span<const PropertyValue> properties);
    [[nodiscard]] bool takeShape(std::span<const PropertyValue> properties);
    [[nodiscard]] bool makeColumns();
    void bindColumns(Statement& statement, std::span<const PropertyValue> properties);
    void encodeTexts(std::span<const PropertyValue> properties);

    Connection& connection_;
    Table& table_;
    ShapeCatalog& shapes_;
    std::uint64_t preparedFor_ = 0;
    Statement insert_;
    Statement update_;        // leaves the sort column alone, so that scans over the index go on
    Statement updateAndMove_; // all columns
    Statement delete_;
    std::vector<std::string> texts_;  // UTF-8 of the text at the same place of the property list
    Shape shape_;                     // of the record being written
    const ShapePlan* plan_ = nullptr; // for that shape
    std::unordered_map<Shape, ShapePlan, ShapeHash> plans_;
};

} // namespace hourwright::platform::sqlite
