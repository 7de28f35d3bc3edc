#include "desktop/expenses/expense_form.h"

#include "billing/client_choices.h"
#include "billing/expense_amount.h"
#include "desktop/completing_combo.h"
#include "desktop/dialog.h"
#include "desktop/editor/field_widgets.h"
#include "desktop/expenses/odometer_editor.h"
#include "desktop/expenses/paid_field.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "store/pick_lists.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

namespace hourwright::desktop {

using billing::ExpenseDraft;
using billing::ExpenseField;
using platform::toQString;
using platform::toU16;
using store::EntryStatus;

ExpenseForm::ExpenseForm(Workspace& workspace, const store::ExpenseEntry& expense, QWidget* parent)
    : QWidget(parent), workspace_(workspace), expense_(expense),
      clients_(store::clientTrees(workspace.stores()).value_or(std::vector<store::ClientTree>{})) {
    auto* form = Dialog::makeForm(this);
    form->setContentsMargins(0, 0, 0, 0);
    fields_.addTo(*form, workspace, expense_.type, this);
    fillLists();
    fill(billing::draftOf(expense_));
    shown_ = read();
    connect(fields_.client, &QComboBox::editTextChanged, this, [this] { clientChanged(); });
    connect(fields_.status, &QComboBox::currentIndexChanged, this, [this] { fields_.paid->follow(status()); });
    connect(fields_.amount, &QLineEdit::textChanged, this, [this] { showAmount(); });
    connect(fields_.currency, &QComboBox::editTextChanged, this, [this] { showAmount(); });
    if (fields_.odometer != nullptr)
        connect(fields_.odometer, &OdometerEditor::edited, this, [this] { showAmount(); });
}

void ExpenseForm::fillLists() {
    auto& stores = workspace_.stores();
    std::vector<std::u16string> names;
    for (const store::ClientTree& client : clients_)
        names.push_back(client.client.name);
    fields_.client->setChoices(names);
    const auto fill = [&](CompletingCombo* box, store::PickList list) {
        if (box != nullptr)
            box->setLearned(store::pickListTexts(stores, list));
    };
    fill(fields_.description, store::PickList::descriptions);
    fill(fields_.category, store::PickList::categories);
    fill(fields_.currency, store::PickList::currencies);
    fill(fields_.custom1, store::PickList::custom1);
    fill(fields_.custom2, store::PickList::custom2);
}

void ExpenseForm::fill(const ExpenseDraft& draft) {
    const auto today = workspace_.clock().localTime();
    fields_.date->setDate(platform::toQDate(draft.date.value_or(today)));
    fields_.client->setText(draft.client.value_or(u""));
    fields_.project->setText(draft.project.value_or(u""));
    fields_.description->setText(draft.description.value_or(u""));
    if (fields_.category != nullptr)
        fields_.category->setText(draft.category.value_or(u""));
    if (fields_.odometer != nullptr)
        fields_.odometer->show(draft.startOdometer.value_or(u""), draft.distance.value_or(u""));
    fields_.amount->setText(toQString(draft.amount.value_or(u"")));
    fields_.currency->setText(draft.currency.value_or(u""));
    fields_.status->setCurrentIndex(static_cast<int>(draft.status.value_or(EntryStatus::nonBillable)));
    fields_.paid->show(draft.paidDate.value_or(platform::FileTime{}));
    fields_.billTo->setText(draft.billTo.value_or(u""));
    fields_.custom1->setText(draft.custom1.value_or(u""));
    fields_.custom2->setText(draft.custom2.value_or(u""));
    fields_.receipt->setChecked(draft.receipt.value_or(false));
    fields_.note->setPlainText(toQString(draft.note.value_or(u"")));
    clientChanged();
    showAmount();
}

std::optional<std::u16string> ExpenseForm::typedEndOdometer() const {
    return fields_.odometer != nullptr ? fields_.odometer->typedEnd() : std::nullopt;
}

void ExpenseForm::restore(const ExpenseDraft& draft, const std::optional<std::u16string>& typedEndOdometer) {
    fill(draft);
    if (fields_.odometer != nullptr)
        fields_.odometer->restore(draft.startOdometer.value_or(u""), draft.distance.value_or(u""), typedEndOdometer);
    showAmount();
}

ExpenseDraft ExpenseForm::read() const {
    ExpenseDraft draft;
    draft.date = platform::toSystemTime(fields_.date->date());
    draft.client = fields_.client->text();
    draft.project = fields_.project->text();
    draft.description = fields_.description->text();
    readOwn(draft);
    draft.amount = toU16(fields_.amount->text());
    draft.currency = fields_.currency->text();
    draft.status = status();
    draft.receipt = fields_.receipt->isChecked();
    draft.paidDate = fields_.paid->paidDate();
    draft.billTo = fields_.billTo->text();
    draft.custom1 = fields_.custom1->text();
    draft.custom2 = fields_.custom2->text();
    draft.note = toU16(fields_.note->toPlainText());
    return draft;
}

// The fields that only this type of expense has.
void ExpenseForm::readOwn(ExpenseDraft& draft) const {
    if (fields_.category != nullptr)
        draft.category = fields_.category->text();
    if (fields_.odometer == nullptr)
        return;
    draft.startOdometer = fields_.odometer->text(billing::OdometerField::start);
    draft.distance = fields_.odometer->text(billing::OdometerField::distance);
}

EntryStatus ExpenseForm::status() const {
    return EntryStatus{static_cast<std::uint16_t>(fields_.status->currentIndex())};
}

ExpenseDraft ExpenseForm::touched() const {
    return billing::touchedOnly(read(), shown_);
}

std::optional<billing::FieldRefusal<billing::OdometerField>> ExpenseForm::checkEnd() const {
    return fields_.odometer != nullptr ? fields_.odometer->checkEnd() : std::nullopt;
}

// A name on its way is no other client yet; what fits the new one stays.
void ExpenseForm::clientChanged() {
    const auto found = std::ranges::find(clients_, fields_.client->text(),
                                         [](const store::ClientTree& tree) { return tree.client.name; });
    const store::ClientTree* client = found != clients_.end() ? &*found : nullptr;
    if (client != nullptr && client_ != nullptr && client != client_) {
        ExpenseDraft draft;
        draft.project = fields_.project->text();
        draft.billTo = fields_.billTo->text();
        billing::changeClient(draft, client_, client);
        fields_.project->setText(*draft.project);
        fields_.billTo->setText(*draft.billTo);
    }
    if (client != nullptr)
        client_ = client;
    offerOf(client);
}

void ExpenseForm::offerOf(const store::ClientTree* client) {
    const billing::ClientChoices choices = billing::choicesOf(client, {});
    fields_.project->setLearned(choices.projects);
    fields_.billTo->setLearned(choices.contacts);
}

void ExpenseForm::showAmount() {
    if (fields_.total == nullptr)
        return;
    store::ExpenseEntry typed = expense_;
    if (billing::applyDraft(touched(), typed)) {
        fields_.total->clear();
        return;
    }
    std::u16string amount;
    platform::appendFixedDecimals(amount, billing::amountOf(typed), 2);
    fields_.total->setText(toQString(workspace_.locale().number(amount)) + u' ' + toQString(typed.currency));
}

void ExpenseForm::focusOn(ExpenseField field) {
    if (auto* widget = fields_.of(field))
        widget->setFocus();
}

void ExpenseForm::focusOnEnd() {
    fields_.odometer->field(billing::OdometerField::end)->setFocus();
}

} // namespace hourwright::desktop
