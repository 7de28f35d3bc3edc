#pragma once

#include "exchange/note_document.h"

#include <QTextEdit>
#include <functional>
#include <memory>

namespace hourwright::desktop {

/// The text field of a note. What is pasted keeps only what a note can hold; what is copied is also given to other
/// programs as RTF, with ink and recordings. Tab leaves the field.
class NoteTextEdit : public QTextEdit {
    Q_OBJECT

public:
    explicit NoteTextEdit(QWidget* parent = nullptr);

    /// The position of the drawing or recording at the cursor: behind it, else before it, else selected alone. -1
    /// without one.
    [[nodiscard]] int objectAtCursor() const;
    /// The item of an object character; null when the character at the position is none.
    [[nodiscard]] std::shared_ptr<const exchange::NoteItem> itemAt(int position) const;
    /// Replaces the object character at a position.
    void replaceItem(int position, const exchange::NoteItem& item);
    void removeItem(int position);

signals:
    /// The drawing or recording at a position was clicked.
    void objectActivated(int position);

protected:
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int objectAt(QPoint position) const;
    void pasteNote(const exchange::NoteDocument& note);

    int pressed_ = -1; // the object that the mouse went down on
};

} // namespace hourwright::desktop
