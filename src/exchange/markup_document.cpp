#include "exchange/markup_document.h"

#include "exchange/markup_escape.h"

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
    explicit Builder(MarkupDocument& document) : document_(document) {}

    void startElement(const StartTag& tag) override {
        endContentBefore(tag.begin);
        const RecordIndex element = document_.newRecord();
        document_.link(element, open_, document_.index_[open_].lastChild);
        Record& record = document_.index_[element];
        record.nameBegin = static_cast<std::size_t>(tag.name.data() - document_.memory_.data());
        record.nameSize = tag.name.size();
        record.empty = tag.empty;
        record.head = cut(tag.attributeEnd);
        if (!tag.empty) {
            open_ = element;
            return;
        }
        record.body = cut(tag.end);
        record.tail = cutBehindLineBreak(tag.end);
    }

    void endElement(std::size_t begin, std::size_t end) override {
        endContentBefore(begin);
        document_.index_[open_].tail = cutBehindLineBreak(end);
        open_ = document_.index_[open_].parent;
    }

    /// The rest of the text.
    void finish() { cut(document_.memory_.size()); }

private:
    // The text up to the first child is the parent's own; between children it belongs to none.
    void endContentBefore(std::size_t place) {
        if (document_.index_[open_].body == noPiece)
            document_.index_[open_].body = cut(place);
        else if (place > done_)
            cut(place);
    }

    PieceIndex cutBehindLineBreak(std::size_t end) { return cut(end + lineBreakSize(document_.memory_, end)); }

    PieceIndex cut(std::size_t end) {
        auto& pieces = document_.pieces_;
        const auto piece = static_cast<PieceIndex>(pieces.size());
        pieces.push_back({.begin = done_, .size = end - done_});
        pieces[last_].next = piece;
        last_ = piece;
        done_ = end;
        return piece;
    }

    MarkupDocument& document_;
    RecordIndex open_ = documentRecord;
    PieceIndex last_ = 0;
    std::size_t done_ = 0;
};

MarkupDocument::MarkupDocument() {
    setText();
}

bool MarkupDocument::setText(std::u16string_view text) {
    memory_ = text;
    index_.resize(std::max(index_.size(), memory_.size() / unitsPerRecord + spareRecords));
    resetIndex();
    Builder builder(*this);
    error_ = parseMarkup(memory_, builder);
    if (error_.empty()) {
        builder.finish();
        parent_ = documentRecord;
        return true;
    }
    resetIndex();
    pieces_[index_.front().body].size = memory_.size();
    if (memory_.empty())
        parent_ = documentRecord;
    return false;
}

std::u16string MarkupDocument::text() const {
    std::size_t size = 0;
    for (const Piece& piece : pieces_)
        size += piece.size;
    std::u16string text;
    text.reserve(size);
    for (PieceIndex i = 0; i != noPiece; i = pieces_[i].next)
        text.append(memory_, pieces_[i].begin, pieces_[i].size);
    return text;
}

bool MarkupDocument::addElement(std::u16string_view name) {
    return insertElement(name, std::nullopt);
}

bool MarkupDocument::addElement(std::u16string_view name, std::u16string_view value) {
    return insertElement(name, value);
}

bool MarkupDocument::addAttribute(std::u16string_view name, std::u16string_view value) {
    return current_ != none && insertAttribute(index_[current_], name, value);
}

bool MarkupDocument::addParentAttribute(std::u16string_view name, std::u16string_view value) {
    const RecordIndex parent = parent_.value_or(documentRecord);
    return parent != documentRecord && insertAttribute(index_[parent], name, value);
}

bool MarkupDocument::intoElement() {
    if (current_ == none)
        return false;
    parent_ = current_;
    current_ = none;
    return true;
}

bool MarkupDocument::outOfElement() {
    const RecordIndex parent = parent_.value_or(documentRecord);
    if (parent == documentRecord)
        return false;
    current_ = parent;
    parent_ = index_[parent].parent;
    return true;
}

bool MarkupDocument::toFirstElement() {
    const RecordIndex first = index_[parent_.value_or(documentRecord)].firstChild;
    if (first != none)
        current_ = first;
    return first != none;
}

bool MarkupDocument::toNextElement() {
    const RecordIndex next = current_ != none ? index_[current_].nextSibling : none;
    if (next != none)
        current_ = next;
    return next != none;
}

void MarkupDocument::resetIndex() {
    pieces_.assign(1, {});
    index_.front() = {.body = 0};
    used_ = 1;
    parent_.reset();
    current_ = none;
}

MarkupDocument::RecordIndex MarkupDocument::newRecord() {
    if (used_ == index_.size())
        index_.resize(used_ + used_ / 2);
    index_[used_] = {};
    return static_cast<RecordIndex>(used_++);
}

// Makes an element the next sibling of another, or the first child when that is none.
void MarkupDocument::link(RecordIndex element, RecordIndex parent, RecordIndex before) {
    RecordIndex& link = before != none ? index_[before].nextSibling : index_[parent].firstChild;
    index_[element].parent = parent;
    index_[element].nextSibling = link;
    if (link == none)
        index_[parent].lastChild = element;
    link = element;
}

// Puts texts, none of them a part of the memory, behind a piece.
MarkupDocument::PieceIndex MarkupDocument::insertPiece(PieceIndex before, Texts texts) {
    const auto piece = static_cast<PieceIndex>(pieces_.size());
    pieces_.push_back({.next = pieces_[before].next});
    pieces_[before].next = piece;
    replacePiece(piece, texts);
    return piece;
}

void MarkupDocument::replacePiece(PieceIndex piece, Texts texts) {
    const std::size_t begin = memory_.size();
    for (const std::u16string_view text : texts)
        memory_ += text;
    pieces_[piece].begin = begin;
    pieces_[piece].size = memory_.size() - begin;
}

void MarkupDocument::putElement(Record& element, PieceIndex before, std::u16string_view name,
                                std::optional<std::u16string_view> value) {
    element.head = insertPiece(before, {u"<", name});
    element.nameBegin = memory_.size() - name.size();
    element.nameSize = name.size();
    element.empty = !value;
    if (value) {
        element.body = insertPiece(element.head, {u">", escaped(*value, textEscapes)});
        element.tail = insertPiece(element.body, {u"</", name, u">", lineBreak});
    } else {
        element.body = insertPiece(element.head, {u"/>"});
        element.tail = insertPiece(element.body, {lineBreak});
    }
}

bool MarkupDocument::insertElement(std::u16string_view name, std::optional<std::u16string_view> value) {
    if (!parent_ || !isMarkupName(name))
        return false;
    const RecordIndex element = newRecord();
    Record& parent = index_[*parent_];
    if (parent.empty)
        openElement(parent);
    const RecordIndex before = current_ != none ? current_ : parent.lastChild;
    putElement(index_[element], before != none ? index_[before].tail : parent.body, name, value);
    link(element, *parent_, before);
    current_ = element;
    return true;
}

// Gives an element without content an end tag, on a line of its own.
void MarkupDocument::openElement(Record& element) {
    const std::u16string name = memory_.substr(element.nameBegin, element.nameSize);
    const std::u16string behind = memory_.substr(pieces_[element.tail].begin, pieces_[element.tail].size);
    replacePiece(element.body, {u">", lineBreak});
    replacePiece(element.tail, {u"</", name, u">", behind});
    element.empty = false;
}

bool MarkupDocument::insertAttribute(Record& element, std::u16string_view name, std::u16string_view value) {
    if (!isMarkupName(name))
        return false;
    element.head = insertPiece(element.head, {u" ", name, u"=\"", escaped(value, attributeEscapes), u"\""});
    return true;
}

} // namespace hourwright::exchange
