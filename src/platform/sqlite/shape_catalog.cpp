#include "platform/sqlite/shape_catalog.h"

#include <charconv>
#include <string>

namespace hourwright::platform::sqlite {

namespace {

// A shape is stored as "1001.64 1002.31 ...": field number, point, type code.
std::string toText(const Shape& shape) {
    std::string text;
    for (const PropertyId id : shape) {
        if (!text.empty())
            text += ' ';
        text += std::to_string(id.number()) + '.' + std::to_string(static_cast<unsigned>(id.type()));
    }
    return text;
}

std::optional<Shape> fromText(std::string_view text) {
    Shape shape;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        std::uint16_t number = 0;
        std::uint16_t type = 0;
        const auto first = std::from_chars(at, end, number);
        if (first.ec != std::errc{} || first.ptr == end || *first.ptr != '.')
            return {};
        const auto second = std::from_chars(first.ptr + 1, end, type);
        if (second.ec != std::errc{} || !isKnownType(static_cast<ValueType>(type)))
            return {};
        shape.emplace_back(number, static_cast<ValueType>(type));
        at = second.ptr;
        if (at != end && *at++ != ' ')
            return {};
    }
    return shape;
}

constexpr std::size_t largestShapeNumber = 1'000'000; // a number beyond it is damage, not a shape

} // namespace

const Shape* ShapeCatalog::find(std::int64_t number) {
    const auto index = static_cast<std::uint64_t>(number);
    if (index >= shapes_.size() || !shapes_[index])
        load();
    return index < shapes_.size() && shapes_[index] ? &*shapes_[index] : nullptr;
}

std::optional<std::int64_t> ShapeCatalog::numberOf(const Shape& shape) {
    auto known = numbers_.find(shape);
    if (known == numbers_.end()) {
        load();
        known = numbers_.find(shape);
    }
    if (known != numbers_.end())
        return known->second;
    const std::string text = toText(shape);
    Statement insert(connection_, "INSERT INTO shapes(properties) VALUES (?1)");
    if (insert)
        insert.bind(1, text);
    if (!insert.run())
        return {};
    load();
    known = numbers_.find(shape);
    return known != numbers_.end() ? std::optional(known->second) : std::nullopt;
}

void ShapeCatalog::forget() {
    shapes_.clear();
    numbers_.clear();
}

void ShapeCatalog::load() {
    Statement rows(connection_, "SELECT id, properties FROM shapes WHERE id >= ?1");
    if (!rows)
        return;
    rows.bind(1, static_cast<std::int64_t>(shapes_.size()));
    while (rows.step() == Step::row) {
        const auto index = static_cast<std::uint64_t>(rows.integer(0));
        auto shape = fromText(rows.text(1));
        if (!shape || index > largestShapeNumber)
            continue;
        if (index >= shapes_.size())
            shapes_.resize(index + 1);
        numbers_.emplace(*shape, rows.integer(0));
        shapes_[index] = std::move(shape);
    }
}

} // namespace hourwright::platform::sqlite
