#pragma once

#include "desktop/dialog.h"
#include "resources/text.h"

#include <cstdint>
#include <string>
#include <vector>

class QComboBox;
class QListWidget;

namespace hourwright::desktop {

/// Hands checked projects and tasks of one client to another.
class MigrateDialog : public Dialog {
    Q_OBJECT

public:
    MigrateDialog(Workspace& workspace, std::uint32_t from, QWidget* parent);

    void accept() override;

private:
    QListWidget* addList(const resources::Text& label, const std::vector<std::u16string>& names);
    void fillTargets();

    std::uint32_t from_;
    QComboBox* target_;
    QListWidget* projects_ = nullptr;
    QListWidget* tasks_ = nullptr;
};

} // namespace hourwright::desktop
