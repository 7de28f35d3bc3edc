#pragma once

#include "app/filter_choices.h"
#include "billing/replace_text.h"
#include "desktop/completing_combo.h"
#include "desktop/dialog.h"

class QLabel;
class QLineEdit;
class QProgressBar;

namespace hourwright::desktop {

/// Replaces a text in all records, as one step of undo. Once started it cannot be cancelled; a bar shows how far it is.
class ReplaceDialog : public Dialog {
    Q_OBJECT

public:
    ReplaceDialog(Workspace& workspace, QWidget* parent);

    void accept() override;
    void reject() override;

private:
    void addTypes();
    void offerTexts();
    [[nodiscard]] bool check(const billing::ReplaceRequest& request);
    void run(const billing::ReplaceRequest& request);
    [[nodiscard]] std::optional<billing::ReplaceCounts> replace(const billing::ReplaceRequest& request);
    void setRunning(bool running);
    void showProgress(std::size_t done, std::size_t total);

    app::FilterChoices choices_;
    QComboBox* type_;
    CompletingCombo* find_;
    QLineEdit* replacement_;
    QLabel* state_;
    QProgressBar* bar_;
    bool running_ = false;
};

} // namespace hourwright::desktop
