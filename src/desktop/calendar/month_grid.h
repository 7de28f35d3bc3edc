#pragma once

#include "desktop/calendar/block_painter.h"
#include "desktop/record_view.h"

#include <QTimer>
#include <QWidget>

namespace hourwright::desktop {

/// The weeks of a month with hours, amounts and as many entries of each day as there is room for.
class MonthGrid : public QWidget {
    Q_OBJECT

public:
    MonthGrid(CalendarBoard& board, BlockPainter& painter, QWidget* parent);

    /// The period is another one: the cursor goes to its current date.
    void showFromStart();
    /// The entries were loaded anew.
    void refresh();
    /// Puts the cursor on an entry's day.
    void goTo(std::size_t entry);

    [[nodiscard]] QSize minimumSizeHint() const override { return {280, 240}; }
    /// Where a day is.
    [[nodiscard]] QRect cellRect(int day) const;

signals:
    void activated(hourwright::store::RecordId id);
    void contextMenuRequested(QPoint globalPosition);
    void placeMenuRequested(QPoint globalPosition, hourwright::desktop::EntrySeed seed);
    void dayChosen(hourwright::platform::SystemTime day);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] int headingHeight() const;
    [[nodiscard]] int dayAt(QPoint position) const;
    [[nodiscard]] std::optional<std::size_t> entryAt(QPoint position) const;
    /// The entries shown in a cell and where; the rest is counted.
    [[nodiscard]] int rowsIn(int day) const;
    [[nodiscard]] QRect rowRect(int day, int row) const;
    [[nodiscard]] int lineHeight() const;
    void paintHeading(QPainter& painter);
    void paintCell(QPainter& painter, int day);
    void paintDots(QPainter& painter, const QRect& cell, const std::vector<std::size_t>& entries);
    void paintRows(QPainter& painter, int day, const std::vector<std::size_t>& entries);
    void moveTo(int day);
    void stepEntry(int direction);
    void askForMenu(QPoint position);
    void describe();

    CalendarBoard& board_;
    BlockPainter& painter_;
    int day_ = 0;
    QPoint pressed_;
    bool touch_ = false;
    bool wasSelected_ = false;
    QTimer longPress_;
};

} // namespace hourwright::desktop
