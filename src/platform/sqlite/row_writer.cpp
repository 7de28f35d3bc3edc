#include "platform/sqlite/row_writer.h"

#include "platform/sqlite/record_checksum.h"

#include <algorithm>

namespace hourwright::platform::sqlite {

namespace {

// Parameters: the record, the heads of its row before and after, then the values of the columns.
constexpr int recordParameter = 1;
constexpr int beforeParameter = 2;
constexpr int afterParameter = 4;
constexpr int firstColumnParameter = 6;
constexpr std::string_view whereUnchanged = " WHERE id = ?1 AND shape = ?2 AND checksum = ?3";

std::string insertSql(const std::string& table, const RecordChange& change) {
    std::string names = "id, shape, checksum";
    std::string values = "?1, ?4, ?5";
    int next = firstColumnParameter;
    for (const ColumnChange& column : change.columns) {
        names += ", " + columnName(column.id);
        values += ", ?" + std::to_string(next++);
    }
    return "INSERT OR IGNORE INTO " + table + '(' + names + ") VALUES (" + values + ')';
}

std::string updateSql(const std::string& table, const RecordChange& change) {
    std::string sql = "UPDATE " + table + " SET shape = ?4, checksum = ?5";
    int next = firstColumnParameter;
    for (const ColumnChange& column : change.columns)
        sql += ", " + columnName(column.id) + " = ?" + std::to_string(next++);
    return sql.append(whereUnchanged);
}

void bindHead(Statement& statement, int parameter, const RowHead& head) {
    statement.bind(parameter, head.shape);
    statement.bind(parameter + 1, std::int64_t{head.checksum});
}

void bindValue(Statement& statement, int parameter, const ColumnChange& column) {
    if (!column.hasValue)
        statement.bindNull(parameter);
    else if (column.id.type() == ValueType::text)
        statement.bind(parameter, asText(column.after.bytes));
    else if (column.id.type() == ValueType::blob)
        statement.bind(parameter, column.after.bytes);
    else
        statement.bind(parameter, static_cast<std::int64_t>(column.after.number));
}

void bindChange(Statement& statement, const RecordChange& change) {
    statement.bind(recordParameter, static_cast<std::int64_t>(change.record));
    if (change.kind != ChangeKind::insert)
        bindHead(statement, beforeParameter, change.before);
    if (change.kind == ChangeKind::remove)
        return;
    bindHead(statement, afterParameter, change.after);
    int next = firstColumnParameter;
    for (const ColumnChange& column : change.columns)
        bindValue(statement, next++, column);
}

} // namespace

std::size_t RowWriter::ShapeHash::operator()(const Shape& shape) const {
    std::size_t hash = shape.size();
    for (const PropertyId id : shape)
        hash = hash * 31 + id.value;
    return hash;
}

// What is remembered is that of the columns; a rollback, which may take columns and shapes back, renews it too.
void RowWriter::renew() {
    if (preparedFor_ == table_.columnsVersion())
        return;
    prepared_.clear();
    last_ = nullptr;
    numbers_.clear();
    lastShape_.clear();
    preparedFor_ = table_.columnsVersion();
}

bool RowWriter::findHead(ObjectId id, std::span<const StoredValue> values, RowHead& head) {
    renew();
    shape_.clear();
    for (const StoredValue& value : values)
        shape_.push_back(value.id);
    head.checksum = checksumOfRecord(id, values);
    if (shape_ != lastShape_ || lastShape_.empty()) {
        const auto number = numberOfShape();
        if (!number)
            return false;
        lastShape_ = shape_;
        lastNumber_ = *number;
    }
    head.shape = lastNumber_;
    return true;
}

std::optional<std::int64_t> RowWriter::numberOfShape() {
    if (const auto known = numbers_.find(shape_); known != numbers_.end())
        return known->second;
    if (!std::ranges::all_of(shape_, [this](PropertyId property) { return table_.ensureColumn(property); }))
        return std::nullopt;
    const auto number = shapes_.numberOf(shape_);
    if (!number)
        return std::nullopt;
    renew();
    return numbers_.insert_or_assign(shape_, *number).first->second;
}

RowWriter::Outcome RowWriter::apply(const RecordChange& change) {
    renew();
    Statement& statement = statementFor(change);
    if (!statement)
        return Outcome::failed;
    bindChange(statement, change);
    if (!statement.run())
        return Outcome::failed;
    return connection_.changedRows() == 1 ? Outcome::written : Outcome::otherRow;
}

Statement& RowWriter::statementFor(const RecordChange& change) {
    const auto fits = [&change](const Prepared& prepared) {
        return prepared.kind == change.kind &&
               (change.kind == ChangeKind::remove ||
                std::ranges::equal(prepared.columns, change.columns, {}, {}, &ColumnChange::id));
    };
    if (last_ != nullptr && fits(*last_))
        return last_->statement;
    const auto known = std::ranges::find_if(prepared_, [&](const auto& prepared) { return fits(*prepared); });
    if (known != prepared_.end()) {
        last_ = known->get();
        return last_->statement;
    }
    last_ = prepared_.emplace_back(std::make_unique<Prepared>()).get();
    last_->kind = change.kind;
    for (const ColumnChange& column : change.columns)
        last_->columns.push_back(column.id);
    last_->statement = Statement(connection_, sqlFor(change));
    return last_->statement;
}

std::string RowWriter::sqlFor(const RecordChange& change) const {
    switch (change.kind) {
    case ChangeKind::insert: return insertSql(table_.name(), change);
    case ChangeKind::update: return updateSql(table_.name(), change);
    case ChangeKind::remove: break;
    }
    return "DELETE FROM " + table_.name() + std::string(whereUnchanged);
}

} // namespace hourwright::platform::sqlite
