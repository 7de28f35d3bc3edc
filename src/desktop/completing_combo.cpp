#include "desktop/completing_combo.h"

#include "billing/typed_text.h"
#include "platform/qt/qt_text.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStringList>
#include <QWheelEvent>
#include <algorithm>

namespace hourwright::desktop {

namespace {

// Wide enough to read a name in; the layout gives it more where there is more.
constexpr int leastCharacters = 12;
constexpr int mostProposals = 8;

QStringList toStrings(std::span<const std::u16string> texts) {
    QStringList strings;
    for (const std::u16string& text : texts)
        strings.append(platform::toQString(text));
    return strings;
}

} // namespace

CompletingCombo::CompletingCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(leastCharacters);
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->setMaxLength(static_cast<int>(billing::maxTextLength));
    completer()->setFilterMode(Qt::MatchContains);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    completer()->setCaseSensitivity(Qt::CaseInsensitive);
    completer()->setMaxVisibleItems(mostProposals);
    completer()->popup()->setTextElideMode(Qt::ElideMiddle);
}

void CompletingCombo::setLearned(std::span<const std::u16string> texts) {
    QStringList items = toStrings(texts);
    std::ranges::reverse(items);
    setItems(items);
}

void CompletingCombo::setChoices(std::span<const std::u16string> texts) {
    setItems(toStrings(texts));
}

void CompletingCombo::setItems(const QStringList& items) {
    const QString typed = currentText();
    const int cursor = lineEdit()->cursorPosition();
    {
        const QSignalBlocker quiet(this);
        const QSignalBlocker quietText(lineEdit());
        clear();
        addItems(items);
        setCurrentIndex(static_cast<int>(items.indexOf(typed)));
        setEditText(typed);
    }
    lineEdit()->setCursorPosition(cursor);
}

void CompletingCombo::setText(const std::u16string& text) {
    // A longer text that is stored already must not be cut by being shown.
    lineEdit()->setMaxLength(static_cast<int>(std::max(billing::maxTextLength, text.size())));
    setCurrentIndex(findText(platform::toQString(text), Qt::MatchExactly | Qt::MatchCaseSensitive));
    setEditText(platform::toQString(text));
    lineEdit()->setCursorPosition(0);
}

std::u16string CompletingCombo::text() const {
    return platform::toU16(currentText());
}

void CompletingCombo::wheelEvent(QWheelEvent* event) {
    // Turning the wheel scrolls the dialog and changes no field under the pointer by accident.
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace hourwright::desktop
