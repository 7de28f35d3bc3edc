#include "platform/sqlite/table.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace hourwright::platform::sqlite {

namespace {

struct TypeName {
    ValueType type;
    std::string_view name;
    std::string_view affinity;
};

constexpr std::array typeNames = {
    TypeName{ValueType::boolean, "bool", "INTEGER"},      TypeName{ValueType::ui2, "ui2", "INTEGER"},
    TypeName{ValueType::ui4, "ui4", "INTEGER"},           TypeName{ValueType::text, "text", "TEXT"},
    TypeName{ValueType::fileTime, "filetime", "INTEGER"}, TypeName{ValueType::blob, "blob", "BLOB"},
};

const TypeName& typeName(ValueType type) {
    return *std::ranges::find(typeNames, type, &TypeName::type);
}

std::string columnDeclaration(PropertyId id) {
    return columnName(id) + ' ' + std::string(typeName(id.type()).affinity);
}

// A FILETIME is shown as a date and time; 11644473600 seconds lie between 1601 and 1970.
std::string viewExpression(PropertyId id) {
    const std::string column = columnName(id);
    if (id.type() != ValueType::fileTime)
        return column;
    return "strftime('%Y-%m-%d %H:%M:%S', " + column + " / 10000000 - 11644473600, 'unixepoch')";
}

std::string identifier(std::string_view name) {
    return '"' + std::string(name) + '"';
}

std::string createTableSql(ObjectId database, const DatabaseDefinition& definition) {
    const std::string table = tableName(database);
    std::string sql =
        "CREATE TABLE " + table + " (id INTEGER PRIMARY KEY, shape INTEGER NOT NULL, checksum INTEGER NOT NULL";
    bool sortListed = false;
    for (const PropertyName& property : definition.legend.names) {
        sql += ", " + columnDeclaration(property.id);
        sortListed |= property.id == definition.sortProperty;
    }
    if (!sortListed)
        sql += ", " + columnDeclaration(definition.sortProperty);
    sql += "); CREATE INDEX " + table + "_order ON " + table + " (" + columnName(definition.sortProperty) + ");";
    return sql;
}

std::string createViewSql(ObjectId database, const Legend& legend) {
    std::string sql = "CREATE VIEW IF NOT EXISTS " + identifier(legend.view) + " AS SELECT id";
    for (const PropertyName& property : legend.names)
        sql += ", " + viewExpression(property.id) + " AS " + identifier(property.name);
    return sql + " FROM " + tableName(database) + ';';
}

} // namespace

std::string columnName(PropertyId id) {
    return 'p' + std::to_string(id.number()) + '_' + std::string(typeName(id.type()).name);
}

std::optional<PropertyId> columnProperty(std::string_view name) {
    if (!name.starts_with('p'))
        return {};
    std::uint16_t number = 0;
    const char* const end = name.data() + name.size();
    const auto parsed = std::from_chars(name.data() + 1, end, number);
    if (parsed.ec != std::errc{} || parsed.ptr == end || *parsed.ptr != '_')
        return {};
    const std::string_view type(parsed.ptr + 1, end);
    const auto found = std::ranges::find(typeNames, type, &TypeName::name);
    return found != typeNames.end() ? std::optional(PropertyId(number, found->type)) : std::nullopt;
}

std::string tableName(ObjectId database) {
    return "records_" + std::to_string(static_cast<std::uint32_t>(database));
}

Table::Table(Connection& connection, DatabaseInfo info)
    : connection_(connection), info_(std::move(info)), name_(tableName(info_.id)) {}

const std::vector<Column>& Table::columns() {
    if (!loaded_)
        reloadColumns();
    return columns_;
}

const Column* Table::findColumn(PropertyId id) {
    const auto found = std::ranges::find(columns(), id, &Column::id);
    return found != columns_.end() ? &*found : nullptr;
}

bool Table::ensureColumn(PropertyId id) {
    if (findColumn(id) != nullptr)
        return true;
    reloadColumns();
    if (findColumn(id) != nullptr)
        return true;
    if (!connection_.execute("ALTER TABLE " + name_ + " ADD COLUMN " + columnDeclaration(id)))
        return false;
    reloadColumns();
    return true;
}

void Table::reloadColumns() {
    columns_.clear();
    Statement rows(connection_, "PRAGMA table_info(" + name_ + ")");
    while (rows.step() == Step::row) {
        const std::string_view column = rows.text(1);
        if (const auto property = columnProperty(column))
            columns_.push_back({*property, std::string(column)});
    }
    loaded_ = true;
    ++columnsVersion_;
    ++orderVersion_;
}

bool createTable(Connection& connection, ObjectId database, const DatabaseDefinition& definition) {
    std::string sql = createTableSql(database, definition);
    if (!definition.legend.view.empty())
        sql += createViewSql(database, definition.legend);
    return connection.execute(sql);
}

bool dropTable(Connection& connection, ObjectId database) {
    // The view of a database is found by the table that it reads.
    const std::string table = tableName(database);
    std::vector<std::string> views;
    Statement rows(connection, "SELECT name FROM sqlite_master WHERE type = 'view' AND sql LIKE ?1");
    const std::string pattern = "%FROM " + table;
    if (rows)
        rows.bind(1, pattern);
    while (rows.step() == Step::row)
        views.emplace_back(rows.text(0));
    rows.reset();
    std::string sql;
    for (const std::string& view : views)
        sql += "DROP VIEW " + identifier(view) + ';';
    return connection.execute(sql + "DROP TABLE " + table);
}

} // namespace hourwright::platform::sqlite
