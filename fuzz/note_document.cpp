// Reads any bytes as a note. What was read must survive being written and read again, and both readings of the bytes,
// as a document and as plain text, must agree.

#include "exchange/note_document.h"

#include "exchange/note_size.h"
#include "exchange/note_text_converter.h"
#include "fuzz/require.h"
#include "fuzz/targets.h"

namespace hourwright::fuzz {

using namespace exchange;

namespace {

struct PlainText {
    std::u16string text;
    bool hasText = false;
    bool hasObject = false;

    void add(const NoteItem& item) {
        const auto* const run = std::get_if<TextRun>(&item);
        hasObject |= run == nullptr;
        if (run == nullptr || run->format.hidden)
            return;
        hasText = true;
        for (const char16_t unit : run->text) {
            if (unit == u'\n')
                text += u'\r';
            text += unit;
        }
    }
};

std::u16string plainText(const NoteDocument& note) {
    PlainText plain;
    for (std::size_t i = 0; i < note.paragraphs.size(); ++i) {
        if (i > 0)
            plain.text += u"\r\n";
        for (const NoteItem& item : note.paragraphs[i].items)
            plain.add(item);
    }
    return plain.hasObject && !plain.hasText ? u"" : plain.text;
}

} // namespace

void noteDocument(Bytes bytes) {
    static NoteTextConverter converter; // the next note must not notice the one before
    const auto note = readNote(bytes);
    const std::u16string text(converter.convert(bytes));
    if (!note) {
        require(text.empty());
        return;
    }
    require(text == plainText(*note));
    const auto written = writeNote(*note);
    require(readNote(written) == note);
    require(writeNote(*note) == written);
    require(converter.convert(written) == text);
    require(noteCharacters(*note) <= bytes.size());
}

} // namespace hourwright::fuzz
