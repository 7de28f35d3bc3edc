#pragma once

#include "platform/registry.h"
#include "platform/sqlite/connection.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform::sqlite {

/// The tables behind the registry: keys by path and values by key, with the statements that work on them. A function
/// that fails returns nothing or false and leaves its reason in `problem`. Paths and names are UTF-8.
class RegistryFile {
public:
    explicit RegistryFile(std::filesystem::path file) : file_(std::move(file)) {}

    [[nodiscard]] const std::string& problem() const { return problem_; }

    [[nodiscard]] std::optional<std::int64_t> findKey(std::string_view path);
    /// Finds or makes a key and the keys above it.
    [[nodiscard]] std::optional<std::int64_t> createKey(std::string_view path);
    [[nodiscard]] bool removeKey(std::string_view path);

    [[nodiscard]] std::optional<RegistryValue> findValue(std::int64_t key, std::u16string_view name);
    [[nodiscard]] std::vector<RegistryValue> values(std::int64_t key);
    [[nodiscard]] bool setValue(std::int64_t key, const RegistryValue& value);
    [[nodiscard]] bool removeValue(std::int64_t key, std::u16string_view name);

    /// Writes between the two calls become one transaction, kept when all of them succeeded. Pairs may be nested.
    void beginWrites();
    bool endWrites();

private:
    bool open();
    bool connect();
    bool makeFile();
    bool fillFile(Connection& connection);
    bool prepare(Statement& statement, std::string_view sql);
    bool prepareReading();
    bool prepareWriting();
    bool makeWritable();
    bool begin();
    bool insertKeys(std::string_view path);
    bool run(Statement& statement);
    bool fail(std::string_view reason);
    bool failWithMessage() { return fail(connection_.message()); }
    template<class Change>
    bool write(Change change);

    std::filesystem::path file_;
    std::string problem_;
    Connection connection_;
    Statement findKey_;
    Statement insertKey_;
    Statement removeValues_;
    Statement removeKeys_;
    Statement findValue_;
    Statement listValues_;
    Statement setValue_;
    Statement removeValue_;
    bool writable_ = false;
    int depth_ = 0;
    bool failed_ = false;
};

} // namespace hourwright::platform::sqlite
