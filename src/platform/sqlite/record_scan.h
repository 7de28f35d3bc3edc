#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/row_reader.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace hourwright::platform::sqlite {

/// The place of a record in the sorted order: its sort value (none: the record has no such property) and its id.
struct RecordPlace {
    ObjectId id = ObjectId::none;
    bool hasKey = false;
    std::int64_t number = 0;
    std::string text{};
};

/// One ordered piece of a database; scans are chains of them. "After" and "before" exclude the place itself.
enum class ScanPiece : std::uint8_t {
    keyed,      ///< all records with a sort value
    keyless,    ///< all records without one
    equalAfter, ///< same sort value, later id
    above,      ///< greater sort value
    keylessAfter,
    keyedBack, ///< the same, backwards
    keylessBack,
    equalBefore,
    below,
    keylessBefore,
    count,
};

enum class Direction : std::uint8_t { forward, backward };

/// A text that records must have to be visited; not tested when no record has the property.
struct TextTest {
    PropertyId property;
    std::string utf8;

    friend bool operator==(const TextTest&, const TextTest&) = default;
};

/// Statements over one database that select the same columns, and the scan that runs over them. At most one scan runs
/// at a time; its row can be decoded by the reader until the scan moves on or is released.
///
///     forward from a place p:   ... p | equalAfter | above | keyless
///     backward from p:          keyedBack/below | equalBefore | p
class RecordScan {
public:
    RecordScan(Connection& connection, Table& table, ShapeCatalog& shapes, PropertyId sortProperty,
               std::span<const PropertyId> columns = {}, std::vector<TextTest> tests = {});

    [[nodiscard]] RowReader& reader() { return reader_; }

    /// Starts at the first or last record.
    void startAtEnd(Direction direction);
    /// Starts behind a place, in the given direction.
    void startFrom(const RecordPlace& place, Direction direction);
    /// Starts at the first record whose sort value equals (or is greater than) that of the place; its id is ignored.
    void startAtKey(const RecordPlace& key, bool orEqual);

    /// Moves to the next record of the scan and takes its place. `done` at the end.
    [[nodiscard]] Step next(RecordPlace& place);
    /// The piece that the current record came from.
    [[nodiscard]] ScanPiece piece() const { return pieces_[at_]; }
    /// The statement on the scan's current record.
    [[nodiscard]] const Statement& row() const { return statements_[index(pieces_[at_])]; }

    [[nodiscard]] bool isRunning() const { return running_; }
    [[nodiscard]] Direction direction() const { return direction_; }
    /// Ends the scan and lets go of the file.
    void release();

    /// Finds one record by its id; the statement stands on it until it is reset. `done` when there is none.
    [[nodiscard]] Step find(ObjectId id);
    [[nodiscard]] Statement& found() { return byId_; }
    /// Takes the place of a statement's row.
    void takePlace(const Statement& row, RecordPlace& place) const;

private:
    static std::size_t index(ScanPiece piece) { return static_cast<std::size_t>(piece); }
    void start(std::initializer_list<ScanPiece> pieces, Direction direction);
    [[nodiscard]] bool openPiece();
    [[nodiscard]] std::string pieceSql(ScanPiece piece) const;
    void bindPlace(Statement& statement);
    void bindTests(Statement& statement);

    Connection& connection_;
    Table& table_;
    PropertyId sortProperty_;
    std::vector<TextTest> tests_;
    RowReader reader_;
    std::array<Statement, static_cast<std::size_t>(ScanPiece::count)> statements_;
    Statement byId_;
    std::array<ScanPiece, 3> pieces_{};
    std::size_t pieceCount_ = 0;
    std::size_t at_ = 0;
    bool pieceOpen_ = false;
    bool running_ = false;
    Direction direction_ = Direction::forward;
    RecordPlace from_;
};

} // namespace hourwright::platform::sqlite
