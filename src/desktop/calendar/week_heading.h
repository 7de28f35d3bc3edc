#pragma once

#include "desktop/calendar/time_grid.h"

#include <QWidget>

namespace hourwright::desktop {

/// The headings over the days: weekday, date and hours. A click opens the day.
class WeekHeading : public QWidget {
    Q_OBJECT

public:
    WeekHeading(CalendarBoard& board, TimeGrid& grid, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

signals:
    void dayChosen(hourwright::platform::SystemTime day);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void paintDay(QPainter& painter, const QRect& rect, int day);
    [[nodiscard]] int dayAt(QPointF position) const;

    CalendarBoard& board_;
    TimeGrid& grid_;
    int hovered_ = -1;
};

/// The entries without a start time, above the hours. It is as high as they need, up to a few lines, and scrolls
/// beyond.
class UntimedStrip : public QAbstractScrollArea {
    Q_OBJECT

public:
    UntimedStrip(CalendarBoard& board, BlockPainter& painter, TimeGrid& grid, QWidget* parent);

    /// The entries were loaded anew.
    void refresh();
    /// Scrolls to an entry that stands here.
    void showEntry(std::size_t entry);
    /// Where an entry is in the viewport; null when it does not stand here.
    [[nodiscard]] QRect chipRect(std::size_t entry) const;

signals:
    void activated(hourwright::store::RecordId id);
    void contextMenuRequested(QPoint globalPosition);
    void placeMenuRequested(QPoint globalPosition, hourwright::desktop::EntrySeed seed);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] int rowCount() const;
    [[nodiscard]] QRect rowRect(int day, int row) const;
    [[nodiscard]] std::optional<std::size_t> entryAt(QPoint position) const;
    void askForMenu(QPoint position);
    void updateRange();

    CalendarBoard& board_;
    BlockPainter& painter_;
    TimeGrid& grid_;
    QPoint pressed_;
    bool wasSelected_ = false;
    std::optional<int> scrolledFrom_; ///< while a finger scrolls
    QTimer longPress_;
};

} // namespace hourwright::desktop
