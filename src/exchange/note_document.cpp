#include "exchange/note_document.h"

#include "exchange/note_objects.h"
#include "exchange/note_plain_text.h"
#include "exchange/rtf_reader.h"
#include "exchange/rtf_writer.h"

#include <algorithm>
#include <utility>

namespace hourwright::exchange {

namespace {

// Builds the document from what the reader finds.
class DocumentBuilder final : public RtfSink {
public:
    void text(std::u16string_view units, const CharacterFormat& format) override {
        drawing_ = nullptr;
        auto* const last = items_.empty() ? nullptr : std::get_if<TextRun>(&items_.back());
        if (last != nullptr && last->format == format)
            last->text += units;
        else
            items_.emplace_back(TextRun{std::u16string(units), format});
    }

    void object(RtfObject kind, std::string_view group) override {
        InkDrawing* const drawing = std::exchange(drawing_, nullptr);
        switch (kind) {
        case RtfObject::ink: return addInk(group);
        case RtfObject::voice: return addOr(readVoiceGroup(group), group);
        case RtfObject::picture:
            if (drawing != nullptr && (drawing->picture = readPictureGroup(group)))
                return;
            break;
        case RtfObject::other: break;
        }
        items_.emplace_back(ForeignGroup{std::string(group)});
    }

    void endParagraph(bool bullet) override {
        drawing_ = nullptr;
        note_.paragraphs.push_back({bullet, std::exchange(items_, {})});
    }

    NoteDocument take(std::uint16_t codePage) {
        note_.codePage = codePage;
        return std::move(note_);
    }

private:
    void addInk(std::string_view group) {
        auto ink = readInkGroup(group);
        if (!ink)
            return addOr(std::optional<InkDrawing>{}, group);
        items_.emplace_back(std::move(ink->drawing));
        if (ink->pictureFollows)
            drawing_ = &std::get<InkDrawing>(items_.back());
    }

    template<typename Item>
    void addOr(std::optional<Item> item, std::string_view group) {
        if (item)
            items_.emplace_back(std::move(*item));
        else
            items_.emplace_back(ForeignGroup{std::string(group)});
    }

    NoteDocument note_;
    std::vector<NoteItem> items_;
    InkDrawing* drawing_ = nullptr; // the last item, waiting for its picture
};

} // namespace

NoteDocument fromPlainText(std::u16string_view text) {
    NoteDocument note;
    text = text.substr(0, text.find(u'\0'));
    if (text.empty())
        return note;
    for (;;) {
        const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
        NoteParagraph& paragraph = note.paragraphs.emplace_back();
        if (end > 0)
            paragraph.items.emplace_back(TextRun{std::u16string(text.substr(0, end)), {}});
        if (end == text.size())
            return note;
        text.remove_prefix(text.substr(end).starts_with(u"\r\n") ? end + 2 : end + 1);
    }
}

std::optional<NoteDocument> readNote(std::span<const std::byte> blob) {
    const std::string_view bytes(reinterpret_cast<const char*>(blob.data()), blob.size());
    if (!RtfReader::isRtf(bytes)) {
        const auto text = plainTextOf(bytes);
        return text ? std::optional(fromPlainText(*text)) : std::nullopt;
    }
    RtfReader reader;
    DocumentBuilder builder;
    reader.read(bytes, builder);
    return builder.take(reader.codePage());
}

std::vector<std::byte> writeNote(const NoteDocument& note) {
    const std::string rtf = writeRtf(note);
    const auto bytes = std::as_bytes(std::span(rtf));
    return {bytes.begin(), bytes.end()};
}

} // namespace hourwright::exchange
