#pragma once

#include "exchange/markup_parser.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hourwright::exchange {

/// A small XML document that is built element by element, from nothing or from a text that was parsed. New elements go
/// to a current parent, the document itself at first, behind its current element or else behind its last child.
///
/// Operations that return false change nothing. A name that `isMarkupName` refuses is one reason; another is a document
/// whose text could not be parsed: unless that text is empty, such a document has no current parent. Any number of
/// elements may be added at document level.
class MarkupDocument {
public:
    /// A document without elements: the same as with the empty text set.
    MarkupDocument();

    /// Replaces the text and parses it, up to the end of the root element. Afterwards the document itself is the
    /// current parent and there is no current element. False when the text, which is kept all the same, is not
    /// well-formed: `error` then says why. A line break behind an element counts as a part of it.
    bool setText(std::u16string_view text = {});

    /// The whole document. Puts it together, so ask once.
    [[nodiscard]] std::u16string text() const;

    /// Why the last text could not be parsed; empty when it could. An empty text has no element tag either.
    [[nodiscard]] const std::u16string& error() const { return error_; }

    /// True when there is a root element.
    [[nodiscard]] bool isWellFormed() const { return top().firstChild != nullptr; }

    /// Adds an element without content ("<name/>") or with a text, each followed by a line break, and makes it the
    /// current one. A parent without content gets an end tag, on a line of its own.
    bool addElement(std::u16string_view name);
    bool addElement(std::u16string_view name, std::u16string_view value);

    /// Add an attribute behind those that the current element, or the current parent, has. Attributes of the same name
    /// are not looked for.
    bool addAttribute(std::u16string_view name, std::u16string_view value);
    bool addParentAttribute(std::u16string_view name, std::u16string_view value);

    /// Makes the current element the parent; then there is no current element.
    bool intoElement();
    /// Makes the parent the current element and its parent the current parent.
    bool outOfElement();

    /// Make the first child of the current parent, or the next sibling of the current element, the current element.
    bool toFirstElement();
    bool toNextElement();

    /// Records of the element index in use, the document's own included, and how many it has room for.
    [[nodiscard]] std::size_t recordsUsed() const { return used_; }
    [[nodiscard]] std::size_t recordCapacity() const { return capacity_; }

private:
    /// The document is a chain of pieces. Whatever is added is put behind a piece, wherever that stands in the
    /// document, and no text, piece or record is ever moved.
    struct Piece {
        std::u16string_view text;
        Piece* next = nullptr;
    };

    ///      <name a="b"   >text           </name>CRLF      an element without children: three pieces,
    ///      <name a="b"   />              CRLF             or so when it has no content
    ///      head          body            tail
    ///
    /// The document's own record, the first one, has a body that stands before everything.
    struct Record {
        Record* parent = nullptr;
        Record* firstChild = nullptr;
        Record* lastChild = nullptr;
        Record* nextSibling = nullptr;
        Piece head;
        Piece body;                     ///< up to the first child, or to the end tag
        Piece tail;                     ///< from the end tag on, with a line break
        Piece* lastAttribute = nullptr; ///< of those added later, which are pieces behind the head
        std::uint32_t nameSize = 0;     ///< of the head's first word
        bool empty = false;             ///< has no content and no end tag
    };

    using Texts = std::initializer_list<std::u16string_view>;
    class Builder;

    [[nodiscard]] const Record& top() const { return index_.front().front(); }
    [[nodiscard]] Record& top() { return index_.front().front(); }
    void resetIndex();
    Record& newRecord();
    Piece& newPiece();
    static void link(Record& element, Record& parent, Record* before);
    [[nodiscard]] std::u16string_view keep(Texts texts);

    void putElement(Record& element, Piece& before, std::u16string_view name, std::optional<std::u16string_view> value);
    bool insertElement(std::u16string_view name, std::optional<std::u16string_view> value);
    void openElement(Record& element);
    bool insertAttribute(Record* element, std::u16string_view name, std::u16string_view value);

    std::unique_ptr<std::pmr::monotonic_buffer_resource> memory_; // of texts and of attributes' pieces
    std::size_t size_ = 0;                                        // of the whole text
    std::vector<std::pmr::vector<Record>> index_;                 // blocks that are filled one after the other
    std::size_t used_ = 0;
    std::size_t capacity_ = 0;
    Record* parent_ = nullptr; // nothing: no place to add to
    Record* current_ = nullptr;
    std::u16string error_;
};

} // namespace hourwright::exchange
