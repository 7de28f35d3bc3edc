#include "exchange/text_file.h"

#include <algorithm>
#include <utility>

namespace hourwright::exchange {

TextFile::TextFile(std::unique_ptr<platform::FileWriter> writer, const platform::CodePage& codePage)
    : writer_(std::move(writer)), codePage_(codePage) {}

// ASCII is the same in every ANSI code page, and most texts hold nothing else.
bool TextFile::write(std::u16string_view text) {
    unsigned all = 0;
    for (const char16_t unit : text)
        all |= unit;
    if (all >= 0x80)
        return writer_->write(codePage_.convertCut(text));
    bytes_.resize(text.size());
    std::ranges::transform(text, bytes_.begin(), [](char16_t unit) { return static_cast<char>(unit); });
    return writer_->write(bytes_);
}

} // namespace hourwright::exchange
