#pragma once

#include "desktop/dialog.h"
#include "store/structure_records.h"

#include <memory>
#include <optional>
#include <vector>

class QComboBox;
class QPushButton;
class QTreeWidget;

namespace hourwright::desktop {

/// The rates of one client, or those of every client, to add, edit and delete. Each change is stored at once.
class RateSetupDialog : public Dialog {
    Q_OBJECT

public:
    RateSetupDialog(Workspace& workspace, QWidget* parent);

    void showClient(std::uint32_t clientId);

    /// The dialogs that the buttons open; null when no rate is selected.
    [[nodiscard]] std::unique_ptr<Dialog> addDialog();
    [[nodiscard]] std::unique_ptr<Dialog> editDialog();
    void deleteSelected();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void reloadClients();
    void reloadRates();
    void updateButtons();
    [[nodiscard]] std::optional<store::RateRecord> current() const;
    void select(store::RecordId id);

    QComboBox* client_;
    QTreeWidget* list_;
    QPushButton* edit_ = nullptr;
    QPushButton* delete_ = nullptr;
    std::vector<store::RateRecord> rates_;
};

} // namespace hourwright::desktop
