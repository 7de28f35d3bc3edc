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
    if (!makeColumns(properties))
        return false;
    if (!insert_)
        insert_ = Statement(connection_, insertSql(table_));
    return write(insert_, id, properties);
}

bool RowWriter::update(ObjectId id, std::span<const PropertyValue> properties, bool sortChanged) {
    if (!makeColumns(properties))
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

bool RowWriter::makeColumns(std::span<const PropertyValue> properties) {
    for (const PropertyValue& value : properties)
        if (!table_.ensureColumn(value.id))
            return false;
    if (preparedFor_ == table_.columnsVersion())
        return true;
    insert_ = {};
    update_ = {};
    updateAndMove_ = {};
    preparedFor_ = table_.columnsVersion();
    return true;
}

bool RowWriter::write(Statement& statement, ObjectId id, std::span<const PropertyValue> properties) {
    shape_.clear();
    for (const PropertyValue& value : properties)
        shape_.push_back(value.id);
    const auto shape = shapes_.numberOf(shape_);
    if (!shape || !statement)
        return false;
    encodeTexts(properties);
    bindColumns(statement, properties);
    RecordChecksum checksum;
    checksum.add(static_cast<std::uint64_t>(id));
    for (std::size_t i = 0; i < properties.size(); ++i)
        addToChecksum(checksum, properties[i], texts_[i]);
    statement.bind(idParameter, static_cast<std::int64_t>(id));
    statement.bind(shapeParameter, *shape);
    statement.bind(checksumParameter, std::int64_t{checksum.value()});
    return statement.run();
}

void RowWriter::bindColumns(Statement& statement, std::span<const PropertyValue> properties) {
    int next = firstPropertyParameter;
    for (const Column& column : table_.columns()) {
        const auto found = std::ranges::find(properties, column.id, &PropertyValue::id);
        if (found == properties.end())
            statement.bindNull(next);
        else if (column.id.type() == ValueType::text)
            statement.bind(next, std::string_view(texts_[static_cast<std::size_t>(found - properties.begin())]));
        else if (column.id.type() == ValueType::blob)
            statement.bind(next, found->blob);
        else
            statement.bind(next, static_cast<std::int64_t>(found->number));
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
