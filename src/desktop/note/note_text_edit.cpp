#include "desktop/note/note_text_edit.h"

#include "desktop/note/note_object.h"
#include "desktop/note/note_text.h"
#include "platform/qt/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextList>

namespace hourwright::desktop {

namespace {

constexpr auto rtfType = "text/rtf";
constexpr auto oldRtfType = "application/rtf";

QByteArray rtfOf(const QMimeData& source) {
    return source.hasFormat(rtfType) ? source.data(rtfType) : source.data(oldRtfType);
}

bool opens(const exchange::NoteItem* item) {
    return item != nullptr &&
           (std::holds_alternative<exchange::InkDrawing>(*item) || std::holds_alternative<exchange::VoiceClip>(*item));
}

} // namespace

NoteTextEdit::NoteTextEdit(QWidget* parent) : QTextEdit(parent) {
    setTabChangesFocus(true);
    document()->documentLayout()->registerHandler(noteObjectType, new NoteObjectPainter(this));
}

std::shared_ptr<const exchange::NoteItem> NoteTextEdit::itemAt(int position) const {
    if (position < 0 || document()->characterAt(position) != QChar::ObjectReplacementCharacter)
        return nullptr;
    QTextCursor cursor(document());
    cursor.setPosition(position + 1);
    return noteItemOf(cursor.charFormat());
}

int NoteTextEdit::objectAtCursor() const {
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) {
        const bool single = cursor.selectionEnd() == cursor.selectionStart() + 1;
        return single && opens(itemAt(cursor.selectionStart()).get()) ? cursor.selectionStart() : -1;
    }
    for (const int position : {cursor.position() - 1, cursor.position()})
        if (opens(itemAt(position).get()))
            return position;
    return -1;
}

int NoteTextEdit::objectAt(QPoint position) const {
    const QPointF place = position + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int found = document()->documentLayout()->hitTest(place, Qt::ExactHit);
    for (const int candidate : {found, found - 1}) {
        if (!opens(itemAt(candidate).get()))
            continue;
        QTextCursor cursor(document());
        cursor.setPosition(candidate);
        const QRect before = cursorRect(cursor);
        cursor.setPosition(candidate + 1);
        const QRect behind = cursorRect(cursor);
        if (position.x() >= before.left() && position.x() <= behind.right())
            return candidate;
    }
    return -1;
}

void NoteTextEdit::replaceItem(int position, const exchange::NoteItem& item) {
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
    insertNoteItem(cursor, item);
}

void NoteTextEdit::removeItem(int position) {
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.deleteChar();
}

QMimeData* NoteTextEdit::createMimeDataFromSelection() const {
    QTextDocument selected;
    QTextCursor(&selected).insertFragment(textCursor().selection());
    const auto rtf = exchange::writeNote(noteIn(selected));
    QMimeData* const copied = QTextEdit::createMimeDataFromSelection();
    copied->setData(rtfType, QByteArray(reinterpret_cast<const char*>(rtf.data()), static_cast<qsizetype>(rtf.size())));
    return copied;
}

bool NoteTextEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() || source->hasHtml() || source->hasFormat(rtfType) || source->hasFormat(oldRtfType);
}

void NoteTextEdit::insertFromMimeData(const QMimeData* source) {
    if (const QByteArray rtf = rtfOf(*source); rtf.startsWith("{\\rtf")) {
        const auto bytes = std::as_bytes(std::span(rtf.constData(), static_cast<std::size_t>(rtf.size())));
        pasteNote(exchange::readNote(bytes).value_or(exchange::NoteDocument{}));
    } else if (source->hasHtml()) {
        QTextDocument page;
        page.setHtml(source->html());
        pasteNote(noteIn(page));
    } else {
        pasteNote(exchange::fromPlainText(platform::toU16(source->text())));
    }
}

void NoteTextEdit::pasteNote(const exchange::NoteDocument& note) {
    QTextCursor cursor = textCursor();
    insertNote(cursor, note);
    setTextCursor(cursor);
    ensureCursorVisible();
}

// Return in an empty item ends the list, as word processors do.
void NoteTextEdit::keyPressEvent(QKeyEvent* event) {
    QTextCursor cursor = textCursor();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers() == Qt::NoModifier && !cursor.hasSelection() &&
        cursor.block().textList() != nullptr && cursor.block().length() == 1)
        return setBullets(cursor, false);
    QTextEdit::keyPressEvent(event);
}

void NoteTextEdit::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton ? objectAt(event->position().toPoint()) : -1;
    QTextEdit::mousePressEvent(event);
}

void NoteTextEdit::mouseReleaseEvent(QMouseEvent* event) {
    QTextEdit::mouseReleaseEvent(event);
    const int pressed = std::exchange(pressed_, -1);
    if (pressed >= 0 && pressed == objectAt(event->position().toPoint()) &&
        textCursor().selectionEnd() - textCursor().selectionStart() <= 1)
        emit objectActivated(pressed);
}

// Drawings are fitted to the width, so a new width needs a new layout of them.
void NoteTextEdit::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    if (event->oldSize().width() != event->size().width())
        document()->markContentsDirty(0, document()->characterCount());
}

} // namespace hourwright::desktop
