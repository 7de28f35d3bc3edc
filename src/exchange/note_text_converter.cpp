#include "exchange/note_text_converter.h"

#include "exchange/note_plain_text.h"

#include <algorithm>

namespace hourwright::exchange {

void NoteTextConverter::TextSink::clear() {
    text_.clear();
    hasText_ = false;
    hasObject_ = false;
}

void NoteTextConverter::TextSink::text(std::u16string_view units, const CharacterFormat& format) {
    if (format.hidden)
        return;
    hasText_ = true;
    for (;;) {
        const std::size_t end = std::min(units.find(u'\n'), units.size());
        text_ += units.substr(0, end);
        if (end == units.size())
            return;
        text_ += u"\r\n";
        units.remove_prefix(end + 1);
    }
}

void NoteTextConverter::TextSink::endParagraph(bool) {
    text_ += u"\r\n";
}

// Every paragraph has been ended with CR LF; the last one's is none of the text.
std::u16string_view NoteTextConverter::TextSink::result() const {
    if (text_.empty() || (hasObject_ && !hasText_))
        return {};
    return std::u16string_view(text_).substr(0, text_.size() - 2);
}

std::u16string_view NoteTextConverter::convert(std::span<const std::byte> blob) {
    const std::string_view bytes(reinterpret_cast<const char*>(blob.data()), blob.size());
    sink_.clear();
    if (RtfReader::isRtf(bytes)) {
        reader_.read(bytes, sink_);
    } else if (const auto plain = plainTextOf(bytes); plain && !plain->empty()) {
        // Goes through the document, so that both readings of a note agree.
        for (const NoteParagraph& paragraph : fromPlainText(*plain).paragraphs) {
            for (const NoteItem& item : paragraph.items)
                sink_.text(std::get<TextRun>(item).text, {});
            sink_.endParagraph(false);
        }
    }
    return sink_.result();
}

} // namespace hourwright::exchange
