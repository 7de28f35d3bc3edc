#pragma once

#include "platform/file_writer.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace hourwright::test {

/// Files that keep what is written in memory. `room` bytes fit, then the disk is full; `denied` files are not created.
class MemoryFiles final : public platform::Files {
public:
    std::string content;
    std::size_t room = static_cast<std::size_t>(-1);
    bool denied = false;
    bool closed = false;
    bool takesBack = false; ///< bytes can be taken back
    bool closeFails = false;

    platform::CreatedFile create(const std::filesystem::path&) override {
        if (denied)
            return {nullptr, platform::PlatformError::accessDenied};
        content.clear();
        return {std::make_unique<Writer>(*this), platform::PlatformError::none};
    }

private:
    class Writer final : public platform::FileWriter {
    public:
        explicit Writer(MemoryFiles& files) : files_(files) {}

        bool write(std::string_view bytes) override {
            full_ = full_ || files_.content.size() + bytes.size() > files_.room;
            if (!full_)
                files_.content += bytes;
            return !full_;
        }
        [[nodiscard]] bool canTakeBack() const override { return files_.takesBack; }
        bool takeBack(std::uint64_t count) override {
            if (files_.takesBack && !full_)
                files_.content.resize(files_.content.size() - static_cast<std::size_t>(count));
            return files_.takesBack && !full_;
        }
        bool close() override {
            files_.closed = true;
            full_ = full_ || files_.closeFails;
            return !full_;
        }
        [[nodiscard]] platform::PlatformError error() const override {
            return full_ ? platform::PlatformError::diskFull : platform::PlatformError::none;
        }

    private:
        MemoryFiles& files_;
        bool full_ = false;
    };
};

} // namespace hourwright::test
