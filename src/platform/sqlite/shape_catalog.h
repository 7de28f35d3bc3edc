#pragma once

#include "platform/property.h"
#include "platform/sqlite/connection.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace hourwright::platform::sqlite {

/// The property list of a record without its values: which properties, in which order.
using Shape = std::vector<PropertyId>;

/// The distinct shapes of a volume's records, each kept once under a small number.
class ShapeCatalog {
public:
    explicit ShapeCatalog(Connection& connection) : connection_(connection) {}

    /// The shape with this number; null when there is none. Shapes that other processes added are found.
    [[nodiscard]] const Shape* find(std::int64_t number);

    /// The number of a shape, which is added when it is new; nothing on failure. Needs an open transaction.
    [[nodiscard]] std::optional<std::int64_t> numberOf(const Shape& shape);

    /// Drops what is remembered: after a rollback, numbers may have been taken back.
    void forget();

private:
    void load();

    Connection& connection_;
    std::vector<std::optional<Shape>> shapes_; // by number
    std::map<Shape, std::int64_t> numbers_;
};

} // namespace hourwright::platform::sqlite
