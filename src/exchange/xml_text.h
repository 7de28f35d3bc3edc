#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hourwright::exchange {

/// The text of an XML file as the exports write it, built piece by piece in a memory that can be used again. Values are
/// escaped as existing readers expect them: "<" comes out as "&amp;lt;" and ">" as "&amp;gt;", the other three as
/// usual. Characters that XML forbids go in as they stand.
class XmlText {
public:
    void clear() { text_.clear(); }
    /// Valid until the text is changed.
    [[nodiscard]] std::u16string_view text() const { return text_; }

    /// The declaration and a line break; without a name, no encoding is declared.
    void declaration(std::u16string_view encodingName);

    /// A start tag is opened, gets its attributes, and is closed with or without a line break.
    void openStartTag(std::u16string_view name);
    void attribute(std::u16string_view name, std::u16string_view value);
    void attribute(std::u16string_view name, std::int64_t value);
    void closeStartTag();
    void closeStartTagAndLine();

    /// A start tag without attributes, or an end tag, and a line break.
    void startTag(std::u16string_view name);
    void endTag(std::u16string_view name);

    /// "<name>value</name>" or "<name />", and a line break.
    void element(std::u16string_view name, std::u16string_view value);
    void hundredthsElement(std::u16string_view name, std::int64_t value);
    void emptyElement(std::u16string_view name);

    void escapedText(std::u16string_view text);
    /// Numbers with two decimals.
    void hundredths(std::int64_t value);
    void twoDecimals(double value);
    /// A CDATA section with the text as it is, also a "]]>" in it, on lines of its own.
    void cdata(std::u16string_view text);

private:
    std::u16string text_;
};

} // namespace hourwright::exchange
