#pragma once

#include "desktop/dialog.h"

namespace hourwright::desktop {

/// Name and version of the program, its licence, where its data lies and the libraries it runs with. Its texts can be
/// selected and copied.
class AboutDialog : public Dialog {
    Q_OBJECT

public:
    AboutDialog(Workspace& workspace, QWidget* parent);

private:
    void addHeading();
    void addFacts();
};

} // namespace hourwright::desktop
