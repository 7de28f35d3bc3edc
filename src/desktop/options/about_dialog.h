#pragma once

#include "desktop/dialog.h"
#include "resources/text.h"

class QLabel;

namespace hourwright::desktop {

/// Name and version of the program, its licence, where its data lies and the libraries it runs with. A button copies
/// all of that.
class AboutDialog : public Dialog {
    Q_OBJECT

public:
    AboutDialog(Workspace& workspace, QWidget* parent);

    /// What the button copies: a line for name and version, and one for each fact.
    [[nodiscard]] QString summary() const;

private:
    void addHeading();
    void addFacts();
    void addFact(const resources::Text& label, const QString& fact, QLabel* shown);

    QFormLayout* form_ = nullptr;
    QString facts_;
};

} // namespace hourwright::desktop
