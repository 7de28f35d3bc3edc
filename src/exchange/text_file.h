#pragma once

#include "platform/code_page.h"
#include "platform/file_writer.h"

#include <memory>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// A text file in an ANSI code page. Of each text as many bytes are written as it has UTF-16 units, so in a
/// double-byte code page a text with double-byte characters loses its end.
class TextFile {
public:
    /// Takes the writer, borrows the code page.
    TextFile(std::unique_ptr<platform::FileWriter> writer, const platform::CodePage& codePage);

    [[nodiscard]] bool write(std::u16string_view text);
    [[nodiscard]] bool close() { return writer_->close(); }
    [[nodiscard]] platform::PlatformError error() const { return writer_->error(); }

private:
    std::unique_ptr<platform::FileWriter> writer_;
    const platform::CodePage& codePage_;
    std::string bytes_;
};

} // namespace hourwright::exchange
