#pragma once

#include "platform/code_page.h"
#include "platform/file_writer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// The bytes of a document file.
enum class DocumentBytes : std::uint8_t {
    ansi,  ///< the system's code page
    utf16, ///< little-endian, with a byte order mark
};

/// A text file that is one text, given part by part. In an ANSI code page as many bytes are written as the whole text
/// has UTF-16 units, so for every double-byte character anywhere one byte is missing at the end of the file. Those
/// bytes are taken back from a file when it is closed; where that is impossible, as on standard output, as many bytes
/// wait in memory as there were double-byte characters.
class DocumentFile {
public:
    /// Takes the writer, borrows the code page.
    DocumentFile(std::unique_ptr<platform::FileWriter> writer, DocumentBytes form, const platform::CodePage& codePage);

    [[nodiscard]] bool write(std::u16string_view part);
    /// The file's length is right only after this.
    [[nodiscard]] bool close();
    [[nodiscard]] platform::PlatformError error() const { return writer_->error(); }

private:
    [[nodiscard]] bool writeUtf16(std::u16string_view part);
    [[nodiscard]] bool writeAnsi(std::u16string_view part);
    [[nodiscard]] bool writeDelayed(std::string_view bytes, std::size_t count);

    std::unique_ptr<platform::FileWriter> writer_;
    DocumentBytes form_;
    const platform::CodePage& codePage_;
    bool canTakeBack_;
    bool marked_ = false;       // the byte order mark is written
    std::uint64_t surplus_ = 0; // bytes of the parts so far beyond their units
    std::string delayed_;       // the surplus, after bytes already written, where it cannot be taken back
    std::size_t delayedBegin_ = 0;
    std::string bytes_;
};

} // namespace hourwright::exchange
