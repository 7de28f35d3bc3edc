#include "exchange/markup_parser.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace hourwright::exchange {

namespace {

constexpr std::u16string_view blanks = u" \t\n\r";
constexpr std::u16string_view quotes = u"\"'";
constexpr std::u16string_view delimiters = u"<>=\\/?!"; // each a token of its own
constexpr std::u16string_view tokenEnds = u" \t\n\r<>=\\/?!";

constexpr std::u16string_view noElement = u"Element tag not found";
constexpr std::u16string_view abruptEnd = u"Abrupt end within tag";
constexpr std::u16string_view startsWithQuote = u"Tag starts with quote";
constexpr std::u16string_view tagNotClosed = u"End of tag not found";
constexpr std::u16string_view noEndTag = u"End tag of %s element not found";
constexpr std::u16string_view otherEndTag = u"End tag does not correspond to %s";
constexpr std::u16string_view endTagNotClosed = u"Expecting end tag of element %s";
constexpr std::u16string_view endTagWithoutName = u"End tag not completed for element %s";

bool isOneOf(char16_t unit, std::u16string_view set) {
    return set.find(unit) != std::u16string_view::npos;
}

/// A word, a quoted value with its quotes, or a delimiter. A value that is never closed reaches to the end of the text.
struct Token {
    std::size_t begin = 0;
    std::u16string_view text;

    [[nodiscard]] std::size_t end() const { return begin + text.size(); }
    [[nodiscard]] bool is(char16_t delimiter) const { return text.front() == delimiter; }
    [[nodiscard]] bool isQuoted() const { return isOneOf(text.front(), quotes); }
};

/// One parse. The elements that are open at the current place are kept in a list, so no nesting is too deep.
class MarkupParser {
public:
    MarkupParser(std::u16string_view text, MarkupSink& sink) : text_(text), sink_(sink) {}

    [[nodiscard]] std::u16string parse() {
        do {
            parseTag();
        } while (error_.empty() && !(rootFound_ && open_.empty()));
        return error_;
    }

private:
    void parseTag() {
        const std::size_t begin = text_.find(u'<', place_);
        if (begin == std::u16string_view::npos)
            return open_.empty() ? fail(noElement) : fail(noEndTag);
        place_ = begin + 1;
        const auto first = nextToken();
        if (!first)
            return fail(abruptEnd);
        if (first->isQuoted())
            return fail(startsWithQuote);
        if (first->is(u'?'))
            return skipPast(u"?>");
        if (first->is(u'!'))
            return skipDeclaration();
        if (first->is(u'/'))
            return open_.empty() ? fail(noElement) : parseEndTag(begin);
        return isOneOf(first->text.front(), delimiters) ? fail(noElement) : parseStartTag(begin, *first);
    }

    void parseStartTag(std::size_t begin, const Token& name) {
        StartTag tag{.begin = begin, .name = name.text, .attributeEnd = name.end()};
        Token last = name;
        for (;;) {
            const auto token = nextToken();
            if (!token || token->is(u'<'))
                return fail(tagNotClosed);
            if (token->is(u'>'))
                break;
            tag.attributeEnd = last.end();
            last = *token;
        }
        tag.end = place_;
        tag.empty = last.is(u'/') && last.end() + 1 == place_;
        if (!tag.empty)
            tag.attributeEnd = last.end();
        rootFound_ = true;
        if (!tag.empty)
            open_.push_back(tag.name);
        sink_.startElement(tag);
    }

    void parseEndTag(std::size_t begin) {
        bool named = false;
        for (;;) {
            const auto token = nextToken();
            if (!token || token->is(u'<'))
                return fail(endTagNotClosed);
            if (token->is(u'>'))
                break;
            if (!named && token->text != open_.back())
                return fail(otherEndTag);
            named = true;
        }
        if (!named)
            return fail(endTagWithoutName);
        open_.pop_back();
        sink_.endElement(begin, place_);
    }

    // Stands behind "<!".
    void skipDeclaration() {
        if (text_.substr(place_, 1) == u"[")
            return skipPast(u"]]>");
        if (text_.substr(place_, 1) == u"-") {
            place_ = std::min(place_ + 2, text_.size());
            return skipPast(u"-->");
        }
        skipDocumentType();
    }

    // Its own declarations stand between brackets; quoted values and comments may hold any of the characters looked
    // for.
    void skipDocumentType() {
        for (std::size_t depth = 0; error_.empty();) {
            const std::size_t found = text_.find_first_of(u"[]<>\"'", place_);
            place_ = std::min(found, text_.size() - 1) + 1;
            if (found == std::u16string_view::npos)
                return fail(abruptEnd);
            const char16_t unit = text_[found];
            if (isOneOf(unit, quotes))
                skipPast(text_.substr(found, 1));
            else if (text_.substr(found, 4) == u"<!--")
                skipPast(u"-->");
            else if (unit == u'>' && depth == 0)
                return;
            else if (unit == u'[')
                ++depth;
            else if (unit == u']' && depth > 0)
                --depth;
        }
    }

    void skipPast(std::u16string_view end) {
        const std::size_t found = text_.find(end, place_);
        if (found == std::u16string_view::npos)
            return fail(abruptEnd);
        place_ = found + end.size();
    }

    std::optional<Token> nextToken() {
        const std::size_t begin = text_.find_first_not_of(blanks, place_);
        if (begin == std::u16string_view::npos)
            return std::nullopt;
        const std::size_t end = std::min(tokenEnd(begin), text_.size());
        place_ = end;
        return Token{begin, text_.substr(begin, end - begin)};
    }

    [[nodiscard]] std::size_t tokenEnd(std::size_t begin) const {
        if (isOneOf(text_[begin], delimiters))
            return begin + 1;
        if (!isOneOf(text_[begin], quotes))
            return text_.find_first_of(tokenEnds, begin);
        const std::size_t closing = text_.find(text_[begin], begin + 1);
        return closing == std::u16string_view::npos ? closing : closing + 1;
    }

    // A message with "%s" names the innermost open element.
    void fail(std::u16string_view message) {
        error_ = message;
        const std::size_t name = error_.find(u"%s");
        if (name != std::u16string::npos)
            error_.replace(name, 2, open_.back());
    }

    std::u16string_view text_;
    MarkupSink& sink_;
    std::size_t place_ = 0;
    std::vector<std::u16string_view> open_;
    bool rootFound_ = false;
    std::u16string error_;
};

} // namespace

bool isMarkupName(std::u16string_view name) {
    const auto stops = [](char16_t unit) { return isOneOf(unit, tokenEnds) || isOneOf(unit, quotes); };
    return !name.empty() && std::ranges::none_of(name, stops);
}

std::u16string parseMarkup(std::u16string_view text, MarkupSink& sink) {
    return MarkupParser(text, sink).parse();
}

} // namespace hourwright::exchange
