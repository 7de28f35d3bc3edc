#pragma once

#include "billing/entry_draft.h"
#include "desktop/workspace.h"
#include "exchange/note_document.h"
#include "platform/voice.h"
#include "resources/text.h"

#include <QTextCharFormat>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

class QBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace hourwright::desktop {

class InkDialog;
class NoteTextEdit;
class NoteVoice;

/// Shows and edits the note of a time entry: text with simple formats, drawings and recordings. A note that was not
/// changed keeps its bytes, and one of unknown format cannot be changed.
class NoteEditor : public QWidget {
    Q_OBJECT

public:
    explicit NoteEditor(Workspace& workspace, QWidget* parent = nullptr);

    /// Shows a stored note; it counts as unchanged.
    void setNote(std::span<const std::byte> blob);

    /// Shows an edited form of that note, as one step that can be undone; it counts as changed.
    void showEdited(std::span<const std::byte> blob);

    /// Records and plays with these devices in the place of the desktop's own.
    void useVoice(platform::VoiceDevices devices);

    /// Opens the ink pad on the drawing at a position of the text; -1: on a new one, which goes to the cursor.
    InkDialog* openInkPad(int position = -1);
    /// Lets the user edit the note in the word processor, and takes over what he saved there.
    void editInWordProcessor();
    /// Opens the drawing or plays the recording at the cursor.
    void openAtCursor();

    /// The note as it is to be stored; nothing when it was not changed. A note without content has no bytes.
    [[nodiscard]] std::optional<billing::NoteDraft> note() const;

signals:
    /// The note was changed in any way.
    void changed();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void buildFormatButtons();
    void buildObjectButtons();
    void buildFileButtons(QBoxLayout& row);
    void open(int position);
    void insertAtCursor(const exchange::NoteItem& item);
    void takeOver(std::span<const std::byte> edited);
    void replaceBy(const exchange::NoteDocument& note);
    [[nodiscard]] exchange::NoteDocument shown() const;
    QToolButton* addButton(const char* iconName, const resources::Text& text, const QKeySequence& key);
    void toggleFormat(void (*apply)(QTextCharFormat& format, bool on), bool on);
    void showFormat();
    [[nodiscard]] std::vector<std::byte> shownBytes() const;

    Workspace& workspace_;
    NoteTextEdit* text_;
    QLabel* foreign_;
    QBoxLayout* row_;
    QToolButton* bold_ = nullptr;
    QToolButton* italic_ = nullptr;
    QToolButton* underline_ = nullptr;
    QToolButton* bullets_ = nullptr;
    QToolButton* draw_ = nullptr;
    QPushButton* edit_ = nullptr;
    NoteVoice* voice_ = nullptr;
    std::vector<std::byte> stored_;
    std::uint16_t codePage_ = 1252;
};

} // namespace hourwright::desktop
