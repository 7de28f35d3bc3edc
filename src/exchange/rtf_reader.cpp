#include "exchange/rtf_reader.h"

#include <algorithm>
#include <array>

namespace hourwright::exchange {

namespace {

// Groups nested deeper take back nothing when they close; no word processor comes near it.
constexpr std::size_t maxDepth = 256;
constexpr std::size_t maxFonts = 1024;

// Printable ASCII that stands for itself.
constexpr auto ordinary = [] {
    std::array<bool, 256> table{};
    for (std::size_t c = 0x20; c < 0x80; ++c)
        table[c] = c != '\\' && c != '{' && c != '}';
    return table;
}();

bool isOrdinary(char c) {
    return ordinary[static_cast<unsigned char>(c)];
}

std::uint16_t asCodePage(std::int32_t number) {
    return number > 0 && number <= 0xFFFF ? static_cast<std::uint16_t>(number) : std::uint16_t{1252};
}

// Some word processors indent what they write out of a list with a blank.
std::u16string_view withoutLeadingBlanks(std::u16string_view text) {
    return text.substr(std::min(text.find_first_not_of(u' '), text.size()));
}

// A bullet is written out as one character that is no digit and no letter (but Courier New's "o"), then blanks. Numbers
// stay text.
bool isBullet(std::u16string_view text) {
    while (!text.empty() && (text.back() == u'\t' || text.back() == u' '))
        text.remove_suffix(1);
    text = withoutLeadingBlanks(text);
    if (text.size() != 1)
        return false;
    const char16_t c = text.front();
    return c == u'o' || (c > 0x20 && c < 0x30) || c == 0xA7 || c == 0xB7 || c >= 0x2000;
}

} // namespace

void RtfReader::read(std::string_view bytes, RtfSink& sink) {
    if (!isRtf(bytes))
        return;
    reset(bytes, sink);
    do
        step();
    while (at_ < bytes_.size() && !stack_.empty());
    flushBytes();
    if (paragraphOpen_)
        closeParagraph();
}

void RtfReader::reset(std::string_view bytes, RtfSink& sink) {
    bytes_ = bytes;
    at_ = 0;
    sink_ = &sink;
    state_ = State{};
    stack_.clear();
    deeper_ = 0;
    skip_ = 0;
    text_.clear();
    listText_.clear();
    pending_.clear();
    fonts_.clear();
    defaultFont_.reset();
    documentPage_ = 1252;
    bulletWritten_ = false;
    paragraphOpen_ = false;
}

void RtfReader::step() {
    switch (bytes_[at_]) {
    case '{': openGroup(); break;
    case '}': closeGroup(); break;
    case '\\': control(); break;
    case '\r':
    case '\n': ++at_; break;
    default: plainBytes();
    }
}

void RtfReader::openGroup() {
    skip_ = 0;
    flushBytes();
    std::size_t i = at_ + 1;
    const auto skipBreaks = [&] {
        while (i < bytes_.size() && (bytes_[i] == '\r' || bytes_[i] == '\n'))
            ++i;
    };
    skipBreaks();
    const bool ignorable = bytes_.substr(i).starts_with("\\*");
    if (ignorable) {
        i += 2;
        skipBreaks();
    }
    RtfKeyword keyword = RtfKeyword::unknown;
    if (i + 1 < bytes_.size() && bytes_[i] == '\\' && isAsciiLetter(bytes_[i + 1]))
        keyword = findRtfKeyword(scanRtfWord(bytes_, i).name).keyword;
    if (!opensDestination(keyword))
        keyword = ignorable && keyword != RtfKeyword::fieldResult ? RtfKeyword::kept : RtfKeyword::unknown;

    const bool nests = stack_.size() < maxDepth && state_.destination == Destination::text;
    if (keyword == RtfKeyword::unknown)
        enterGroup(state_.destination);
    else if (keyword == RtfKeyword::fontTable && nests)
        enterGroup(Destination::fontTable);
    else if (keyword == RtfKeyword::listText && nests)
        enterGroup(Destination::listText);
    else
        skipDestination(keyword);
}

void RtfReader::enterGroup(Destination destination) {
    ++at_;
    if (stack_.size() >= maxDepth) {
        ++deeper_;
        return;
    }
    stack_.push_back(state_);
    state_.destination = destination;
}

void RtfReader::closeGroup() {
    ++at_;
    skip_ = 0;
    flushBytes();
    if (deeper_ > 0) {
        --deeper_;
        return;
    }
    const Destination closed = state_.destination;
    state_ = stack_.back();
    stack_.pop_back();
    if (closed == Destination::listText && state_.destination == Destination::text)
        finishListText();
    if (closed == Destination::fontTable && state_.destination == Destination::text)
        selectDefaultFont();
}

// A group that is not closed before the end of the bytes has lost its meaning and goes.
void RtfReader::skipDestination(RtfKeyword keyword) {
    const auto group = scanRtfGroup(bytes_, at_);
    if (!group) {
        at_ = bytes_.size();
        return;
    }
    at_ += group->size();
    if (state_.destination != Destination::text)
        return;
    switch (keyword) {
    case RtfKeyword::numbering: state_.bullet = group->find("\\pnlvlblt") != std::string_view::npos; break;
    case RtfKeyword::ink: emitObject(RtfObject::ink, *group); break;
    case RtfKeyword::voice: emitObject(RtfObject::voice, *group); break;
    case RtfKeyword::picture: emitObject(RtfObject::picture, *group); break;
    case RtfKeyword::kept: emitObject(RtfObject::other, *group); break;
    default: break;
    }
}

void RtfReader::control() {
    if (at_ + 1 >= bytes_.size()) {
        at_ = bytes_.size();
    } else if (isAsciiLetter(bytes_[at_ + 1])) {
        flushBytes();
        const RtfWord found = scanRtfWord(bytes_, at_);
        at_ += found.size;
        word(found);
    } else {
        symbol();
    }
}

void RtfReader::symbol() {
    const char c = bytes_[at_ + 1];
    at_ += 2;
    const bool hex =
        c == '\'' && at_ + 1 < bytes_.size() && hexValue(bytes_[at_]) >= 0 && hexValue(bytes_[at_ + 1]) >= 0;
    unsigned char byte = 0;
    if (hex) {
        byte = static_cast<unsigned char>(hexValue(bytes_[at_]) * 16 + hexValue(bytes_[at_ + 1]));
        at_ += 2;
    }
    if (skip_ > 0) {
        --skip_;
        return;
    }
    if (hex)
        return putByte(byte);
    switch (c) {
    case '\\':
    case '{':
    case '}': putEscaped(static_cast<unsigned char>(c)); break;
    case '~': putUnit(0x00A0); break;
    case '_': putUnit(0x2011); break;
    case '-': putUnit(0x00AD); break;
    case '\r':
        if (at_ < bytes_.size() && bytes_[at_] == '\n')
            ++at_;
        [[fallthrough]];
    case '\n': endParagraph(); break;
    case '\t': putUnit(u'\t'); break;
    default: break;
    }
}

void RtfReader::word(const RtfWord& found) {
    const RtfKeywordInfo info = findRtfKeyword(found.name);
    if (info.keyword == RtfKeyword::binary) {
        const auto size = static_cast<std::size_t>(std::max(found.number.value_or(0), 0));
        at_ += std::min(size, bytes_.size() - at_);
    }
    if (skip_ > 0)
        --skip_;
    else if (info.keyword != RtfKeyword::unknown)
        textWord(info, found);
}

void RtfReader::textWord(const RtfKeywordInfo& info, const RtfWord& found) {
    using enum RtfKeyword;
    switch (info.keyword) {
    case character: putUnit(static_cast<char16_t>(info.value)); break;
    case unicode: putUnicode(found.number.value_or(0)); break;
    case paragraph: endParagraph(); break;
    case section:
        if (paragraphOpen_)
            endParagraph();
        break;
    case row: endRow(); break;
    case font:
    case fontCharset:
    case fontCodePage: fontWord(info.keyword, found.number.value_or(0)); break;
    case defaultFont: defaultFont_ = found.number; break;
    case codePage: setDocumentPage(asCodePage(found.number.value_or(0))); break;
    case namedCodePage: setDocumentPage(info.value); break;
    default: formatWord(info.keyword, found);
    }
}

void RtfReader::formatWord(RtfKeyword keyword, const RtfWord& found) {
    using enum RtfKeyword;
    const bool on = found.number.value_or(1) != 0;
    switch (keyword) {
    case bold: state_.format.bold = on; break;
    case italic: state_.format.italic = on; break;
    case underline: state_.format.underline = on; break;
    case noUnderline: state_.format.underline = false; break;
    case hidden: state_.format.hidden = on; break;
    case plain:
        state_.format = {};
        selectDefaultFont();
        break;
    case paragraphDefaults: state_.bullet = false; break;
    case unicodeSkip: state_.unicodeSkip = std::max(found.number.value_or(1), 0); break;
    default: break;
    }
}

void RtfReader::fontWord(RtfKeyword keyword, std::int32_t number) {
    if (state_.destination != Destination::fontTable) {
        if (keyword == RtfKeyword::font)
            selectFont(number);
        return;
    }
    if (keyword == RtfKeyword::font) {
        if (fonts_.size() == maxFonts)
            fonts_.pop_back();
        fonts_.push_back({number, documentPage_});
    } else if (!fonts_.empty()) {
        fonts_.back().codePage =
            keyword == RtfKeyword::fontCharset ? codePageOfCharset(number, documentPage_) : asCodePage(number);
    }
}

void RtfReader::selectFont(std::int32_t number) {
    const auto font = std::ranges::find(fonts_, number, &Font::number);
    state_.codePage = font != fonts_.end() ? font->codePage : documentPage_;
}

// Text before the first choice of a font is in the default one.
void RtfReader::selectDefaultFont() {
    if (defaultFont_)
        selectFont(*defaultFont_);
    else
        state_.codePage = documentPage_;
}

void RtfReader::setDocumentPage(std::uint16_t codePage) {
    documentPage_ = codePage;
    state_.codePage = codePage;
}

void RtfReader::plainBytes() {
    const char first = bytes_[at_];
    if (!isOrdinary(first) || skip_ > 0 || !pending_.empty()) {
        ++at_;
        if (skip_ > 0)
            --skip_;
        else if (first == '\t' || static_cast<unsigned char>(first) >= 0x20)
            putByte(static_cast<unsigned char>(first));
        return;
    }
    std::size_t end = at_ + 1;
    while (end < bytes_.size() && isOrdinary(bytes_[end]))
        ++end;
    if (std::u16string* const out = target()) {
        const std::size_t size = out->size();
        out->resize(size + (end - at_));
        std::ranges::copy(bytes_.substr(at_, end - at_), out->begin() + static_cast<std::ptrdiff_t>(size));
    }
    at_ = end;
}

void RtfReader::putByte(unsigned char byte) {
    if (!isMultiByteCodePage(state_.codePage))
        return putUnit(ansi_.character(state_.codePage, byte));
    if (pending_.empty() && byte < 0x80)
        return putUnit(byte);
    pending_.push_back(static_cast<char>(byte));
    if (pending_.size() >= sizeOfCharacter(state_.codePage, static_cast<unsigned char>(pending_.front())))
        flushBytes();
}

// An escaped brace or backslash is itself, or the end of a character of two bytes.
void RtfReader::putEscaped(unsigned char byte) {
    if (pending_.empty())
        putUnit(byte);
    else
        putByte(byte);
}

void RtfReader::putUnicode(std::int32_t number) {
    if (number > 0xFFFF && number <= 0x10FFFF) {
        putUnit(static_cast<char16_t>(0xD7C0 + (number >> 10)));
        putUnit(static_cast<char16_t>(0xDC00 + (number & 0x3FF)));
    } else {
        putUnit(static_cast<char16_t>(number & 0xFFFF));
    }
    skip_ = state_.unicodeSkip;
}

void RtfReader::putUnit(char16_t unit) {
    flushBytes();
    if (unit == 0)
        return;
    const bool lineBreak = unit == u'\r' || unit == u'\v';
    if (std::u16string* const out = target())
        out->push_back(lineBreak ? u'\n' : unit);
}

void RtfReader::flushBytes() {
    if (pending_.empty())
        return;
    std::u16string decoded;
    ansi_.append(decoded, state_.codePage, pending_);
    pending_.clear();
    for (const char16_t unit : decoded)
        putUnit(unit);
}

// Where characters go now, made ready for the current format; null when they are not wanted.
std::u16string* RtfReader::target() {
    if (state_.destination == Destination::text) {
        if (state_.format != textFormat_) {
            flush();
            textFormat_ = state_.format;
        }
        paragraphOpen_ = true;
        return &text_;
    }
    return state_.destination == Destination::listText ? &listText_ : nullptr;
}

void RtfReader::flush() {
    if (!text_.empty())
        sink_->text(text_, textFormat_);
    text_.clear();
}

void RtfReader::finishListText() {
    if (isBullet(listText_))
        bulletWritten_ = true;
    else if (!listText_.empty())
        *target() += withoutLeadingBlanks(listText_);
    listText_.clear();
}

void RtfReader::endParagraph() {
    flushBytes();
    if (state_.destination == Destination::text)
        closeParagraph();
}

void RtfReader::closeParagraph() {
    flush();
    sink_->endParagraph(state_.bullet || bulletWritten_);
    bulletWritten_ = false;
    paragraphOpen_ = false;
}

// A cell ends with a tab; the last one of a row needs none.
void RtfReader::endRow() {
    if (!text_.empty() && text_.back() == u'\t')
        text_.pop_back();
    if (paragraphOpen_)
        endParagraph();
}

void RtfReader::emitObject(RtfObject kind, std::string_view group) {
    flushBytes();
    flush();
    paragraphOpen_ = true;
    sink_->object(kind, group);
}

} // namespace hourwright::exchange
