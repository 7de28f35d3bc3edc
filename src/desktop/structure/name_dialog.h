#pragma once

#include "billing/structure_names.h"
#include "desktop/dialog.h"
#include "resources/text.h"

#include <functional>
#include <optional>
#include <string>

class QCheckBox;
class QLineEdit;

namespace hourwright::desktop {

/// Asks for one name, with a check box below when one is added. OK runs `accepted` with the name, its outer blanks
/// gone: true closes the dialog; a refusal by `check` before is shown.
class NameDialog : public Dialog {
    Q_OBJECT

public:
    NameDialog(Workspace& workspace, const QString& title, const resources::Text& label, std::string helpAnchor,
               QWidget* parent);

    void setName(const std::u16string& name);
    void addCheckBox(const resources::Text& text, bool checked);
    [[nodiscard]] bool isChecked() const;

    std::function<std::optional<billing::NameRefusal>(const std::u16string& name)> check;
    std::function<bool(const std::u16string& name)> accepted;

    void accept() override;

private:
    QLineEdit* name_;
    QCheckBox* box_ = nullptr;
};

/// Shows why a name was refused.
void showRefusal(Workspace& workspace, const billing::NameRefusal& refusal);

} // namespace hourwright::desktop
