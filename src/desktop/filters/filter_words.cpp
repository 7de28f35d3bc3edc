#include "app/filter_description.h"
#include "desktop/views.h"
#include "platform/qt/qt_text.h"

namespace hourwright::desktop {

QString filterDescription(Workspace& workspace) {
    const auto& settings = workspace.settings();
    if (workspace.view().records() == app::RecordKind::entries)
        return platform::toQString(app::describeFilter(
            workspace.entryFilter(),
            {settings.custom1Label.text(), settings.custom2Label.text(), settings.custom3Label.text()},
            workspace.locale()));
    return platform::toQString(app::describeFilter(
        workspace.expenseFilter(), {settings.expenseCustom1Label.text(), settings.expenseCustom2Label.text()},
        workspace.locale()));
}

} // namespace hourwright::desktop
