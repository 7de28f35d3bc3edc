#include "desktop/expenses/expense_form.h"

#include "billing/client_choices.h"
#include "billing/expense_amount.h"
#include "desktop/completing_combo.h"
#include "desktop/dialog.h"
#include "desktop/editor/field_widgets.h"
#include "desktop/expenses/odometer_editor.h"
#include "desktop/icons.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/expenses.h"
#include "store/pick_lists.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

namespace hourwright::desktop {

namespace texts = resources::expenses;
using billing::ExpenseDraft;
using billing::ExpenseField;
using platform::toQString;
using platform::toU16;
using store::EntryStatus;

namespace {

constexpr int noteLines = 4;
constexpr int longestNumber = 32;

// A caption of the user's as a label; "&" in it is no mnemonic.
QString captionText(const std::u16string& caption) {
    return toQString(caption).replace("&", "&&") + u':';
}

} // namespace

ExpenseForm::ExpenseForm(Workspace& workspace, const store::ExpenseEntry& expense, QWidget* parent)
    : QWidget(parent), workspace_(workspace), expense_(expense),
      clients_(store::clientTrees(workspace.stores()).value_or(std::vector<store::ClientTree>{})) {
    auto* form = Dialog::makeForm(this);
    form->setContentsMargins(0, 0, 0, 0);
    buildFirst(*form);
    buildMoney(*form);
    buildLast(*form);
    nameFields();
    fillLists();
    fill(billing::draftOf(expense_));
    shown_ = read();
    connect(clientBox_, &QComboBox::editTextChanged, this, [this] { clientChanged(); });
    connect(status_, &QComboBox::currentIndexChanged, this, [this] { statusChanged(); });
    connect(amount_, &QLineEdit::textChanged, this, [this] { showAmount(); });
    connect(currency_, &QComboBox::editTextChanged, this, [this] { showAmount(); });
}

void ExpenseForm::buildFirst(QFormLayout& form) {
    form.addRow(toQString(texts::date), date_ = new DayEdit(workspace_));
    form.addRow(toQString(texts::client), clientBox_ = new CompletingCombo);
    form.addRow(toQString(texts::project), project_ = new CompletingCombo);
    form.addRow(toQString(texts::description), description_ = new CompletingCombo);
    if (!isMileage()) {
        form.addRow(toQString(texts::category), category_ = new CompletingCombo);
        return;
    }
    odometer_ = new OdometerEditor(form, this);
    connect(odometer_, &OdometerEditor::edited, this, [this] { showAmount(); });
}

void ExpenseForm::buildMoney(QFormLayout& form) {
    amount_ = new QLineEdit;
    amount_->setMaxLength(longestNumber);
    amount_->setInputMethodHints(Qt::ImhPreferNumbers);
    form.addRow(toQString(isMileage() ? texts::ratePerUnit : texts::amount), amount_);
    form.addRow(toQString(texts::currency), currency_ = new CompletingCombo);
    if (isMileage()) {
        total_ = new QLabel;
        total_->setTextFormat(Qt::PlainText);
        total_->setTextInteractionFlags(Qt::TextSelectableByMouse);
        QFont bold = font();
        bold.setBold(true);
        total_->setFont(bold);
        form.addRow(toQString(texts::total), total_);
    }
    receipt_ = new QCheckBox(toQString(texts::receipt));
    form.addRow(QString(), receipt_);
}

void ExpenseForm::buildLast(QFormLayout& form) {
    const auto& settings = workspace_.settings();
    status_ = new QComboBox;
    for (std::uint16_t status = 0; status <= static_cast<std::uint16_t>(EntryStatus::paid); ++status) {
        const auto first = static_cast<std::uint16_t>(resources::StringId::statusNonBillable);
        status_->addItem(statusIcon(EntryStatus{status}, false),
                         toQString(resources::StringId{static_cast<std::uint16_t>(first + status)}));
    }
    form.addRow(toQString(texts::status), status_);
    auto* paidLabel = new QLabel(toQString(texts::paidOn));
    form.addRow(paidLabel, makePaidRow());
    paidLabel->setBuddy(isPaid_);
    form.addRow(toQString(texts::billTo), billTo_ = new CompletingCombo);
    form.addRow(captionText(settings.expenseCustom1Label.text()), custom1_ = new CompletingCombo);
    form.addRow(captionText(settings.expenseCustom2Label.text()), custom2_ = new CompletingCombo);
    note_ = new QPlainTextEdit;
    note_->setTabChangesFocus(true);
    note_->setMinimumHeight(fontMetrics().lineSpacing() * noteLines);
    note_->setMaximumHeight(fontMetrics().lineSpacing() * noteLines * 2);
    form.addRow(toQString(texts::note), note_);
}

QWidget* ExpenseForm::makePaidRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(isPaid_ = new QCheckBox);
    layout->addWidget(paidDate_ = new DayEdit(workspace_), 1);
    isPaid_->setAccessibleName(toQString(texts::paidDate));
    paidDate_->setAccessibleName(toQString(texts::paidDate));
    connect(isPaid_, &QCheckBox::toggled, paidDate_, &QWidget::setEnabled);
    return row;
}

// Assistive programs and tests find the fields by these.
void ExpenseForm::nameFields() {
    const std::pair<QWidget*, const char*> names[] = {
        {date_, "date"},       {clientBox_, "client"},  {project_, "project"}, {description_, "description"},
        {amount_, "amount"},   {category_, "category"}, {total_, "total"},     {currency_, "currency"},
        {status_, "status"},   {isPaid_, "isPaid"},     {billTo_, "billTo"},   {paidDate_, "paidDate"},
        {custom1_, "custom1"}, {custom2_, "custom2"},   {note_, "note"},       {receipt_, "receipt"},
    };
    for (const auto& [widget, name] : names)
        if (widget != nullptr)
            widget->setObjectName(name);
}

void ExpenseForm::fillLists() {
    auto& stores = workspace_.stores();
    std::vector<std::u16string> names;
    for (const store::ClientTree& client : clients_)
        names.push_back(client.client.name);
    clientBox_->setChoices(names);
    const auto fill = [&](CompletingCombo* box, store::PickList list) {
        if (box != nullptr)
            box->setLearned(store::pickListTexts(stores, list));
    };
    fill(description_, store::PickList::descriptions);
    fill(category_, store::PickList::categories);
    fill(currency_, store::PickList::currencies);
    fill(custom1_, store::PickList::custom1);
    fill(custom2_, store::PickList::custom2);
}

void ExpenseForm::fill(const ExpenseDraft& draft) {
    const auto today = workspace_.clock().localTime();
    date_->setDate(platform::toQDate(draft.date.value_or(today)));
    clientBox_->setText(*draft.client);
    project_->setText(*draft.project);
    description_->setText(*draft.description);
    if (category_ != nullptr)
        category_->setText(*draft.category);
    if (odometer_ != nullptr)
        odometer_->show(*draft.startOdometer, *draft.distance);
    amount_->setText(toQString(*draft.amount));
    currency_->setText(*draft.currency);
    status_->setCurrentIndex(static_cast<int>(*draft.status));
    paid_ = *draft.paidDate;
    isPaid_->setChecked(paid_.ticks != 0);
    paidDate_->setEnabled(isPaid_->isChecked());
    paidDate_->setDate(platform::toQDate(paid_.ticks != 0 ? platform::toSystemTime(paid_).value_or(today) : today));
    billTo_->setText(*draft.billTo);
    custom1_->setText(*draft.custom1);
    custom2_->setText(*draft.custom2);
    receipt_->setChecked(*draft.receipt);
    note_->setPlainText(toQString(*draft.note));
    clientChanged();
    showAmount();
}

ExpenseDraft ExpenseForm::read() const {
    ExpenseDraft draft;
    draft.date = platform::toSystemTime(date_->date());
    draft.client = clientBox_->text();
    draft.project = project_->text();
    draft.description = description_->text();
    readOwn(draft);
    draft.amount = toU16(amount_->text());
    draft.currency = currency_->text();
    draft.status = EntryStatus{static_cast<std::uint16_t>(status_->currentIndex())};
    draft.receipt = receipt_->isChecked();
    draft.paidDate = paidDate();
    draft.billTo = billTo_->text();
    draft.custom1 = custom1_->text();
    draft.custom2 = custom2_->text();
    draft.note = toU16(note_->toPlainText());
    return draft;
}

// The fields that only this type of expense has.
void ExpenseForm::readOwn(ExpenseDraft& draft) const {
    if (category_ != nullptr)
        draft.category = category_->text();
    if (odometer_ == nullptr)
        return;
    draft.startOdometer = odometer_->text(billing::OdometerField::start);
    draft.distance = odometer_->text(billing::OdometerField::distance);
}

// A paid date that is shown as it was keeps its time of day.
platform::FileTime ExpenseForm::paidDate() const {
    if (!isPaid_->isChecked())
        return {};
    const auto paid = platform::toSystemTime(paid_);
    if (paid_.ticks != 0 && paid && platform::toQDate(*paid) == paidDate_->date())
        return paid_;
    return platform::toFileTime(platform::toSystemTime(paidDate_->date())).value_or(platform::FileTime{});
}

ExpenseDraft ExpenseForm::touched() const {
    return billing::touchedOnly(read(), shown_);
}

std::optional<billing::FieldRefusal<billing::OdometerField>> ExpenseForm::checkEnd() const {
    return odometer_ != nullptr ? odometer_->checkEnd() : std::nullopt;
}

// A name on its way is no other client yet; what fits the new one stays.
void ExpenseForm::clientChanged() {
    const auto found =
        std::ranges::find(clients_, clientBox_->text(), [](const store::ClientTree& tree) { return tree.client.name; });
    const store::ClientTree* client = found != clients_.end() ? &*found : nullptr;
    if (client != nullptr && client_ != nullptr && client != client_) {
        ExpenseDraft draft;
        draft.project = project_->text();
        draft.billTo = billTo_->text();
        billing::changeClient(draft, client_, client);
        project_->setText(*draft.project);
        billTo_->setText(*draft.billTo);
    }
    if (client != nullptr)
        client_ = client;
    offerOf(client);
}

void ExpenseForm::offerOf(const store::ClientTree* client) {
    const billing::ClientChoices choices = billing::choicesOf(client, {});
    project_->setLearned(choices.projects);
    billTo_->setLearned(choices.contacts);
}

// Paid begins with today; what the status has set, it takes back.
void ExpenseForm::statusChanged() {
    const bool paid = status_->currentIndex() == static_cast<int>(EntryStatus::paid);
    if (paid && !isPaid_->isChecked()) {
        paid_ = workspace_.clock().now();
        paidDate_->setDate(platform::toQDate(workspace_.clock().localTime()));
        isPaid_->setChecked(true);
        paidByStatus_ = true;
    } else if (!paid && paidByStatus_) {
        isPaid_->setChecked(false);
        paidByStatus_ = false;
    }
}

void ExpenseForm::showAmount() {
    if (total_ == nullptr)
        return;
    store::ExpenseEntry typed = expense_;
    if (billing::applyDraft(touched(), typed)) {
        total_->clear();
        return;
    }
    std::u16string amount;
    platform::appendFixedDecimals(amount, billing::amountOf(typed), 2);
    total_->setText(toQString(workspace_.locale().number(amount)) + u' ' + toQString(typed.currency));
}

QWidget* ExpenseForm::widgetOf(ExpenseField field) const {
    switch (field) {
    case ExpenseField::date: return date_;
    case ExpenseField::client: return clientBox_;
    case ExpenseField::project: return project_;
    case ExpenseField::description: return description_;
    case ExpenseField::category: return category_;
    case ExpenseField::startOdometer:
        return odometer_ != nullptr ? odometer_->field(billing::OdometerField::start) : nullptr;
    case ExpenseField::distance:
        return odometer_ != nullptr ? odometer_->field(billing::OdometerField::distance) : nullptr;
    case ExpenseField::amount: return amount_;
    case ExpenseField::currency: return currency_;
    case ExpenseField::status: return status_;
    case ExpenseField::receipt: return receipt_;
    case ExpenseField::paidDate: return paidDate_;
    case ExpenseField::billTo: return billTo_;
    case ExpenseField::custom1: return custom1_;
    case ExpenseField::custom2: return custom2_;
    case ExpenseField::note: return note_;
    }
    return nullptr;
}

void ExpenseForm::focusOn(ExpenseField field) {
    if (auto* widget = widgetOf(field))
        widget->setFocus();
}

void ExpenseForm::focusOnEnd() {
    odometer_->field(billing::OdometerField::end)->setFocus();
}

} // namespace hourwright::desktop
