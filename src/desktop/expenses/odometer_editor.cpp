#include "desktop/expenses/odometer_editor.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/expenses.h"

#include <QFormLayout>
#include <QLineEdit>

namespace hourwright::desktop {

namespace texts = resources::expenses;
using billing::OdometerField;
using platform::toQString;

namespace {

constexpr std::array allFields{OdometerField::start, OdometerField::end, OdometerField::distance};
constexpr int mostDigits = 16;

} // namespace

OdometerEditor::OdometerEditor(QFormLayout& form, QObject* parent) : QObject(parent) {
    const std::array labels{texts::startOdometer, texts::endOdometer, texts::distance};
    constexpr std::array names{"startOdometer", "endOdometer", "distance"};
    for (const OdometerField field : allFields) {
        auto* edit = new QLineEdit;
        edit->setObjectName(names[static_cast<std::size_t>(field)]);
        edit->setMaxLength(mostDigits);
        edit->setInputMethodHints(Qt::ImhDigitsOnly);
        fields_[static_cast<std::size_t>(field)] = edit;
        form.addRow(toQString(labels[static_cast<std::size_t>(field)]), edit);
        connect(edit, &QLineEdit::textEdited, this, [this, field](const QString& text) { type(field, text); });
    }
}

void OdometerEditor::show(const std::u16string& start, const std::u16string& distance) {
    restore(start, distance, {});
}

void OdometerEditor::restore(const std::u16string& start, const std::u16string& distance,
                             const std::optional<std::u16string>& typedEnd) {
    texts_ = billing::OdometerTexts(start, distance);
    if (typedEnd)
        texts_.type(OdometerField::end, *typedEnd);
    showOthers({});
}

void OdometerEditor::type(OdometerField field, const QString& text) {
    texts_.type(field, platform::toU16(text));
    showOthers(field);
    emit edited();
}

void OdometerEditor::showOthers(std::optional<OdometerField> typed) {
    for (const OdometerField other : allFields)
        if (other != typed)
            field(other)->setText(toQString(texts_.text(other)));
}

} // namespace hourwright::desktop
