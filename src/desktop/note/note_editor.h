#pragma once

#include "billing/entry_draft.h"
#include "desktop/workspace.h"
#include "resources/text.h"

#include <QTextCharFormat>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

class QHBoxLayout;
class QLabel;
class QToolButton;

namespace hourwright::desktop {

class NoteTextEdit;

/// Shows and edits the note of a time entry: text with simple formats, drawings and recordings. A note that was not
/// changed keeps its bytes, and one of unknown format cannot be changed.
class NoteEditor : public QWidget {
    Q_OBJECT

public:
    explicit NoteEditor(Workspace& workspace, QWidget* parent = nullptr);

    /// Shows a stored note; it counts as unchanged.
    void setNote(std::span<const std::byte> blob);

    /// The note as it is to be stored; nothing when it was not changed. A note without content has no bytes.
    [[nodiscard]] std::optional<billing::NoteDraft> note() const;

signals:
    /// The note was changed in any way.
    void changed();

private:
    void buildFormatButtons();
    QToolButton* addButton(const char* iconName, const resources::Text& text, const QKeySequence& key);
    void toggleFormat(void (*apply)(QTextCharFormat& format, bool on), bool on);
    void showFormat();
    [[nodiscard]] std::vector<std::byte> shownBytes() const;

    Workspace& workspace_;
    NoteTextEdit* text_;
    QLabel* foreign_;
    QHBoxLayout* row_;
    QToolButton* bold_ = nullptr;
    QToolButton* italic_ = nullptr;
    QToolButton* underline_ = nullptr;
    QToolButton* bullets_ = nullptr;
    std::vector<std::byte> stored_;
    std::uint16_t codePage_ = 1252;
};

} // namespace hourwright::desktop
