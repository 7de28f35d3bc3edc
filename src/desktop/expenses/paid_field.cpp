#include "desktop/expenses/paid_field.h"

#include "desktop/editor/field_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/expenses.h"

#include <QCheckBox>
#include <QHBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::expenses;
using platform::toQString;
using store::EntryStatus;

PaidField::PaidField(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace), isPaid_(new QCheckBox), date_(new DayEdit(workspace)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(isPaid_);
    layout->addWidget(date_, 1);
    isPaid_->setAccessibleName(toQString(texts::paidDate));
    date_->setAccessibleName(toQString(texts::paidDate));
    isPaid_->setObjectName("isPaid");
    date_->setObjectName("paidDate");
    connect(isPaid_, &QCheckBox::toggled, date_, &QWidget::setEnabled);
}

void PaidField::show(platform::FileTime paid) {
    const auto today = workspace_.clock().localTime();
    paid_ = paid;
    isPaid_->setChecked(paid.ticks != 0);
    date_->setEnabled(isPaid_->isChecked());
    date_->setDate(platform::toQDate(paid.ticks != 0 ? platform::toSystemTime(paid).value_or(today) : today));
}

platform::FileTime PaidField::paidDate() const {
    if (!isPaid_->isChecked())
        return {};
    const auto paid = platform::toSystemTime(paid_);
    if (paid_.ticks != 0 && paid && platform::toQDate(*paid) == date_->date())
        return paid_;
    return platform::toFileTime(platform::toSystemTime(date_->date())).value_or(platform::FileTime{});
}

void PaidField::follow(EntryStatus status) {
    const bool paid = status == EntryStatus::paid;
    if (paid && !isPaid_->isChecked()) {
        paid_ = workspace_.clock().now();
        date_->setDate(platform::toQDate(workspace_.clock().localTime()));
        isPaid_->setChecked(true);
        setByStatus_ = true;
    } else if (!paid && setByStatus_) {
        isPaid_->setChecked(false);
        setByStatus_ = false;
    }
}

} // namespace hourwright::desktop
