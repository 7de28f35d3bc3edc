#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// A start tag. Places are counted in units from the beginning of the parsed text.
struct StartTag {
    std::size_t begin = 0;        ///< of its "<"
    std::u16string_view name;     ///< a part of the parsed text
    std::size_t attributeEnd = 0; ///< behind the name and the attributes: where another attribute goes
    std::size_t end = 0;          ///< behind its ">"
    bool empty = false;           ///< closed with "/>": it has no end tag
};

/// Is told about the elements of a text in the order in which their tags stand there.
class MarkupSink {
public:
    virtual ~MarkupSink() = default;

    virtual void startElement(const StartTag& tag) = 0;
    /// Ends the element started last that is neither empty nor ended; the places are those of its end tag.
    virtual void endElement(std::size_t begin, std::size_t end) = 0;
};

/// True when a text can name an element or an attribute: not empty, without blanks, line breaks, quotes and the
/// characters that tags are made of.
[[nodiscard]] bool isMarkupName(std::u16string_view name);

/// Parses up to the end of the root element; what stands behind it is not looked at. Processing instructions, comments,
/// CDATA sections and document types are passed over. Returns an empty text or, at the first error, its message; the
/// sink has then been told what stands before the error. Takes a time proportional to the text, at any nesting.
[[nodiscard]] std::u16string parseMarkup(std::u16string_view text, MarkupSink& sink);

} // namespace hourwright::exchange
