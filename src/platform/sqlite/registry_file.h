#pragma once

#include "platform/registry.h"
#include "platform/sqlite/connection.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::platform::sqlite {

/// The tables behind the registry: keys by path and values by key, with the statements that work on them. A function
/// that fails returns nothing or false and leaves its reason in `problem`. Paths and names are UTF-8. A value that does
/// not fit its checksum counts as absent; once another is stored in its place it is kept aside, for `check` to tell.
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

    /// Looks into the whole file, reports each finding as a line of text; true when there is none, or no file.
    [[nodiscard]] bool check(const std::function<void(std::string_view)>& report);

    /// Writes between the two calls become one transaction, kept when all of them succeeded. Pairs may be nested.
    void beginWrites();
    bool endWrites();

    static constexpr std::uint32_t applicationId = 0x48775267; ///< "HwRg"

private:
    bool open();
    bool connect();
    bool makeFile();
    bool fillFile(Connection& connection);
    bool prepare(Statement& statement, std::string_view sql);
    bool prepareReading();
    bool addChecksums();
    bool fillChecksums();
    bool keepDamagedAside(std::int64_t key, const std::string& name);
    std::optional<RegistryValue> readValue(const Statement& row, std::int64_t key);
    bool checkValues(const std::function<void(std::string_view)>& report);
    bool checkDamaged(const std::function<void(std::string_view)>& report);
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
    Statement keepDamaged_;
    Statement removeDamaged_;
    Statement removeAllDamaged_;
    bool hasChecksums_ = false;
    bool waitedInVain_ = false; ///< another program held the file for too long; it is not waited for again
    bool writable_ = false;
    int depth_ = 0;
    bool failed_ = false;
};

/// True for a settings file whose structure is whole; single values in it may be damaged. The file is not written to.
[[nodiscard]] bool isWholeSettingsFile(const std::filesystem::path& file);

} // namespace hourwright::platform::sqlite
