#include "desktop/views.h"

#include "desktop/calendar/calendar_view.h"

namespace hourwright::desktop {

namespace {

class BlankView : public RecordView {
public:
    using RecordView::RecordView;
    void showView() override {}
    void reload() override {}
    [[nodiscard]] app::ViewTotals totals() const override { return {}; }
    [[nodiscard]] std::vector<store::RecordId> selection() const override { return {}; }
    void select(std::span<const store::RecordId> /*ids*/) override {}
    void selectAll() override {}
    [[nodiscard]] QString selectedText() const override { return {}; }
    bool findNext(const QString& /*text*/) override { return false; }
};

} // namespace

RecordView* makeListView(Workspace& /*workspace*/, app::ListStyle /*style*/, QWidget* parent) {
    return new BlankView(parent);
}

RecordView* makeCalendarView(Workspace& workspace, QWidget* parent) {
    return new CalendarView(workspace, parent);
}

QString filterDescription(Workspace& /*workspace*/) {
    return {};
}

} // namespace hourwright::desktop
