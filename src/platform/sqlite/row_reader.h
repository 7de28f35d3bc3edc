#pragma once

#include "platform/property.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/shape_catalog.h"
#include "platform/sqlite/stored_value.h"
#include "platform/sqlite/table.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace hourwright::platform::sqlite {

/// Decodes the rows of statements over one table: knows which columns they select and, for each shape, which of them
/// hold the record's properties in stored order.
class RowReader {
public:
    /// Selects all property columns, or only those of the given properties.
    RowReader(Table& table, ShapeCatalog& shapes, PropertyId sortProperty, std::span<const PropertyId> only = {});

    /// The list for a SELECT: id, shape, sort value, checksum, then the property columns.
    [[nodiscard]] const std::string& selectList() const { return selectList_; }
    static constexpr int idColumn = 0;
    static constexpr int shapeColumn = 1;
    static constexpr int sortColumn = 2;
    static constexpr int checksumColumn = 3;

    /// True when every property that a read may ask for is selected, or was to be and has no column.
    [[nodiscard]] bool covers(std::span<const PropertyId> wanted) const;
    /// True while the table's columns are those known at construction.
    [[nodiscard]] bool isCurrent() const { return version_ == table_.columnsVersion(); }

    enum class Result : std::uint8_t {
        ok,
        stale,  ///< the record has a property whose column came after construction: make a new reader
        damaged ///< the record's shape does not exist
    };

    /// Decodes the current row: all selected properties, or those wanted, in the order asked for.
    [[nodiscard]] Result decode(const Statement& row, PropertyBuffer& out, std::span<const PropertyId> wanted);

    /// Whether the current row's values give its checksum. Needs a reader of all columns. `damaged` also when a value
    /// outside the record's shape is present.
    [[nodiscard]] Result verify(const Statement& row);

    /// Takes the current row's values in stored order, for `stored`. Needs a reader of all columns.
    [[nodiscard]] Result fetch(const Statement& row);
    /// The values that `verify` or `fetch` took, valid until the row is left; and the head of their row.
    [[nodiscard]] std::span<const StoredValue> stored() const { return {fetched_.data(), fetchedCount_}; }
    [[nodiscard]] static RowHead head(const Statement& row) {
        return {.shape = row.integer(shapeColumn), .checksum = static_cast<std::uint32_t>(row.integer(checksumColumn))};
    }

private:
    struct PlanStep {
        PropertyId id;
        int column = 0;
    };
    /// Where the properties of a shape stand.
    struct Plan {
        std::vector<PlanStep> steps;       // in stored order
        std::vector<int> others;           // the columns that the shape leaves empty
        std::vector<PropertyId> chosenFor; // what was asked for last,
        std::vector<PlanStep> chosen;      // and where that stands, in the order asked for
    };

    [[nodiscard]] Plan* planFor(std::int64_t shape, Result& result);
    [[nodiscard]] static std::span<const PlanStep> stepsFor(Plan& plan, std::span<const PropertyId> wanted);
    void fetch(const Statement& row, std::span<const PlanStep> steps);
    [[nodiscard]] bool hasItsShape(const Statement& row, const Plan& plan) const;
    static void addTo(PropertyBuffer& out, const StoredValue& value);

    Table& table_;
    ShapeCatalog& shapes_;
    std::vector<PropertyId> only_;     // as given
    std::vector<PropertyId> selected_; // in the order of the statement's columns
    bool selectsAll_;
    std::uint64_t version_;
    std::string selectList_;
    std::vector<std::optional<Plan>> plans_; // by shape number
    std::vector<StoredValue> fetched_;       // by place in the steps in use
    std::size_t fetchedCount_ = 0;
};

} // namespace hourwright::platform::sqlite
