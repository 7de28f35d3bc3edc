#pragma once

#include "app/calendar/grid_geometry.h"
#include "app/calendar/grid_stops.h"
#include "app/calendar/time_drag.h"
#include "desktop/calendar/block_painter.h"
#include "desktop/record_view.h"

#include <QAbstractScrollArea>
#include <QTimer>

namespace hourwright::desktop {

/// Days side by side with their hours from top to bottom. Entries with a start time are blocks, which can be moved and
/// made longer or shorter with mouse and keyboard; empty time can be marked for a new entry. A finger scrolls; held on
/// a block for a moment it moves that one, or opens the menu when it is lifted there.
class TimeGrid : public QAbstractScrollArea {
    Q_OBJECT

public:
    TimeGrid(CalendarBoard& board, BlockPainter& painter, QWidget* parent);

    /// Begins with the hours of work and the cursor on them: the period is another one.
    void showFromStart();
    /// The entries were loaded anew; scroll position and cursor stay.
    void refresh();
    /// Puts the cursor on an entry and shows it.
    void goTo(std::size_t entry);

    /// The day of the column at a place.
    [[nodiscard]] platform::SystemTime dayAt(int x) const;
    /// Columns and hours, as the heading and the strip above have them too.
    [[nodiscard]] app::GridGeometry grid() const;
    /// Where an entry's block is in the viewport; null for an entry without a start time.
    [[nodiscard]] QRect blockRect(std::size_t entry) const;
    /// Where a stretch of a day is in the viewport.
    [[nodiscard]] QRect spanRect(int day, const app::MinuteSpan& span) const;

signals:
    void activated(hourwright::store::RecordId id);
    void contextMenuRequested(QPoint globalPosition);
    void placeMenuRequested(QPoint globalPosition, hourwright::desktop::EntrySeed seed);
    void newEntryRequested(hourwright::desktop::EntrySeed seed);
    void dayChosen(hourwright::platform::SystemTime day);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// What is under the mouse.
    struct Hit {
        std::optional<std::size_t> entry;
        app::DragKind kind = app::DragKind::mark;
        app::GridPoint point;
    };

    void measure();
    void paintGround(QPainter& painter, const QRect& exposed);
    void paintHours(QPainter& painter, const QRect& exposed);
    void paintBlocks(QPainter& painter, const QRect& exposed);
    void paintNow(QPainter& painter);
    void paintCursor(QPainter& painter);
    void paintDrag(QPainter& painter);

    [[nodiscard]] Hit hitAt(QPoint position) const;
    [[nodiscard]] app::GridPoint pointAt(QPoint position) const;
    [[nodiscard]] const app::TimeBlock* blockOf(std::size_t entry, int* day = nullptr) const;
    void startDrag();
    void held();
    void finishDrag();
    void scrollByTouch(int y);
    void tapped(bool wasSelected);
    void showPointer(QPoint position);
    void pressPlace(app::GridPoint point);
    [[nodiscard]] EntrySeed seedOf(const app::DayTimes& times, bool withLength) const;
    [[nodiscard]] EntrySeed seedOfCursor() const;
    void askForNew(const app::DayTimes& times, bool withLength);
    void askForMenu(QPoint position);

    bool moveKey(QKeyEvent* event);
    bool changeKey(QKeyEvent* event);
    void moveBy(int stops, bool select);
    void moveToDay(int day, bool select);
    void moveToMinute(int minute, bool select);
    void extendMark(int slotCount);
    void standOn(int day, const app::GridStop& stop, bool select);
    void shift(app::DragKind kind, int days, int minutes);
    void open();
    void showSpan(int day, const app::MinuteSpan& span);
    void describe();

    CalendarBoard& board_;
    BlockPainter& painter_;
    int hourHeight_ = 48;
    int gutter_ = 48;

    int day_ = 0; ///< of the cursor
    app::GridStop stop_;
    store::RecordId stopId_ = store::RecordId::none;
    std::optional<app::DayTimes> mark_; ///< by keyboard
    int markAnchor_ = 0;
    bool cursorShown_ = false; ///< the keyboard was used

    QPoint pressed_;
    std::optional<Hit> hit_; ///< while the button is down
    std::optional<app::TimeDrag> drag_;
    bool touch_ = false;
    bool wasSelected_ = false;
    int touchScroll_ = 0;
    QTimer longPress_;
    QTimer minute_;
};

} // namespace hourwright::desktop
