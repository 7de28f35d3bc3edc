// Takes the first byte as the number of building steps that follow, a byte each, and the rest as a document's text in
// UTF-8. A text must come back as it is, and what is built into a well-formed one must leave it well-formed.

#include "exchange/markup_document.h"
#include "platform/utf.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

using hourwright::exchange::MarkupDocument;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span input(data, size);
    const std::size_t count = input.empty() ? 0 : std::min<std::size_t>(input[0], size - 1);
    const auto steps = input.subspan(input.empty() ? 0 : 1, count);
    const auto rest = input.subspan(input.empty() ? 0 : count + 1);
    const std::u16string text =
        hourwright::platform::toUtf16({reinterpret_cast<const char*>(rest.data()), rest.size()});

    MarkupDocument document;
    const bool parsed = document.setText(text);
    require(parsed == document.isWellFormed() && parsed == document.error().empty());
    require(document.text() == text);
    if (!parsed && !text.empty())
        return 0;
    const std::size_t before = document.recordsUsed();
    for (const std::uint8_t step : steps) {
        const std::u16string unchanged = document.text();
        const bool added = build(document, step);
        require(added == (document.text() != unchanged));
    }
    require(document.recordsUsed() >= before);
    if (document.isWellFormed())
        require(MarkupDocument().setText(document.text()));
    return 0;
}
