#include "desktop/note/note_editor.h"

#include "billing/typed_text.h"
#include "desktop/icons.h"
#include "desktop/note/export_note.h"
#include "desktop/note/ink_dialog.h"
#include "desktop/note/note_text.h"
#include "desktop/note/note_text_edit.h"
#include "desktop/note/note_voice.h"
#include "desktop/screen_size.h"
#include "exchange/note_edit.h"
#include "exchange/note_merge.h"
#include "exchange/note_size.h"
#include "platform/posix/user_directories.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/notes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTextBlock>
#include <QTextList>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>

namespace hourwright::desktop {

namespace {

using platform::toQString;
namespace texts = resources::notes;

void applyBold(QTextCharFormat& format, bool on) {
    format.setFontWeight(on ? QFont::Bold : QFont::Normal);
}
void applyItalic(QTextCharFormat& format, bool on) {
    format.setFontItalic(on);
}
void applyUnderline(QTextCharFormat& format, bool on) {
    format.setFontUnderline(on);
}

} // namespace

NoteEditor::NoteEditor(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace), text_(new NoteTextEdit(this)), foreign_(new QLabel(this)),
      row_(new QHBoxLayout) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    row_->setSpacing(2);
    layout->addLayout(row_);
    auto* files = isHandheld() ? new QHBoxLayout : row_;
    layout->addWidget(foreign_);
    layout->addWidget(text_, 1);
    text_->setAccessibleName(toQString(texts::note));
    text_->setPlaceholderText(toQString(texts::placeholder));
    text_->setMinimumHeight(3 * touchTarget);
    foreign_->setText(toQString(texts::foreignNote));
    foreign_->setWordWrap(true);
    foreign_->hide();
    setFocusProxy(text_);
    buildFormatButtons();
    buildObjectButtons();
    row_->addStretch(1);
    buildFileButtons(*files);
    if (files != row_)
        layout->addLayout(files);
    connect(text_, &NoteTextEdit::objectActivated, this, &NoteEditor::open);
    connect(text_->document(), &QTextDocument::contentsChanged, this, [this] {
        if (text_->document()->isModified())
            emit changed();
    });
    connect(text_, &QTextEdit::cursorPositionChanged, this, &NoteEditor::showFormat);
    connect(text_, &QTextEdit::currentCharFormatChanged, this, &NoteEditor::showFormat);
}

QToolButton* NoteEditor::addButton(const char* iconName, const resources::Text& text, const QKeySequence& key) {
    auto* button = new QToolButton(this);
    button->setIcon(icon(iconName));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(toQString(text));
    button->setToolTip(key.isEmpty() ? toQString(text)
                                     : toQString(text) + " (" + key.toString(QKeySequence::NativeText) + ')');
    if (isHandheld())
        button->setMinimumSize(touchTarget, touchTarget);
    row_->addWidget(button);
    if (!key.isEmpty()) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
    }
    return button;
}

void NoteEditor::buildFormatButtons() {
    bold_ = addButton("format-bold", texts::bold, QKeySequence::Bold);
    italic_ = addButton("format-italic", texts::italic, QKeySequence::Italic);
    underline_ = addButton("format-underline", texts::underline, QKeySequence::Underline);
    bullets_ = addButton("format-bullets", texts::bullets, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
    for (QToolButton* const button : {bold_, italic_, underline_, bullets_})
        button->setCheckable(true);
    connect(bold_, &QToolButton::clicked, this, [this](bool on) { toggleFormat(applyBold, on); });
    connect(italic_, &QToolButton::clicked, this, [this](bool on) { toggleFormat(applyItalic, on); });
    connect(underline_, &QToolButton::clicked, this, [this](bool on) { toggleFormat(applyUnderline, on); });
    connect(bullets_, &QToolButton::clicked, this, [this](bool on) {
        QTextCursor cursor = text_->textCursor();
        setBullets(cursor, on);
    });
}

void NoteEditor::buildObjectButtons() {
    draw_ = addButton("draw", texts::draw, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    auto* record = addButton("microphone", texts::record, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
    connect(draw_, &QToolButton::clicked, this, [this] { openInkPad(); });
    voice_ = new NoteVoice(workspace_, *record, this);
    connect(voice_, &NoteVoice::aboutToRecord, this, [this] {
        const std::size_t used = exchange::noteCharacters(shown());
        voice_->setRoom(billing::noteTooLargeFrom - std::min(used, billing::noteTooLargeFrom));
    });
    connect(voice_, &NoteVoice::recorded, this, [this](const exchange::VoiceClip& clip) { insertAtCursor(clip); });
    auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Return), text_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, &NoteEditor::openAtCursor);
}

void NoteEditor::buildFileButtons(QBoxLayout& row) {
    edit_ = new QPushButton(toQString(texts::editNote));
    auto* save = new QPushButton(toQString(texts::exportNotes));
    for (QPushButton* const button : {edit_, save}) {
        button->setAutoDefault(false);
        row.addWidget(button);
    }
    connect(edit_, &QPushButton::clicked, this, &NoteEditor::editInWordProcessor);
    connect(save, &QPushButton::clicked, this, [this] { exportNote(workspace_, shownBytes(), this); });
}

void NoteEditor::useVoice(platform::VoiceDevices devices) {
    voice_->use(std::move(devices));
}

// Looking for sound devices takes a moment, which the page need not wait for.
void NoteEditor::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    QTimer::singleShot(0, voice_, &NoteVoice::findDevices);
}

void NoteEditor::hideEvent(QHideEvent* event) {
    voice_->finish();
    QWidget::hideEvent(event);
}

void NoteEditor::insertAtCursor(const exchange::NoteItem& item) {
    QTextCursor cursor = text_->textCursor();
    cursor.clearSelection();
    insertNoteItem(cursor, item);
    text_->setTextCursor(cursor);
    text_->setFocus();
}

InkDialog* NoteEditor::openInkPad(int position) {
    const auto item = text_->itemAt(position);
    const auto* drawing = item == nullptr ? nullptr : std::get_if<exchange::InkDrawing>(item.get());
    const exchange::InkDrawing before = drawing == nullptr ? exchange::InkDrawing{} : *drawing;
    auto* dialog = new InkDialog(workspace_, before, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog, before, position, isNew = drawing == nullptr] {
        const exchange::InkDrawing after = dialog->drawing();
        if (after.strokes == before.strokes)
            return;
        if (isNew)
            insertAtCursor(after);
        else if (after.strokes.empty())
            text_->removeItem(position);
        else
            text_->replaceItem(position, after);
    });
    dialog->open();
    return dialog;
}

void NoteEditor::open(int position) {
    const auto item = text_->itemAt(position);
    if (item == nullptr)
        return;
    if (const auto* clip = std::get_if<exchange::VoiceClip>(item.get()))
        voice_->play(*clip);
    else if (std::holds_alternative<exchange::InkDrawing>(*item))
        openInkPad(position);
}

void NoteEditor::openAtCursor() {
    open(text_->objectAtCursor());
}

void NoteEditor::editInWordProcessor() {
    voice_->finish();
    const auto folder = workspace_.directories().state / "note";
    static_cast<void>(platform::makePrivateDirectory(folder, platform::Parents::create));
    const auto edited = exchange::editNote(shownBytes(), {.files = workspace_.files(),
                                                          .shell = workspace_.shell(),
                                                          .messages = workspace_.messages(),
                                                          .folder = folder});
    std::error_code notEmpty;
    std::filesystem::remove(folder, notEmpty);
    if (edited)
        takeOver(*edited);
}

// One step that can be undone. A word processor drops ink and recordings, which it does not know.
void NoteEditor::takeOver(std::span<const std::byte> edited) {
    const auto note = exchange::readNote(edited);
    if (note && *note != shown())
        replaceBy(exchange::withLostObjects(*note, shown()));
}

void NoteEditor::showEdited(std::span<const std::byte> blob) {
    if (const auto note = exchange::readNote(blob); note && !text_->isReadOnly())
        replaceBy(*note);
}

void NoteEditor::replaceBy(const exchange::NoteDocument& note) {
    codePage_ = note.codePage;
    QTextCursor cursor(text_->document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    insertNote(cursor, note);
    cursor.endEditBlock();
    text_->document()->setModified(true);
}

exchange::NoteDocument NoteEditor::shown() const {
    return noteIn(*text_->document(), codePage_);
}

void NoteEditor::toggleFormat(void (*apply)(QTextCharFormat& format, bool on), bool on) {
    QTextCharFormat format;
    apply(format, on);
    text_->mergeCurrentCharFormat(format);
}

void NoteEditor::showFormat() {
    const QTextCharFormat format = text_->currentCharFormat();
    bold_->setChecked(format.fontWeight() >= QFont::DemiBold);
    italic_->setChecked(format.fontItalic());
    underline_->setChecked(format.fontUnderline());
    bullets_->setChecked(text_->textCursor().block().textList() != nullptr);
}

void NoteEditor::setNote(std::span<const std::byte> blob) {
    stored_.assign(blob.begin(), blob.end());
    const auto note = exchange::readNote(blob);
    codePage_ = note ? note->codePage : std::uint16_t{1252};
    foreign_->setVisible(!note);
    text_->setReadOnly(!note);
    for (QWidget* const button : std::initializer_list<QWidget*>{bold_, italic_, underline_, bullets_, draw_, edit_})
        button->setEnabled(note.has_value());
    voice_->stopAll();
    voice_->setEnabled(note.has_value());
    showNote(*text_->document(), note.value_or(exchange::NoteDocument{}));
    text_->moveCursor(QTextCursor::Start);
    showFormat();
}

std::vector<std::byte> NoteEditor::shownBytes() const {
    if (!text_->document()->isModified())
        return stored_;
    const exchange::NoteDocument note = shown();
    return note.paragraphs.empty() ? std::vector<std::byte>{} : exchange::writeNote(note);
}

std::optional<billing::NoteDraft> NoteEditor::note() const {
    if (!text_->document()->isModified())
        return std::nullopt;
    return billing::NoteDraft{.blob = shownBytes(), .characters = exchange::noteCharacters(shown())};
}

} // namespace hourwright::desktop
