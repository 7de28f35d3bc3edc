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

RowReader::Plan* RowReader::planFor(std::int64_t shapeNumber, Result& result) {
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
            plan.steps.push_back({id, firstPropertyColumn + static_cast<int>(found - selected_.begin())});
        } else if (selectsAll_) {
            result = Result::stale;
            return nullptr;
        }
    }
    for (int column = firstPropertyColumn; const PropertyId id : selected_) {
        if (std::ranges::find(plan.steps, id, &PlanStep::id) == plan.steps.end())
            plan.others.push_back(column);
        ++column;
    }
    if (index >= plans_.size())
        plans_.resize(index + 1);
    return &plans_[index].emplace(std::move(plan));
}

std::span<const RowReader::PlanStep> RowReader::stepsFor(Plan& plan, std::span<const PropertyId> wanted) {
    if (wanted.empty())
        return plan.steps;
    if (std::ranges::equal(wanted, plan.chosenFor))
        return plan.chosen;
    plan.chosenFor.assign(wanted.begin(), wanted.end());
    plan.chosen.clear();
    for (const PropertyId id : wanted) {
        const auto found = std::ranges::find(plan.steps, id, &PlanStep::id);
        if (found != plan.steps.end())
            plan.chosen.push_back(*found);
    }
    return plan.chosen;
}

RowReader::Result RowReader::decode(const Statement& row, PropertyBuffer& out, std::span<const PropertyId> wanted) {
    Result result = Result::ok;
    Plan* const plan = planFor(row.integer(shapeColumn), result);
    if (plan == nullptr)
        return result;
    fetch(row, stepsFor(*plan, wanted));
    std::size_t units = 0;
    std::size_t bytes = 0;
    for (const StoredValue& value : stored())
        (value.id.type() == ValueType::text ? units : bytes) += value.bytes.size();
    out.reset(units, bytes);
    for (const StoredValue& value : stored())
        addTo(out, value);
    return result;
}

// Takes the values of the columns, each with one look at the row.
void RowReader::fetch(const Statement& row, std::span<const PlanStep> steps) {
    if (fetched_.size() < steps.size())
        fetched_.resize(steps.size());
    fetchedCount_ = steps.size();
    for (std::size_t i = 0; i < steps.size(); ++i) {
        StoredValue& value = fetched_[i];
        value = {.id = steps[i].id};
        switch (value.id.type()) {
        case ValueType::text: value.bytes = std::as_bytes(std::span(row.text(steps[i].column))); break;
        case ValueType::blob: value.bytes = row.blob(steps[i].column); break;
        default: value.number = static_cast<std::uint64_t>(row.integer(steps[i].column)); break;
        }
    }
}

RowReader::Result RowReader::fetch(const Statement& row) {
    Result result = Result::ok;
    const Plan* const plan = planFor(row.integer(shapeColumn), result);
    if (plan != nullptr)
        fetch(row, plan->steps);
    return result;
}

RowReader::Result RowReader::verify(const Statement& row) {
    Result result = Result::ok;
    const Plan* const plan = planFor(row.integer(shapeColumn), result);
    if (plan == nullptr)
        return result;
    fetch(row, plan->steps);
    const std::uint32_t checksum = checksumOfRecord(static_cast<ObjectId>(row.integer(idColumn)), stored());
    const bool matches = row.integer(checksumColumn) == std::int64_t{checksum};
    return matches && hasItsShape(row, *plan) ? Result::ok : Result::damaged;
}

// A value outside the shape, or one of it that is gone, is damage even if the checksum fits. Of the values that were
// taken only those that look like none have to be looked at again.
bool RowReader::hasItsShape(const Statement& row, const Plan& plan) const {
    for (std::size_t i = 0; i < fetchedCount_; ++i)
        if (fetched_[i].number == 0 && fetched_[i].bytes.empty() && row.isNull(plan.steps[i].column))
            return false;
    return std::ranges::all_of(plan.others, [&row](int column) { return row.isNull(column); });
}

void RowReader::addTo(PropertyBuffer& out, const StoredValue& value) {
    switch (value.id.type()) {
    case ValueType::text: out.addText(value.id, asText(value.bytes)); break;
    case ValueType::blob: out.addBlob(value.id, value.bytes); break;
    default: out.addNumber(value.id, value.number); break;
    }
}

} // namespace hourwright::platform::sqlite
