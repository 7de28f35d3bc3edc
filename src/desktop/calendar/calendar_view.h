#pragma once

#include "desktop/calendar/month_grid.h"
#include "desktop/calendar/week_heading.h"

class QStackedLayout;

namespace hourwright::desktop {

/// Time entries of a day, a week or a month as a calendar.
class CalendarView : public RecordView {
    Q_OBJECT

public:
    CalendarView(Workspace& workspace, QWidget* parent);

    void showView() override;
    void reload() override;
    [[nodiscard]] app::ViewTotals totals() const override { return board_.calendar().totals(); }
    [[nodiscard]] std::vector<store::RecordId> selection() const override { return board_.selection(); }
    void select(std::span<const store::RecordId> ids) override;
    void selectAll() override;
    [[nodiscard]] QString selectedText() const override;
    [[nodiscard]] Found findNext(const QString& text) override;

private:
    void connectParts();
    void refreshParts();
    void goTo(std::size_t entry);

    Workspace& workspace_;
    CalendarBoard board_;
    BlockPainter painter_;
    QStackedLayout* pages_ = nullptr;
    TimeGrid* grid_ = nullptr;
    WeekHeading* heading_ = nullptr;
    UntimedStrip* strip_ = nullptr;
    MonthGrid* month_ = nullptr;
    std::optional<app::Period> shown_;
};

} // namespace hourwright::desktop
