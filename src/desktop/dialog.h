#pragma once

#include "desktop/workspace.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <string>

class QFormLayout;
class QVBoxLayout;

namespace hourwright::desktop {

/// A modal window with OK, Cancel and Help. What stands between scrolls when the screen is too small for it; on a
/// handheld the dialog fills the screen. F1 and the button open the manual at the dialog's anchor; Ctrl+Enter and
/// Ctrl+S are OK from everywhere. A subclass fills `content`, and overrides `accept` to check what was typed: it calls
/// `QDialog::accept` only when all is well.
class Dialog : public QDialog {
    Q_OBJECT

public:
    Dialog(Workspace& workspace, const QString& title, std::string helpAnchor, QWidget* parent);

    [[nodiscard]] Workspace& workspace() { return workspace_; }
    /// Makes a form of labels and fields for a page or a group box; on a handheld the labels stand above the fields.
    [[nodiscard]] static QFormLayout* makeForm(QWidget* owner = nullptr);

protected:
    /// Where the dialog's controls go.
    [[nodiscard]] QVBoxLayout* content() { return content_; }
    [[nodiscard]] QDialogButtonBox* buttons() { return buttons_; }

    /// Such a form, appended to `content`.
    [[nodiscard]] QFormLayout* addForm();

    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void pressOk();

    Workspace& workspace_;
    std::string helpAnchor_;
    QVBoxLayout* content_;
    QDialogButtonBox* buttons_;
};

} // namespace hourwright::desktop
