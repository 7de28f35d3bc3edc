#include "platform/sqlite/row_writer.h"

#include "platform/sqlite/record_checksum.h"
#include "platform/utf.h"

#include <algorithm>

namespace hourwright::platform::sqlite {

namespace {

// Parameters of the statements: id, shape, checksum, then one for each property column.
constexpr int idParameter = 1;
constexpr int shapeParameter = 2;
constexpr int checksumParameter = 3;
constexpr int firstPropertyParameter = 4;

std::string parameter(std::size_t number) {
    return '?' + std::to_string(number);
}

std::string insertSql(Table& table) {
    std::string names = "id, shape, checksum";
    std::string values = "?1, ?2, ?3";
    std::size_t next = firstPropertyParameter;
    for (const Column& column : table.columns()) {
        names += ", " + column.name;
        values += ", " + parameter(next++);
    }
    return "INSERT INTO " + table.name() + '(' + names + ") VALUES (" + values + ')';
}

std::string updateSql(Table& table, bool withSortColumn) {
    std::string sql = "UPDATE " + table.name() + " SET shape = ?2, checksum = ?3";
    std::size_t next = firstPropertyParameter;
    for (const Column& column : table.columns()) {
        if (withSortColumn || column.id != table.info().sortProperty)
            sql += ", " + column.name + " = " + parameter(next);
        ++next;
    }
    return sql + " WHERE id = ?1";
}

} // namespace

bool RowWriter::insert(ObjectId id, std::span<const PropertyValue> properties) {
    if (!takeShape(properties))
        return false;
    if (!insert_)
        insert_ = Statement(connection_, insertSql(table_));
    return write(insert_, id, properties);
}

bool RowWriter::update(ObjectId id, std::span<const PropertyValue> properties, bool sortChanged) {
    if (!takeShape(properties))
        return false;
    Statement& statement = sortChanged ? updateAndMove_ : update_;
    if (!statement)
        statement = Statement(connection_, updateSql(table_, sortChanged));
    return write(statement, id, properties);
}

bool RowWriter::remove(ObjectId id) {
    if (!delete_)
        delete_ = Statement(connection_, "DELETE FROM " + table_.name() + " WHERE id = ?1");
    if (delete_)
        delete_.bind(idParameter, static_cast<std::int64_t>(id));
    return delete_.run();
}

std::size_t RowWriter::ShapeHash::operator()(const Shape& shape) const {
    std::size_t hash = shape.size();
    for (const PropertyId id : shape)
        hash = hash * 31 + id.value;
    return hash;
}

// Finds the plan for the properties' shape; making one adds columns and the shape where they are missing.
bool RowWriter::takeShape(std::span<const PropertyValue> properties) {
    shape_.clear();
    for (const PropertyValue& value : properties)
        shape_.push_back(value.id);
    if (preparedFor_ == table_.columnsVersion()) {
        const auto known = plans_.find(shape_);
        if (known != plans_.end()) {
            plan_ = &known->second;
            return true;
        }
    }
    const auto number = makeColumns() ? shapes_.numberOf(shape_) : std::nullopt;
    if (!number)
        return false;
    ShapePlan plan{.number = *number};
    for (const Column& column : table_.columns())
        plan.placeOfColumn.push_back(static_cast<std::size_t>(std::ranges::find(shape_, column.id) - shape_.begin()));
    plan_ = &plans_.insert_or_assign(shape_, std::move(plan)).first->second;
    return true;
}

// Statements and plans are those of the columns; a rollback, which may take numbers of shapes back, renews them too.
bool RowWriter::makeColumns() {
    for (const PropertyId id : shape_)
        if (!table_.ensureColumn(id))
            return false;
    if (preparedFor_ == table_.columnsVersion())
        return true;
    insert_ = {};
    update_ = {};
    updateAndMove_ = {};
    plans_.clear();
    preparedFor_ = table_.columnsVersion();
    return true;
}

bool RowWriter::write(Statement& statement, ObjectId id, std::span<const PropertyValue> properties) {
    if (!statement)
        return false;
    encodeTexts(properties);
    bindColumns(statement, properties);
    RecordChecksum checksum;
    checksum.add(static_cast<std::uint64_t>(id));
    for (std::size_t i = 0; i < properties.size(); ++i)
        addToChecksum(checksum, properties[i], texts_[i]);
    statement.bind(idParameter, static_cast<std::int64_t>(id));
    statement.bind(shapeParameter, plan_->number);
    statement.bind(checksumParameter, std::int64_t{checksum.value()});
    return statement.run();
}

void RowWriter::bindColumns(Statement& statement, std::span<const PropertyValue> properties) {
    int next = firstPropertyParameter;
    for (const std::size_t place : plan_->placeOfColumn) {
        if (place == properties.size())
            statement.bindNull(next);
        else if (properties[place].id.type() == ValueType::text)
            statement.bind(next, std::string_view(texts_[place]));
        else if (properties[place].id.type() == ValueType::blob)
            statement.bind(next, properties[place].blob);
        else
            statement.bind(next, static_cast<std::int64_t>(properties[place].number));
        ++next;
    }
}

void RowWriter::encodeTexts(std::span<const PropertyValue> properties) {
    if (texts_.size() < properties.size())
        texts_.resize(properties.size());
    for (std::size_t i = 0; i < properties.size(); ++i) {
        texts_[i].clear();
        if (properties[i].id.type() == ValueType::text)
            appendUtf8(texts_[i], properties[i].text);
    }
}

} // namespace hourwright::platform::sqlite
