#pragma once

#include "desktop/dialog.h"
#include "desktop/options/option_page.h"

namespace hourwright::desktop {

/// The options: eight pages, as tabs, or on a handheld behind a list of their names. Accepted, they are stored and take
/// effect; only the kind of menus waits for the next start, so the dialog says then that the window closes.
class OptionsDialog : public Dialog {
    Q_OBJECT

public:
    OptionsDialog(Workspace& workspace, QWidget* parent);

    void accept() override;

signals:
    /// The window is to be closed, for its menus are others at the next start.
    void closeRequested();

private:
    void makePages();
    OptionPage* addPage(const resources::Text& title);
    void showAsTabs();
    void showAsList();

    app::OptionsDraft draft_;
    std::vector<OptionPage*> pages_;
};

} // namespace hourwright::desktop
