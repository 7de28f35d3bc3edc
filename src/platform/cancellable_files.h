#pragma once

#include "platform/file_writer.h"

#include <atomic>
#include <utility>

namespace hourwright::platform {

/// Files whose writing ends, as on a failure, soon after a flag is set by another thread. Borrows both.
class CancellableFiles : public Files {
public:
    CancellableFiles(Files& files, const std::atomic<bool>& cancelled) : files_(files), cancelled_(cancelled) {}

    [[nodiscard]] CreatedFile create(const std::filesystem::path& path) override {
        auto created = files_.create(path);
        if (created.writer)
            created.writer = std::make_unique<Writer>(std::move(created.writer), cancelled_);
        return created;
    }

private:
    class Writer : public FileWriter {
    public:
        Writer(std::unique_ptr<FileWriter> writer, const std::atomic<bool>& cancelled)
            : writer_(std::move(writer)), cancelled_(cancelled) {}

        bool write(std::string_view bytes) override { return !cancelled_ && writer_->write(bytes); }
        [[nodiscard]] bool canTakeBack() const override { return writer_->canTakeBack(); }
        bool takeBack(std::uint64_t count) override { return writer_->takeBack(count); }
        bool close() override { return writer_->close() && !cancelled_; }
        [[nodiscard]] PlatformError error() const override { return writer_->error(); }

    private:
        std::unique_ptr<FileWriter> writer_;
        const std::atomic<bool>& cancelled_;
    };

    Files& files_;
    const std::atomic<bool>& cancelled_;
};

} // namespace hourwright::platform
