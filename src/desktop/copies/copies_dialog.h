#pragma once

// The toolkit's compiler does not understand all of the standard library.
#ifndef Q_MOC_RUN
#include "app/copy_list.h"
#endif
#include "desktop/dialog.h"
#include "platform/store_copies.h"

#include <memory>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace hourwright::desktop {

/// The copies that are kept of the records. Its buttons make one, verify them, and go back to one, for which the
/// program has to end. Long work is done on another thread.
class CopiesDialog : public Dialog {
    Q_OBJECT

public:
    CopiesDialog(Workspace& workspace, QWidget* parent);

    /// True once it was closed because a copy is to be restored: the program should end, the next start does it.
    [[nodiscard]] bool wantsRestart() const { return wantsRestart_; }

    [[nodiscard]] QTreeWidget* list() { return list_; }
    void makeNow();
    void verifyAll();
    void restoreSelected();

private:
    void reload();
    void fill();
    void selectionChanged();
    void restart();
    [[nodiscard]] const app::CopyRow* selected() const;

    std::unique_ptr<platform::StoreCopies> copies_;
    app::CopyList rows_;
    QLabel* empty_;
    QTreeWidget* list_;
    QPushButton* verify_ = nullptr;
    QPushButton* restore_ = nullptr;
    bool wantsRestart_ = false;
};

} // namespace hourwright::desktop
