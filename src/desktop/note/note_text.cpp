#include "desktop/note/note_text.h"

#include "platform/qt/qt_text.h"

#include <QTextBlock>
#include <QTextFragment>
#include <QTextList>
#include <QVariant>

namespace hourwright::desktop {

namespace {

using exchange::CharacterFormat;
using exchange::NoteDocument;
using exchange::NoteItem;
using exchange::NoteParagraph;
using exchange::TextRun;
using ItemPointer = std::shared_ptr<const NoteItem>;

constexpr int itemProperty = QTextFormat::UserProperty + 1;

// The toolkit gives these characters a meaning of their own, so they travel as objects.
bool isSpecial(char16_t c) {
    return (c < 0x20 && c != u'\t' && c != u'\n') || c == 0x2028 || c == 0x2029 || c == 0xFDD0 || c == 0xFDD1 ||
           c == QChar::ObjectReplacementCharacter;
}

QTextCharFormat toolkitFormat(const CharacterFormat& format) {
    QTextCharFormat result;
    if (format.bold)
        result.setFontWeight(QFont::Bold);
    if (format.italic)
        result.setFontItalic(true);
    if (format.underline)
        result.setFontUnderline(true);
    return result;
}

CharacterFormat noteFormat(const QTextCharFormat& format) {
    return {.bold = format.fontWeight() >= QFont::DemiBold,
            .italic = format.fontItalic(),
            .underline = format.fontUnderline(),
            .hidden = false};
}

void insertPlain(QTextCursor& cursor, std::u16string_view text, const CharacterFormat& format) {
    if (!text.empty())
        cursor.insertText(platform::toQString(text).replace('\n', QChar(QChar::LineSeparator)), toolkitFormat(format));
}

void insertRun(QTextCursor& cursor, const TextRun& run) {
    if (run.format.hidden)
        return insertNoteItem(cursor, run);
    std::u16string_view left = run.text;
    while (!left.empty()) {
        std::size_t plain = 0;
        while (plain < left.size() && !isSpecial(left[plain]))
            ++plain;
        insertPlain(cursor, left.substr(0, plain), run.format);
        left.remove_prefix(plain);
        if (!left.empty()) {
            insertNoteItem(cursor, TextRun{std::u16string(left.substr(0, 1)), run.format});
            left.remove_prefix(1);
        }
    }
}

void append(NoteParagraph& paragraph, std::u16string_view text, const CharacterFormat& format) {
    auto* const last = paragraph.items.empty() ? nullptr : std::get_if<TextRun>(&paragraph.items.back());
    if (last != nullptr && last->format == format)
        last->text += text;
    else
        paragraph.items.emplace_back(TextRun{std::u16string(text), format});
}

void append(NoteParagraph& paragraph, const NoteItem& item) {
    if (const auto* run = std::get_if<TextRun>(&item))
        append(paragraph, run->text, run->format);
    else
        paragraph.items.push_back(item);
}

void appendFragment(NoteParagraph& paragraph, const QTextFragment& fragment) {
    const ItemPointer item = noteItemOf(fragment.charFormat());
    const CharacterFormat format = noteFormat(fragment.charFormat());
    for (const QChar c : fragment.text()) {
        if (c == QChar::ObjectReplacementCharacter && item != nullptr)
            append(paragraph, *item);
        else if (c == QChar::LineSeparator)
            append(paragraph, u"\n", format);
        else if (!isSpecial(c.unicode()))
            append(paragraph, std::u16string(1, c.unicode()), format);
    }
}

} // namespace

std::shared_ptr<const NoteItem> noteItemOf(const QTextFormat& format) {
    if (format.objectType() != noteObjectType)
        return nullptr;
    return format.property(itemProperty).value<ItemPointer>();
}

void insertNoteItem(QTextCursor& cursor, const NoteItem& item) {
    QTextCharFormat format;
    format.setObjectType(noteObjectType);
    format.setVerticalAlignment(QTextCharFormat::AlignBottom);
    format.setProperty(itemProperty, QVariant::fromValue(std::make_shared<const NoteItem>(item)));
    cursor.insertText(QString(QChar(QChar::ObjectReplacementCharacter)), format);
}

void insertNote(QTextCursor& cursor, const NoteDocument& note) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    QTextList* list = nullptr;
    bool first = true;
    for (const NoteParagraph& paragraph : note.paragraphs) {
        const bool continues = first && cursor.block().length() > 1;
        if (!first)
            cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
        first = false;
        if (!paragraph.bullet)
            list = nullptr;
        else if (list != nullptr)
            list->add(cursor.block());
        else if (!continues)
            list = cursor.createList(QTextListFormat::ListDisc);
        for (const NoteItem& item : paragraph.items) {
            if (const auto* run = std::get_if<TextRun>(&item))
                insertRun(cursor, *run);
            else
                insertNoteItem(cursor, item);
        }
    }
    cursor.endEditBlock();
}

void showNote(QTextDocument& document, const NoteDocument& note) {
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    insertNote(cursor, note);
    document.setUndoRedoEnabled(true);
    document.setModified(false);
}

NoteDocument noteIn(const QTextDocument& document, std::uint16_t codePage) {
    NoteDocument note{.paragraphs = {}, .codePage = codePage};
    const QTextBlock only = document.begin();
    if (document.blockCount() == 1 && only.length() <= 1 && only.textList() == nullptr)
        return note;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        NoteParagraph& paragraph = note.paragraphs.emplace_back();
        paragraph.bullet = block.textList() != nullptr;
        for (auto it = block.begin(); !it.atEnd(); ++it)
            appendFragment(paragraph, it.fragment());
    }
    return note;
}

void setBullets(QTextCursor& cursor, bool bullets) {
    cursor.beginEditBlock();
    const QTextBlock last = cursor.document()->findBlock(cursor.selectionEnd());
    QTextList* made = nullptr;
    for (QTextBlock block = cursor.document()->findBlock(cursor.selectionStart()); block.isValid();
         block = block.next()) {
        QTextList* const list = block.textList();
        if (bullets && list == nullptr) {
            QTextList* const above = block.previous().isValid() ? block.previous().textList() : nullptr;
            if (made == nullptr)
                made = above;
            if (made == nullptr)
                made = QTextCursor(block).createList(QTextListFormat::ListDisc);
            else
                made->add(block);
        } else if (!bullets && list != nullptr) {
            list->remove(block);
            QTextBlockFormat format = block.blockFormat();
            format.setIndent(0);
            QTextCursor(block).setBlockFormat(format);
        }
        if (block == last)
            break;
    }
    cursor.endEditBlock();
}

} // namespace hourwright::desktop
