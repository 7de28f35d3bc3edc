// Takes the first byte as the number of building steps that follow, a byte each, and the rest as a document's text in
// UTF-8. A text must come back as it is, and what is built into a well-formed one must leave it well-formed.

#include "exchange/markup_document.h"
#include "fuzz/input.h"
#include "fuzz/require.h"

namespace hourwright::fuzz {

using exchange::MarkupDocument;

namespace {

// False when the step changes nothing.
bool build(MarkupDocument& document, std::uint8_t step) {
    switch (step % 8) {
    case 0: return document.addElement(u"empty");
    case 1: return document.addElement(u"p", u"<text> & 'more'");
    case 2: return document.addAttribute(u"a", u"\"/>'");
    case 3: return document.addParentAttribute(u"b", u"<!--");
    case 4: return document.intoElement() && false;
    case 5: return document.outOfElement() && false;
    case 6: return document.toFirstElement() && false;
    default: return document.toNextElement() && false;
    }
}

} // namespace

void markupDocument(Bytes bytes) {
    constexpr std::size_t mostSteps = 32;
    Input input(bytes);
    const Bytes given = input.bytes();
    const auto steps = given.first(std::min(given.size(), mostSteps));
    const std::u16string text = platform::toUtf16(input.restChars());

    MarkupDocument document;
    const bool parsed = document.setText(text);
    require(parsed == document.isWellFormed() && parsed == document.error().empty());
    require(document.text() == text);
    if (!parsed && !text.empty())
        return;
    const std::size_t before = document.recordsUsed();
    std::u16string unchanged;
    for (const std::byte step : steps) {
        unchanged = document.text();
        const bool added = build(document, std::to_integer<std::uint8_t>(step));
        require(added == (document.text() != unchanged));
    }
    require(document.recordsUsed() >= before);
    if (document.isWellFormed())
        require(MarkupDocument().setText(document.text()));
}

} // namespace hourwright::fuzz
