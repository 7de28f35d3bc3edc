#include "desktop/filters/date_range_fields.h"

#include "app/bulk_selection.h"
#include "desktop/editor/field_widgets.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_time.h"

#include <QFormLayout>

namespace hourwright::desktop {

QDateEdit* makeDateEdit(Workspace& workspace, QWidget* parent) {
    auto* edit = new DayEdit(workspace, parent);
    edit->setDate(platform::toQDate(workspace.clock().localTime()));
    return edit;
}

DateRangeFields::DateRangeFields(Workspace& workspace, QFormLayout& form, const resources::Text& firstLabel,
                                 const resources::Text& lastLabel)
    : workspace_(workspace), first_(makeDateEdit(workspace)), last_(makeDateEdit(workspace)) {
    first_->setObjectName("firstDay");
    last_->setObjectName("lastDay");
    form.addRow(platform::toQString(firstLabel), first_);
    form.addRow(platform::toQString(lastLabel), last_);
}

void DateRangeFields::setDays(const platform::SystemTime& first, const platform::SystemTime& last) {
    const auto put = [this](QDateEdit* edit, const platform::SystemTime& day) {
        const QDate date = platform::toQDate(day);
        edit->setDate(date.isValid() ? date : platform::toQDate(workspace_.clock().localTime()));
    };
    put(first_, first);
    put(last_, last);
}

platform::SystemTime DateRangeFields::firstDay() const {
    return platform::toSystemTime(first_->date());
}

platform::SystemTime DateRangeFields::lastDay() const {
    return platform::toSystemTime(last_->date());
}

bool DateRangeFields::check() {
    if (app::rangeIsInOrder(firstDay(), lastDay()))
        return true;
    workspace_.messages().showCheck(resources::StringId::periodEndBeforeStart);
    last_->setFocus();
    return false;
}

} // namespace hourwright::desktop
