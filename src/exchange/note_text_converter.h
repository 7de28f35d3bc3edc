#pragma once

#include "exchange/rtf_reader.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// Turns note blobs into plain text. Made once for an export, it uses its memory again for every note.
class NoteTextConverter {
public:
    /// The note's text with CR LF between paragraphs and for line breaks; empty for a note without a character, such
    /// as one of ink or voice only, and for a blob of unknown format. Valid until the next call.
    [[nodiscard]] std::u16string_view convert(std::span<const std::byte> blob);

private:
    class TextSink final : public RtfSink {
    public:
        void clear();
        void text(std::u16string_view units, const CharacterFormat& format) override;
        void object(RtfObject, std::string_view) override { hasObject_ = true; }
        void endParagraph(bool bullet) override;
        [[nodiscard]] std::u16string_view result() const;

    private:
        std::u16string text_;
        bool hasText_ = false;
        bool hasObject_ = false;
    };

    RtfReader reader_;
    TextSink sink_;
};

} // namespace hourwright::exchange
