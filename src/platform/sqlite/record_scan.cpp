#include "platform/sqlite/record_scan.h"

#include <algorithm>
#include <utility>

namespace hourwright::platform::sqlite {

namespace {

// Parameters: ?1 the sort value, ?2 the id, then the texts that are tested.
constexpr int firstTestParameter = 3;

struct PieceSql {
    std::string_view condition; // $ stands for the sort column
    std::string_view order;
    bool usesKey;
    bool usesId;
};

constexpr std::array<PieceSql, static_cast<std::size_t>(ScanPiece::count)> pieceTable = {{
    {"$ IS NOT NULL", "$, id", false, false},
    {"$ IS NULL", "id", false, false},
    {"$ = ?1 AND id > ?2", "id", true, true},
    {"$ > ?1", "$, id", true, false},
    {"$ IS NULL AND id > ?2", "id", false, true},
    {"$ IS NOT NULL", "$ DESC, id DESC", false, false},
    {"$ IS NULL", "id DESC", false, false},
    {"$ = ?1 AND id < ?2", "id DESC", true, true},
    {"$ < ?1", "$ DESC, id DESC", true, false},
    {"$ IS NULL AND id < ?2", "id DESC", false, true},
}};

std::string withColumn(std::string_view text, const std::string& column) {
    std::string out;
    for (const char c : text) {
        if (c == '$')
            out += column;
        else
            out += c;
    }
    return out;
}

} // namespace

RecordScan::RecordScan(Connection& connection, Table& table, ShapeCatalog& shapes, PropertyId sortProperty,
                       std::span<const PropertyId> columns, std::vector<TextTest> tests)
    : connection_(connection), table_(table), sortProperty_(sortProperty), tests_(std::move(tests)),
      reader_(table, shapes, sortProperty, columns) {
    std::erase_if(tests_, [&table](const TextTest& test) { return table.findColumn(test.property) == nullptr; });
}

void RecordScan::startAtEnd(Direction direction) {
    if (direction == Direction::forward)
        start({ScanPiece::keyed, ScanPiece::keyless}, direction);
    else
        start({ScanPiece::keylessBack, ScanPiece::keyedBack}, direction);
}

void RecordScan::startFrom(const RecordPlace& place, Direction direction) {
    from_ = place;
    const bool forward = direction == Direction::forward;
    if (place.hasKey && forward)
        start({ScanPiece::equalAfter, ScanPiece::above, ScanPiece::keyless}, direction);
    else if (place.hasKey)
        start({ScanPiece::equalBefore, ScanPiece::below}, direction);
    else if (forward)
        start({ScanPiece::keylessAfter}, direction);
    else
        start({ScanPiece::keylessBefore, ScanPiece::keyedBack}, direction);
}

void RecordScan::startAtKey(const RecordPlace& key, bool orEqual) {
    from_ = key;
    from_.id = ObjectId::none;
    if (orEqual)
        start({ScanPiece::equalAfter, ScanPiece::above, ScanPiece::keyless}, Direction::forward);
    else
        start({ScanPiece::above, ScanPiece::keyless}, Direction::forward);
}

void RecordScan::start(std::initializer_list<ScanPiece> pieces, Direction direction) {
    release();
    std::ranges::copy(pieces, pieces_.begin());
    pieceCount_ = pieces.size();
    at_ = 0;
    direction_ = direction;
    running_ = true;
}

Step RecordScan::next(RecordPlace& place) {
    if (!running_)
        return Step::failed;
    for (;;) {
        if (!pieceOpen_ && !openPiece())
            return Step::failed;
        Statement& statement = statements_[index(pieces_[at_])];
        const Step step = statement.step();
        if (step == Step::row) {
            takePlace(statement, place);
            return step;
        }
        statement.reset();
        pieceOpen_ = false;
        if (step == Step::failed || at_ + 1 == pieceCount_) {
            running_ = false;
            return step;
        }
        ++at_;
    }
}

bool RecordScan::openPiece() {
    Statement& statement = statements_[index(pieces_[at_])];
    if (!statement)
        statement = Statement(connection_, pieceSql(pieces_[at_]));
    if (!statement) {
        running_ = false;
        return false;
    }
    bindPlace(statement);
    bindTests(statement);
    pieceOpen_ = true;
    return true;
}

void RecordScan::bindPlace(Statement& statement) {
    const PieceSql& sql = pieceTable[index(pieces_[at_])];
    if (sql.usesKey && sortProperty_.type() == ValueType::text)
        statement.bind(1, std::string_view(from_.text));
    else if (sql.usesKey)
        statement.bind(1, from_.number);
    if (sql.usesId)
        statement.bind(2, static_cast<std::int64_t>(from_.id));
}

void RecordScan::bindTests(Statement& statement) {
    int next = firstTestParameter;
    for (const TextTest& test : tests_)
        statement.bind(next++, std::string_view(test.utf8));
}

void RecordScan::release() {
    if (running_ && pieceOpen_)
        statements_[index(pieces_[at_])].reset();
    pieceOpen_ = false;
    running_ = false;
}

Step RecordScan::find(ObjectId id) {
    if (!byId_)
        byId_ = Statement(connection_, "SELECT " + reader_.selectList() + " FROM " + table_.name() + " WHERE id = ?1");
    if (!byId_)
        return Step::failed;
    byId_.bind(1, static_cast<std::int64_t>(id));
    return byId_.step();
}

void RecordScan::takePlace(const Statement& row, RecordPlace& place) const {
    place.id = static_cast<ObjectId>(row.integer(RowReader::idColumn));
    place.hasKey = !row.isNull(RowReader::sortColumn);
    if (sortProperty_.type() == ValueType::text)
        place.text = row.text(RowReader::sortColumn);
    else
        place.number = row.integer(RowReader::sortColumn);
}

std::string RecordScan::pieceSql(ScanPiece piece) const {
    const Column* const sort = table_.findColumn(sortProperty_);
    const std::string column = sort != nullptr ? sort->name : "NULL";
    const PieceSql& sql = pieceTable[index(piece)];
    std::string where = withColumn(sql.condition, column);
    int next = firstTestParameter;
    for (const TextTest& test : tests_)
        where += " AND " + table_.findColumn(test.property)->name + " = ?" + std::to_string(next++);
    return "SELECT " + reader_.selectList() + " FROM " + table_.name() + " WHERE " + where + " ORDER BY " +
           withColumn(sql.order, column);
}

} // namespace hourwright::platform::sqlite
