#pragma once

#include "desktop/dialog.h"

#include <vector>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace hourwright::desktop {

/// The changes that can be undone and redone, the newest first. From the selected one its button goes back to the
/// state before it, or forth to the state behind it.
class HistoryDialog : public Dialog {
    Q_OBJECT

public:
    HistoryDialog(Workspace& workspace, QWidget* parent);

    [[nodiscard]] QTreeWidget* list() { return list_; }
    /// Undoes or redoes up to the selected change; it stops at the first that is refused.
    void goToSelected();

private:
    void fill();
    void selectionChanged();
    [[nodiscard]] const platform::HistoryStep* selected() const;

    std::vector<platform::HistoryStep> steps_; // the newest first, as listed
    QLabel* empty_;
    QTreeWidget* list_;
    QPushButton* go_;
};

} // namespace hourwright::desktop
