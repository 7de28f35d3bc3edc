#include "platform/sqlite/record_merge.h"

#include "platform/utf.h"

#include <algorithm>
#include <limits>

namespace hourwright::platform::sqlite {

namespace {

// True when a stored text is plain ASCII and the same: nothing has to be encoded to know that it stays.
bool sameAscii(std::span<const std::byte> utf8, std::u16string_view text) {
    return utf8.size() == text.size() && std::ranges::equal(utf8, text, [](std::byte byte, char16_t unit) {
               return unit < 0x80 && std::to_integer<char16_t>(byte) == unit;
           });
}

} // namespace

std::uint64_t largestNumber(ValueType type) {
    switch (type) {
    case ValueType::boolean: return 1;
    case ValueType::ui2: return std::numeric_limits<std::uint16_t>::max();
    case ValueType::ui4: return std::numeric_limits<std::uint32_t>::max();
    default: return static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    }
}

bool RecordMerge::take(std::span<const PropertyValue> properties) {
    given_.clear();
    textsUsed_ = 0;
    if (texts_.size() < properties.size())
        texts_.resize(properties.size());
    std::uint64_t seen = 0; // a bit for some properties each: most lists need no look for doubles
    for (PropertyValue value : properties) {
        if (!isKnownType(value.id.type()) || value.number > largestNumber(value.id.type()))
            return false;
        value.text = value.text.substr(0, value.text.find(u'\0'));
        const std::uint64_t bit = std::uint64_t{1} << (value.id.number() % 64);
        Given* const same = (seen & bit) == 0 ? nullptr : find(value.id);
        seen |= bit;
        if (same != nullptr)
            same->value = value;
        else
            given_.push_back({value});
    }
    return true;
}

void RecordMerge::makeNew() {
    merged_.clear();
    change_.kind = ChangeKind::insert;
    change_.columns.clear();
    for (const Given& given : given_) {
        if (given.value.deletion)
            continue;
        merged_.push_back(encode(given.value));
        change_.columns.push_back({.id = given.value.id, .hasValue = true, .after = merged_.back()});
    }
}

void RecordMerge::layOver(std::span<const StoredValue> stored) {
    merged_.clear();
    change_.kind = ChangeKind::update;
    change_.columns.clear();
    for (const StoredValue& value : stored) {
        Given* const given = find(value.id);
        if (given == nullptr) {
            merged_.push_back(value);
            continue;
        }
        given->used = true;
        replace(value, given->value);
    }
    for (const Given& given : given_) {
        if (given.used || given.value.deletion)
            continue;
        merged_.push_back(encode(given.value));
        change_.columns.push_back({.id = given.value.id, .hasValue = true, .after = merged_.back()});
    }
}

void RecordMerge::replace(const StoredValue& stored, const PropertyValue& value) {
    if (value.deletion) {
        change_.columns.push_back({.id = stored.id, .hadValue = true, .before = stored});
        return;
    }
    if (stored.id.type() == ValueType::text && sameAscii(stored.bytes, value.text)) {
        merged_.push_back(stored);
        return;
    }
    merged_.push_back(encode(value));
    if (!(merged_.back() == stored))
        change_.columns.push_back(
            {.id = stored.id, .hadValue = true, .hasValue = true, .before = stored, .after = merged_.back()});
}

bool RecordMerge::changes(PropertyId id) const {
    return std::ranges::find(change_.columns, id, &ColumnChange::id) != change_.columns.end();
}

RecordMerge::Given* RecordMerge::find(PropertyId id) {
    const auto found = std::ranges::find_if(given_, [id](const Given& given) { return given.value.id == id; });
    return found != given_.end() ? &*found : nullptr;
}

StoredValue RecordMerge::encode(const PropertyValue& value) {
    StoredValue stored{.id = value.id};
    if (value.id.type() == ValueType::text) {
        std::string& utf8 = texts_[textsUsed_++];
        utf8.clear();
        appendUtf8(utf8, value.text);
        stored.bytes = asBytes(utf8);
    } else if (value.id.type() == ValueType::blob) {
        stored.bytes = value.blob;
    } else {
        stored.number = value.number;
    }
    return stored;
}

} // namespace hourwright::platform::sqlite
