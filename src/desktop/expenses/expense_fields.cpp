#include "desktop/expenses/expense_fields.h"

#include "desktop/completing_combo.h"
#include "desktop/editor/field_widgets.h"
#include "desktop/expenses/odometer_editor.h"
#include "desktop/expenses/paid_field.h"
#include "desktop/icons.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/expenses.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace hourwright::desktop {

namespace texts = resources::expenses;
using billing::ExpenseField;
using platform::toQString;
using store::EntryStatus;

namespace {

constexpr int noteLines = 4;
constexpr int longestNumber = 32;

// A caption of the user's as a label; "&" in it is no mnemonic.
QString captionText(const std::u16string& caption) {
    return toQString(caption).replace("&", "&&") + u':';
}

template<typename Field>
Field* addRow(QFormLayout& form, const QString& label, Field* field) {
    form.addRow(label, field);
    return field;
}

QLabel* makeTotal() {
    auto* total = new QLabel;
    total->setTextFormat(Qt::PlainText);
    total->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont bold = total->font();
    bold.setBold(true);
    total->setFont(bold);
    return total;
}

QComboBox* makeStatus() {
    auto* box = new QComboBox;
    for (std::uint16_t status = 0; status <= static_cast<std::uint16_t>(EntryStatus::paid); ++status) {
        const auto first = static_cast<std::uint16_t>(resources::StringId::statusNonBillable);
        box->addItem(statusIcon(EntryStatus{status}, false),
                     toQString(resources::StringId{static_cast<std::uint16_t>(first + status)}));
    }
    return box;
}

} // namespace

void ExpenseFields::addTo(QFormLayout& form, Workspace& workspace, store::ExpenseType type, QObject* owner) {
    const bool mileage = type == store::ExpenseType::mileage;
    addFirst(form, workspace, mileage, owner);
    addMoney(form, mileage);
    addStatus(form, workspace);
    addLast(form, workspace.settings());
    nameAll();
}

void ExpenseFields::addFirst(QFormLayout& form, Workspace& workspace, bool mileage, QObject* owner) {
    date = addRow(form, toQString(texts::date), new DayEdit(workspace));
    client = addRow(form, toQString(texts::client), new CompletingCombo);
    project = addRow(form, toQString(texts::project), new CompletingCombo);
    description = addRow(form, toQString(texts::description), new CompletingCombo);
    if (mileage)
        odometer = new OdometerEditor(form, owner);
    else
        category = addRow(form, toQString(texts::category), new CompletingCombo);
}

void ExpenseFields::addMoney(QFormLayout& form, bool mileage) {
    amount = addRow(form, toQString(mileage ? texts::ratePerUnit : texts::amount), new QLineEdit);
    amount->setMaxLength(longestNumber);
    amount->setInputMethodHints(Qt::ImhPreferNumbers);
    currency = addRow(form, toQString(texts::currency), new CompletingCombo);
    if (mileage)
        total = addRow(form, toQString(texts::total), makeTotal());
    receipt = addRow(form, QString(), new QCheckBox(toQString(texts::receipt)));
}

void ExpenseFields::addStatus(QFormLayout& form, Workspace& workspace) {
    status = addRow(form, toQString(texts::status), makeStatus());
    auto* label = new QLabel(toQString(texts::paidOn));
    paid = new PaidField(workspace);
    form.addRow(label, paid);
    label->setBuddy(paid->checkBox());
}

void ExpenseFields::addLast(QFormLayout& form, const app::AppSettings& settings) {
    billTo = addRow(form, toQString(texts::billTo), new CompletingCombo);
    custom1 = addRow(form, captionText(settings.expenseCustom1Label.text()), new CompletingCombo);
    custom2 = addRow(form, captionText(settings.expenseCustom2Label.text()), new CompletingCombo);
    note = addRow(form, toQString(texts::note), new QPlainTextEdit);
    note->setTabChangesFocus(true);
    note->setMinimumHeight(note->fontMetrics().lineSpacing() * noteLines);
    note->setMaximumHeight(note->fontMetrics().lineSpacing() * noteLines * 2);
}

// Assistive programs and tests find the fields by these.
void ExpenseFields::nameAll() const {
    const std::pair<QWidget*, const char*> names[] = {
        {date, "date"},     {client, "client"},     {project, "project"}, {description, "description"},
        {amount, "amount"}, {category, "category"}, {total, "total"},     {currency, "currency"},
        {status, "status"}, {billTo, "billTo"},     {custom1, "custom1"}, {custom2, "custom2"},
        {note, "note"},     {receipt, "receipt"},
    };
    for (const auto& [widget, name] : names)
        if (widget != nullptr)
            widget->setObjectName(name);
}

QWidget* ExpenseFields::of(ExpenseField field) const {
    using billing::OdometerField;
    switch (field) {
    case ExpenseField::date: return date;
    case ExpenseField::client: return client;
    case ExpenseField::project: return project;
    case ExpenseField::description: return description;
    case ExpenseField::category: return category;
    case ExpenseField::startOdometer: return odometer != nullptr ? odometer->field(OdometerField::start) : nullptr;
    case ExpenseField::distance: return odometer != nullptr ? odometer->field(OdometerField::distance) : nullptr;
    case ExpenseField::amount: return amount;
    case ExpenseField::currency: return currency;
    case ExpenseField::status: return status;
    case ExpenseField::receipt: return receipt;
    case ExpenseField::paidDate: return paid->checkBox();
    case ExpenseField::billTo: return billTo;
    case ExpenseField::custom1: return custom1;
    case ExpenseField::custom2: return custom2;
    case ExpenseField::note: return note;
    }
    return nullptr;
}

} // namespace hourwright::desktop
