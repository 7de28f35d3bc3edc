#pragma once

#include "exchange/ansi_bytes.h"
#include "exchange/note_document.h"
#include "exchange/rtf_keywords.h"
#include "exchange/rtf_scan.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

/// What stands in the text of an RTF document besides characters.
enum class RtfObject : std::uint8_t { ink, voice, picture, other };

/// Receives a document piece by piece, in its order.
class RtfSink {
public:
    virtual ~RtfSink() = default;

    /// Characters of one format, never none. LF is a line break; neither CR nor NUL occurs.
    virtual void text(std::u16string_view units, const CharacterFormat& format) = 0;
    /// One whole group, with its braces.
    virtual void object(RtfObject kind, std::string_view group) = 0;
    /// Ends the paragraph of what came since the last one. The last paragraph is ended too.
    virtual void endParagraph(bool bullet) = 0;
};

/// Reads RTF into a sink, in one pass and without recursion. Whatever the bytes, it ends after time and memory in
/// proportion to their number. One object reads any number of documents and uses its memory again.
class RtfReader {
public:
    /// True when the bytes begin like RTF.
    [[nodiscard]] static bool isRtf(std::string_view bytes) { return bytes.starts_with("{\\rtf"); }

    /// Bytes that do not begin like RTF give nothing.
    void read(std::string_view bytes, RtfSink& sink);

    /// The code page of the last document read.
    [[nodiscard]] std::uint16_t codePage() const { return documentPage_; }

private:
    enum class Destination : std::uint8_t { text, fontTable, listText };

    // What a closing brace takes back.
    struct State {
        CharacterFormat format;
        Destination destination = Destination::text;
        bool bullet = false;
        std::uint16_t codePage = 1252;
        std::int32_t unicodeSkip = 1;
    };
    struct Font {
        std::int32_t number;
        std::uint16_t codePage;
    };

    void reset(std::string_view bytes, RtfSink& sink);
    void step();
    void openGroup();
    void closeGroup();
    void enterGroup(Destination destination);
    void skipDestination(RtfKeyword keyword);
    void control();
    void symbol();
    void word(const RtfWord& word);
    void textWord(const RtfKeywordInfo& info, const RtfWord& word);
    void formatWord(RtfKeyword keyword, const RtfWord& word);
    void fontWord(RtfKeyword keyword, std::int32_t number);
    void selectFont(std::int32_t number);
    void selectDefaultFont();
    void setDocumentPage(std::uint16_t codePage);

    void plainBytes();
    void putByte(unsigned char byte);
    void putEscaped(unsigned char byte);
    void putUnicode(std::int32_t number);
    void putUnit(char16_t unit);
    void flushBytes();
    [[nodiscard]] std::u16string* target();
    void flush();
    void finishListText();
    void endParagraph();
    void closeParagraph();
    void endRow();
    void emitObject(RtfObject kind, std::string_view group);

    std::string_view bytes_;
    std::size_t at_ = 0;
    RtfSink* sink_ = nullptr;
    State state_;
    std::vector<State> stack_;
    std::size_t deeper_ = 0; // open groups beyond the kept ones
    std::int32_t skip_ = 0;  // fallback characters still to pass over
    std::u16string text_;    // of textFormat_, not yet given to the sink
    CharacterFormat textFormat_;
    std::u16string listText_;
    std::string pending_; // first bytes of a multi-byte character in the current code page
    std::vector<Font> fonts_;
    std::optional<std::int32_t> defaultFont_;
    AnsiDecoder ansi_;
    std::uint16_t documentPage_ = 1252;
    bool bulletWritten_ = false; // the paragraph began with a written-out bullet
    bool paragraphOpen_ = false;
};

} // namespace hourwright::exchange
