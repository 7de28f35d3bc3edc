#pragma once

#include "platform/file_writer.h"

#include <memory>
#include <string_view>

namespace hourwright::exchange {

/// A text file in UTF-8, for exports that build their bytes themselves.
class Utf8File {
public:
    explicit Utf8File(std::unique_ptr<platform::FileWriter> writer) : writer_(std::move(writer)) {}

    [[nodiscard]] bool write(std::string_view text) { return writer_->write(text); }
    [[nodiscard]] bool close() { return writer_->close(); }
    [[nodiscard]] platform::PlatformError error() const { return writer_->error(); }

private:
    std::unique_ptr<platform::FileWriter> writer_;
};

} // namespace hourwright::exchange
