#include "desktop/editor/billing_page.h"

#include "desktop/completing_combo.h"
#include "desktop/dialog.h"
#include "desktop/editor/rate_field.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/editor.h"
#include "store/pick_lists.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <array>

namespace hourwright::desktop {

namespace {

using billing::DraftField;
using platform::toQString;
using resources::StringId;
namespace texts = resources::editor;

// By status index.
constexpr std::array statusNames = {StringId::statusNonBillable, StringId::statusBillable, StringId::statusBilled,
                                    StringId::statusPaid};

} // namespace

BillingPage::BillingPage(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace), status_(new QComboBox) {
    QFormLayout& form = *Dialog::makeForm(this);
    for (const StringId name : statusNames)
        status_->addItem(toQString(name));
    form.addRow(toQString(texts::status), status_);
    billTo_ = addCombo(form, texts::billTo);
    rate_ = new RateField;
    auto* label = new QLabel(toQString(texts::rate));
    label->setBuddy(rate_->tree());
    rate_->tree()->setAccessibleName(label->text().remove('&'));
    form.addRow(label, rate_);
    currency_ = addCombo(form, texts::currency);
    currency_->setLearned(store::pickListTexts(workspace_.stores(), store::PickList::currencies));
    addPaidDate(form);
    total_ = new QLabel;
    QFont bold = total_->font();
    bold.setBold(true);
    total_->setFont(bold);
    total_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form.addRow(toQString(texts::total), total_);
    connect(rate_, &RateField::changed, this, &BillingPage::changed);
    connect(status_, &QComboBox::currentIndexChanged, this, &BillingPage::changed);
    // Whoever marks an entry paid by hand means today unless another day is chosen.
    connect(status_, &QComboBox::activated, this, [this](int index) {
        if (index == static_cast<int>(store::EntryStatus::paid))
            hasPaidDate_->setChecked(true);
    });
}

CompletingCombo* BillingPage::addCombo(QFormLayout& form, const resources::Text& label) {
    auto* combo = new CompletingCombo;
    form.addRow(toQString(label), combo);
    connect(combo, &QComboBox::editTextChanged, this, &BillingPage::changed);
    saveOnEnter(*combo, [this] { emit saveRequested(); });
    return combo;
}

void BillingPage::addPaidDate(QFormLayout& form) {
    hasPaidDate_ = new QCheckBox(toQString(texts::paidDate));
    paidDate_ = new DayEdit(workspace_);
    paidDate_->setAccessibleName(toQString(texts::paidOn));
    paidDate_->setDay(workspace_.clock().localTime());
    paidDate_->setEnabled(false);
    form.addRow(hasPaidDate_, paidDate_);
    connect(hasPaidDate_, &QCheckBox::toggled, paidDate_, &QWidget::setEnabled);
    connect(hasPaidDate_, &QCheckBox::toggled, this, &BillingPage::changed);
    connect(paidDate_, &QDateEdit::dateChanged, this, &BillingPage::changed);
}

void BillingPage::show(const billing::EntryDraft& draft) {
    const auto status = draft.status.value_or(store::EntryStatus::nonBillable);
    status_->setCurrentIndex(static_cast<int>(status));
    billTo_->setText(draft.billTo.value_or(u""));
    currency_->setText(draft.currency.value_or(u""));
    const auto paid = draft.paidDate.value_or(platform::FileTime{});
    const auto day = platform::toSystemTime(paid);
    hasPaidDate_->setChecked(paid.ticks != 0);
    if (paid.ticks != 0 && day)
        paidDate_->setDay(*day);
}

void BillingPage::collect(billing::EntryDraft& draft) const {
    // A status that has no name here shows none, and stays unless one is chosen.
    if (status_->currentIndex() >= 0)
        draft.status = static_cast<store::EntryStatus>(status_->currentIndex());
    draft.billTo = billTo_->text();
    draft.currency = currency_->text();
    rate_->choice().putInto(draft);
    const auto day = platform::toSystemTime(draft.paidDate.value_or(platform::FileTime{}));
    const bool hadDate = draft.paidDate && draft.paidDate->ticks != 0 && day;
    if (!hasPaidDate_->isChecked())
        draft.paidDate = platform::FileTime{};
    else if (!hadDate || platform::toQDate(*day) != paidDate_->date())
        draft.paidDate = platform::toFileTime(paidDate_->day());
}

QWidget* BillingPage::fieldOf(DraftField field) const {
    switch (field) {
    case DraftField::billTo: return billTo_;
    case DraftField::currency: return currency_;
    case DraftField::paidDate: return paidDate_;
    default: return status_;
    }
}

void BillingPage::focusField(DraftField field) {
    if (field == DraftField::rate || field == DraftField::rateType)
        rate_->focusRate();
    else
        fieldOf(field)->setFocus(Qt::OtherFocusReason);
}

void BillingPage::setBillTo(const std::u16string& text) {
    if (billTo_->text() != text)
        billTo_->setText(text);
}

void BillingPage::offerContacts(std::span<const std::u16string> contacts) {
    billTo_->setLearned(contacts);
}

void BillingPage::showPreview(const billing::EntryPreview& preview) {
    if (!preview.total) {
        total_->setText(QString(QChar(0x2014)));
        return;
    }
    std::u16string plain;
    platform::appendFixedDecimals(plain, *preview.total, 2);
    const QString amount = toQString(workspace_.locale().number(plain));
    total_->setText((amount + ' ' + currency_->currentText()).trimmed());
}

} // namespace hourwright::desktop
