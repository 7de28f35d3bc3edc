#include "platform/sqlite/registry_checksum.h"

#include "platform/sqlite/record_checksum.h"
#include "platform/utf.h"

namespace hourwright::platform::sqlite {

std::int64_t checksumOf(std::int64_t key, std::string_view name, std::int64_t type, std::span<const std::byte> data) {
    std::string folded(name);
    for (char& c : folded)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    RecordChecksum checksum;
    checksum.add(static_cast<std::uint64_t>(key));
    checksum.add(std::uint64_t{folded.size()});
    checksum.add(folded);
    checksum.add(static_cast<std::uint64_t>(type));
    checksum.add(std::uint64_t{data.size()});
    checksum.add(data);
    return checksum.value();
}

bool fitsChecksum(const Statement& row, std::int64_t key) {
    constexpr int checksumColumn = 3;
    return !row.isNull(checksumColumn) &&
           row.integer(checksumColumn) == checksumOf(key, row.text(0), row.integer(1), row.blob(2));
}

std::string damagedText(std::string_view name) {
    return "the value " + printableUtf8(toUtf16(name)) + " is damaged";
}

} // namespace hourwright::platform::sqlite
