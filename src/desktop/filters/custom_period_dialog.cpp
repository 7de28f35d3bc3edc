#include "desktop/filters/custom_period_dialog.h"

#include "app/bulk_selection.h"
#include "platform/qt/qt_text.h"
#include "resources/texts/filters.h"

#include <QFormLayout>

namespace hourwright::desktop {

namespace texts = resources::filters;

// The days chosen last; at first those of the period that is shown.
CustomPeriodDialog::CustomPeriodDialog(Workspace& workspace, QWidget* parent)
    : Dialog(workspace, platform::toQString(texts::periodTitle), "window", parent) {
    days_.emplace(workspace, *addForm(), texts::firstDay, texts::lastDay);
    const auto& settings = workspace.settings();
    if (app::Period::custom(settings.periodStart, settings.periodEnd)) {
        days_->setDays(settings.periodStart, settings.periodEnd);
        return;
    }
    const app::Period& shown = workspace.view().period();
    days_->setDays(app::firstDayOf(shown), app::lastDayOf(shown));
}

void CustomPeriodDialog::accept() {
    if (!days_->check())
        return;
    workspace().settings().periodStart = days_->firstDay();
    workspace().settings().periodEnd = days_->lastDay();
    workspace().view().setKind(app::PeriodKind::custom);
    QDialog::accept();
    workspace().saveSettings();
}

} // namespace hourwright::desktop
