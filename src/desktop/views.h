#pragma once

#include "app/list_style.h"
#include "desktop/record_view.h"
#include "desktop/workspace.h"

namespace hourwright::desktop {

/// The list of time entries or expenses in a style.
[[nodiscard]] RecordView* makeListView(Workspace& workspace, app::ListStyle style, QWidget* parent);

/// Days, weeks and months as calendars.
[[nodiscard]] RecordView* makeCalendarView(Workspace& workspace, QWidget* parent);

/// What the filter of the records shown hides, in words; empty when it shows everything.
[[nodiscard]] QString filterDescription(Workspace& workspace);

} // namespace hourwright::desktop
