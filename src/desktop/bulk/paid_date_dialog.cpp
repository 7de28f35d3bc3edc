#include "desktop/bulk/paid_date_dialog.h"

#include "app/bulk_selection.h"
#include "desktop/filters/date_range_fields.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"
#include "resources/texts/bulk.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace hourwright::desktop {

namespace texts = resources::bulk;
using platform::toQString;

PaidDateDialog::PaidDateDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, toQString(texts::paidDateTitle), "bulk", parent), date_(makeDateEdit(workspace)) {
    const auto addLine = [this](const QString& text) {
        auto* label = new QLabel(text);
        label->setWordWrap(true);
        content()->addWidget(label);
    };
    addLine(toQString(texts::paidDateText));
    addLine(toQString(resources::StringId::paidDateHint));
    date_->setObjectName("paidDate");
    addForm()->addRow(toQString(texts::paidDate), date_);
    date_->setFocus();
}

platform::FileTime PaidDateDialog::paidDate() {
    return app::paidInstant(platform::toSystemTime(date_->date()), workspace().clock().localTime());
}

} // namespace hourwright::desktop
