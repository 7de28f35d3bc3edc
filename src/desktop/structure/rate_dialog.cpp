#include "desktop/structure/rate_dialog.h"

#include "platform/qt/qt_text.h"
#include "resources/texts/structure.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace hourwright::desktop {

namespace texts = resources::structure;
using billing::RateField;
using platform::toQString;
using resources::StringId;
using store::RateRecord;
using store::RateType;

namespace {

constexpr std::array rateTypes{RateType::normal, RateType::overtime, RateType::weekend, RateType::fixed,
                               RateType::discount};

} // namespace

RateDialog::RateDialog(Workspace& workspace, RateRecord rate, const std::u16string& owner, QWidget* parent)
    : Dialog(workspace, toQString(texts::rateTitle).arg(toQString(owner)), "ratesetup", parent), rate_(std::move(rate)),
      type_(new QComboBox), description_(new QLineEdit), amount_(new QLineEdit), modified_(new QLabel) {
    if (rate_.id == store::RecordId::none)
        opened_.type = RateType::normal;
    else
        opened_ = billing::draftOf(rate_);
    build();
    fill(opened_);
}

void RateDialog::build() {
    for (const RateType type : rateTypes)
        type_->addItem(rateTypeText(type));
    description_->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
    amount_->setInputMethodHints(Qt::ImhPreferNumbers);
    amount_->setMaxLength(static_cast<int>(billing::maxRateText));
    modified_->setTextFormat(Qt::PlainText);
    auto* form = addForm();
    form->addRow(toQString(texts::rateType), type_);
    form->addRow(toQString(texts::description), description_);
    form->addRow(toQString(texts::rateText), amount_);
    form->addRow(toQString(texts::lastModified), modified_);
    content()->addStretch();
    type_->setObjectName("type");
    description_->setObjectName("description");
    amount_->setObjectName("rate");
    modified_->setObjectName("modified");
    description_->setFocus();
}

void RateDialog::fill(const billing::RateDraft& draft) {
    type_->setCurrentIndex(draft.type ? static_cast<int>(*draft.type) : -1);
    // A longer text that is stored already must not be cut by being shown.
    description_->setMaxLength(static_cast<int>(std::max(billing::maxRateDescription, draft.description.size())));
    description_->setText(toQString(draft.description));
    amount_->setText(toQString(draft.rate));
    modified_->setText(modifiedText(workspace(), draft.modified));
}

billing::RateDraft RateDialog::draft() const {
    billing::RateDraft draft;
    if (type_->currentIndex() >= 0)
        draft.type = rateTypes[static_cast<std::size_t>(type_->currentIndex())];
    draft.description = platform::toU16(description_->text());
    draft.rate = platform::toU16(amount_->text());
    draft.modified = opened_.modified;
    return draft;
}

void RateDialog::accept() {
    auto& stores = workspace().stores();
    const billing::RateDraft typed = draft();
    if (rate_.id != store::RecordId::none && typed == opened_) {
        QDialog::accept();
        return;
    }
    // Checked before the change, which has no message of its own for a refusal.
    const auto others = store::recordsOf<RateRecord>(stores, rate_.clientId);
    if (!others) {
        workspace().showStoreError();
        return;
    }
    if (const auto refusal = typed.check(*others, rate_.id)) {
        refuse(*refusal);
        return;
    }
    const auto save = [&](platform::Transaction& transaction) {
        return !billing::saveRate(transaction, stores, typed, workspace().clock().now(), rate_);
    };
    if (!workspace().change(texts::undoRate.text, save))
        return;
    if (saved)
        saved(rate_);
    QDialog::accept();
}

void RateDialog::refuse(const billing::RateRefusal& refusal) {
    if (refusal.error != platform::PlatformError::none)
        workspace().messages().showError(platform::number(refusal.error));
    else
        workspace().messages().showCheck(refusal.message);
    switch (refusal.field) {
    case RateField::type: type_->setFocus(); break;
    case RateField::description: description_->setFocus(); break;
    case RateField::rate: amount_->setFocus(); break;
    }
}

QString rateTypeText(RateType type) {
    const auto first = static_cast<std::uint16_t>(StringId::rateTypeNormal);
    return toQString(StringId{static_cast<std::uint16_t>(first + static_cast<std::uint16_t>(type))});
}

QString modifiedText(const Workspace& workspace, platform::FileTime modified) {
    const auto time = platform::toSystemTime(modified);
    if (modified.ticks == 0 || !time)
        return toQString(texts::neverModified);
    return toQString(workspace.locale().shortDate(*time)) + u' ' +
           toQString(workspace.locale().timeWithoutSeconds(*time));
}

void deleteRate(Workspace& workspace, store::RecordId id) {
    if (!workspace.messages().ask(StringId::deleteRate))
        return;
    workspace.change(texts::undoDeleteRate.text, [&](platform::Transaction& transaction) {
        return store::deleteRecord<RateRecord>(transaction, workspace.stores(), id);
    });
}

} // namespace hourwright::desktop
