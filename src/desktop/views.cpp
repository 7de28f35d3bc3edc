#include "desktop/views.h"

#include "desktop/calendar/calendar_view.h"
#include "desktop/lists/list_view.h"

namespace hourwright::desktop {

RecordView* makeListView(Workspace& workspace, app::ListStyle style, QWidget* parent) {
    return new ListView(workspace, style, parent);
}

RecordView* makeCalendarView(Workspace& workspace, QWidget* parent) {
    return new CalendarView(workspace, parent);
}

} // namespace hourwright::desktop
