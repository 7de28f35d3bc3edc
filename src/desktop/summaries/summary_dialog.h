#pragma once

#include "billing/summary.h"
#include "billing/summary_row.h"
#include "desktop/dialog.h"

#include <vector>

class QComboBox;
class QTreeWidget;

namespace hourwright::desktop {

/// A two-column list of a summary, which can be copied as text.
class SummaryDialog : public Dialog {
public:
    SummaryDialog(Workspace& workspace, const QString& title, const std::vector<billing::SummaryRow>& rows,
                  QWidget* parent);

    void show(const std::vector<billing::SummaryRow>& rows);
    using Dialog::show;

private:
    QTreeWidget* list_;
};

/// The summary of all time recorded for a client, or one project or task of it, which are chosen above the list.
class ClientSummaryDialog : public SummaryDialog {
public:
    ClientSummaryDialog(Workspace& workspace, const billing::SummaryScope& scope, QWidget* parent);

private:
    void fillBelow();
    void refresh();

    QComboBox* client_;
    QComboBox* project_;
    QComboBox* task_;
};

} // namespace hourwright::desktop
