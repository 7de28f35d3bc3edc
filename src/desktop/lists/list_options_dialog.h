#pragma once

#include "app/column_layout.h"
#include "app/style_flags.h"
#include "desktop/dialog.h"

#include <array>

class QCheckBox;
class QListWidget;

namespace hourwright::desktop {

/// The options of the tree list and which columns the lists of the records shown have, in which order.
class ListOptionsDialog : public Dialog {
    Q_OBJECT

public:
    ListOptionsDialog(Workspace& workspace, QWidget* parent);

    void accept() override;

private:
    [[nodiscard]] QWidget* makeGroups();
    [[nodiscard]] QWidget* makeColumns();
    void showColumns();
    void moveCurrent(int places);

    app::ColumnList list_;
    app::ColumnLayout builtIn_;
    app::ColumnLayout layout_;
    std::array<QCheckBox*, 5> options_{};
    QListWidget* columns_ = nullptr;
};

} // namespace hourwright::desktop
