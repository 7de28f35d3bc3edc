#pragma once

#include "desktop/dialog.h"
#include "desktop/filters/filter_form.h"

class QComboBox;
class QTabWidget;

namespace hourwright::desktop {

/// "Customize Default View": what the program shows when it starts, for time entries and for expenses: kind of period,
/// layout, and the part of the filter that is kept. Accepted, it is stored and shown at once; custom fields and dates
/// that are filtered for now go on being so.
class DefaultViewDialog : public Dialog {
    Q_OBJECT

public:
    DefaultViewDialog(Workspace& workspace, QWidget* parent);

    void accept() override;

private:
    struct Page {
        QComboBox* period = nullptr;
        QComboBox* layout = nullptr;
    };
    [[nodiscard]] Page addPage(const resources::Text& title, FilterForm* form, bool withCalendar);
    void displayViews();
    void storeViews();

    QTabWidget* tabs_;
    EntryFilterForm* entryForm_;
    ExpenseFilterForm* expenseForm_;
    Page entries_;
    Page expenses_;
};

} // namespace hourwright::desktop
