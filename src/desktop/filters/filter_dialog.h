#pragma once

#include "desktop/dialog.h"
#include "desktop/filters/filter_form.h"

namespace hourwright::desktop {

/// "Custom..." of the Filter menu for time entries: what it shows when it is accepted becomes the filter.
class EntryFilterDialog : public Dialog {
    Q_OBJECT

public:
    EntryFilterDialog(Workspace& workspace, QWidget* parent);

    void accept() override;

private:
    EntryFilterForm* form_;
};

/// The same for expenses.
class ExpenseFilterDialog : public Dialog {
    Q_OBJECT

public:
    ExpenseFilterDialog(Workspace& workspace, QWidget* parent);

    void accept() override;

private:
    ExpenseFilterForm* form_;
};

} // namespace hourwright::desktop
