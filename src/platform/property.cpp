#include "platform/property.h"

#include "platform/utf.h"

#include <algorithm>
#include <cassert>

namespace hourwright::platform {

const PropertyValue* PropertyBuffer::find(PropertyId id) const {
    const auto found = std::ranges::find(values_, id, &PropertyValue::id);
    return found != values_.end() ? &*found : nullptr;
}

void PropertyBuffer::reset(std::size_t textUnits, std::size_t blobBytes) {
    values_.clear();
    unitsUsed_ = 0;
    bytesUsed_ = 0;
    if (units_.size() < textUnits)
        units_.resize(textUnits);
    if (bytes_.size() < blobBytes)
        bytes_.resize(blobBytes);
}

void PropertyBuffer::addNumber(PropertyId id, std::uint64_t number) {
    values_.push_back({.id = id, .number = number});
}

void PropertyBuffer::addText(PropertyId id, std::string_view utf8) {
    assert(unitsUsed_ + utf8.size() <= units_.size());
    char16_t* const begin = units_.data() + unitsUsed_;
    const auto length = static_cast<std::size_t>(decodeUtf8(utf8, begin) - begin);
    unitsUsed_ += length;
    values_.push_back({.id = id, .text = {begin, length}});
}

void PropertyBuffer::addBlob(PropertyId id, std::span<const std::byte> bytes) {
    assert(bytesUsed_ + bytes.size() <= bytes_.size());
    std::byte* const begin = bytes_.data() + bytesUsed_;
    std::ranges::copy(bytes, begin);
    bytesUsed_ += bytes.size();
    values_.push_back({.id = id, .blob = {begin, bytes.size()}});
}

} // namespace hourwright::platform
