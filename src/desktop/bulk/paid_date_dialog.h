#pragma once

#include "desktop/dialog.h"

class QDateEdit;

namespace hourwright::desktop {

/// Asks for the date on which entries were paid; it begins with today.
class PaidDateDialog : public Dialog {
    Q_OBJECT

public:
    PaidDateDialog(Workspace& workspace, QWidget* parent);

    [[nodiscard]] platform::FileTime paidDate();

private:
    QDateEdit* date_;
};

} // namespace hourwright::desktop
