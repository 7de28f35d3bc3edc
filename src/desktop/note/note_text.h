#pragma once

#include "exchange/note_document.h"

#include <QTextCursor>
#include <QTextDocument>
#include <memory>

/// A note in the document of the toolkit's text editor, and back. What is no plain character there (drawings,
/// recordings, hidden text, parts of other programs' documents) stands as one object character that carries its item,
/// so that undoing, moving and copying keep it whole.
namespace hourwright::desktop {

/// The type of the object characters, for the drawing of them.
inline constexpr int noteObjectType = QTextFormat::UserObject + 1;

/// The item that an object character carries; null for every other character.
[[nodiscard]] std::shared_ptr<const exchange::NoteItem> noteItemOf(const QTextFormat& format);

/// Inserts one item at the cursor, in the place of what is selected.
void insertNoteItem(QTextCursor& cursor, const exchange::NoteItem& item);

/// Inserts a whole note at the cursor, in the place of what is selected; its first paragraph continues the cursor's.
void insertNote(QTextCursor& cursor, const exchange::NoteDocument& note);

/// Shows a note; the steps before it cannot be undone.
void showNote(QTextDocument& document, const exchange::NoteDocument& note);

/// The note that a document shows. An empty document is a note without paragraphs.
[[nodiscard]] exchange::NoteDocument noteIn(const QTextDocument& document, std::uint16_t codePage = 1252);

/// Makes the paragraphs that the cursor's selection touches bulleted, or ordinary ones again.
void setBullets(QTextCursor& cursor, bool bullets);

} // namespace hourwright::desktop
