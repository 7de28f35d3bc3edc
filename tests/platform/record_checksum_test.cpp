#include "platform/sqlite/record_checksum.h"

#include <gtest/gtest.h>
#include <string>

namespace hourwright::platform::sqlite {
namespace {

// The values that are published for this checksum, and lengths around the eight bytes that are folded in at once.
TEST(RecordChecksumTest, knownValuesByInstructionAndByTables) {
    const struct {
        std::string bytes;
        std::uint32_t expected;
    } cases[] = {
        {"", 0x0000'0000},
        {"a", 0xC1D0'4330},
        {"123456789", 0xE306'9283},
        {std::string(32, '\0'), 0x8A91'36AA},
        {std::string(32, '\xFF'), 0x62A8'AB43},
        {"The quick brown fox jumps over the lazy dog", 0x2262'0404},
    };
    for (const auto& c : cases) {
        RecordChecksum checksum;
        checksum.add(c.bytes);
        EXPECT_EQ(checksum.value(), c.expected) << c.bytes;
        EXPECT_EQ(~foldByTables(0xFFFF'FFFF, asBytes(c.bytes)), c.expected) << c.bytes;
    }
}

TEST(RecordChecksumTest, aNumberIsItsEightBytesWithTheLowestFirst) {
    RecordChecksum number;
    number.add(std::uint64_t{0x3837'3635'3433'3231});
    RecordChecksum bytes;
    bytes.add(std::string_view("12345678"));
    EXPECT_EQ(number.value(), bytes.value());
}

} // namespace
} // namespace hourwright::platform::sqlite
