#include "platform/sqlite/row_reader.h"

#include "platform/sqlite/record_checksum.h"

#include <algorithm>

namespace hourwright::platform::sqlite {

namespace {

constexpr int firstPropertyColumn = 4;

bool isBytes(ValueType type) {
    return type == ValueType::blob;
}

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
    std::size_t units = 0;
    std::size_t bytes = 0;
    for (const PlanStep& step : *plan) {
        if (step.id.type() == ValueType::text)
            units += row.text(step.column).size();
        else if (isBytes(step.id.type()))
            bytes += row.blob(step.column).size();
    }
    out.reset(units, bytes);
    for (const PlanStep& step : *plan)
        decodeStep(row, step, out);
    return result;
}

RowReader::Result RowReader::verify(const Statement& row) {
    Result result = Result::ok;
    const Plan* const plan = planFor(row.integer(shapeColumn), result);
    if (plan == nullptr)
        return result;
    RecordChecksum checksum;
    checksum.add(static_cast<std::uint64_t>(row.integer(idColumn)));
    for (const PlanStep& step : *plan) {
        if (row.isNull(step.column))
            return Result::damaged;
        const bool isText = step.id.type() == ValueType::text;
        const bool isBlob = step.id.type() == ValueType::blob;
        addToChecksum(checksum,
                      {.id = step.id,
                       .number = isText || isBlob ? 0 : static_cast<std::uint64_t>(row.integer(step.column)),
                       .blob = isBlob ? row.blob(step.column) : std::span<const std::byte>{}},
                      isText ? row.text(step.column) : std::string_view{});
    }
    const auto present = std::ranges::count_if(
        selected_, [&, column = firstPropertyColumn](PropertyId) mutable { return !row.isNull(column++); });
    const bool matches = row.integer(checksumColumn) == std::int64_t{checksum.value()};
    return matches && static_cast<std::size_t>(present) == plan->size() ? Result::ok : Result::damaged;
}

void RowReader::decodeStep(const Statement& row, PlanStep step, PropertyBuffer& out) const {
    switch (step.id.type()) {
    case ValueType::text: out.addText(step.id, row.text(step.column)); break;
    case ValueType::blob: out.addBlob(step.id, row.blob(step.column)); break;
    default: out.addNumber(step.id, static_cast<std::uint64_t>(row.integer(step.column))); break;
    }
}

} // namespace hourwright::platform::sqlite
