#pragma once

#include "billing/summary_breakdown.h"
#include "desktop/dialog.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace hourwright::desktop {

/// The hours and amounts of the current view by client, project and task, each as a number, a percentage and a bar.
class BreakdownDialog : public Dialog {
public:
    BreakdownDialog(Workspace& workspace, const billing::Breakdown& breakdown, QWidget* parent);

private:
    void fill(const billing::Breakdown& breakdown);
    void addTotal(const billing::Breakdown& whole);
    void setHours(QTreeWidgetItem& item, double hours, const billing::Breakdown& whole);
    void setAmounts(QTreeWidgetItem& item, const billing::Amounts& amounts, const billing::Breakdown& whole);
    [[nodiscard]] QString number(double value);
    void setRow(QTreeWidgetItem& item, const billing::BreakdownRow& row, const billing::Breakdown& whole);
    [[nodiscard]] QString asText() const;

    QTreeWidget* tree_;
};

} // namespace hourwright::desktop
