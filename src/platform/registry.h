#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform {

enum class RegistryType : std::uint32_t { string = 1, binary = 3, dword = 4 };

/// A value as stored. Data of a string are UTF-16LE units with their terminator and any padding behind it; of a
/// DWORD four bytes, lowest first.
struct RegistryValue {
    std::u16string name;
    RegistryType type = RegistryType::dword;
    std::vector<std::byte> data;

    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

/// Groups writes; see RegistryKey::batch. It ends with `commit`, or when it is destroyed.
class RegistryBatch {
public:
    virtual ~RegistryBatch() = default;

    /// Ends the group. False when a write of it had failed or storing it failed: then none of it is stored.
    virtual bool commit() = 0;
};

/// One open key. Failures are silent: a read yields nothing, a write returns false. Names are found without regard to
/// ASCII case. Every write is durable and visible to other processes when it returns.
class RegistryKey {
public:
    virtual ~RegistryKey() = default;

    /// The value as stored, whatever its type; nothing when it does not exist.
    [[nodiscard]] virtual std::optional<RegistryValue> query(std::u16string_view name) const = 0;

    /// Stores a value, replacing one of the same name.
    virtual bool set(const RegistryValue& value) = 0;

    /// Deletes a value; true when it is gone afterwards.
    virtual bool remove(std::u16string_view name) = 0;

    /// All values in the order in which their names were first stored.
    [[nodiscard]] virtual std::vector<RegistryValue> values() const = 0;

    /// Groups the writes until the returned object is destroyed into one: all of them are stored, or none.
    [[nodiscard]] virtual std::unique_ptr<RegistryBatch> batch() = 0;

    /// A DWORD; nothing when the value is missing or is not four bytes of type DWORD.
    [[nodiscard]] std::optional<std::uint32_t> readDword(std::u16string_view name) const;
    /// A string up to its terminator; nothing when the value is missing, is no string, or its data is longer than
    /// `capacity` units (terminator included).
    [[nodiscard]] std::optional<std::u16string> readString(std::u16string_view name, std::size_t capacity) const;
    /// Binary data of exactly `size` bytes; nothing otherwise.
    [[nodiscard]] std::optional<std::vector<std::byte>> readBinary(std::u16string_view name, std::size_t size) const;

    bool writeDword(std::u16string_view name, std::uint32_t value);
    /// Writes a string with its terminator. When `capacity` is not 0, the data are exactly that many units: zero units
    /// fill up a shorter text, a longer one is cut to leave room for the terminator.
    bool writeString(std::u16string_view name, std::u16string_view value, std::size_t capacity = 0);
    bool writeBinary(std::u16string_view name, std::span<const std::byte> data);
};

/// The current user's registry: keys by path ("Software\Hourwright"). It must outlive the keys and batches it gives
/// out.
class Registry {
public:
    virtual ~Registry() = default;

    /// Opens an existing key; null when there is none or it cannot be read.
    [[nodiscard]] virtual std::unique_ptr<RegistryKey> open(std::u16string_view path) = 0;
    /// Opens a key, creating it when missing; null on failure.
    [[nodiscard]] virtual std::unique_ptr<RegistryKey> create(std::u16string_view path) = 0;
    /// Deletes a key with its values and sub-keys; true when it is gone afterwards.
    virtual bool removeKey(std::u16string_view path) = 0;
};

/// The program's own key under the current user.
inline constexpr std::u16string_view settingsKey = u"Software\\Hourwright";

} // namespace hourwright::platform
