#pragma once

#include "platform/object_store.h"
#include "platform/sqlite/shape_catalog.h"
#include "platform/sqlite/stored_value.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform::sqlite {

/// What happened to a record; the values are the codes in the journal.
enum class ChangeKind : std::uint8_t { insert = 0, update = 1, remove = 2 };

/// One change of one record. Of an insert only what is after counts, of a removal only what was before. The columns of
/// an insert or removal are all that the record has, in the order of its shape.
struct RecordChange {
    ChangeKind kind = ChangeKind::insert;
    ObjectId database = ObjectId::none;
    ObjectId record = ObjectId::none;
    RowHead before;
    RowHead after;
    std::vector<ColumnChange> columns;
};

/// Turns a change into the one that takes it back.
void invert(RecordChange& change);

/// First byte of every part of a journal; a part that begins otherwise was written by a later version.
inline constexpr char journalFormat = 1;

/// Appends changes to the bytes of a part.
void appendChange(std::string& out, const RecordChange& change);

/// Reads the changes in the bytes of a part, without its first byte. The values borrow those bytes.
class ChangeReader {
public:
    ChangeReader(std::span<const std::byte> content, ShapeCatalog& shapes) : content_(content), shapes_(shapes) {}

    /// Reads the change at the position and moves behind it; false when the bytes are damaged.
    [[nodiscard]] bool read(RecordChange& out);
    [[nodiscard]] bool atEnd() const { return at_ == content_.size(); }
    [[nodiscard]] std::size_t position() const { return at_; }
    void moveTo(std::size_t position) { at_ = position; }

private:
    [[nodiscard]] std::uint64_t number();
    [[nodiscard]] RowHead head();
    [[nodiscard]] StoredValue value(PropertyId id);
    void readRecord(RecordChange& out);
    void readColumns(RecordChange& out);

    std::span<const std::byte> content_;
    ShapeCatalog& shapes_;
    std::size_t at_ = 0;
    bool damaged_ = false;
};

} // namespace hourwright::platform::sqlite
