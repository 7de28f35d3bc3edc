#pragma once

#include "desktop/dialog.h"
#include "desktop/filters/date_range_fields.h"

#include <optional>

namespace hourwright::desktop {

/// Asks for the first and the last day of the custom period; when it is accepted, the current view shows that period.
class CustomPeriodDialog : public Dialog {
    Q_OBJECT

public:
    CustomPeriodDialog(Workspace& workspace, QWidget* parent);

    void accept() override;

private:
    std::optional<DateRangeFields> days_;
};

} // namespace hourwright::desktop
