#include "exchange/rtf_writer.h"

#include "exchange/note_objects.h"

#include <array>
#include <charconv>

namespace hourwright::exchange {

namespace {

constexpr std::string_view bulletSettings =
    "{\\pntext\\bullet\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\bullet}}\\fi-360\\li360 ";
constexpr std::string_view bulletText = "{\\pntext\\bullet\\tab}";

class RtfWriter {
public:
    std::string write(const NoteDocument& note) {
        out_ += "{\\rtf1\\ansi\\ansicpg";
        appendNumber(note.codePage);
        out_ += "\\deff0{\\fonttbl{\\f0 Tahoma;}}\\pard\\fs20 ";
        for (const NoteParagraph& paragraph : note.paragraphs)
            appendParagraph(paragraph);
        out_ += "}";
        return std::move(out_);
    }

private:
    void appendParagraph(const NoteParagraph& paragraph) {
        if (paragraph.bullet != bullet_)
            out_ += paragraph.bullet ? "\\pard" : "\\pard ";
        if (paragraph.bullet)
            out_ += bullet_ ? bulletText : bulletSettings;
        bullet_ = paragraph.bullet;
        for (const NoteItem& item : paragraph.items)
            std::visit([this](const auto& part) { append(part); }, item);
        out_ += "\\par\r\n";
    }

    void append(const TextRun& run) {
        setFormat(run.format);
        for (const char16_t unit : run.text)
            appendUnit(unit);
    }
    void append(const InkDrawing& drawing) { appendInkGroup(out_, drawing); }
    void append(const VoiceClip& clip) { appendVoiceGroup(out_, clip); }
    void append(const ForeignGroup& group) { out_ += group.rtf; }

    void setFormat(const CharacterFormat& format) {
        const std::size_t before = out_.size();
        change("\\b", format_.bold, format.bold);
        change("\\i", format_.italic, format.italic);
        change("\\ul", format_.underline, format.underline);
        change("\\v", format_.hidden, format.hidden);
        if (out_.size() != before)
            out_.push_back(' ');
        format_ = format;
    }

    void change(std::string_view word, bool from, bool to) {
        if (from == to)
            return;
        out_ += word;
        if (!to)
            out_.push_back('0');
    }

    void appendUnit(char16_t unit) {
        switch (unit) {
        case u'\\':
        case u'{':
        case u'}':
            out_.push_back('\\');
            out_.push_back(static_cast<char>(unit));
            break;
        case u'\t': out_ += "\\tab "; break;
        case u'\n': out_ += "\\line "; break;
        case u'\0': break;
        default:
            if (unit >= 0x20 && unit < 0x7F) {
                out_.push_back(static_cast<char>(unit));
            } else {
                out_ += "\\u";
                appendNumber(static_cast<std::int16_t>(unit));
                out_.push_back('?');
            }
        }
    }

    void appendNumber(std::int32_t number) {
        std::array<char, 12> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        out_.append(digits.data(), end);
    }

    std::string out_;
    CharacterFormat format_;
    bool bullet_ = false;
};

} // namespace

std::string writeRtf(const NoteDocument& note) {
    return RtfWriter().write(note);
}

} // namespace hourwright::exchange
