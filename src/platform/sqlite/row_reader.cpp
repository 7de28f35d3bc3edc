#include "platform/sqlite/row_reader.h"

#include "platform/sqlite/record_checksum.h"

#include <algorithm>

namespace hourwright::platform::sqlite {

namespace {

constexpr int firstPropertyColumn = 4;

} // namespace

RowReader::RowReader(Table& table, ShapeCatalog& shapes, PropertyId sortProperty, std::span<const PropertyId> only)
    : table_(table), shapes_(shapes), only_(only.begin(), only.end()), selectsAll_(only.empty()) {
    const Column* const sort = table_.findColumn(sortProperty);
    selectList_ = "id, shape, " + (sort != nullptr ? sort->name : std::string("NULL")) + ", checksum";
    for (const Column& column : table_.columns()) {
        if (!selectsAll_ && std::ranges::find(only, column.id) == only.end())
            continue;
        selected_.push_back(column.id);
        selectList_ += ", " + column.name;
    }
    version_ = table_.columnsVersion();
}

bool RowReader::covers(std::span<const PropertyId> wanted) const {
    if (selectsAll_)
        return true;
    if (wanted.empty())
        return false;
    return std::ranges::all_of(wanted, [this](PropertyId id) { return std::ranges::find(only_, id) != only_.end(); });
}

const RowReader::Plan* RowReader::planFor(std::int64_t shapeNumber, Result& result) {
    const auto index = static_cast<std::uint64_t>(shapeNumber);
    if (index < plans_.size() && plans_[index])
        return &*plans_[index];
    const Shape* const shape = shapes_.find(shapeNumber);
    if (shape == nullptr) {
        result = Result::damaged;
        return nullptr;
    }
    Plan plan;
    for (const PropertyId id : *shape) {
        const auto found = std::ranges::find(selected_, id);
        if (found != selected_.end()) {
            plan.push_back({id, firstPropertyColumn + static_cast<int>(found - selected_.begin())});
        } else if (selectsAll_) {
            result = Result::stale;
            return nullptr;
        }
    }
    if (index >= plans_.size())
        plans_.resize(index + 1);
    return &plans_[index].emplace(std::move(plan));
}

RowReader::Result RowReader::decode(const Statement& row, PropertyBuffer& out, std::span<const PropertyId> wanted) {
    Result result = Result::ok;
    const Plan* plan = planFor(row.integer(shapeColumn), result);
    if (plan == nullptr)
        return result;
    if (!wanted.empty()) {
        reordered_.clear();
        for (const PropertyId id : wanted) {
            const auto found = std::ranges::find(*plan, id, &PlanStep::id);
            if (found != plan->end())
                reordered_.push_back(*found);
        }
        plan = &reordered_;
    }
    fetch(row, *plan);
    std::size_t units = 0;
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < plan->size(); ++i)
        ((*plan)[i].id.type() == ValueType::text ? units : bytes) += fetched_[i].bytes.size();
    out.reset(units, bytes);
    for (std::size_t i = 0; i < plan->size(); ++i)
        addTo(out, fetched_[i]);
    return result;
}

// Takes the values of the plan's columns, each with one look at the row.
void RowReader::fetch(const Statement& row, const Plan& plan) {
    if (fetched_.size() < plan.size())
        fetched_.resize(plan.size());
    fetchedCount_ = plan.size();
    for (std::size_t i = 0; i < plan.size(); ++i) {
        StoredValue& value = fetched_[i];
        value = {.id = plan[i].id};
        switch (plan[i].id.type()) {
        case ValueType::text: value.bytes = std::as_bytes(std::span(row.text(plan[i].column))); break;
        case ValueType::blob: value.bytes = row.blob(plan[i].column); break;
        default: value.number = static_cast<std::uint64_t>(row.integer(plan[i].column)); break;
        }
    }
}

RowReader::Result RowReader::fetch(const Statement& row) {
    Result result = Result::ok;
    const Plan* const plan = planFor(row.integer(shapeColumn), result);
    if (plan != nullptr)
        fetch(row, *plan);
    return result;
}

RowReader::Result RowReader::verify(const Statement& row) {
    const Result result = fetch(row);
    if (result != Result::ok)
        return result;
    RecordChecksum checksum;
    checksum.add(static_cast<std::uint64_t>(row.integer(idColumn)));
    for (const StoredValue& value : stored())
        addToChecksum(checksum, value);
    // A value outside the shape, or one of it that is gone, is damage even if the checksum fits.
    const auto present = std::ranges::count_if(
        selected_, [&, column = firstPropertyColumn](PropertyId) mutable { return !row.isNull(column++); });
    const bool matches = row.integer(checksumColumn) == std::int64_t{checksum.value()};
    return matches && static_cast<std::size_t>(present) == fetchedCount_ ? Result::ok : Result::damaged;
}

void RowReader::addTo(PropertyBuffer& out, const StoredValue& value) {
    switch (value.id.type()) {
    case ValueType::text: out.addText(value.id, asText(value.bytes)); break;
    case ValueType::blob: out.addBlob(value.id, value.bytes); break;
    default: out.addNumber(value.id, value.number); break;
    }
}

} // namespace hourwright::platform::sqlite
