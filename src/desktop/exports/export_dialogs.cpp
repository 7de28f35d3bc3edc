#include "desktop/exports/export_dialogs.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/exports.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace hourwright::desktop {

using platform::toQString;
namespace exports = resources::exports;

namespace {

constexpr const char* helpAnchor = "export";

// A combination box of texts whose data are the characters that they stand for.
QComboBox* charactersBox(std::initializer_list<std::pair<resources::Text, char>> choices) {
    auto* box = new QComboBox;
    for (const auto& [text, character] : choices)
        box->addItem(toQString(text), QChar::fromLatin1(character));
    return box;
}

char characterOf(const QComboBox* box) {
    return box->currentData().toChar().toLatin1();
}

} // namespace

ExpenseTypeDialog::ExpenseTypeDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(exports::csvTitle), helpAnchor, parent),
      general_(new QRadioButton(toQString(exports::general))), mileage_(new QRadioButton(toQString(exports::mileage))) {
    general_->setChecked(true);
    content()->addWidget(new QLabel(toQString(exports::expenseType)));
    content()->addWidget(general_);
    content()->addWidget(mileage_);
}

store::ExpenseType ExpenseTypeDialog::type() const {
    return mileage_->isChecked() ? store::ExpenseType::mileage : store::ExpenseType::general;
}

OtherExportDialog::OtherExportDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(exports::otherTitle), helpAnchor, parent), form_(new QComboBox),
      delimiter_(charactersBox({{exports::comma, ','}, {exports::semicolon, ';'}, {exports::tab, '\t'}})),
      decimalMark_(charactersBox({{exports::point, '.'}, {exports::comma, ','}})),
      byteOrderMark_(new QCheckBox(toQString(exports::byteOrderMark))) {
    form_->addItem(toQString(exports::spreadsheet), static_cast<int>(OtherForm::spreadsheet));
    form_->addItem(toQString(exports::json), static_cast<int>(OtherForm::json));
    if (workspace.view().records() == app::RecordKind::entries)
        form_->addItem(toQString(exports::calendar), static_cast<int>(OtherForm::calendar));
    byteOrderMark_->setChecked(true);
    auto* fields = addForm();
    fields->addRow(toQString(exports::form), form_);
    fields->addRow(toQString(exports::delimiter), delimiter_);
    fields->addRow(toQString(exports::decimalMark), decimalMark_);
    fields->addRow(byteOrderMark_);
    auto* hint = new QLabel(toQString(exports::formulas));
    hint->setWordWrap(true);
    content()->addWidget(hint);
    content()->addStretch();
    for (QComboBox* box : {form_, delimiter_, decimalMark_})
        connect(box, &QComboBox::currentIndexChanged, this, [this] { showState(); });
    showState();
}

// Delimiter and decimal mark exclude each other, so the file can always be read back.
void OtherExportDialog::showState() {
    const bool spreadsheet = form() == OtherForm::spreadsheet;
    for (QWidget* widget : {static_cast<QWidget*>(delimiter_), static_cast<QWidget*>(decimalMark_),
                            static_cast<QWidget*>(byteOrderMark_)})
        widget->setEnabled(spreadsheet);
    buttons()->button(QDialogButtonBox::Ok)->setEnabled(!spreadsheet || exchange::isUsable(options()));
}

OtherForm OtherExportDialog::form() const {
    return static_cast<OtherForm>(form_->currentData().toInt());
}

exchange::SpreadsheetOptions OtherExportDialog::options() const {
    return {.delimiter = characterOf(delimiter_),
            .decimalMark = characterOf(decimalMark_),
            .byteOrderMark = byteOrderMark_->isChecked(),
            .csv = {}};
}

} // namespace hourwright::desktop
