#include "desktop/filters/filter_form.h"

#include "platform/qt/qt_text.h"
#include "resources/strings.h"
#include "resources/texts/filters.h"

#include <QComboBox>

namespace hourwright::desktop {

namespace texts = resources::filters;
using app::ExpenseFilter;
using platform::toQString;
using resources::StringId;
using store::PickList;

ExpenseFilterForm::ExpenseFilterForm(Workspace& workspace, FilterExtent extent, QWidget* parent)
    : FilterForm(workspace, parent) {
    const auto& settings = workspace.settings();
    const auto add = [this](AnyCombo* combo, std::u16string ExpenseFilter::*text) {
        if (combo != nullptr)
            fields_.push_back({combo, text});
        return combo;
    };
    client_ = add(addText(toQString(texts::client), "client", choices().clients()), &ExpenseFilter::client);
    project_ = add(addText(toQString(texts::project), "project", {}), &ExpenseFilter::project);
    add(addText(toQString(texts::category), "category", choices().list(PickList::categories)),
        &ExpenseFilter::category);
    add(addText(toQString(texts::currency), "currency", choices().list(PickList::currencies)),
        &ExpenseFilter::currency);
    billTo_ = add(addText(toQString(texts::billTo), "billTo", {}), &ExpenseFilter::billTo);
    add(addCustom(extent, settings.expenseCustom1Label.text(), "custom1", PickList::custom1), &ExpenseFilter::custom1);
    add(addCustom(extent, settings.expenseCustom2Label.text(), "custom2", PickList::custom2), &ExpenseFilter::custom2);
    type_ = addChoice(texts::expenseType, "type");
    type_->addItem(toQString(StringId::expenseGeneral));
    type_->addItem(toQString(StringId::expenseMileage));
    receipt_ = addChoice(texts::receipt, "receipt");
    receipt_->addItem(toQString(texts::withReceipt), ExpenseFilter::withReceipt);
    receipt_->addItem(toQString(texts::withoutReceipt), ExpenseFilter::withoutReceipt);
    receipt_->setItemData(0, ExpenseFilter::anyReceipt);
    addStatuses();
    if (extent == FilterExtent::all)
        addRange();
    connect(client_, &QComboBox::currentTextChanged, this, [this] { narrow(); });
    narrow();
}

void ExpenseFilterForm::narrow() {
    project_->offer(choices().projects(client_->text()));
    billTo_->offer(choices().contacts(client_->text()));
}

// A type without a name cannot be shown; it stays as it is unless another one is chosen.
void ExpenseFilterForm::display(const ExpenseFilter& filter) {
    for (const Field& field : fields_)
        field.combo->setText(filter.*field.text);
    type_->setCurrentIndex(filter.type + 1 < type_->count() ? filter.type + 1 : -1);
    const int receipt = receipt_->findData(filter.receipt);
    receipt_->setCurrentIndex(receipt < 0 ? 0 : receipt);
    displayCommon(filter);
}

void ExpenseFilterForm::store(ExpenseFilter& filter) const {
    for (const Field& field : fields_)
        filter.*field.text = field.combo->text();
    if (const int index = type_->currentIndex(); index >= 0)
        filter.type = static_cast<std::int16_t>(index - 1);
    filter.receipt = receipt_->currentData().toUInt();
    storeCommon(filter);
}

} // namespace hourwright::desktop
