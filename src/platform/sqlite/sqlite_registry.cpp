#include "platform/sqlite/sqlite_registry.h"

#include "platform/sqlite/registry_file.h"
#include "platform/utf.h"

namespace hourwright::platform {

namespace {

using sqlite::RegistryFile;

class Batch final : public RegistryBatch {
public:
    explicit Batch(RegistryFile& file) : file_(file) { file_.beginWrites(); }
    ~Batch() override { commit(); }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    bool commit() override {
        if (open_)
            stored_ = file_.endWrites();
        open_ = false;
        return stored_;
    }

private:
    RegistryFile& file_;
    bool open_ = true;
    bool stored_ = false;
};

class Key : public RegistryKey {
public:
    Key(RegistryFile& file, std::int64_t id) : file_(file), id_(id) {}

    [[nodiscard]] std::optional<RegistryValue> query(std::u16string_view name) const override {
        return file_.findValue(id_, name);
    }
    bool set(const RegistryValue& value) override { return file_.setValue(id_, value); }
    bool remove(std::u16string_view name) override { return file_.removeValue(id_, name); }
    [[nodiscard]] std::vector<RegistryValue> values() const override { return file_.values(id_); }
    [[nodiscard]] std::unique_ptr<RegistryBatch> batch() override { return std::make_unique<Batch>(file_); }

private:
    RegistryFile& file_;
    std::int64_t id_;
};

// A path without empty parts, as keys are stored; a key is found with or without a backslash at its ends.
std::string normalPath(std::u16string_view path) {
    std::string normal;
    std::string part;
    for (const char c : toUtf8(path) + '\\') {
        if (c != '\\') {
            part.push_back(c);
        } else if (!part.empty()) {
            normal += normal.empty() ? part : '\\' + part;
            part.clear();
        }
    }
    return normal;
}

class FileRegistry : public SqliteRegistry {
public:
    explicit FileRegistry(const std::filesystem::path& file) : file_(file) {}

    [[nodiscard]] std::unique_ptr<RegistryKey> open(std::u16string_view path) override {
        return key(file_.findKey(normalPath(path)));
    }
    [[nodiscard]] std::unique_ptr<RegistryKey> create(std::u16string_view path) override {
        const std::string normal = normalPath(path);
        return normal.empty() ? nullptr : key(file_.createKey(normal));
    }
    bool removeKey(std::u16string_view path) override {
        const std::string normal = normalPath(path);
        return !normal.empty() && file_.removeKey(normal);
    }
    [[nodiscard]] std::string problem() const override { return file_.problem(); }
    [[nodiscard]] bool check(const std::function<void(std::string_view)>& report) override {
        return file_.check(report);
    }

private:
    std::unique_ptr<RegistryKey> key(std::optional<std::int64_t> id) {
        return id ? std::make_unique<Key>(file_, *id) : nullptr;
    }

    RegistryFile file_;
};

} // namespace

std::unique_ptr<SqliteRegistry> openSqliteRegistry(const std::filesystem::path& file) {
    return std::make_unique<FileRegistry>(file);
}

} // namespace hourwright::platform
