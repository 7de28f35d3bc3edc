#include "exchange/document_file.h"

#include <utility>

namespace hourwright::exchange {

namespace {

constexpr char16_t byteOrderMark = 0xFEFF;

void appendLittleEndian(std::string& out, std::u16string_view text) {
    const std::size_t begin = out.size();
    out.resize(begin + 2 * text.size());
    char* bytes = out.data() + begin;
    for (const char16_t unit : text) {
        *bytes++ = static_cast<char>(unit & 0xFF);
        *bytes++ = static_cast<char>(unit >> 8);
    }
}

} // namespace

DocumentFile::DocumentFile(std::unique_ptr<platform::FileWriter> writer, DocumentBytes form,
                           const platform::CodePage& codePage)
    : writer_(std::move(writer)), form_(form), codePage_(codePage), canTakeBack_(writer_->canTakeBack()) {}

bool DocumentFile::write(std::u16string_view part) {
    return form_ == DocumentBytes::utf16 ? writeUtf16(part) : writeAnsi(part);
}

bool DocumentFile::close() {
    const bool cut = surplus_ == 0 || !canTakeBack_ || writer_->takeBack(surplus_);
    return writer_->close() && cut;
}

bool DocumentFile::writeUtf16(std::u16string_view part) {
    bytes_.clear();
    if (!std::exchange(marked_, true))
        appendLittleEndian(bytes_, {&byteOrderMark, 1});
    appendLittleEndian(bytes_, part);
    return writer_->write(bytes_);
}

// A code page converts unit by unit, so the parts give the same bytes as the whole.
bool DocumentFile::writeAnsi(std::u16string_view part) {
    const std::string bytes = codePage_.convert(part);
    surplus_ += bytes.size() - part.size();
    return canTakeBack_ || surplus_ == 0 ? writer_->write(bytes) : writeDelayed(bytes, part.size());
}

// Writes `count` of the bytes that wait, the new ones behind the old ones. What was written is thrown away now and then
// only, so that no byte is moved often.
bool DocumentFile::writeDelayed(std::string_view bytes, std::size_t count) {
    delayed_ += bytes;
    const bool written = writer_->write(std::string_view(delayed_).substr(delayedBegin_, count));
    delayedBegin_ += count;
    if (delayedBegin_ > delayed_.size() / 2) {
        delayed_.erase(0, delayedBegin_);
        delayedBegin_ = 0;
    }
    return written;
}

} // namespace hourwright::exchange
