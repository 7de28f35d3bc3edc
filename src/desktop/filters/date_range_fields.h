#pragma once

#include "desktop/workspace.h"
#include "resources/text.h"

#include <QDateEdit>
#include <QObject>

class QFormLayout;

namespace hourwright::desktop {

/// A field for a day in the user's short form, with a calendar to pick it from.
[[nodiscard]] QDateEdit* makeDateEdit(Workspace& workspace, QWidget* parent = nullptr);

/// Two fields for the first and the last day of a range, as rows of a form.
class DateRangeFields {
public:
    DateRangeFields(Workspace& workspace, QFormLayout& form, const resources::Text& firstLabel,
                    const resources::Text& lastLabel);

    /// Days that have not been chosen are shown as today.
    void setDays(const platform::SystemTime& first, const platform::SystemTime& last);
    [[nodiscard]] platform::SystemTime firstDay() const;
    [[nodiscard]] platform::SystemTime lastDay() const;

    /// True when the days are in order; else says that they are not and goes to the last day.
    [[nodiscard]] bool check();

private:
    Workspace& workspace_;
    QDateEdit* first_;
    QDateEdit* last_;
};

} // namespace hourwright::desktop
