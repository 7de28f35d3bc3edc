#include "platform/sqlite/record_checksum.h"

#include <array>
#include <cstring>

namespace hourwright::platform::sqlite {

namespace {

constexpr std::uint32_t reversedPolynomial = 0x82F6'3B78;
constexpr std::uint32_t initialState = 0xFFFF'FFFF;
constexpr std::size_t slices = 8;
using Tables = std::array<std::array<std::uint32_t, 256>, slices>;

// tables[k][b] is the remainder of byte b followed by k zero bytes, so that eight bytes are folded in at once.
constexpr Tables makeTables() {
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t remainder = byte;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder & 1) != 0 ? remainder >> 1 ^ reversedPolynomial : remainder >> 1;
        tables[0][byte] = remainder;
    }
    for (std::size_t slice = 1; slice < slices; ++slice)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[slice - 1][byte];
            tables[slice][byte] = before >> 8 ^ tables[0][before & 0xFF];
        }
    return tables;
}

constexpr Tables tables = makeTables();

std::uint32_t loadLittleEndian(const std::byte* bytes) {
    std::uint32_t value = 0;
    for (unsigned i = 0; i < 4; ++i)
        value |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
    return value;
}

// Folds eight bytes into the remainder, given as two numbers with their lowest bytes first.
std::uint32_t foldEight(std::uint32_t state, std::uint32_t low, std::uint32_t high) {
    low ^= state;
    return tables[7][low & 0xFF] ^ tables[6][low >> 8 & 0xFF] ^ tables[5][low >> 16 & 0xFF] ^ tables[4][low >> 24] ^
           tables[3][high & 0xFF] ^ tables[2][high >> 8 & 0xFF] ^ tables[1][high >> 16 & 0xFF] ^ tables[0][high >> 24];
}

struct ByTables {
    static std::uint32_t fold(std::uint32_t state, std::span<const std::byte> bytes) {
        return foldByTables(state, bytes);
    }
    static std::uint32_t fold(std::uint32_t state, std::uint64_t number) {
        return foldEight(state, static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(number >> 32));
    }
};

// Inlined, so that it becomes code for the processor that its caller is for.
template<typename Way>
[[gnu::always_inline]] inline std::uint32_t foldRecord(ObjectId id, std::span<const StoredValue> values) {
    std::uint32_t state = Way::fold(initialState, static_cast<std::uint64_t>(id));
    for (const StoredValue& value : values) {
        state = Way::fold(state, std::uint64_t{value.id.value});
        if (value.id.type() == ValueType::text || value.id.type() == ValueType::blob) {
            state = Way::fold(state, std::uint64_t{value.bytes.size()});
            state = Way::fold(state, value.bytes);
        } else {
            state = Way::fold(state, value.number);
        }
    }
    return state;
}

#if defined(__x86_64__)

// Processors since 2008 have an instruction for this very polynomial, which takes eight bytes at once.
struct ByInstruction {
    [[gnu::target("sse4.2")]] static std::uint32_t fold(std::uint32_t state, std::span<const std::byte> bytes) {
        std::uint64_t wide = state;
        while (bytes.size() >= sizeof wide) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes.data(), sizeof word);
            wide = __builtin_ia32_crc32di(wide, word);
            bytes = bytes.subspan(sizeof word);
        }
        state = static_cast<std::uint32_t>(wide);
        for (const std::byte byte : bytes)
            state = __builtin_ia32_crc32qi(state, std::to_integer<unsigned char>(byte));
        return state;
    }
    [[gnu::target("sse4.2")]] static std::uint32_t fold(std::uint32_t state, std::uint64_t number) {
        return static_cast<std::uint32_t>(__builtin_ia32_crc32di(state, number));
    }
};

[[gnu::target("sse4.2")]] std::uint32_t foldRecordByInstruction(ObjectId id, std::span<const StoredValue> values) {
    return foldRecord<ByInstruction>(id, values);
}

const bool hasInstruction = __builtin_cpu_supports("sse4.2");

#else

using ByInstruction = ByTables;
constexpr bool hasInstruction = false;

std::uint32_t foldRecordByInstruction(ObjectId id, std::span<const StoredValue> values) {
    return foldRecord<ByTables>(id, values);
}

#endif

} // namespace

std::uint32_t foldByTables(std::uint32_t state, std::span<const std::byte> bytes) {
    while (bytes.size() >= slices) {
        state = foldEight(state, loadLittleEndian(bytes.data()), loadLittleEndian(bytes.data() + 4));
        bytes = bytes.subspan(slices);
    }
    for (const std::byte byte : bytes)
        state = state >> 8 ^ tables[0][(state ^ std::to_integer<std::uint32_t>(byte)) & 0xFF];
    return state;
}

void RecordChecksum::add(std::span<const std::byte> bytes) {
    state_ = hasInstruction ? ByInstruction::fold(state_, bytes) : ByTables::fold(state_, bytes);
}

void RecordChecksum::add(std::uint64_t number) {
    state_ = hasInstruction ? ByInstruction::fold(state_, number) : ByTables::fold(state_, number);
}

std::uint32_t checksumOfRecord(ObjectId id, std::span<const StoredValue> values) {
    return ~(hasInstruction ? foldRecordByInstruction(id, values) : foldRecord<ByTables>(id, values));
}

} // namespace hourwright::platform::sqlite
