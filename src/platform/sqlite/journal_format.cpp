#include "platform/sqlite/journal_format.h"

#include <utility>

namespace hourwright::platform::sqlite {

namespace {

constexpr std::uint64_t hadValueBit = 1;
constexpr std::uint64_t hasValueBit = 2;

bool hasBytes(PropertyId id) {
    return id.type() == ValueType::text || id.type() == ValueType::blob;
}

// Seven bits a byte, the lowest first; the top bit says that more follow.
void appendNumber(std::string& out, std::uint64_t number) {
    for (; number >= 0x80; number >>= 7)
        out += static_cast<char>(static_cast<unsigned char>((number & 0x7F) | 0x80));
    out += static_cast<char>(number);
}

void appendHead(std::string& out, const RowHead& head) {
    appendNumber(out, static_cast<std::uint64_t>(head.shape));
    appendNumber(out, head.checksum);
}

void appendValue(std::string& out, const StoredValue& value) {
    if (!hasBytes(value.id)) {
        appendNumber(out, value.number);
        return;
    }
    appendNumber(out, value.bytes.size());
    out += asText(value.bytes);
}

void appendColumn(std::string& out, const ColumnChange& column) {
    appendNumber(out, column.id.value);
    appendNumber(out, (column.hadValue ? hadValueBit : 0) | (column.hasValue ? hasValueBit : 0));
    if (column.hadValue)
        appendValue(out, column.before);
    if (column.hasValue)
        appendValue(out, column.after);
}

} // namespace

void invert(RecordChange& change) {
    if (change.kind != ChangeKind::update)
        change.kind = change.kind == ChangeKind::insert ? ChangeKind::remove : ChangeKind::insert;
    std::swap(change.before, change.after);
    for (ColumnChange& column : change.columns) {
        std::swap(column.hadValue, column.hasValue);
        std::swap(column.before, column.after);
    }
}

void appendChange(std::string& out, const RecordChange& change) {
    out += static_cast<char>(change.kind);
    appendNumber(out, static_cast<std::uint64_t>(change.database));
    appendNumber(out, static_cast<std::uint64_t>(change.record));
    if (change.kind == ChangeKind::update) {
        appendHead(out, change.before);
        appendHead(out, change.after);
        appendNumber(out, change.columns.size());
        for (const ColumnChange& column : change.columns)
            appendColumn(out, column);
        return;
    }
    const bool inserted = change.kind == ChangeKind::insert;
    appendHead(out, inserted ? change.after : change.before);
    for (const ColumnChange& column : change.columns)
        appendValue(out, inserted ? column.after : column.before);
}

bool ChangeReader::read(RecordChange& out) {
    const std::uint64_t kind = number();
    if (kind > static_cast<std::uint64_t>(ChangeKind::remove))
        return false;
    out.kind = static_cast<ChangeKind>(kind);
    out.database = static_cast<ObjectId>(number());
    out.record = static_cast<ObjectId>(number());
    out.before = out.after = {};
    out.columns.clear();
    if (out.kind == ChangeKind::update)
        readColumns(out);
    else
        readRecord(out);
    return !damaged_;
}

void ChangeReader::readRecord(RecordChange& out) {
    const bool inserted = out.kind == ChangeKind::insert;
    (inserted ? out.after : out.before) = head();
    const Shape* const shape = shapes_.find(inserted ? out.after.shape : out.before.shape);
    damaged_ |= shape == nullptr;
    for (std::size_t i = 0; !damaged_ && i < shape->size(); ++i) {
        ColumnChange column{.id = (*shape)[i], .hadValue = !inserted, .hasValue = inserted};
        (inserted ? column.after : column.before) = value(column.id);
        out.columns.push_back(column);
    }
}

void ChangeReader::readColumns(RecordChange& out) {
    out.before = head();
    out.after = head();
    for (std::uint64_t left = number(); !damaged_ && left > 0; --left) {
        ColumnChange column{.id = PropertyId(static_cast<std::uint32_t>(number()))};
        damaged_ |= !isKnownType(column.id.type());
        const std::uint64_t bits = number();
        column.hadValue = (bits & hadValueBit) != 0;
        column.hasValue = (bits & hasValueBit) != 0;
        if (column.hadValue)
            column.before = value(column.id);
        if (column.hasValue)
            column.after = value(column.id);
        out.columns.push_back(column);
    }
}

std::uint64_t ChangeReader::number() {
    std::uint64_t result = 0;
    for (unsigned shift = 0; shift < 64 && at_ < content_.size(); shift += 7) {
        const auto byte = std::to_integer<std::uint64_t>(content_[at_++]);
        result |= (byte & 0x7F) << shift;
        if ((byte & 0x80) == 0)
            return result;
    }
    damaged_ = true;
    return 0;
}

RowHead ChangeReader::head() {
    RowHead result{.shape = static_cast<std::int64_t>(number())};
    result.checksum = static_cast<std::uint32_t>(number());
    return result;
}

StoredValue ChangeReader::value(PropertyId id) {
    StoredValue result{.id = id};
    const std::uint64_t numberOrSize = number();
    if (!hasBytes(id)) {
        result.number = numberOrSize;
    } else if (numberOrSize > content_.size() - at_) {
        damaged_ = true;
    } else {
        result.bytes = content_.subspan(at_, numberOrSize);
        at_ += numberOrSize;
    }
    return result;
}

} // namespace hourwright::platform::sqlite
