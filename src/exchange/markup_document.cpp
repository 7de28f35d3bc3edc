#include "exchange/markup_document.h"

#include "exchange/markup_escape.h"
#include "platform/large_blocks.h"

#include <algorithm>

namespace hourwright::exchange {

namespace {

constexpr std::u16string_view lineBreak = u"\r\n";
constexpr std::size_t unitsPerRecord = 64; // what an element takes on average, roughly
constexpr std::size_t spareRecords = 8;

// Size of the line break, if any, at a place of a text.
std::size_t lineBreakSize(std::u16string_view text, std::size_t place) {
    const std::u16string_view rest = text.substr(place);
    return rest.starts_with(lineBreak) ? 2 : rest.starts_with(u'\n') ? 1 : 0;
}

} // namespace

/// Turns what the parser finds into pieces and records.
class MarkupDocument::Builder final : public MarkupSink {
public:
    Builder(MarkupDocument& document, std::u16string_view text)
        : document_(document), text_(text), open_(&document.top()), last_(&document.top().body) {}

    void startElement(const StartTag& tag) override {
        endContentBefore(tag.begin);
        Record& element = document_.newRecord();
        link(element, *open_, open_->lastChild);
        element.nameSize = static_cast<std::uint32_t>(tag.name.size());
        element.empty = tag.empty;
        cut(element.head, tag.attributeEnd);
        if (!tag.empty) {
            open_ = &element;
            return;
        }
        cut(element.body, tag.end);
        cutBehindLineBreak(element.tail, tag.end);
    }

    void endElement(std::size_t begin, std::size_t end) override {
        endContentBefore(begin);
        cutBehindLineBreak(open_->tail, end);
        open_ = open_->parent;
    }

    /// The rest of the text.
    void finish() { cut(document_.newPiece(), text_.size()); }

private:
    // The text up to the first child is the parent's own; between children it belongs to none.
    void endContentBefore(std::size_t place) {
        if (open_->parent && open_->body.text.empty())
            cut(open_->body, place);
        else if (place > done_)
            cut(document_.newPiece(), place);
    }

    void cutBehindLineBreak(Piece& piece, std::size_t end) { cut(piece, end + lineBreakSize(text_, end)); }

    void cut(Piece& piece, std::size_t end) {
        piece.text = text_.substr(done_, end - done_);
        last_->next = &piece;
        last_ = &piece;
        done_ = end;
    }

    MarkupDocument& document_;
    std::u16string_view text_;
    Record* open_;
    Piece* last_;
    std::size_t done_ = 0;
};

MarkupDocument::MarkupDocument()
    : memory_(std::make_unique<std::pmr::monotonic_buffer_resource>(&platform::largeBlocks())) {
    setText();
}

bool MarkupDocument::setText(std::u16string_view text) {
    memory_->release();
    text = keep({text});
    capacity_ = std::max(capacity_, text.size() / unitsPerRecord + spareRecords);
    size_ = text.size();
    resetIndex();
    Builder builder(*this, text);
    error_ = parseMarkup(text, builder);
    if (error_.empty()) {
        builder.finish();
        parent_ = &top();
        return true;
    }
    resetIndex();
    top().body.text = text;
    if (text.empty())
        parent_ = &top();
    return false;
}

std::u16string MarkupDocument::text() const {
    std::u16string text;
    text.reserve(size_);
    for (const Piece* piece = &top().body; piece; piece = piece->next)
        text += piece->text;
    return text;
}

bool MarkupDocument::addElement(std::u16string_view name) {
    return insertElement(name, std::nullopt);
}

bool MarkupDocument::addElement(std::u16string_view name, std::u16string_view value) {
    return insertElement(name, value);
}

bool MarkupDocument::addAttribute(std::u16string_view name, std::u16string_view value) {
    return insertAttribute(current_, name, value);
}

bool MarkupDocument::addParentAttribute(std::u16string_view name, std::u16string_view value) {
    return insertAttribute(parent_ == &top() ? nullptr : parent_, name, value);
}

bool MarkupDocument::intoElement() {
    if (!current_)
        return false;
    parent_ = current_;
    current_ = nullptr;
    return true;
}

bool MarkupDocument::outOfElement() {
    if (!parent_ || parent_ == &top())
        return false;
    current_ = parent_;
    parent_ = parent_->parent;
    return true;
}

bool MarkupDocument::toFirstElement() {
    if (!parent_ || !parent_->firstChild)
        return false;
    current_ = parent_->firstChild;
    return true;
}

bool MarkupDocument::toNextElement() {
    if (!current_ || !current_->nextSibling)
        return false;
    current_ = current_->nextSibling;
    return true;
}

void MarkupDocument::resetIndex() {
    index_.clear();
    index_.emplace_back(&platform::largeBlocks()).reserve(capacity_);
    index_.front().emplace_back();
    used_ = 1;
    parent_ = nullptr;
    current_ = nullptr;
}

MarkupDocument::Record& MarkupDocument::newRecord() {
    if (used_ == capacity_) {
        const std::size_t more = capacity_ / 2;
        index_.emplace_back(&platform::largeBlocks()).reserve(more);
        capacity_ += more;
    }
    ++used_;
    return index_.back().emplace_back();
}

MarkupDocument::Piece& MarkupDocument::newPiece() {
    return *std::pmr::polymorphic_allocator<>(memory_.get()).new_object<Piece>();
}

// Copies texts, one behind the other, to where they stay.
std::u16string_view MarkupDocument::keep(Texts texts) {
    std::size_t size = 0;
    for (const std::u16string_view text : texts)
        size += text.size();
    auto* const kept = std::pmr::polymorphic_allocator<>(memory_.get()).allocate_object<char16_t>(size);
    auto* end = kept;
    for (const std::u16string_view text : texts)
        end = std::ranges::copy(text, end).out;
    return {kept, size};
}

// Makes an element the next sibling of another, or the first child when that is null.
void MarkupDocument::link(Record& element, Record& parent, Record* before) {
    Record*& link = before ? before->nextSibling : parent.firstChild;
    element.parent = &parent;
    element.nextSibling = link;
    if (!link)
        parent.lastChild = &element;
    link = &element;
}

// Puts the pieces of a new element behind a piece.
void MarkupDocument::putElement(Record& element, Piece& before, std::u16string_view name,
                                std::optional<std::u16string_view> value) {
    element.nameSize = static_cast<std::uint32_t>(name.size());
    element.empty = !value;
    element.head = {keep({u"<", name}), &element.body};
    element.body = {value ? keep({u">", escaped(*value, textEscapes)}) : u"/>", &element.tail};
    element.tail = {value ? keep({u"</", name, u">", lineBreak}) : lineBreak, before.next};
    size_ += element.head.text.size() + element.body.text.size() + element.tail.text.size();
    before.next = &element.head;
}

bool MarkupDocument::insertElement(std::u16string_view name, std::optional<std::u16string_view> value) {
    if (!parent_ || !isMarkupName(name))
        return false;
    if (parent_->empty)
        openElement(*parent_);
    Record* const before = current_ ? current_ : parent_->lastChild;
    Record& element = newRecord();
    putElement(element, before ? before->tail : parent_->body, name, value);
    link(element, *parent_, before);
    current_ = &element;
    return true;
}

// Gives an element without content an end tag, on a line of its own.
void MarkupDocument::openElement(Record& element) {
    const std::u16string_view head = element.head.text;
    const std::u16string_view name = head.substr(head.find_first_not_of(u"< \t\n\r"), element.nameSize);
    size_ -= element.body.text.size() + element.tail.text.size();
    element.body.text = keep({u">", lineBreak});
    element.tail.text = keep({u"</", name, u">", element.tail.text});
    size_ += element.body.text.size() + element.tail.text.size();
    element.empty = false;
}

bool MarkupDocument::insertAttribute(Record* element, std::u16string_view name, std::u16string_view value) {
    if (!element || !isMarkupName(name))
        return false;
    Piece* const before = element->lastAttribute ? element->lastAttribute : &element->head;
    Piece& attribute = newPiece();
    attribute = {keep({u" ", name, u"=\"", escaped(value, attributeEscapes), u"\""}), before->next};
    before->next = &attribute;
    size_ += attribute.text.size();
    element->lastAttribute = &attribute;
    return true;
}

} // namespace hourwright::exchange
