#pragma once

#include "billing/structure_edit.h"
#include "desktop/dialog.h"

#include <map>
#include <memory>

class QAction;
class QLineEdit;
class QMenu;
class QPushButton;

namespace hourwright::desktop {

class StructureTree;

/// The client structure as a tree in which everything can be found, added, renamed, deleted and handed to another
/// client. Each change is stored at once.
class ClientSetupDialog : public Dialog {
    Q_OBJECT

public:
    ClientSetupDialog(Workspace& workspace, QWidget* parent);

    [[nodiscard]] StructureTree& tree() { return *tree_; }
    /// The dialogs that the buttons open for the selected row; null when there is nothing to do.
    [[nodiscard]] std::unique_ptr<Dialog> addDialog(billing::StructureKind kind);
    [[nodiscard]] std::unique_ptr<Dialog> addRateDialog();
    [[nodiscard]] std::unique_ptr<Dialog> editDialog();
    [[nodiscard]] std::unique_ptr<Dialog> migrateDialog();
    [[nodiscard]] std::unique_ptr<Dialog> summaryDialog();
    void deleteSelected();

private:
    void build();
    void buildMenu();
    void addKey(QKeySequence key, std::function<void()> run);
    void reload();
    void updateButtons();
    void showMenu(QPoint position);
    static void run(std::unique_ptr<Dialog> dialog);

    QLineEdit* search_;
    StructureTree* tree_;
    QMenu* addMenu_;
    std::map<billing::StructureKind, QAction*> addActions_;
    QAction* addRate_ = nullptr;
    QPushButton* addButton_ = nullptr;
    QPushButton* editButton_ = nullptr;
    QPushButton* deleteButton_ = nullptr;
    QPushButton* migrateButton_ = nullptr;
    QPushButton* summaryButton_ = nullptr;
};

} // namespace hourwright::desktop
