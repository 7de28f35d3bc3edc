#pragma once

#include "desktop/dialog.h"
#include "store/pick_lists.h"

#include <memory>
#include <string>
#include <vector>

class QComboBox;
class QListWidget;
class QPushButton;

namespace hourwright::desktop {

/// The learned lists, with items to add, change and delete. Records keep their texts. Each change is stored at once.
class DropListsDialog : public Dialog {
    Q_OBJECT

public:
    DropListsDialog(Workspace& workspace, QWidget* parent);

    [[nodiscard]] std::unique_ptr<Dialog> addDialog();
    /// Null when not exactly one item is selected.
    [[nodiscard]] std::unique_ptr<Dialog> changeDialog();
    void deleteSelected();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void fillLists();
    void reload();
    void updateButtons();
    void select(const std::u16string& text);
    [[nodiscard]] store::PickList list() const;
    [[nodiscard]] std::vector<std::u16string> selection() const;
    [[nodiscard]] std::unique_ptr<Dialog> textDialog(const std::u16string& former);

    QComboBox* list_;
    QListWidget* items_;
    QPushButton* change_ = nullptr;
    QPushButton* delete_ = nullptr;
};

} // namespace hourwright::desktop
