#include "desktop/note/note_editor.h"

#include "desktop/icons.h"
#include "desktop/note/note_text.h"
#include "desktop/note/note_text_edit.h"
#include "desktop/screen_size.h"
#include "exchange/note_document.h"
#include "exchange/note_size.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/notes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QTextBlock>
#include <QTextList>
#include <QToolButton>
#include <QVBoxLayout>

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
    for (QToolButton* const button : {bold_, italic_, underline_, bullets_})
        button->setEnabled(note.has_value());
    showNote(*text_->document(), note.value_or(exchange::NoteDocument{}));
    text_->moveCursor(QTextCursor::Start);
    showFormat();
}

std::vector<std::byte> NoteEditor::shownBytes() const {
    if (!text_->document()->isModified())
        return stored_;
    const exchange::NoteDocument shown = noteIn(*text_->document(), codePage_);
    return shown.paragraphs.empty() ? std::vector<std::byte>{} : exchange::writeNote(shown);
}

std::optional<billing::NoteDraft> NoteEditor::note() const {
    if (!text_->document()->isModified())
        return std::nullopt;
    const exchange::NoteDocument shown = noteIn(*text_->document(), codePage_);
    return billing::NoteDraft{.blob = shownBytes(), .characters = exchange::noteCharacters(shown)};
}

} // namespace hourwright::desktop
